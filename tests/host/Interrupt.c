/* interrupt RESULT FOLDER PROGRAM...: runs a program of Windows until it has made a file in a
 * temporary folder inside FOLDER, presses Ctrl-C for all programs of the console, and writes the
 * exit code into the file RESULT. */
#include <stdio.h>
#include <wchar.h>
#include <windows.h>

enum { kPathSize = 1024, kLineSize = 8192 };

static int HoldsFile(const wchar_t* folder) {
  WIN32_FIND_DATAW found;
  wchar_t pattern[kPathSize];
  int holds = 0;
  HANDLE find;
  _snwprintf(pattern, kPathSize, L"%ls\\*", folder);
  find = FindFirstFileW(pattern, &found);
  if (find == INVALID_HANDLE_VALUE) return 0;
  do {
    holds = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
  } while (!holds && FindNextFileW(find, &found));
  FindClose(find);
  return holds;
}

static int HasBegun(const wchar_t* folder) {
  WIN32_FIND_DATAW found;
  wchar_t path[kPathSize];
  HANDLE find;
  _snwprintf(path, kPathSize, L"%ls\\.zelconvert-*", folder);
  find = FindFirstFileW(path, &found);
  if (find == INVALID_HANDLE_VALUE) return 0;
  FindClose(find);
  _snwprintf(path, kPathSize, L"%ls\\%ls", folder, found.cFileName);
  return HoldsFile(path);
}

static BOOL WINAPI Ignore(DWORD kind) {
  (void)kind;
  return TRUE;
}

int wmain(int count, wchar_t** arguments) {
  STARTUPINFOW start;
  PROCESS_INFORMATION made;
  DWORD code = 0;
  wchar_t line[kLineSize] = L"";
  FILE* result;
  int i;
  memset(&start, 0, sizeof start);
  start.cb = sizeof start;
  for (i = 3; i < count; ++i) wcscat(wcscat(wcscat(line, L"\""), arguments[i]), L"\" ");
  SetConsoleCtrlHandler(Ignore, TRUE);
  if (!CreateProcessW(NULL, line, NULL, NULL, TRUE, 0, NULL, NULL, &start, &made)) return 1;
  for (i = 0; i < 60000 && !HasBegun(arguments[2]); ++i) Sleep(1);
  if (!GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0)) return 2;
  if (WaitForSingleObject(made.hProcess, 60000) != WAIT_OBJECT_0) return 3;
  GetExitCodeProcess(made.hProcess, &code);
  result = _wfopen(arguments[1], L"w");
  fprintf(result, "%08lx", code);
  return fclose(result);
}
