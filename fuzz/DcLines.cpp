// Every reader of CDcFile on any line, and the columns of what was read: written once they may come
// out otherwise, but written again they stay.

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

#include "FuzzFile.h"
#include "convert/ConversionBase.h"
#include "dc/CDcFile.h"
#include "dc/DcColumns.h"
#include "dc/ProjectionCodes.h"

namespace zelconvert {
namespace {

template <class R, std::size_t N>
std::wstring Rewrite(std::wstring_view line, bool (*read)(std::wstring_view, R&),
                     const Column<R> (&columns)[N]) {
  R record;
  if (!read(line, record)) return std::wstring(line);
  Require(record.type == R::kType && record.subtype.size() <= 2);
  std::wstring written(R::kHead);
  CutNames cut;
  WriteColumns(written, columns, record, cut);
  return written;
}

// A number that fills its column may have lost digits, and loses one more each time.
template <class R, std::size_t N>
bool HasFullNumber(std::wstring_view line, const Column<R> (&columns)[N]) {
  return std::any_of(std::begin(columns), std::end(columns), [line](const Column<R>& column) {
    return std::holds_alternative<double R::*>(column.member) &&
           Mid(line, static_cast<std::size_t>(column.start), 1) != L" ";
  });
}

// Twice before it has to stay: "inf" is read as 0, and -99899999.999999 is written as a null.
template <class R, std::size_t N>
void RequireStable(std::wstring_view line, bool (*read)(std::wstring_view, R&),
                   const Column<R> (&columns)[N]) {
  const std::wstring once = Rewrite(line, read, columns);
  const std::wstring twice = Rewrite(once, read, columns);
  Require(HasFullNumber(twice, columns) || Rewrite(twice, read, columns) == twice);
}

void ReadSettings(std::wstring_view line) {
  RequireStable(line, CDcFile::ReadJob, kJobColumns);
  RequireStable(line, CDcFile::ReadNote, kNoteColumns);
  RequireStable(line, CDcFile::ReadPostProcess, kPostProcessColumns);
  RequireStable(line, CDcFile::ReadCogo, kCogoColumns);
  RequireStable(line, CDcFile::ReadCogoOld, kCogoOldColumns);
  tDC_HEADERRecord header;
  try {
    CDcFile::ReadHeader(line, header);
    Require(line.size() >= 45);
  } catch (const ConversionFailure&) {
    Require(line.size() < 45);
  }
  tDC_BACKSIGHTRecord backsight;
  CDcFile::ReadBacksight(line, backsight);
}

void ReadPositions(std::wstring_view line) {
  RequireStable(line, CDcFile::ReadGridPosition, kGridPositionColumns);
  RequireStable(line, CDcFile::ReadGpsPosition, kGpsPositionColumns);
  RequireStable(line, CDcFile::ReadLocalPosition, kLocalPositionColumns);
  Rewrite(line, CDcFile::ReadSetup, kSetupColumns);  // a number can widen its integers
}

void ReadSystem(std::wstring_view line) {
  RequireStable(line, CDcFile::ReadProjection, kProjectionColumns);
  RequireStable(line, CDcFile::ReadProjectionExt, kProjectionExtColumns);
  RequireStable(line, CDcFile::ReadEllipsoid, kEllipsoidColumns);
  RequireStable(line, CDcFile::ReadLocalSite, kLocalSiteColumns);
  RequireStable(line, CDcFile::ReadDatum, kDatumColumns);
  RequireStable(line, CDcFile::ReadDatumGrid, kDatumGridColumns);
  RequireStable(line, CDcFile::ReadHorizontalAdjust, kHorizontalAdjustColumns);
  RequireStable(line, CDcFile::ReadVerticalAdjust, kVerticalAdjustColumns);
  RequireStable(line, CDcFile::ReadCoordinateSystem, kCoordinateSystemColumns);
  RequireStable(line, CDcFile::ReadZoneLabel, kZoneLabelColumns);
}

void ReadLine(std::wstring_view line) {
  const int subtype = CDcFile::GetRecordSubtype(line);
  Require(subtype == kDcSubtypeCount || CDcFile::GetSubtypeString(subtype) == Mid(line, 2, 2));
  Require(CDcFile::IsDeleted(line) == (subtype == kDcDeletedSubtype));
  CDcFile::GetRecordType(line);
  ReadSettings(line);
  ReadPositions(line);
  ReadSystem(line);
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  if (size > 2048) return 0;
  CDcFile file;
  Require(file.OpenForRead(StoreInput(L"lines.dc", data, size)));
  for (std::wstring line; file.ReadLine(line);) ReadLine(line);
  return 0;
}
