// The codes of problems with which the tool fails, or the bank lacks or spoils something.
#include <array>

#include "kit/check/code_tables.h"

namespace tavrel::kit {

namespace {

constexpr std::array<Code, 27> kErrors{{
    {"unknown-word", Severity::error, "A word isn't a keyword here",
     "Each statement begins with its keyword, and a block has only the options of its statement. "
     "tavrel stops at any other word. Often it is a mistyped keyword, or the rest of a value that "
     "a space has split.",
     "Correct the keyword. Values have no spaces, a comment begins with a semicolon, and "
     "HeaderPrefix is an argument of tavrel, not a word of the script.",
     "WaveFile boom.wav\n    SampelRate 22050\nAssetEnd\n"},
    {"no-bank-name", Severity::error, "The script doesn't name its bank",
     "The bank and the header are named after BankFileName; without it the run fails.",
     "Begin the script with BankFileName and the name of the bank.",
     "WaveFile boom.wav SampleRate 22050 AssetEnd\nScriptEnd\n"},
    {"missing-value", Severity::error, "A keyword has no value after it",
     "tavrel takes the next word as the value, whatever it is: the keyword that follows is lost, "
     "and so is its meaning.",
     "Write the value, or remove the keyword.",
     "WaveFile boom.wav\n    SampleRate\n    Loop 1\nAssetEnd\n"},
    {"unfinished-block", Severity::error, "A block has no AssetEnd",
     "A block goes on to its AssetEnd. The next statement is not an option of it, so tavrel drops "
     "the asset; at the end of the script it does so silently.",
     "End the block with AssetEnd.",
     "WaveFile boom.wav\n    SampleRate 22050\nWaveFile blip.wav SampleRate 11025 AssetEnd\n"},
    {"last-word", Severity::error, "The last word has no newline after it",
     "tavrel reads a word only if a blank, a newline or a semicolon follows. The last word of the "
     "script is silently not there, and a block that it would end is dropped.",
     "End the last line with a newline. tavkit check --fix does, unless the word would be an "
     "error.",
     "FxOutputBank stereo.fxo AssetEnd"},
    {"long-word", Severity::error, "A word has more than 1,024 characters",
     "tavrel stops there. Often a file that isn't text was taken for a script.",
     "Shorten the word, or give the right file.", "UserAsset <1,025 characters> AssetEnd\n"},
    {"byte-order-mark", Severity::error, "The script begins with a byte order mark",
     "Some editors begin text with the three bytes EF BB BF. For tavrel they are part of the first "
     "word, which then isn't a keyword. The marks FF FE and FE FF begin UTF-16 text, of which it "
     "reads nothing.",
     "Save the script as UTF-8 without a byte order mark. tavkit check --fix removes the mark EF "
     "BB BF.",
     "<EF BB BF>BankFileName sfx.tvb\n"},
    {"missing-file", Severity::error, "An asset's file isn't there",
     "tavrel looks for the file from the current folder, under the name as the script has it. It "
     "takes neither quotes nor spaces in a name: a space or a semicolon ends it. The asset is "
     "dropped, or the run fails.",
     "Correct the name, run from the right folder, or rename the file so that it has no spaces. "
     "tavkit check --fix corrects the case of a name.",
     "WaveFile door slam.wav SampleRate 22050 AssetEnd\n"},
    {"unreadable-file", Severity::error, "A file isn't what its statement reads",
     "A statement has one reader, chosen by its keyword and the file's extension: WaveFile reads "
     "WAV, and AIFF under .aif. tavrel doesn't look at what the file really is.",
     "Convert the file, or use the extension of its form. sox converts most sounds.",
     "WaveFile music.mp3 SampleRate 44100 AssetEnd\n"},
    {"empty-sound", Severity::error, "A sound has no samples that can be stored",
     "tavrel refuses a sound without samples. Compression takes pairs of samples, so less than two "
     "give an empty asset, and so does an AIFF file of other widths than 8 and 16 bits.",
     "Export the sound again, or convert it to 16 bits.",
     "WaveFile silence.wav SampleRate 22050 AssetEnd\n"},
    {"damaged-sound", Severity::error, "A sound file is damaged",
     "The file has the right form, but its chunks contradict each other or the file ends too soon. "
     "tavrel refuses it, or stores something else than the sound.",
     "Export the sound again.", "WaveFile cut_off.wav SampleRate 22050 AssetEnd\n"},
    {"broken-loop", Severity::error, "A loop doesn't lie inside its sound",
     "With Loop 1 the bank gets the loop points of the file: those of an AIFF file's sustain loop, "
     "or the whole of a WAV file. A game that plays from 0 or beyond the samples clicks or "
     "crashes.",
     "Set the loop points in a sound editor, or remove Loop 1.",
     "WaveFile engine.aif SampleRate 22050 Loop 1 AssetEnd\n"},
    {"encoding", Severity::error, "A WAV file isn't plain PCM",
     "tavrel stores the bytes of the samples and doesn't look at their encoding. A game plays "
     "floating-point, A-law or ADPCM samples of other makers as noise.",
     "Convert the file to 16-bit PCM.", "WaveFile float32.wav SampleRate 22050 AssetEnd\n"},
    {"stereo-aiff", Severity::error, "Half of an AIFF file with two channels would be lost",
     "tavrel takes as many samples from an AIFF file as it has frames, whatever its channels: of "
     "stereo only the first half is stored.",
     "Mix the sound down to one channel.", "WaveFile stereo.aif SampleRate 22050 AssetEnd\n"},
    {"sequence-type", Severity::error, "A MIDI file isn't of type 0",
     "tavrel leaves out sequences of other types and goes on. All later ids move.",
     "Save the sequence as type 0, which has all channels in one track.",
     "MidiFileType0 two_tracks.mid AssetEnd\n"},
    {"sequence-no-tempo", Severity::error, "A sequence has no tempo",
     "tavrel silently leaves out a sequence without a tempo event. All later ids move.",
     "Save the sequence with its tempo.", "MidiFileType0 no_tempo.mid AssetEnd\n"},
    {"sequence-broken", Severity::error, "A sequence breaks off",
     "The track isn't first, is empty or has no end, or the file counts time in 0 ticks. tavrel "
     "may store it, and a player runs past its end.",
     "Save the sequence again.", "MidiFileType0 cut_off.mid AssetEnd\n"},
    {"bad-flag", Severity::error, "A flag is neither 0 nor 1",
     "The value of a flag begins with 0 or 1. tavrel drops the asset at any other word.",
     "Write 0 or 1.", "WaveFile boom.wav SampleRate 22050 Loop yes AssetEnd\n"},
    {"bad-bank-type", Severity::error, "A tone bank has an unknown type",
     "BankType is Melodic or Drum, in exactly this case. tavrel stops at any other word.",
     "Write Melodic or Drum.", "MidiToneBank drums.mtb BankType drum AssetEnd\n"},
    {"define-invalid", Severity::error, "A define wouldn't be a C identifier",
     "The header names each asset after its file: the prefix, the name and the extension, in upper "
     "case. Only letters, digits and _ make an identifier, and a digit can't be first. The header "
     "doesn't compile, or defines something else.",
     "Rename the file, or set a prefix with HeaderPrefix. Where a / spoils the define, write a \\; "
     "tavkit check --fix does, unless the new define is taken.",
     "UserAsset level-1.dat AssetEnd\n"},
    {"define-duplicate", Severity::error, "Two defines would have the same name",
     "The header names assets after their files without the folder, so boom.wav in two folders is "
     "one name, and so are boom.wav and BOOM.WAV. The bank's own defines and the guard count too.",
     "Rename one of the files.",
     "WaveFile a\\boom.wav SampleRate 22050 AssetEnd\nWaveFile b\\boom.wav SampleRate 22050 "
     "AssetEnd\n"},
    {"long-name", Severity::error, "The name of an asset is too long",
     "The stem and the extension of a file, and a _ between them, may have 79 characters.",
     "Rename the file.", "UserAsset <75 characters>.data AssetEnd\n"},
    {"long-guard", Severity::error, "The guard of the header is too long",
     "The guard is the bank's name without its extension and three more characters, 79 at most.",
     "Give the bank a shorter name.", "BankFileName <77 characters>.tvb\n"},
    {"too-many-assets", Severity::error, "The script has too many assets",
     "Ids are 16-bit numbers that aren't negative, so a bank has 32,768 assets at most.",
     "Make two banks.", "UserAsset the_32769th.dat AssetEnd\n"},
    {"bank-too-long", Severity::error, "The bank would have 4 GiB or more",
     "Offsets in a bank are 32-bit numbers.", "Make two banks, or compress more sounds.",
     "UserAsset after_4_gigabytes.dat AssetEnd\n"},
    {"output-overlap", Severity::error, "Two of the run's files are one",
     "The bank, the header, the script and the assets must be different files: the run would write "
     "over one that it reads or has just written.",
     "Name the bank differently, or write it to another folder.",
     "BankFileName boom.wav\nWaveFile boom.wav SampleRate 22050 AssetEnd\nScriptEnd\n"},
    {"over-budget", Severity::error, "The bank is longer than --max-bytes allows",
     "The limit counts the whole file of the bank.",
     "Compress or leave out some of the largest assets, which the message names.",
     "BankFileName sfx.tvb  ; checked with --max-bytes 8M\n"},
}};

}  // namespace

std::span<const Code> errorCodes() { return kErrors; }

}  // namespace tavrel::kit
