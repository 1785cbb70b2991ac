#include "kit/build/header_comparison.h"

#include <string_view>

#include "kit/frame/source_file.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

/// Removes the time from the first line "// Rev:	7/22/1999 5:36 pm - File Generated".
std::string withoutTime(std::string text) {
  constexpr std::string_view kBefore = "\n// Rev:\t";
  constexpr std::string_view kAfter = " - File Generated\n";
  const std::size_t line = text.find(kBefore);
  if (line == std::string::npos) {
    return text;
  }
  const std::size_t start = line + kBefore.size();
  const std::size_t end = text.find('\n', start);
  if (end != std::string::npos &&
      std::string_view(text).substr(start, end + 1 - start).ends_with(kAfter)) {
    text.erase(start, end + 1 - kAfter.size() - start);
  }
  return text;
}

}  // namespace

bool isSameHeader(const std::string& path, const std::string& text) {
  return pathKind(path.c_str()) == PathKind::file &&
         withoutTime(readFile(path)) == withoutTime(text);
}

}  // namespace tavrel::kit
