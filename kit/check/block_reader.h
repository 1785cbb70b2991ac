// Reader of one block of a script, from its statement to its AssetEnd. After a fault it goes on
// with the next word whose meaning is known.
#pragma once

#include <set>

#include "kit/check/script_model.h"
#include "kit/check/script_words.h"

namespace tavrel::kit {

class BlockReader {
 public:
  /// Borrows all. The keyword of `statement` must be the current word.
  BlockReader(ScriptWords& words, Findings& findings, const Statement& statement);

  /// Reads the block up to its AssetEnd, or up to the next statement. Can be called once.
  ScriptBlock read();

 private:
  void readFileName();
  void placeOptions();
  [[nodiscard]] bool endsFileName() const;
  void readOptions();
  void readOption(const Option& row);
  void readUnknownOption();

  [[nodiscard]] const ScriptWord& word() const { return words_.current(); }

  ScriptWords& words_;
  Findings& findings_;
  ScriptBlock block_;
  std::set<const Option*> spelledOptions_;  ///< so far, without the mistyped ones
};

}  // namespace tavrel::kit
