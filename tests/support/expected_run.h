// What a run of the real tool must print, answer and leave on disk, and the one check of it all.
// A test states what is special about its run; the rest is that of a script `a.txt` which names
// the bank `sfx.tvb` and nothing else.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/expected_bank.h"
#include "tests/support/expected_header.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/tool_run.h"

namespace tavrel::test {

/// A kind of asset: its keyword, what its lines begin with, and how the bank holds it.
struct AssetKindRow {
  const char* keyword;
  const char* reading;
  const char* writing;
  std::uint32_t type;
  Pad pad;
};

constexpr AssetKindRow kToneBank{"MidiToneBank",
                                 "Reading MTB File: ", "Writing Tone Bank Data: ", 3, Pad::none};
constexpr AssetKindRow kFxProgramBank{
    "FxProgramBank", "Reading DSP File: ", "Writing DSP Program Data: ", 4, Pad::none};
constexpr AssetKindRow kFxOutputBank{
    "FxOutputBank", "Reading DSP File: ", "Writing DSP Program Data: ", 5, Pad::none};
constexpr AssetKindRow kUserAsset{"UserAsset",
                                  "Reading Unknown File: ", "Writing Unknown Data: ", 6, Pad::to4};

/// How far a run gets. A refused header has not even been announced.
enum class Outcome { parseFails, bankFails, headerRefused, headerFails, done };

struct ExpectedRun {
  std::vector<std::string> arguments{"a.txt"};
  std::string scriptFile = "a.txt";  ///< with its path, as the banner shows it
  std::optional<std::string> script = "BankFileName sfx.tvb\n";  ///< none: there is no such file
  std::map<std::string, std::string> files{};  ///< in the folder beforehand; "name/" is a folder

  std::string bankPath{};
  std::string headerPath{};
  std::string reading{};   ///< standard output between the banner and the bank's line
  std::string problems{};  ///< standard error, without the closing line of a failed run
  std::string writing{};   ///< the lines of the blobs
  Outcome outcome = Outcome::done;

  std::string baseName = "sfx";
  std::optional<std::string> bankName{};    ///< the base name and ".tvb", if nothing is said
  std::optional<std::string> headerName{};  ///< the base name and ".h"
  std::optional<std::string> prefix{};      ///< the base name in capitals
  ExpectedBank bank{};
  std::vector<ExpectedDefine> defines{};

  /// Adds a block to the script, its file, and all that the run makes of it.
  ExpectedRun& asset(const AssetKindRow& kind, const std::string& file, const std::string& payload,
                     const std::string& options = "",
                     const std::vector<std::int32_t>& parameters = {});
};

/// The lines that open a run, the last one of them a rule.
std::string expectedBanner(const ExpectedRun& expected);

/// Writes the script and the files of the run into `folder`.
void prepareRun(const TemporaryDirectory& folder, const ExpectedRun& expected);

/// Prepares `folder`, runs the tool there, and compares both streams, the exit code and every file:
/// the bank and the header are there if the run gets that far, and all else is as it was. Repeats a
/// run during which the minute changed, for the sake of the stamp in the header.
void expectRun(const TemporaryDirectory& folder, const ExpectedRun& expected);

/// The same in a folder of its own.
void expectRun(const ExpectedRun& expected);

}  // namespace tavrel::test
