// Expected streams, exit code and files of a run, and the one check of them all. A test states what
// is special about its run. By default the script `a.txt` names the bank `sfx.tvb` and has the
// blocks of the test.
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
  std::string options;                                    ///< of a failing block: all that it reads
  std::optional<std::array<std::int32_t, 8>> parameters;  ///< none: the block fails
  std::string content;  ///< the blob, or the messages of the failure
};

using Files = std::map<std::string, std::string>;

struct ExpectedRun {
  std::string arguments = "a.txt";      ///< shell text, with redirections
  std::string scriptFile = "a.txt";     ///< with its path, as the banner shows it
  std::optional<std::string> script{};  ///< none: the bank's name and a line per block
  std::vector<Block> blocks{};
  Files files{};  ///< in the folder before the run, beside the blobs
  std::string bankPath{}, headerPath{};
  std::string base = "sfx", bankName = "sfx.tvb", headerName = "sfx.h", prefix = "SFX";
  std::string problems{};                ///< standard error after that of the blocks
  std::optional<std::string> failure{};  ///< of a failing run: standard output after the blocks
};

/// Runs the tool in a folder that has the folders `one` and `two.h` and older, longer outputs.
/// Compares both streams, the exit code and every file: the outputs, but for the time of day, and
/// all others, which must be unchanged.
void expectRun(const ExpectedRun& run);

}  // namespace tavrel::test
