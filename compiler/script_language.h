// The script language as tables: a row per statement that makes an asset, a row per option.
// The parser, the bank writer and the tools that check scripts all read them, so a new keyword is
// one row.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "compiler/asset_data.h"
#include "compiler/bank_format.h"

namespace tavrel {

// Keywords that make no asset. Keywords are compared without regard to case.
constexpr const char* kBankFileName = "BankFileName";
constexpr const char* kScriptEnd = "ScriptEnd";
constexpr const char* kAssetEnd = "AssetEnd";  ///< ends each block of options

/// How the value of an option is written.
enum class Value {
  number,  ///< decimal; stored modulo 2 to the power 32
  flag,    ///< a word that begins with 0 or 1
  word,    ///< one of the option's words
};

/// A word that an option accepts, in exactly this case, and the number that is stored for it.
struct Word {
  const char* text;
  std::int32_t value;
};

/// The `parameter` of an option that fills no word of the record.
constexpr int kNotStored = -1;

struct Option {
  const char* keyword;
  Value value;
  int parameter;  ///< the parameter word that the value fills
  std::int32_t byDefault = 0;
  std::span<const Word> words{};  ///< for `Value::word`
};

/// Whether a blob is padded to a multiple of `kBlobAlignment` bytes.
enum class Padding { none, toMultipleOf4 };

struct Statement {
  const char* keyword;
  AssetType type;
  AssetKind kind;
  Padding padding;
  const char* reading;  ///< progress line of the parser, before the file name
  const char* writing;  ///< progress line of the bank writer, before the asset's name
  std::span<const Option> options;
};

inline constexpr std::array<Option, 4> kWaveOptions{{
    {"RandomPitchAmount", Value::number, waveRandomPitchAmount},
    {"SampleRate", Value::number, waveSampleRate},
    {"Loop", Value::flag, waveLoop},
    {"Adpcm", Value::flag, kNotStored},
}};

inline constexpr std::array<Option, 3> kSequenceOptions{{
    {"Volume", Value::number, sequenceVolume, 127},
    {"Loop", Value::number, sequenceLoop},
    {"GmMode", Value::number, sequenceGmMode, 1},
}};

inline constexpr std::array<Word, 2> kToneBankTypes{{{"Melodic", 1}, {"Drum", 0}}};

inline constexpr std::array<Option, 1> kToneBankOptions{{
    {"BankType", Value::word, kToneBankType, 0, kToneBankTypes},
}};

inline constexpr std::array<Option, 8> kUserOptions{{
    {"Parameter0", Value::number, 0},
    {"Parameter1", Value::number, 1},
    {"Parameter2", Value::number, 2},
    {"Parameter3", Value::number, 3},
    {"Parameter4", Value::number, 4},
    {"Parameter5", Value::number, 5},
    {"Parameter6", Value::number, 6},
    {"Parameter7", Value::number, 7},
}};

inline constexpr std::array<Statement, 6> kStatements{{
    {"MidiFileType0", typeMidi, kindMidi, Padding::toMultipleOf4,
     "Reading Midi File: ", "Writing MIDI Data: ", kSequenceOptions},
    {"WaveFile", typeWave, kindWave, Padding::toMultipleOf4,
     "Reading Wave File: ", "Writing Digital Audio Data: ", kWaveOptions},
    {"MidiToneBank", typeToneBank, kindToneBank, Padding::none,
     "Reading MTB File: ", "Writing Tone Bank Data: ", kToneBankOptions},
    {"FxOutputBank",
     typeFxOutputBank,
     kindDspBank,
     Padding::none,
     "Reading DSP File: ",
     "Writing DSP Program Data: ",
     {}},
    {"FxProgramBank",
     typeFxProgramBank,
     kindDspBank,
     Padding::none,
     "Reading DSP File: ",
     "Writing DSP Program Data: ",
     {}},
    {"UserAsset", typeUserAsset, kindUserAsset, Padding::toMultipleOf4,
     "Reading Unknown File: ", "Writing Unknown Data: ", kUserOptions},
}};

/// A WaveFile statement whose file is an AIFF file has this `reading` label.
constexpr const char* kReadingAiff = "Reading AIFF File: ";

/// Returns the row of an asset type. Only for types of the table.
constexpr const Statement& statementOf(AssetType type) {
  std::size_t row = 0;
  while (kStatements[row].type != type) {
    ++row;
  }
  return kStatements[row];
}

}  // namespace tavrel
