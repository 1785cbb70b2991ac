// What a check has found: one record for each problem, with its place in the script.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kit/check/codes.h"

namespace tavrel::kit {

/// A change of a script.
struct Edit {
  std::size_t offset = 0;
  std::size_t length = 0;  ///< of what is replaced, in bytes; 0 to insert
  std::string replacement{};
};

struct Diagnostic {
  const Code* code;
  std::size_t offset;          ///< in the script, of the first character that it is about
  std::string message;         ///< one sentence without a full stop; names the asset
  std::string hint;            ///< how to fix it, a command where one does; may be empty
  std::optional<Edit> edit{};  ///< what --fix does; none if there is no safe fix
};

/// The problems of one script. Names in messages may be raw bytes: whoever prints them cleans them.
class Findings {
 public:
  /// Adds a problem. `code` must be the name of a row of the table of codes.
  void add(std::string_view code, std::size_t offset, std::string message, std::string hint = {},
           std::optional<Edit> edit = {});

  /// Returns all problems in the order of their places.
  [[nodiscard]] std::vector<Diagnostic> sorted() const;

 private:
  std::vector<Diagnostic> diagnostics_;
};

}  // namespace tavrel::kit
