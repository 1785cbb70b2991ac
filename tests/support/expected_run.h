// What a run must print, answer and leave on disk, and the one check of it all. A test states what
// is special about its run; the rest is that of a script `a.txt` which names the bank `sfx.tvb` and
// holds the blocks.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tavrel::test {

/// A kind of asset: its keyword, its words in the progress lines, and its type in the bank.
struct AssetKindRow {
  std::string keyword, reading, writing;
  std::uint32_t type;
};

const AssetKindRow kWave{"WaveFile", "Wave", "Digital Audio", 1};
const AssetKindRow kAiff{"WaveFile", "AIFF", "Digital Audio", 1};
const AssetKindRow kMidi{"MidiFileType0", "Midi", "MIDI", 2};
const AssetKindRow kToneBank{"MidiToneBank", "MTB", "Tone Bank", 3};
const AssetKindRow kFxProgramBank{"FxProgramBank", "DSP", "DSP Program", 4};
const AssetKindRow kFxOutputBank{"FxOutputBank", "DSP", "DSP Program", 5};
const AssetKindRow kUserAsset{"UserAsset", "Unknown", "Unknown", 6};

/// A block that makes an asset, or one that fails.
struct Block {
  AssetKindRow kind;
  std::string file;
  std::string options;                                    ///< of a failed block, all it reads
  std::optional<std::array<std::int32_t, 8>> parameters;  ///< none: the block fails
  std::string content;                                    ///< the blob, or the words of the failure
};

using Files = std::map<std::string, std::string>;

struct ExpectedRun {
  std::string arguments = "a.txt";      ///< shell text: a redirection may stand in it
  std::string scriptFile = "a.txt";     ///< with its path, as the banner shows it
  std::optional<std::string> script{};  ///< none: the bank's name and the blocks, one on a line
  std::vector<Block> blocks{};
  Files files{};  ///< in the folder beforehand, as are the blobs
  std::string bankPath{}, headerPath{};
  std::string base = "sfx", bankName = "sfx.tvb", headerName = "sfx.h", prefix = "SFX";
  std::string problems{};                ///< standard error behind the words of the blocks
  std::optional<std::string> failure{};  ///< of a run that fails: standard output behind the blocks
};

/// Runs the tool in a folder in which there are the folders `one` and `two.h` and older and longer
/// outputs, and compares both streams, the exit code and every file: what the run writes is there,
/// but for the time of day, and all else is as it was.
void expectRun(const ExpectedRun& run);

}  // namespace tavrel::test
