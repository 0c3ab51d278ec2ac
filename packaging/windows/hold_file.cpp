// Holds a file open as a spreadsheet does, so that nobody else may write to it, until it is ended.
#include <cstdio>

#include <windows.h>

int main(int count, char** arguments) {
  if (count != 2) return 2;
  HANDLE file = ::CreateFileA(arguments[1], GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 1;
  std::puts("held");
  std::fflush(stdout);
  ::Sleep(INFINITE);
}
