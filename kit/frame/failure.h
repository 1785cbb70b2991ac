// The one exception of the kit: a question that could not be answered.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace tavrel::kit {

/// Ends the command with its text on standard error, after "tavkit: ", and exit code 2. Names in
/// the text need no care: its control characters are replaced when it is printed, line ends too.
class Failure : public std::runtime_error {
 public:
  /// `advice` follows the text, as it is. It must consist of whole lines and have no names from
  /// outside.
  explicit Failure(const std::string& text, std::string advice = "")
      : std::runtime_error(text), advice_(std::move(advice)) {}

  [[nodiscard]] const std::string& advice() const { return advice_; }

 private:
  std::string advice_;
};

}  // namespace tavrel::kit
