// The words of a script with their places. Reports what the tool can't read as a word.
#pragma once

#include <optional>
#include <string_view>

#include "foundation/token_file.h"
#include "kit/check/diagnostic.h"
#include "kit/check/script_model.h"

namespace tavrel::kit {

class ScriptWords {
 public:
  /// Borrows both. The script must be loaded.
  ScriptWords(TokenFile& script, Findings& findings) : script_(script), findings_(findings) {}

  /// Moves to the next word. Returns false at the end. A last word without a newline after it is
  /// a word here, and is reported. A word that is too long is reported, and ends the script.
  bool next();

  /// Moves to the next word without judging it. Returns its offset, or nothing at the end.
  std::optional<std::size_t> skipToNext();

  /// Reports that a keyword lacks its value, unless the script is cut short.
  void reportMissingValue(const ScriptWord& keyword, std::string message);

  /// Returns false at the end of the script, and before the first `next`.
  [[nodiscard]] bool hasWord() const { return hasWord_; }

  /// Returns the current word. At the end it is the last one.
  [[nodiscard]] const ScriptWord& current() const { return word_; }

  /// Replaces the text of the current word by the keyword that is meant. What follows a "=" in it
  /// becomes the next word.
  void readAs(const std::string& keyword);

  /// Returns true if a word that is too long has ended the script: nothing is known of what
  /// follows, so nothing is missing.
  [[nodiscard]] bool isCutShort() const { return end_ == End::atLongWord; }

  /// Returns true if the tool doesn't read the last word, which has no newline after it.
  [[nodiscard]] bool isLastUnread() const { return end_ == End::beforeLastWord; }

  /// Returns the whole script.
  [[nodiscard]] std::string_view text() const { return script_.text(); }

 private:
  /// How the tool ends reading.
  enum class End { none, beforeLastWord, atLongWord };

  [[nodiscard]] std::size_t wordSize(std::size_t start) const;
  bool takeUnreadWord();
  void reportLongWord(std::size_t start);

  TokenFile& script_;
  Findings& findings_;
  ScriptWord word_;
  ScriptWord split_;  ///< the next word, if it was split off the current one; else empty
  bool hasWord_ = false;
  End end_ = End::none;
};

}  // namespace tavrel::kit
