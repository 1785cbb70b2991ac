// The script that `tavkit new` puts blocks into: a new one, or one that is there.
#pragma once

#include <deque>
#include <string>

#include "kit/check/script_model.h"
#include "kit/new/new_block.h"

namespace tavrel::kit {

class TargetScript {
 public:
  /// Takes the text of a script. `name` is for messages. Throws Failure if its words are wrong, so
  /// that blocks in it could be read as something else.
  TargetScript(const std::string& name, std::string text);

  [[nodiscard]] const std::string& text() const { return text_; }
  [[nodiscard]] const ScriptModel& model() const { return model_; }

  /// Returns the text with `entries` before its ScriptEnd, or at its end. A file that isn't listed
  /// is a comment. A comment that is there already is left out.
  [[nodiscard]] std::string with(const std::deque<NewBlock>& entries) const;

 private:
  [[nodiscard]] std::size_t insertionPoint() const;
  [[nodiscard]] std::string blockOf(const NewBlock& entry) const;
  [[nodiscard]] std::string commentOf(const NewBlock& entry) const;

  std::string text_;
  std::string lineEnd_;
  ScriptModel model_;
};

}  // namespace tavrel::kit
