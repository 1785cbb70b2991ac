#include "kit/check/codes.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "kit/check/code_tables.h"
#include "kit/frame/failure.h"
#include "kit/frame/nearest.h"

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

const Code& codeNamed(const std::string& name) {
  if (const Code* code = findCode(name)) {
    return *code;
  }
  std::vector<std::string> names;
  for (const Code& code : codes()) {
    names.emplace_back(code.name);
  }
  throw Failure(fmt::format("there is no code {}{}", name, didYouMean(name, names)), kCodesAdvice);
}

}  // namespace tavrel::kit
