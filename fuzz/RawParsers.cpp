// Any text as a raw record: every parser, and the search for fields against a plain one.
#include <string>

#include "FuzzFile.h"
#include "io/Strings.h"
#include "raw/CRawFile.h"

namespace zelconvert {
namespace {

/// The field as it is defined: the first ",TG" of the text, up to the next comma.
bool SearchField(std::string_view record, std::string_view tag, std::string& value) {
  const std::size_t at = std::string(record).find("," + std::string(tag));
  if (at == std::string::npos) return false;
  value = record.substr(at + 3);
  value = value.substr(0, value.find(','));
  return true;
}

void CheckField(std::string_view record, FieldTag tag) {
  std::string expected = "none";
  std::string_view found = "none";
  Require(CRawFile::GetField(record, tag, found) == SearchField(record, tag, expected));
  Require(found == expected);
}

template <class... Records>
void ParseAs(std::string_view text) {
  const auto parse = [&]<class Record>(Record once, Record again) {
    Require(CRawFile::Parse(text, once) == CRawFile::Parse(text, again));
  };
  (parse(Records(), Records()), ...);
}

void CheckRecord(std::string_view text) {
  Require(static_cast<int>(CRawFile::GetRecordType(text)) < kRawRecordTypes);
  CheckField(text, "PN");
  CheckField(text, "N ");
  CheckField(text, "--");
  CheckField(text, "SD");
  ParseAs<JB_RECORD, MO_RECORD, POINT_RECORD, OC_RECORD, AP_RECORD, BK_RECORD, LS_RECORD,
          SHOT_RECORD, STAKE_SHOT_RECORD, ROUND_BACKSIGHT_RECORD, ROUND_FORESIGHT_RECORD,
          DIRECTION_RECORD, SET_DISTANCE_RECORD, NAME_RECORD, CF_RECORD, SLOPE_RECORD,
          STAKED_DELTA_RECORD, STATION_ERROR_RECORD, RX_RECORD, EQ_RECORD, AH_RECORD, BP_RECORD,
          EP_RECORD, BL_RECORD, CV_RECORD, GQ_RECORD, GP_RECORD, GO_RECORD, ES_RECORD, ST_RECORD,
          PJ_RECORD, PE_RECORD, DT_RECORD, FILE_RECORD, HA_RECORD, VA_RECORD, CT_RECORD, CS_RECORD,
          CG_RECORD, LM_RECORD, SC_RECORD, CR_RECORD, IM_RECORD>(text);
}

/// A point that was read is written and read again as it was.
void CheckRoundTrip(std::string_view text) {
  POINT_RECORD point;
  if (!CRawFile::Parse(text, point) || text.size() > 300) return;
  const std::wstring path = MemoryFiles::Path(L"out.raw");
  CRawFile out;
  Require(out.OpenForWrite(path));
  out.WriteSP(point);
  Require(out.Close());
  std::string_view line;
  POINT_RECORD again;
  CRawFile in;
  Require(in.Open(path, platform::kOpenReadWrite) && in.ReadRecord(line));
  Require(FromUtf8(line).size() == 511 || CRawFile::Parse(line, again));
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  const std::string text = ToUtf8(ToWide({reinterpret_cast<const char*>(data), size}));
  std::string_view rest = text;
  CheckRoundTrip(rest.substr(0, rest.find('\n')));
  while (!rest.empty()) {
    const std::size_t end = rest.find('\n');
    CheckRecord(rest.substr(0, end));
    rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
  }
  return 0;
}
