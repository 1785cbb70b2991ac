#include "platform/terminal.h"

#ifdef _WIN32

#include <io.h>
#include <windows.h>

#include <cstdint>

namespace tavrel {

namespace {

/// Sets `mode` to the mode of the console that the stream is. Returns false if it is none.
bool consoleMode(std::FILE* stream, HANDLE& console, DWORD& mode) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): a handle is an integer here
  console = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
  return GetConsoleMode(console, &mode) != 0;
}

}  // namespace

bool isTerminal(std::FILE* stream) {
  HANDLE console = nullptr;
  DWORD mode = 0;
  return consoleMode(stream, console, mode);
}

bool interpretsEscapes(std::FILE* stream) {
  constexpr DWORD kEscapes = 4;  // ENABLE_VIRTUAL_TERMINAL_PROCESSING, which older headers lack
  HANDLE console = nullptr;
  DWORD mode = 0;
  return consoleMode(stream, console, mode) && SetConsoleMode(console, mode | kEscapes) != 0;
}

}  // namespace tavrel

#else

#include <unistd.h>

namespace tavrel {

bool isTerminal(std::FILE* stream) { return isatty(fileno(stream)) != 0; }

bool interpretsEscapes(std::FILE* stream) { return isTerminal(stream); }

}  // namespace tavrel

#endif
