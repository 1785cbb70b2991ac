#include "kit/check/diagnostic.h"

#include <algorithm>
#include <cassert>

namespace tavrel::kit {

void Findings::add(std::string_view code, std::size_t offset, std::string message, std::string hint,
                   std::optional<Edit> edit) {
  const Code* row = findCode(code);
  assert(row != nullptr);
  diagnostics_.push_back({row, offset, std::move(message), std::move(hint), std::move(edit)});
}

std::vector<Diagnostic> Findings::sorted() const {
  std::vector<Diagnostic> result = diagnostics_;
  std::stable_sort(result.begin(), result.end(),
                   [](const Diagnostic& a, const Diagnostic& b) { return a.offset < b.offset; });
  return result;
}

}  // namespace tavrel::kit
