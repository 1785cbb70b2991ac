#include "kit/check/codes.h"

#include <algorithm>
#include <vector>

#include "kit/check/code_tables.h"

namespace tavrel::kit {

std::span<const Code> codes() {
  static const std::vector<Code> kCodes = [] {
    std::vector<Code> all(errorCodes().begin(), errorCodes().end());
    all.insert(all.end(), warningCodes().begin(), warningCodes().end());
    return all;
  }();
  return kCodes;
}

const Code* findCode(std::string_view name) {
  const auto all = codes();
  const auto found =
      std::find_if(all.begin(), all.end(), [name](const Code& code) { return code.name == name; });
  return found == all.end() ? nullptr : &*found;
}

}  // namespace tavrel::kit
