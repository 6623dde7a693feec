/* A host in C: includes the header and calls every function of the shared library. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "zelconvert/zelconvert.h"

#if defined(_WIN32)
#include <windows.h>
static void FreeTypes(int* list) {
  HeapFree(GetProcessHeap(), 0, list);
}
#else
static void FreeTypes(int* list) {
  free(list);
}
#endif

#define EXPECT(condition)                                           \
  do {                                                              \
    if (!(condition)) {                                             \
      fprintf(stderr, "line %d: not %s\n", __LINE__, (#condition)); \
      return 1;                                                     \
    }                                                               \
  } while (0)

int main(void) {
  wchar_t text[64] = L"";
  int *inputs = NULL, *outputs = NULL;
  int inputCount = -1, outputCount = -1;
  wchar_t **files = NULL, **messages = NULL;

  EXPECT(cZelGetNumFileTypes() == 19);
  EXPECT(cZelGetDescription(FT_JOB, text) && wcscmp(text, L"ZEL JOB File ") == 0);
  EXPECT(cZelGetExtension(FT_DC1070, text) && wcscmp(text, L".dc") == 0);
  EXPECT(cZelGetFileFilter(FT_PW_JOB_RAW, text) && wcsncmp(text, L"Plumbwick", 9) == 0);
  EXPECT(cZelGetFileType(L"monday.raw") == FT_RAW);

  EXPECT(cZelGetSupportedInputTypes(FT_RAW, &inputs, &inputCount));
  EXPECT(cZelGetSupportedOutputTypes(FT_RAW, &outputs, &outputCount));
  EXPECT(inputCount == 1 && inputs[0] == FT_JXL);
  EXPECT(outputCount == inputCount && outputs[0] == inputs[0]);
  FreeTypes(inputs);
  FreeTypes(outputs);

  cZelSetupZelConvertDLLCallBack(NULL);
  cZelSetGpsSecurityInDcConversions(1);
  EXPECT(!cZelFileConvert(FT_SDR2, L"in.sdr", FT_DC, L"out.dc", &files, &messages, 0, NULL));
  EXPECT(files == NULL && messages != NULL && messages[1] == NULL);
  EXPECT(wcscmp(messages[0], L"The conversion you specified is not supported.") == 0);
  cZelFreeAfterFileConvert(files, messages);
  cZelFreeAfterFileConvert(NULL, NULL);
  return 0;
}
