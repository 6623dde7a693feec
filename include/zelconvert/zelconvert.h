/* zelconvert: converts land-survey field data between file types.
 *
 * Eleven functions, plain C, default calling convention (cdecl). Strings are zero-terminated and of
 * the platform's wchar_t: UTF-16 on Windows, UTF-32 elsewhere. File types are the FT_ numbers
 * below. In paths "/" and "\" both separate. Where file names are bytes they are taken as UTF-8; a
 * byte B that is no part of UTF-8 is the character U+DC00 + B.
 *
 * Threads: every function may be called in any thread at any time, conversions side by side, also
 * from within the procedure that receives progress. A file is the input of one conversion at a time
 * (a second is refused: "Unable to open the file ...") and the output of one. Conversions that make
 * road files have output folders of their own. No function throws or ends the process.
 */
#ifndef ZELCONVERT_ZELCONVERT_H_
#define ZELCONVERT_ZELCONVERT_H_

#include <stdint.h>
#include <wchar.h>

#if defined(_WIN32) && defined(ZELCONVERT_BUILDING)
#define ZELCONVERT_API /* exported by name through the .def file */
#elif defined(_WIN32)
#define ZELCONVERT_API __declspec(dllimport)
#elif defined(__GNUC__)
#define ZELCONVERT_API __attribute__((visibility("default")))
#else
#define ZELCONVERT_API
#endif

#ifdef __cplusplus
#define ZELCONVERT_NOEXCEPT noexcept
extern "C" {
#else
#define ZELCONVERT_NOEXCEPT
#endif

/* The file types. The numbers are part of the interface and never change. */
enum FileType {
  FT_CR5 = 0,        /* .cr5 binary coordinate list */
  FT_JOB = 1,        /* .job job database, version 5 */
  FT_RAW = 2,        /* .raw field log */
  FT_JOB_RAW = 3,    /* .job with the .raw of the same name beside it */
  FT_SDR2 = 4,       /* .sdr, SDR2 form */
  FT_SDR33 = 5,      /* .sdr, SDR33 form */
  FT_DC = 6,         /* .dc data collector text */
  FT_OLD_JOB = 7,    /* .job job database, version 3 */
  FT_RW5 = 8,        /* .rw5 field log */
  FT_CR5_RW5 = 9,    /* .cr5 with the .rw5 of the same name beside it */
  FT_DC77 = 10,      /* .dc, header V07-70 */
  FT_DC1000 = 11,    /* .dc, header V10-70 */
  FT_SEQ_CR5 = 12,   /* .cr5 with a record for every number in its range */
  FT_ILJ = 13,       /* .ilj interlock job text */
  FT_DC1070 = 14,    /* .dc, header V10-70 */
  FT_JXL = 15,       /* .jxl JobXML */
  FT_PW_JOB = 16,    /* .pwj job database of the second brand */
  FT_PW_RAW = 17,    /* .pwr field log of the second brand */
  FT_PW_JOB_RAW = 18 /* .pwj with the .pwr of the same name beside it */
};

/* Progress reaches the host as messages to one window, sent synchronously on the thread that called
 * cZelFileConvert: conversions side by side send each from its own thread. wParam says the kind:
 *   0 start:   lParam points to a zero-terminated wchar_t text, valid until the procedure returns
 *   1 percent: lParam is the percentage
 *   2 end:     lParam is 0
 */
#if defined(_WIN32)
/* Windows: an HWND. The message number is what RegisterWindowMessageW returns for
 * "WM_ZELCONVERT_CALLBACK". */
struct HWND__;
typedef struct HWND__* ZelWindowHandle;
#else
/* Elsewhere: a structure of the host's with a procedure. It stays the host's and must outlive its
 * registration; a NULL procedure counts as no window. */
typedef struct ZelWindow {
  intptr_t (*procedure)(struct ZelWindow* window, uint32_t message, uintptr_t wParam,
                        intptr_t lParam);
} ZelWindow;
typedef ZelWindow* ZelWindowHandle;
#define ZEL_CONVERT_CALLBACK_MESSAGE 0xC5E1u
#endif

/* The number of file types: always 19. */
ZELCONVERT_API int32_t cZelGetNumFileTypes(void) ZELCONVERT_NOEXCEPT;

/* Copies the description of a type, at most 63 characters and a terminator, into buffer, which is
 * the caller's. Returns 1; 0 with buffer untouched for a type of 19 or more, or a NULL buffer. */
ZELCONVERT_API char cZelGetDescription(int type, wchar_t* buffer) ZELCONVERT_NOEXCEPT;

/* Copies the file name extension of a type with its leading point, like cZelGetDescription.
 * Returns 0 for a type outside 0 to 18. */
ZELCONVERT_API char cZelGetExtension(int type, wchar_t* buffer) ZELCONVERT_NOEXCEPT;

/* Copies the file dialog filter of a type, parts separated by "|" and two bars at the end.
 * Returns 0 for a type outside 0 to 18. */
ZELCONVERT_API char cZelGetFileFilter(int type, wchar_t* buffer) ZELCONVERT_NOEXCEPT;

/* The FileType of the file at path, by its extension and, for ".job" and ".pwj", by its first 28
 * bytes; -1 if no type fits or path is NULL. Other files need not exist. */
ZELCONVERT_API int32_t cZelGetFileType(const wchar_t* path) ZELCONVERT_NOEXCEPT;

/* The types that go together with a type in a conversion, in ascending order. Both functions give
 * the same list: every type from which `type` can be made or to which it can be converted, as the
 * conversion table has it.
 * list: out, *count numbers in a block of their own. On Windows the block comes from the process
 * heap and the host frees it with HeapFree(GetProcessHeap(), 0, list); elsewhere with free(list).
 * With a count of 0 a block is returned all the same.
 * Returns 1; 0 with both outputs untouched when a pointer is NULL or memory is short. */
ZELCONVERT_API char cZelGetSupportedInputTypes(int type, int** list,
                                               int* count) ZELCONVERT_NOEXCEPT;
ZELCONVERT_API char cZelGetSupportedOutputTypes(int type, int** list,
                                                int* count) ZELCONVERT_NOEXCEPT;

/* Registers the window that receives progress, until the next call. NULL: no progress. A conversion
 * tells the window that was registered when it began, and nobody once that is no longer the one. A
 * window that goes away while another thread converts must outlive that thread's conversion. */
ZELCONVERT_API void cZelSetupZelConvertDLLCallBack(ZelWindowHandle window) ZELCONVERT_NOEXCEPT;

/* Switches the signature test of GPS records in raw to DC conversions: 0 off, anything else on.
 * It is on when the library is loaded. A conversion goes by what it was when it began. */
ZELCONVERT_API void cZelSetGpsSecurityInDcConversions(unsigned char enable) ZELCONVERT_NOEXCEPT;

/* Converts one file into another.
 * inputType, outputType: FileType numbers. inputPath, outputPath: copied, stay the caller's; a file
 * without a folder is in the current one. The input need not be writable.
 * files, messages: set both to NULL before the call. A list that is not empty is returned as an
 * array of strings with a NULL after the last: the output, and the warnings and errors in the
 * order they arose (warnings also stand beside success). The road files of a DC file aren't
 * listed: they stand in the output's folder. A list that is empty leaves the pointer alone; so
 * does a conversion between coordinate files (CR5) and DC files, whatever its result.
 * Both belong to the library and go back through cZelFreeAfterFileConvert.
 * units: unit of a coordinate file input: 0 metres, 1 international feet, 2 US survey feet.
 * featureFile: for a raw log that becomes a DC file the path of a job (".job", ".pwj") whose
 * points the log refers to; without effect otherwise. May be NULL.
 * Returns 1 on success. Returns 0 on failure; the output file is gone then, the input untouched. */
ZELCONVERT_API char cZelFileConvert(int inputType, const wchar_t* inputPath, int outputType,
                                    const wchar_t* outputPath, wchar_t*** files,
                                    wchar_t*** messages, int units,
                                    const wchar_t* featureFile) ZELCONVERT_NOEXCEPT;

/* Frees what cZelFileConvert returned. Either pointer may be NULL. */
ZELCONVERT_API void cZelFreeAfterFileConvert(wchar_t** files,
                                             wchar_t** messages) ZELCONVERT_NOEXCEPT;

#ifdef __cplusplus
}
#endif

#endif
