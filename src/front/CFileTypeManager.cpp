#include "front/CFileTypeManager.h"

#include <iterator>
#include <string_view>

namespace zelconvert {
namespace {

// One type. `columns` is its row of the conversion table: the types whose lists in a host's dialog
// name this one. The table is only shown; what runs is decided when a conversion is asked for.
struct FileTypeRow {
  FileType type;
  std::wstring_view extension;
  std::wstring_view description;
  std::wstring_view filter;
  TypeSet columns;
};

constexpr TypeSet kFromJobOrDc =
    TypeSet::Of(FT_JOB, FT_DC, FT_OLD_JOB, FT_DC77, FT_DC1000, FT_DC1070, FT_PW_JOB);
constexpr TypeSet kFromCr5OrDc =
    TypeSet::Of(FT_CR5, FT_DC, FT_DC77, FT_DC1000, FT_SEQ_CR5, FT_DC1070);
constexpr TypeSet kFromSdrOrDc =
    TypeSet::Of(FT_SDR2, FT_SDR33, FT_DC, FT_DC77, FT_DC1000, FT_DC1070);
constexpr TypeSet kFromCoordinates =
    TypeSet::Of(FT_CR5, FT_JOB, FT_OLD_JOB, FT_SEQ_CR5, FT_ILJ, FT_PW_JOB);

// clang-format off
constexpr FileTypeRow kFileTypes[] = {
    {FT_CR5, L".cr5", L"ZEL CR5 File", L"ZEL CR5 File (*.cr5)|*.cr5||", kFromJobOrDc},
    {FT_JOB, L".job", L"ZEL JOB File ", L"ZEL JOB File (*.job)|*.job||", kFromCr5OrDc},
    {FT_RAW, L".raw", L"ZEL RAW File", L"ZEL RAW File (*.raw)|*.raw||", kFromSdrOrDc},
    {FT_JOB_RAW, L".job", L"ZEL JOB and RAW Files",
     L"ZEL JOB and RAW Files (*.job,*.raw)|*.job|*.raw||", kDcTypes},
    {FT_SDR2, L".sdr", L"Sokkia SDR2 File", L"Sokkia SDR2 File (*.sdr)|*.sdr||", TypeSet::Of()},
    {FT_SDR33, L".sdr", L"Sokkia SDR33 File", L"Sokkia SDR33 File (*.sdr)|*.sdr||", TypeSet::Of()},
    {FT_DC, L".dc", L"Kestrum DC File", L"Kestrum DC File (*.dc)|*.dc||", kFromCoordinates},
    {FT_OLD_JOB, L".job", L"ZEL Old JOB File(GLCE 1.x/2.x)", L"ZEL JOB File (*.job)|*.job||",
     TypeSet::Of(FT_CR5, FT_DC, FT_DC77, FT_DC1000, FT_SEQ_CR5, FT_ILJ, FT_DC1070)},
    {FT_RW5, L".rw5", L"ZEL RW5 File", L"ZEL RW5 File (*.rw5)|*.rw5||", kDcTypes},
    {FT_CR5_RW5, L".cr5", L"ZEL CR5 and RW5 Files",
     L"ZEL CR5 and RW5 Files (*.cr5,*.rw5)|*.cr5|*.rw5||", kDcTypes},
    {FT_DC77, L".dc", L"Kestrum DC File (DC7.7)", L"Kestrum DC File (*.dc)|*.dc||",
     kFromCoordinates},
    {FT_DC1000, L".dc", L"Kestrum DC File (DC10.00)", L"Kestrum DC File (*.dc)|*.dc||",
     kFromCoordinates},
    {FT_SEQ_CR5, L".cr5", L"ZEL Sequential CR5 File", L"ZEL CR5 File (*.cr5)|*.cr5||",
     kFromJobOrDc},
    {FT_ILJ, L".ilj", L"ZEL Interlock Job File", L"ZEL ILJ File (*.ilj)|*.ilj||",
     TypeSet::Of(FT_DC, FT_DC77, FT_DC1000, FT_ILJ, FT_DC1070)},
    {FT_DC1070, L".dc", L"Kestrum DC File (DC10.70)", L"Kestrum DC File (*.dc)|*.dc||",
     kFromCoordinates},
    {FT_JXL, L".jxl", L"Kestrum JobXML File", L"Kestrum JXL File (*.jxl)|*.jxl||",
     TypeSet::Of(FT_RAW, FT_PW_RAW)},
    {FT_PW_JOB, L".pwj", L"Plumbwick V2 Job File", L"Plumbwick V2 Job File (*.pwj)|*.pwj||",
     kFromCr5OrDc},
    {FT_PW_RAW, L".pwr", L"Plumbwick V2 Raw File", L"Plumbwick V2 Raw File (*.pwr)|*.pwr||",
     kFromSdrOrDc},
    {FT_PW_JOB_RAW, L".pwj", L"Plumbwick V2 Job and Raw Files",
     L"Plumbwick V2 Job and Raw Files (*.pwj,*.pwr)|*.pwj|*.pwr||", kDcTypes},
};
// clang-format on

consteval bool RowsAreInOrder() {
  for (int i = 0; i < kFileTypeCount; ++i) {
    if (kFileTypes[i].type != i) return false;
  }
  return std::size(kFileTypes) == kFileTypeCount;
}
static_assert(RowsAreInOrder());

[[nodiscard]] bool CopyText(int type, std::wstring_view FileTypeRow::*column, std::wstring& text) {
  if (type < 0 || type >= kFileTypeCount) return false;
  text = kFileTypes[type].*column;
  return true;
}

[[nodiscard]] bool IsPair(int row, int column) {
  return column >= 0 && column < kFileTypeCount && kFileTypes[row].columns.Contains(column);
}

}  // namespace

bool CFileTypeManager::GetSupportedInputTypes(int type, std::vector<int>& list) const {
  list.clear();
  for (int row = 0; row < kFileTypeCount; ++row) {
    if (IsPair(row, type)) list.push_back(row);
  }
  return true;
}

bool CFileTypeManager::GetSupportedOutputTypes(int type, std::vector<int>& list) const {
  list.clear();
  if (type < 0 || type >= kFileTypeCount) return true;
  for (int column = 0; column < kFileTypeCount; ++column) {
    if (IsPair(type, column)) list.push_back(column);
  }
  return true;
}

bool CFileTypeManager::GetDescription(int type, std::wstring& text) const {
  return CopyText(type, &FileTypeRow::description, text);
}

bool CFileTypeManager::GetExtension(int type, std::wstring& text) const {
  return CopyText(type, &FileTypeRow::extension, text);
}

bool CFileTypeManager::GetFilter(int type, std::wstring& text) const {
  return CopyText(type, &FileTypeRow::filter, text);
}

}  // namespace zelconvert
