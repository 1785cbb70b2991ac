#include "platform/console_input.h"

#ifdef _WIN32

#include <io.h>

namespace tavrel {

bool takeOneCharacter() {
  char character = 0;
  return _read(0, &character, 1) == 1;
}

}  // namespace tavrel

#else

#include <unistd.h>

#include <cerrno>

namespace tavrel {

bool takeOneCharacter() {
  char character = 0;
  ssize_t count = 0;
  do {
    count = read(STDIN_FILENO, &character, 1);
  } while (count < 0 && errno == EINTR);
  return count == 1;
}

}  // namespace tavrel

#endif
