// The warnings that a script allows in its comments: "; tavkit: allow CODE[, CODE ...]". On a line
// it holds for the statements that begin there. In the first comment block, which ends at the first
// line that isn't a comment, it holds for the whole script.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "kit/check/diagnostic.h"
#include "kit/check/script_model.h"
#include "kit/check/source_text.h"

namespace tavrel::kit {

class Allowances {
 public:
  /// Reads the comments of `text`, the script of `model`. Adds codes that can't be allowed to
  /// `findings`, up to the line of ScriptEnd. Borrows `text` and `model`.
  Allowances(const SourceText& text, const ScriptModel& model, Findings& findings);

  /// Allows codes in the whole script.
  void allowEverywhere(const std::vector<std::string>& codes);

  /// Returns true if the problem is allowed.
  [[nodiscard]] bool allow(const Diagnostic& diagnostic) const;

 private:
  void readComment(std::size_t line, std::size_t offset, bool isFirstBlock, Findings& findings);
  void reportUnknown(std::string_view name, const Code* code, Findings& findings) const;

  const SourceText& text_;
  const ScriptModel& model_;
  std::set<std::string, std::less<>> everywhere_;
  std::map<std::size_t, std::set<std::string, std::less<>>> byLine_;
};

}  // namespace tavrel::kit
