#include "fuzz/quiet_console.h"

#include <sys/types.h>

#include <cstddef>
#include <cstdio>

#include "fuzz/require.h"

namespace tavrel::fuzz {

namespace {

ssize_t dropText(void* /*cookie*/, const char* /*text*/, std::size_t size) {
  return static_cast<ssize_t>(size);
}

bool replaceStreams() {
  cookie_io_functions_t functions{};
  functions.write = dropText;
  stdout = fopencookie(nullptr, "w", functions);
  stderr = fopencookie(nullptr, "w", functions);
  stdin = fopencookie(nullptr, "r", functions);  // no read function: always at the end
  return stdin != nullptr && stdout != nullptr && stderr != nullptr;
}

}  // namespace

void silenceConsole() {
  static const bool replaced = replaceStreams();
  require(replaced);
}

}  // namespace tavrel::fuzz
