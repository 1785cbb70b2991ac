// The one exception of the kit: a question that could not be answered.
#pragma once

#include <stdexcept>

namespace tavrel::kit {

/// Ends the command with its text on standard error, after "tavkit: ", and exit code 2. Names in
/// the text need no care: its control characters are replaced when it is printed.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace tavrel::kit
