// The functions of zelconvert.h.
#include "zelconvert/zelconvert.h"

extern "C" {

int32_t cZelGetNumFileTypes(void) noexcept {
  return 19;
}
char cZelGetDescription(int, wchar_t*) noexcept {
  return 0;
}
char cZelGetExtension(int, wchar_t*) noexcept {
  return 0;
}
char cZelGetFileFilter(int, wchar_t*) noexcept {
  return 0;
}
int32_t cZelGetFileType(const wchar_t*) noexcept {
  return -1;
}
char cZelGetSupportedInputTypes(int, int**, int*) noexcept {
  return 0;
}
char cZelGetSupportedOutputTypes(int, int**, int*) noexcept {
  return 0;
}
void cZelSetupZelConvertDLLCallBack(ZelWindowHandle) noexcept {}
void cZelSetGpsSecurityInDcConversions(unsigned char) noexcept {}
char cZelFileConvert(int, const wchar_t*, int, const wchar_t*, wchar_t***, wchar_t***, int,
                     const wchar_t*) noexcept {
  return 0;
}
void cZelFreeAfterFileConvert(wchar_t**, wchar_t**) noexcept {}
}
