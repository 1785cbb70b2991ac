// Names for the files of a build script: those that make the assets' defines again, where a script
// can use them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kit/extract/script_source.h"

namespace tavrel::kit {

/// A file of a script.
struct ScriptName {
  std::string inScript;  ///< without a folder
  std::string onDisk;    ///< differs where the tool cuts an extension
};

/// Names for one asset in the order in which they are tried.
class ScriptNames {
 public:
  /// `define` is without the bank's prefix, and empty if there is none.
  ScriptNames(std::string_view define, std::uint32_t id, const tavrel_asset& asset,
              const ScriptSource& source);

  /// Returns a name: the define's, the define's with the id, the id, or the id with a number. The
  /// first two are empty if no script can use them, the others never are.
  [[nodiscard]] ScriptName name(std::uint32_t attempt) const;

 private:
  [[nodiscard]] std::string text(std::uint32_t attempt) const;
  [[nodiscard]] bool isGood(const std::string& file) const;
  [[nodiscard]] bool isReadAsWritten(const std::string& name) const;

  std::string stem_;
  std::string extension_;
  std::string idExtension_;
  std::uint32_t id_;
  bool isWav_;
  bool isAiff_;
};

/// Returns true if `word` is one word for a script.
bool isScriptWord(std::string_view word);

/// Returns the define of the asset that a script makes from a file with this name, which the tool
/// must accept.
std::string defineOfFile(const std::string& prefix, const std::string& name);

/// Returns true if the define says that its asset came from an AIFF file.
bool isAiffDefine(std::string_view define);

}  // namespace tavrel::kit
