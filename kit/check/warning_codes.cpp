// The codes of problems with which the tool packs everything, though rarely what was meant.
#include <array>

#include "kit/check/code_tables.h"

namespace tavrel::kit {

namespace {

constexpr std::array<Code, 27> kWarnings{{
    {"number-text", Severity::warning, "A number has other characters in it",
     "tavrel reads a number up to the first character that isn't a digit, and takes 0 where there "
     "is none: 22,050 is 22, 0x10 is 0.",
     "Write decimal digits alone.", "WaveFile boom.wav SampleRate 22,050 AssetEnd\n"},
    {"number-range", Severity::warning, "A number doesn't fit",
     "Numbers are stored in 32 bits. tavrel drops the bits beyond them.",
     "Write a number from -2147483648 to 2147483647; the parameters of a user asset go up to "
     "4294967295.",
     "UserAsset level.dat Parameter0 5000000000 AssetEnd\n"},
    {"flag-text", Severity::warning, "A flag has more than one character",
     "tavrel looks at the first character of a flag alone: 10 is on, and so is 1st.",
     "Write 0 or 1.", "WaveFile boom.wav SampleRate 22050 Loop 10 AssetEnd\n"},
    {"adpcm-loop", Severity::warning, "Adpcm is ignored because of Loop",
     "Looped sounds are never compressed: a decoder can't jump back to the start of a loop.",
     "Remove Adpcm 1 or Loop 1.", "WaveFile engine.wav SampleRate 22050 Loop 1 Adpcm 1 AssetEnd\n"},
    {"adpcm-width", Severity::warning, "Adpcm is ignored because of the sample width",
     "Only 16-bit sounds are compressed. Others are stored as they are.",
     "Remove Adpcm 1, or convert the sound to 16 bits.",
     "WaveFile 8_bits.wav SampleRate 22050 Adpcm 1 AssetEnd\n"},
    {"adpcm-odd", Severity::warning, "The last sample is dropped",
     "Compression takes pairs of samples.", "Make the number of samples even where it matters.",
     "WaveFile 101_samples.wav SampleRate 22050 Adpcm 1 AssetEnd\n"},
    {"sample-rate-missing", Severity::warning, "A sound has no SampleRate",
     "tavrel doesn't take the rate from the file: without SampleRate the bank says 0.",
     "Add SampleRate with the rate of the file, as tavkit check --fix does.",
     "WaveFile boom.wav AssetEnd\n"},
    {"sample-rate-differs", Severity::warning, "SampleRate isn't the rate of the file",
     "tavrel doesn't resample: the bank's rate is that of the script, and a game plays the sound "
     "faster or slower.",
     "Write the rate of the file, or resample it. Ignore this where another pitch is meant.",
     "WaveFile boom.wav SampleRate 11025 AssetEnd\n"},
    {"stereo-wave", Severity::warning, "A WAV file has more than one channel",
     "A bank doesn't store the number of channels: the samples of all channels alternate in one "
     "sound, and the game must know how many there are.",
     "Mix the sound down to one channel, or have the game play it as it is.",
     "WaveFile stereo.wav SampleRate 22050 AssetEnd\n"},
    {"raw-width", Severity::warning, "Samples have another width than 4, 8 or 16 bits",
     "tavrel stores such samples as bytes, without knowing them, and games seldom play them.",
     "Convert the sound to 16 bits.", "WaveFile 24_bits.wav SampleRate 22050 AssetEnd\n"},
    {"loop-ignored", Severity::warning, "The file has a loop that the bank won't hold",
     "Of a WAV file tavrel takes no loop points: Loop 1 loops the whole sound. Of an AIFF file it "
     "takes the sustain loop, if Loop 1 asks for it, and plays a ping-pong loop forward.",
     "Save the sound as AIFF and write Loop 1, or cut it to its loop.",
     "WaveFile with_smpl_chunk.wav SampleRate 22050 AssetEnd\n"},
    {"loop-click", Severity::warning, "A loop clicks where it wraps",
     "From the last sample of the loop to its first the sound jumps much further than anywhere "
     "inside.",
     "Move the loop points to zero crossings of the same direction, or crossfade.",
     "WaveFile engine.aif SampleRate 22050 Loop 1 AssetEnd\n"},
    {"loop-markers", Severity::warning, "AIFF markers aren't numbered in the order of the file",
     "A loop names its markers by number, but tavrel counts markers from 1 in the order of the "
     "file: it takes other points.",
     "Number the markers 1, 2, 3 in the order of the file; most editors do when they save anew.",
     "WaveFile markers_7_and_9.aif SampleRate 22050 Loop 1 AssetEnd\n"},
    {"unaligned", Severity::warning, "An asset follows one that isn't padded",
     "Tone banks, FX program banks and FX output banks aren't padded to 4 bytes. What follows one "
     "of another size begins at an offset from which some machines can't read numbers directly.",
     "List the assets that aren't padded last, or make their sizes multiples of 4.",
     "FxOutputBank 5_bytes.fxo AssetEnd\nUserAsset level.dat AssetEnd\n"},
    {"empty-asset", Severity::warning, "A file has 0 bytes", "The bank gets an asset of size 0.",
     "Export the file again, or remove the block.", "UserAsset 0_bytes.dat AssetEnd\n"},
    {"case-differs", Severity::warning, "The file's name has another case",
     "This file system ignores case, and others don't: there the file is missing.",
     "Write the name as the file has it, as tavkit check --fix does.",
     "WaveFile Boom.wav SampleRate 22050 AssetEnd  ; the file is boom.wav\n"},
    {"name-cut", Severity::warning, "A name is cut",
     "Of a WAV file's extension three characters are used, and of any extension the define takes "
     "five: another file may be read, and two names may become one.",
     "Use the usual extension, such as wav.", "WaveFile boom.wave SampleRate 22050 AssetEnd\n"},
    {"bank-name", Severity::warning, "The header will name another bank file",
     "The header's FILENAME is the bank's name up to its first dot and .tvb, whatever BankFileName "
     "says. A game that opens the file by it doesn't find the bank.",
     "Name the bank with one dot and the extension tvb.", "BankFileName sfx.bank\n"},
    {"after-end", Severity::warning, "There are words after ScriptEnd",
     "tavrel stops at ScriptEnd and ignores what follows.", "Move the statements before ScriptEnd.",
     "ScriptEnd\nUserAsset level.dat AssetEnd\n"},
    {"no-script-end", Severity::warning, "The script has no ScriptEnd",
     "It isn't needed, but without it nobody sees when the end of the script has been lost.",
     "End the script with ScriptEnd, as tavkit check --fix does.",
     "BankFileName sfx.tvb\nUserAsset level.dat AssetEnd\n"},
    {"second-bank-name", Severity::warning, "The bank is named a second time",
     "The last name counts for the files, the first one for the prefix of the defines.",
     "Remove one of them.", "BankFileName a.tvb\nBankFileName b.tvb\n"},
    {"repeated-option", Severity::warning, "An option appears twice in one block",
     "The last one counts.", "Remove one of them.",
     "WaveFile boom.wav SampleRate 22050 SampleRate 11025 AssetEnd\n"},
    {"same-file-twice", Severity::warning, "A file is listed twice", "The bank holds it twice.",
     "Remove one of the blocks.", "UserAsset level.dat AssetEnd\nUserAsset level.dat AssetEnd\n"},
    {"sequence-smpte", Severity::warning, "A sequence counts time in frames",
     "Its division is SMPTE time, which the bank stores as a negative number. Most players expect "
     "ticks per quarter note.",
     "Save the sequence with a division in ticks.", "MidiFileType0 25_frames.mid AssetEnd\n"},
    {"sequence-late-tempo", Severity::warning, "The first tempo comes after the start",
     "The bank's record holds the first tempo, but the sequence begins at 120 beats per minute.",
     "Put a tempo at the start of the sequence.", "MidiFileType0 tempo_in_bar_2.mid AssetEnd\n"},
    {"low-quality", Severity::warning, "Compression changes a sound much",
     "With --below, each compressed sound is compared with its file. The ratio of the sound's "
     "power to that of the error is below the limit. Noise, rain and shots are never good by this "
     "measure, so nothing is judged without --below.",
     "Listen to the sound as tavkit extract writes it. If it is bad, remove Adpcm 1, make the "
     "sound louder, or filter its highest frequencies. If it is fine, allow the code.",
     "WaveFile rain.wav SampleRate 22050 Adpcm 1 AssetEnd\n"},
    {"unknown-code", Severity::warning, "A comment allows a code that can't be allowed",
     "After 'tavkit: allow' there are codes of warnings. An error can't be allowed.",
     "Correct the code; tavkit check --list-codes lists them.", "; tavkit: allow adpcm-lop\n"},
}};

}  // namespace

std::span<const Code> warningCodes() { return kWarnings; }

}  // namespace tavrel::kit
