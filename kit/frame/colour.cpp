#include "kit/frame/colour.h"

#include <cstdlib>

#include "platform/terminal.h"

namespace tavrel::kit {

bool showsColours(std::FILE* stream) {
  const char* refusal = std::getenv("NO_COLOR");
  const bool isRefused = refusal != nullptr && *refusal != '\0';
  return !isRefused && interpretsEscapes(stream);
}

}  // namespace tavrel::kit
