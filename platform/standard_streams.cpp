#include "platform/standard_streams.h"

#ifdef _WIN32

#include <fcntl.h>
#include <io.h>

#include <cstdio>

namespace tavrel {

void prepareStandardStreams() {
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
}

}  // namespace tavrel

#else

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

namespace tavrel {

void prepareStandardStreams() {
  // open() returns the lowest free descriptor, so this fills the closed ones of 0, 1 and 2.
  for (int descriptor = open("/dev/null", O_RDONLY); descriptor >= 0;
       descriptor = open("/dev/null", O_RDONLY)) {
    if (descriptor > STDERR_FILENO) {
      close(descriptor);
      break;
    }
  }
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace tavrel

#endif
