// Expected streams, exit code and files of a run, and the check that compares them. A test states
// only what is special about its run. By default the script `a.txt` names the bank `sfx.tvb` and
// has the blocks of the test.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tavrel::test {

/// A kind of block: its keyword, its words in the progress lines, and the asset's type in the bank.
struct BlockKind {
  std::string keyword, reading, writing;
  std::uint32_t type;
};

const BlockKind kWave{"WaveFile", "Wave", "Digital Audio", 1};
const BlockKind kAiff{"WaveFile", "AIFF", "Digital Audio", 1};
const BlockKind kMidi{"MidiFileType0", "Midi", "MIDI", 2};
const BlockKind kToneBank{"MidiToneBank", "MTB", "Tone Bank", 3};
const BlockKind kFxProgramBank{"FxProgramBank", "DSP", "DSP Program", 4};
const BlockKind kFxOutputBank{"FxOutputBank", "DSP", "DSP Program", 5};
const BlockKind kUserAsset{"UserAsset", "Unknown", "Unknown", 6};

/// A block that makes an asset, or one that fails.
struct Block {
  BlockKind kind;
  std::string file, options;  ///< of a failing block: all that it reads
  /// The parameter words of the asset's record. None: the block fails.
  std::optional<std::array<std::int32_t, 8>> words;
  std::string content{};  ///< the blob, or the messages of the failure
};

/// What is printed for a token that the script `a.txt` may not have there. In the messages of a
/// block, `#` is the block's line.
std::string unidentified(const std::string& token, const std::string& line = "#");

using Files = std::map<std::string, std::string>;

struct ExpectedRun {
  std::string arguments = "a.txt";      ///< shell text, with redirections
  std::string scriptFile = "a.txt";     ///< with its path, as the banner shows it
  std::optional<std::string> script{};  ///< none: the bank's name and a line per block
  std::vector<Block> blocks{};
  Files files{};  ///< in the directory before the run, besides the blobs
  std::string bankPath{}, headerPath{};
  std::string base = "sfx", bankName = "sfx.tvb", headerName = "sfx.h", prefix = "SFX";
  std::string problems{};                ///< standard error after that of the blocks
  std::optional<std::string> failure{};  ///< of a failing run: standard output after the blocks
};

/// Runs the tool in a directory that has the directories `one` and `two.h` and older, longer
/// outputs. Compares both streams, the exit code, how much of standard input is left, and every
/// file: the outputs, except for the time of day, and all others, which must be unchanged.
void expectRun(const ExpectedRun& run);

}  // namespace tavrel::test
