/* zelconvert_tools: the commands of the zelconvert program for programs of other languages, which
 * get as JSON what the commands tell. Conversions go through the functions of libzelconvert.
 *
 * Threads: calls may be made in any thread at any time, also from within the function that receives
 * percentages. A file is the input of one conversion at a time and the output of one.
 */
#ifndef ZELCONVERT_TOOLS_H_
#define ZELCONVERT_TOOLS_H_

#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32)
#define ZELCONVERT_TOOLS_API __declspec(dllexport)
#else
#define ZELCONVERT_TOOLS_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Receives every percentage of a conversion once, on the thread that called. Conversions that take
 * several steps count each. May not throw. */
typedef void (*ZelToolsPercent)(void* context, int32_t percent);

/* Runs a command.
 * words: the name of a command (convert, detect, diff, info, plot, points or types), then names and
 * values of its options in turn, each ended by a zero character; `length` characters in all. Texts
 * are UTF-8, paths as the system has them. The options are named after those of the program, and
 * what it takes without a name is "input", "second", "output" and "files", the last once for each.
 * The value of a switch is empty.
 * percent: may be NULL; context is handed to it.
 * answer: out, the object that the program prints with --json, in UTF-8, to be freed with
 * zelToolsFree; NULL if memory is short. A command that failed has "error" in it.
 * Returns the program's exit code: 0 done, 1 failed, 2 wrong usage, 3 an input can't be read, 4 an
 * output can't be written. */
ZELCONVERT_TOOLS_API int32_t zelToolsRun(const char* words, size_t length, ZelToolsPercent percent,
                                         void* context, char** answer);

/* Frees an answer. May be NULL. */
ZELCONVERT_TOOLS_API void zelToolsFree(char* answer);

#ifdef __cplusplus
}
#endif

#endif
