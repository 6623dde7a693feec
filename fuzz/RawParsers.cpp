// Any text as a raw record: every parser, and the search for fields against a plain one.
#include <string>

#include "FuzzFile.h"
#include "io/Strings.h"
#include "raw/CRawFile.h"

namespace zelconvert {
namespace {

/// The field as it is defined: the first ",TG" of the text, up to the next comma.
bool SearchField(std::wstring_view record, std::wstring_view tag, std::wstring& value) {
  const std::size_t at = std::wstring(record).find(L"," + std::wstring(tag));
  if (at == std::wstring::npos) return false;
  value = record.substr(at + 3);
  value = value.substr(0, value.find(L','));
  return true;
}

void CheckField(std::wstring_view record, FieldTag tag) {
  std::wstring expected = L"none";
  std::wstring_view found = L"none";
  Require(CRawFile::GetField(record, tag, found) == SearchField(record, tag, expected));
  Require(found == expected);
}

template <class... Records>
void ParseAs(std::wstring_view text) {
  const auto parse = [&]<class Record>(Record once, Record again) {
    Require(CRawFile::Parse(text, once) == CRawFile::Parse(text, again));
  };
  (parse(Records(), Records()), ...);
}

void CheckRecord(std::wstring_view text) {
  Require(static_cast<int>(CRawFile::GetRecordType(text)) < kRawRecordTypes);
  CheckField(text, L"PN");
  CheckField(text, L"N ");
  CheckField(text, L"--");
  CheckField(text, L"SD");
  ParseAs<JB_RECORD, MO_RECORD, POINT_RECORD, OC_RECORD, AP_RECORD, BK_RECORD, LS_RECORD,
          SHOT_RECORD, STAKE_SHOT_RECORD, ROUND_BACKSIGHT_RECORD, ROUND_FORESIGHT_RECORD,
          DIRECTION_RECORD, SET_DISTANCE_RECORD, NAME_RECORD, CF_RECORD, SLOPE_RECORD,
          STAKED_DELTA_RECORD, STATION_ERROR_RECORD, RX_RECORD, EQ_RECORD, AH_RECORD, BP_RECORD,
          EP_RECORD, BL_RECORD, CV_RECORD, GQ_RECORD, GP_RECORD, GO_RECORD, ES_RECORD, ST_RECORD,
          PJ_RECORD, PE_RECORD, DT_RECORD, FILE_RECORD, HA_RECORD, VA_RECORD, CT_RECORD, CS_RECORD,
          CG_RECORD, LM_RECORD, SC_RECORD, CR_RECORD, IM_RECORD>(text);
}

/// A point that was read is written and read again as it was.
void CheckRoundTrip(std::wstring_view text) {
  POINT_RECORD point;
  if (!CRawFile::Parse(text, point) || text.size() > 300) return;
  const std::wstring path = MemoryFiles::Path(L"out.raw");
  CRawFile out;
  Require(out.OpenForWrite(path));
  out.WriteSP(point);
  Require(out.Close());
  std::wstring line;
  POINT_RECORD again;
  CRawFile in;
  Require(in.Open(path, platform::kOpenReadWrite) && in.ReadRecord(line));
  Require(line.size() == 511 || CRawFile::Parse(line, again));
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  const std::wstring text = ToWide({reinterpret_cast<const char*>(data), size});
  CheckRoundTrip(Left(text, text.find(L'\n')));
  std::wstring_view rest = text;
  while (!rest.empty()) {
    const std::size_t end = rest.find(L'\n');
    CheckRecord(rest.substr(0, end));
    rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
  }
  return 0;
}
