// The problems of one block. Each is put at its place in the script and names the asset.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "kit/check/diagnostic.h"
#include "kit/check/script_model.h"

namespace tavrel::kit {

class BlockFindings {
 public:
  /// Borrows both. The block must have a file name.
  BlockFindings(const ScriptBlock& block, Findings& findings)
      : block_(block), findings_(findings) {}

  /// Adds a problem at the file name. The message is the name, as the script has it, and `what`.
  void addAtFile(std::string_view code, std::string_view what, std::string hint = {},
                 std::optional<Edit> edit = {});

  /// Adds one at the keyword of an option that has a value.
  void addAtOption(std::string_view code, int parameter, std::string_view what,
                   std::string hint = {});

  /// Adds one at the value of an option that has one.
  void addAtValue(std::string_view code, int parameter, std::string_view what,
                  std::string hint = {});

  /// Returns the option that counts for a parameter word, or for `kNotStored`: of several with a
  /// value it is the last one. Returns null if the block has none.
  [[nodiscard]] const ScriptOption* option(int parameter) const;

  /// Returns the value that the tool has for an option of the block's statement.
  [[nodiscard]] std::int32_t valueOf(int parameter) const;

  [[nodiscard]] const ScriptBlock& block() const { return block_; }
  [[nodiscard]] const std::string& fileName() const { return block_.file->text; }

 private:
  void add(std::string_view code, std::size_t offset, std::string_view what, std::string hint,
           std::optional<Edit> edit = {});

  const ScriptBlock& block_;
  Findings& findings_;
};

}  // namespace tavrel::kit
