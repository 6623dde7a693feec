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

template <class Record, std::size_t N>
void ParseAll(std::wstring_view text, bool (*const (&parsers)[N])(std::wstring_view, Record&)) {
  for (const auto parse : parsers) {
    Record once, again;
    Require(parse(text, once) == parse(text, again));
  }
}

#define ZEL_PARSERS(Record, ...)                                         \
  {                                                                      \
    bool (*const parsers[])(std::wstring_view, Record&) = {__VA_ARGS__}; \
    ParseAll(text, parsers);                                             \
  }

void CheckRecord(std::wstring_view text) {
  using F = CRawFile;
  Require(static_cast<int>(F::GetRecordType(text)) < kRawRecordTypes);
  CheckField(text, L"PN");
  CheckField(text, L"N ");
  CheckField(text, L"--");
  CheckField(text, L"SD");
  ZEL_PARSERS(JB_RECORD, F::ParseJB)
  ZEL_PARSERS(MO_RECORD, F::ParseMO)
  ZEL_PARSERS(POINT_RECORD, F::ParseOC, F::ParseSP, F::ParseGS, F::ParseRP, F::ParseAP)
  ZEL_PARSERS(BK_RECORD, F::ParseBK)
  ZEL_PARSERS(LS_RECORD, F::ParseLS)
  ZEL_PARSERS(SHOT_RECORD, F::ParseTR, F::ParseSS)
  ZEL_PARSERS(STAKE_SHOT_RECORD, F::ParseSK)
  ZEL_PARSERS(ROUND_SHOT_RECORD, F::ParseRB, F::ParseRF)
  ZEL_PARSERS(DIRECTION_RECORD, F::ParseRD)
  ZEL_PARSERS(SET_DISTANCE_RECORD, F::ParseMD)
  ZEL_PARSERS(NAME_RECORD, F::ParseDP, F::ParseDE, F::ParseGK)
  ZEL_PARSERS(CF_RECORD, F::ParseCF)
  ZEL_PARSERS(SLOPE_RECORD, F::ParseSL, F::ParseSR)
  ZEL_PARSERS(STAKED_DELTA_RECORD, F::ParseSD)
  ZEL_PARSERS(STATION_ERROR_RECORD, F::ParseOE)
  ZEL_PARSERS(RX_RECORD, F::ParseRX)
  ZEL_PARSERS(EQ_RECORD, F::ParseEQ)
  ZEL_PARSERS(AH_RECORD, F::ParseAH)
  ZEL_PARSERS(BP_RECORD, F::ParseBP)
  ZEL_PARSERS(EP_RECORD, F::ParseEP)
  ZEL_PARSERS(BL_RECORD, F::ParseBL)
  ZEL_PARSERS(CV_RECORD, F::ParseCV)
  ZEL_PARSERS(GQ_RECORD, F::ParseGQ)
  ZEL_PARSERS(GP_RECORD, F::ParseGP)
  ZEL_PARSERS(GO_RECORD, F::ParseGO)
  ZEL_PARSERS(ES_RECORD, F::ParseES)
  ZEL_PARSERS(ST_RECORD, F::ParseST)
  ZEL_PARSERS(PJ_RECORD, F::ParsePJ)
  ZEL_PARSERS(PE_RECORD, F::ParsePE)
  ZEL_PARSERS(DT_RECORD, F::ParseDT)
  ZEL_PARSERS(FILE_RECORD, F::ParseDG, F::ParseSG)
  ZEL_PARSERS(HA_RECORD, F::ParseHA)
  ZEL_PARSERS(VA_RECORD, F::ParseVA)
  ZEL_PARSERS(CT_RECORD, F::ParseCT)
  ZEL_PARSERS(CS_RECORD, F::ParseCS)
  ZEL_PARSERS(CG_RECORD, F::ParseCG)
  ZEL_PARSERS(LM_RECORD, F::ParseLM)
  ZEL_PARSERS(SC_RECORD, F::ParseSC)
  ZEL_PARSERS(CR_RECORD, F::ParseCR)
  ZEL_PARSERS(IM_RECORD, F::ParseIM)
}

/// A point that was read is written and read again as it was.
void CheckRoundTrip(std::wstring_view text) {
  POINT_RECORD point;
  if (!CRawFile::ParseSP(text, point) || text.size() > 300) return;
  const std::wstring path = FuzzDir().Path(L"out.raw");
  CRawFile out;
  Require(out.OpenForWrite(path) && out.WriteSP(point) && out.Close());
  std::wstring line;
  POINT_RECORD again;
  CRawFile in;
  Require(in.Open(path, platform::kOpenReadWrite) && in.ReadRecord(line));
  Require(line.size() == 511 || CRawFile::ParseSP(line, again));
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  if (size > 4096) return 0;
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
