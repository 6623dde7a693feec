// Every reader of CDcFile on any line, and the columns of what was read: written once they may come
// out otherwise, but written again they stay.

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

#include "FuzzFile.h"
#include "convert/ConversionBase.h"
#include "dc/CDcFile.h"
#include "dc/ProjectionCodes.h"

namespace zelconvert {
namespace {

template <class R>
std::wstring Rewrite(std::wstring_view line) {
  R record;
  CDcFile::Read(DcLine(ToNarrow(line)), record);
  Require(record.type == R::kType && record.subtype.size() <= 2);
  std::string written = ToNarrow(R::kHead);
  CutNames cut;
  WriteColumns(written, kColumns<R>, record, cut);
  return ToWide(written);
}

// A number that fills its column may have lost digits, and loses one more each time.
template <class R>
bool HasFullNumber(std::wstring_view line) {
  return std::any_of(std::begin(kColumns<R>), std::end(kColumns<R>),
                     [line](const Column<R>& column) {
                       return column.member.kind == MemberKind::Real &&
                              Mid(line, static_cast<std::size_t>(column.start), 1) != L" ";
                     });
}

// Twice before it has to stay: "inf" is read as 0, and -99899999.999999 is written as a null.
template <class R>
void RequireStable(std::wstring_view line) {
  const std::wstring once = Rewrite<R>(line);
  const std::wstring twice = Rewrite<R>(once);
  Require(HasFullNumber<R>(twice) || Rewrite<R>(twice) == twice);
}

void ReadSettings(std::wstring_view line) {
  RequireStable<tDC_JOBRecord>(line);
  RequireStable<tDC_NOTERecord>(line);
  RequireStable<tDC_POST_PROCESSRecord>(line);
  RequireStable<tDC_COGORecord>(line);
  RequireStable<tDC_COGO_OLDRecord>(line);
  tDC_HEADERRecord header;
  try {
    CDcFile::Read(DcLine(ToNarrow(line)), header);
    Require(line.size() >= 45);
  } catch (const ConversionFailure&) {
    Require(line.size() < 45);
  }
}

void ReadPositions(std::wstring_view line) {
  RequireStable<tDC_GRID_POSITIONRecord>(line);
  RequireStable<tDC_GPS_POSITIONRecord>(line);
  RequireStable<tDC_LOCAL_POSITIONRecord>(line);
  Rewrite<tDC_SETUP_Record>(line);  // a number can widen its integers
}

void ReadSystem(std::wstring_view line) {
  RequireStable<tDC_PROJECTIONRecord>(line);
  RequireStable<tDC_PROJECTION_EXTRecord>(line);
  RequireStable<tDC_ELLIPSOIDRecord>(line);
  RequireStable<tDC_LOCAL_SITERecord>(line);
  RequireStable<tDC_DATUMRecord>(line);
  RequireStable<tDC_DATUM_GRIDRecord>(line);
  RequireStable<tDC_HORIZONTAL_ADJUSTRecord>(line);
  RequireStable<tDC_VERTICAL_ADJUSTRecord>(line);
  RequireStable<tDC_COORDINATE_SYSTEMRecord>(line);
  RequireStable<tDC_ZONE_LABELRecord>(line);
}

void ReadLine(const DcLine& line) {
  std::wstring text;
  line.GetText(line.Columns(), text);
  const int subtype = CDcFile::GetRecordSubtype(line);
  Require(subtype == kDcSubtypeCount || CDcFile::GetSubtypeString(subtype) == Mid(text, 2, 2));
  Require(CDcFile::IsDeleted(line) == (subtype == kDcDeletedSubtype));
  CDcFile::GetRecordType(line);
  ReadSettings(text);
  ReadPositions(text);
  ReadSystem(text);
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  return RunOnFile(L"in.dc", data, size, [](const std::wstring& input) {
    CDcFile file;
    Require(file.OpenForRead(input));
    for (DcLine line; file.ReadLine(line);) ReadLine(line);
  });
}
