#include "kit/check/block_findings.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace tavrel::kit {

void BlockFindings::add(std::string_view code, std::size_t offset, std::string_view what,
                        std::string hint, std::optional<Edit> edit) {
  findings_.add(code, offset, fmt::format("{}: {}", fileName(), what), std::move(hint),
                std::move(edit));
}

void BlockFindings::addAtFile(std::string_view code, std::string_view what, std::string hint,
                              std::optional<Edit> edit) {
  add(code, block_.file->offset, what, std::move(hint), std::move(edit));
}

void BlockFindings::addAtOption(std::string_view code, int parameter, std::string_view what,
                                std::string hint) {
  add(code, option(parameter)->keyword.offset, what, std::move(hint));
}

void BlockFindings::addAtValue(std::string_view code, int parameter, std::string_view what,
                               std::string hint) {
  add(code, option(parameter)->value->offset, what, std::move(hint));
}

const ScriptOption* BlockFindings::option(int parameter) const {
  const auto found = std::find_if(block_.options.rbegin(), block_.options.rend(),
                                  [parameter](const ScriptOption& option) {
                                    return option.row->parameter == parameter && option.value;
                                  });
  return found == block_.options.rend() ? nullptr : &*found;
}

std::int32_t BlockFindings::valueOf(int parameter) const {
  const auto row =
      std::find_if(block_.row->options.begin(), block_.row->options.end(),
                   [parameter](const Option& option) { return option.parameter == parameter; });
  return block_.valueOf(*row);
}

}  // namespace tavrel::kit
