// The parsed command line of one command.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tavrel::kit {

/// Options are asked for by their long name, with its dashes.
class Arguments {
 public:
  std::vector<std::string> operands;
  std::map<std::string, std::vector<std::string>, std::less<>> options;  ///< "true" for a flag

  [[nodiscard]] bool has(std::string_view option) const { return options.contains(option); }

  /// Returns all values given for `option`.
  [[nodiscard]] std::vector<std::string> values(std::string_view option) const {
    const auto found = options.find(option);
    return found == options.end() ? std::vector<std::string>() : found->second;
  }

  /// Returns the last value given for `option`.
  [[nodiscard]] std::optional<std::string> value(std::string_view option) const {
    const auto found = options.find(option);
    return found == options.end() || found->second.empty() ? std::nullopt
                                                           : std::optional(found->second.back());
  }
};

}  // namespace tavrel::kit
