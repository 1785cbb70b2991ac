// A build script packed in memory, silently and with the tool's own classes. Bank and header are
// those of a run of the tool. Nothing is written to disk.
#pragma once

#include <tavrel/bank.h>

#include <cstdint>
#include <streambuf>
#include <string>
#include <vector>

#include "compiler/bank_script.h"
#include "kit/check/loaded_script.h"
#include "kit/frame/failure.h"
#include "kit/frame/required_text.h"
#include "kit/frame/script_options.h"

namespace tavrel::kit {

/// Thrown for a script with which a run of the tool would fail. `advice` has the messages of that
/// run.
class PackFailure : public Failure {
 public:
  using Failure::Failure;
};

struct PackedAsset {
  std::string define;            ///< with the prefix
  std::string file;              ///< its name in the script
  tavrel_asset record{};         ///< with its bytes in memory
  std::size_t scriptOffset = 0;  ///< of the keyword of its block
  bool isCompressed = false;     ///< its bytes are ADPCM made from the samples of its file
};

class PackedScript {
 public:
  /// Packs a script. Throws Failure if the script can't be read, and PackFailure if the tool would
  /// end with an error: at a word or a file of the script, a bank that is too long, or a header
  /// whose guard is too long. A block that the tool leaves out before it prints "Done!", such as
  /// one of a missing sequence, isn't in this bank either.
  explicit PackedScript(const RunPlan& plan);

  /// Returns the assets by id. Valid as long as the object.
  [[nodiscard]] const std::vector<PackedAsset>& assets() const { return assets_; }

  /// Returns the header with the time at which the object was made.
  [[nodiscard]] const std::string& headerText() const { return headerText_; }

  // The files that the tool would write, under the names with which it would open them.
  [[nodiscard]] std::string bankPath() {
    return requiredText(script_.bankFileName.getNameAndPath());
  }
  [[nodiscard]] std::string headerPath() {
    return requiredText(script_.headerFileName.getNameAndPath());
  }

  /// Writes the bank to `target`, which must be able to seek: its bytes in order, then the table
  /// again. Returns false if the target fails.
  bool writeBank(std::streambuf& target);

 private:
  void prepare(const RunPlan& plan);
  void takeAssets();
  bool makeHeader(std::uint32_t bankLength);

  LoadedText<BankScript> script_;
  std::vector<PackedAsset> assets_;
  std::string headerText_;
};

}  // namespace tavrel::kit
