// A build script as a linter reads it: through the tool's tokens and tables, with the place of each
// word, and going on after a fault.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "compiler/script_language.h"
#include "foundation/token_file.h"
#include "kit/check/diagnostic.h"

namespace tavrel::kit {

struct ScriptWord {
  std::string text;
  std::size_t offset = 0;  ///< of its first character in the script
  std::size_t size = 0;    ///< in the script, where the word may go on after a NUL

  /// Returns the edit that replaces the word.
  [[nodiscard]] Edit replacedBy(std::string replacement) const {
    return {offset, size, std::move(replacement)};
  }
};

/// An option of a block, as it was written.
struct ScriptOption {
  const Option* row = nullptr;
  ScriptWord keyword;
  std::optional<ScriptWord> value{};  ///< none if it is missing
};

/// A statement that makes an asset.
struct ScriptBlock {
  const Statement* row = nullptr;
  ScriptWord keyword;
  std::optional<ScriptWord> file{};  ///< none if it is missing
  /// The first of the words after the file name that mean nothing there, if there are any. They may
  /// be the rest of a name that a space has split: whoever knows the files reports them.
  std::optional<ScriptWord> strayWord{};
  std::string wholeName{};  ///< the file name with these words, or with what follows after a ";"
  std::vector<ScriptOption> options{};
  bool isFinished = false;  ///< it has its AssetEnd

  // Where an option can be added after the file name, and what is put before and after it.
  std::size_t optionPlace = 0;
  std::string optionStart{};
  std::string optionEnd{};

  /// Returns the edit that adds an option with its value.
  [[nodiscard]] Edit withOption(std::string_view option) const {
    return {optionPlace, 0, optionStart + std::string(option) + optionEnd};
  }

  /// Returns what messages call the block: its file name, or the statement's keyword.
  [[nodiscard]] std::string title() const { return file ? file->text : row->keyword; }

  /// Returns the value that the tool has for an option at the end of the block: that of the last
  /// one, as the tool reads it, or the default. `wanted` is a row of the statement's options.
  [[nodiscard]] std::int32_t valueOf(const Option& wanted) const;
};

struct ScriptModel {
  std::vector<ScriptWord> bankNames{};  ///< after each BankFileName; the last one counts
  std::vector<ScriptBlock> blocks{};    ///< up to ScriptEnd

  /// Offsets of the words that begin a statement, in their order: also BankFileName, ScriptEnd, a
  /// mistyped keyword, and the first word after ScriptEnd.
  std::vector<std::size_t> statementStarts{};

  std::optional<std::size_t> scriptEnd{};  ///< offset of ScriptEnd, after which nothing is judged
};

/// Reads a script that is loaded. Adds what is wrong with its words to `findings`: all problems
/// that can be seen without opening an asset.
ScriptModel readScript(TokenFile& script, Findings& findings);

}  // namespace tavrel::kit
