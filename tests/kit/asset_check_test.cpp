// What the check of a block's file finds, where, and what it says: for every code a case that gives
// it alone, and one nearby that doesn't. The tool judges each case: it must store exactly what the
// check says, and refuse nothing without an error.
#include "kit/check/asset_check.h"

#include "compiler/bank_script.h"
#include "kit/check/source_text.h"
#include "platform/file_cache.h"
#include "tests/kit/command_test.h"
#include "tests/support/midi_builder.h"
#include "tests/support/sound_builder.h"

namespace tavrel::kit {
namespace {

using namespace tavrel::test;
using testing::HasSubstr;

struct AssetRow {
  std::string name;
  std::string block;  ///< without its AssetEnd
  std::string content;
  std::string found;  ///< codes, each with its line and column unless those of the file's name
  std::string said{};
  std::string otherFile{};  ///< that has the content; empty for the block's own

  [[nodiscard]] std::string file() const {
    const std::size_t start = block.find(' ') + 1;
    const std::size_t end = block.find_first_of(" \n", start);
    return otherFile.empty() ? block.substr(start, end - start) : otherFile;
  }
};

Bytes samples16(std::initializer_list<int> values) {
  Bytes bytes;
  for (const int value : values) {
    bytes.le16(static_cast<std::size_t>(value));
  }
  return bytes;
}

/// A WAV file of 16 bits whose encoding a tag says, or the sub-format of an extensible one.
std::string tagged(std::size_t tag, std::size_t subFormat = 0) {
  Bytes format = Bytes().le16(tag).le16(1).le32(22050).le32(44100).le16(2).le16(16);
  if (subFormat != 0) {
    format.le16(22).le16(16).le32(4).le16(subFormat).text(
        {"\0\0\0\0\x10\0\x80\0\0\xAA\0\x38\x9B\x71", 14});
  }
  return wav().chunk("fmt ", format).data("12");
}

WavBuilder format(std::uint32_t channels, std::uint32_t bits) {
  return wav().fmt(channels, bits, 22050);
}

WavBuilder mono16(std::string_view samples) { return format(mono, 16).data(samples); }

Bytes sampler(std::size_t loops) { return Bytes().fill(28).le32(loops).le32(0).fill(24); }

AiffBuilder aiffOf(std::uint32_t channels, std::uint32_t frames, std::uint32_t bits,
                   std::string_view samples) {
  return aiff().comm(channels, frames, bits).ssnd(samples);
}

/// Four samples and a loop between the markers 1 and 2, at 0 and `end`.
AiffBuilder looped(std::uint32_t mode, std::uint32_t end, std::uint32_t endId = 2) {
  return aiffOf(mono, 4, 8, "abcd").inst({mode, 1, endId}).mark({{1, 0}, {2, end}});
}

std::string sequence(std::size_t division, std::size_t type, const Events& track) {
  return midi(division, type).track(track);
}

Events song() { return events().tempo(0, 500000).note(0, 1, 60, 100).endOfTrack(96); }

std::string waveBlock(const std::string& file) { return "WaveFile " + file + "\nSampleRate 22050"; }

const std::string kGood = mono16("12345678");
const std::string kWave = waveBlock("a.wav");
const std::string kAiff = "WaveFile a.aif\nSampleRate 44100";
const std::string kCompressed = kWave + "\nAdpcm 1";
const std::string kLooped = kWave + "\nLoop 1";
const std::string kLoopedAiff = kAiff + "\nLoop 1";
const std::string kMidi = "MidiFileType0 a.mid";
const std::string kLong(75, 'n');

const std::vector<AssetRow> kAssetRows{
    {"missing", waveBlock("bom.wav"), kGood, "missing-file", "mean boom.wav?", "boom.wav"},
    {"other extension", kWave, "1", "missing-file", "did you mean a.ogg?", "a.ogg"},
    {"other folder", waveBlock("im\\hti.wav"), kGood, "missing-file", "in\\hit.wav", "in/hit.wav"},
    {"split by a space", waveBlock("a b.wav"), kGood, "missing-file", "mv -n 'a b.wav'", "a b.wav"},
    {"split before other words", waveBlock("a b.wav c d"), kGood, "missing-file",
     "mv -n 'a b.wav' ", "a b.wav"},
    {"folder split by a space", waveBlock("my dir\\x.wav"), kGood, "missing-file",
     "x.wav; rename it and write my_dir\\x.wav. mv -n 'my dir' my_dir\n", "my dir/x.wav"},
    {"nearest split by a space", waveBlock("ab.wav"), kGood, "missing-file",
     "mv -n 'a b.wav' a_b.wav", "a b.wav"},
    {"taken new name", waveBlock("hit 1.wav"), kGood, "missing-file",
     "mv -n 'hit 1.wav' hit_1_new.wav", "hit 1.wav"},
    {"taken name of a WAV", waveBlock("hit_1.aif"), kGood, "unreadable-file",
     "mv -n hit_1.aif hit_1_new.wav"},
    {"split by ;", "UserAsset a;b\n", "1", "missing-file", "mv -n 'a;b' a_b", "a;b"},
    {"quoted", waveBlock("\"a.wav\""), kGood, "missing-file", "Write a.wav", "a.wav"},
    {"quoted, with a zero byte",
     {"UserAsset \"a.dat\0 b.dat\"", 24},
     "1",
     "missing-file",
     "Write a.dat\n",
     "a.dat"},
    {"comment after the name", "UserAsset a.dat;b.dat\n", "1", "", "", "a.dat"},
    {"missing hides nothing", "WaveFile a.wav\nAdpcm 1 Loop 1", "1",
     "missing-file sample-rate-missing adpcm-loop 3:1", "", "b/a"},
    {"cut name missing", waveBlock("a.wave"), kGood, "missing-file", "mv -n a.wave a.wav"},
    {"FLAC", waveBlock("a.flac"), "fLaC", "missing-file", "sox -t flac a.flac -b 16 a.wav"},
    {"cut name there", waveBlock("a.wave"), kGood, "name-cut", "", "a.wav"},
    {"cut twice", waveBlock("a.wavw."), kGood, "missing-file", "mean a.wav?", "a.wav"},
    {"cut to a.wavw", waveBlock("a.wavw."), kGood, "name-cut", "Write a.wavw", "a.wavw"},
    {"extension of six", "UserAsset a.abcdef", "1", "name-cut"},
    {"extension of five", "UserAsset a.abcde", "1", ""},
    {"name of 80", waveBlock(kLong + "n.wav"), kGood, "long-name"},
    {"name of 79", waveBlock(kLong + ".wav"), kGood, ""},
    {"a.aiff", waveBlock("a.aiff"), looped(0, 4), "unreadable-file", "mv -n a.aiff a.aif"},
    {"AIFF under wav", kWave, looped(0, 4), "unreadable-file", "an AIFF file"},
    {"AIFF under AIF", "WaveFile a.AIF\nSampleRate 44100", looped(0, 4), ""},
    {"WAV under aif", kAiff, kGood, "unreadable-file", "a WAV file"},
    {"folder", waveBlock("f.wav"), "", "unreadable-file", "a folder", "f.wav/a"},
    {"opaque folder", "UserAsset f.dat", "", "unreadable-file", "a folder", "f.dat/a"},
    {"0 bytes of WAV", kWave, "", "unreadable-file"},
    {"0 bytes of AIFF", kAiff, "", "unreadable-file"},
    {"0 bytes of MIDI", kMidi, "", "unreadable-file"},
    {"0 bytes", "MidiToneBank a.mtb", "", "empty-asset"},
    {"1 byte", "MidiToneBank a.mtb", "1", ""},
    {"ID3", kWave, "ID3\3", "unreadable-file", "MP3"},
    {"MPEG", kWave, "\xFF\xFB\x90\x44", "unreadable-file", "MP3"},
    {"Ogg", kWave, "OggS", "unreadable-file", "Ogg"},
    {"AIFF-C", kAiff, aiff().form("AIFC"), "unreadable-file", "AIFF-C"},
    {"RF64", kWave, "RF64\xFF\xFF\xFF\xFFWAVEds64", "unreadable-file", "RF64"},
    {"W64", kWave, "riff\x2E\x91\xCF\x11", "unreadable-file", "W64"},
    {"HTML", kMidi, "<!DOCTYPE html><p>404", "unreadable-file", "HTML"},
    {"text", kWave, "only t\xC3\xA4xt\n", "unreadable-file", "text"},
    {"cut", kWave, {"RIFF\x24\x08\0", 7}, "unreadable-file", "this isn't a WAV file"},
    {"text cut in a letter", kWave, "t\xC3\xA4xt\xE2\x82", "unreadable-file", "text"},
    {"MIDI", kWave, sequence(96, 0, song()), "unreadable-file", "a MIDI file"},
    {"wrong size", kWave, mono16("12").claimFormSize(0), "unreadable-file", "size of the whole"},
    {"no samples", kWave, mono16(""), "empty-sound"},
    {"half a sample", kWave, mono16("1"), "empty-sound"},
    {"no frames", kAiff, aiffOf(mono, 0, 16, ""), "empty-sound"},
    {"no frames of 8 bits", kAiff, aiffOf(mono, 0, 8, ""), "empty-sound", "has no samples"},
    {"AIFF of 24 bits", kAiff, aiffOf(mono, 1, 24, "123"), "empty-sound",
     "sox a.aif -b 16 a_16.aif"},
    {"1 sample compressed", kCompressed, mono16("12"), "empty-sound"},
    {"2 samples compressed", kCompressed, mono16("1234"), ""},
    {"3 samples compressed", kCompressed, mono16("123456"), "adpcm-odd 4:1"},
    {"no format", kWave, wav().data("12"), "damaged-sound"},
    {"format cut", kWave, wav().chunk("fmt ", "123").claimSize("fmt ", 16), "damaged-sound"},
    {"no data", kWave, format(mono, 16), "damaged-sound", "has no samples"},
    {"data cut", kWave, mono16("12").claimDataSize(4), "damaged-sound"},
    {"data first", kWave, wav().data("12").fmt(mono, 16, 22050), "damaged-sound",
     "before the format"},
    {"two data chunks", kWave, mono16("12").data("34"), "damaged-sound"},
    {"other chunk after data", kWave, mono16("12").chunk("LIST", "34"), ""},
    {"AIFF without SSND", kAiff, aiff().comm(mono, 1, 8), "damaged-sound"},
    {"AIFF cut", kAiff, aiffOf(mono, 3, 8, "12"), "damaged-sound"},
    {"AIFF with an offset", kAiff,
     aiff().comm(mono, 1, 8).chunk("SSND", Bytes().be32(1).be32(0).text("12")), "damaged-sound"},
    {"float", kWave, tagged(3), "encoding", "sox a.wav -b 16 -e signed-integer a_16.wav"},
    {"MP3 in a WAV", kWave, tagged(0x55), "encoding",
     "ffmpeg -nostdin -i a.wav -c:a pcm_s16le a_new.wav"},
    {"extensible float", kWave, tagged(0xFFFE, 3), "encoding"},
    {"float with a sub-format", kWave, tagged(3, 1), "encoding"},
    {"extensible PCM", kWave, tagged(0xFFFE, 1), ""},
    {"no sub-format", kWave, tagged(0xFFFE), "encoding"},
    {"PCM of 4 bits", kWave, format(mono, 4).data("12"), "encoding"},
    {"24 bits", waveBlock("a24.wav"), format(mono, 24).data("123"), "raw-width",
     "sox a24.wav -b 16 a.wav"},
    {"8 bits", kWave, format(mono, 8).data("123"), ""},
    {"8 bits compressed", kCompressed, format(mono, 8).data("12"), "adpcm-width 4:1"},
    {"stereo of 8 bits compressed", kCompressed, format(stereo, 8).data("1234"),
     "stereo-wave adpcm-width 4:1", "sox a.wav -c 1 -b 16 a_16.wav"},
    {"stereo WAV", waveBlock("a$(b)'.wav"), format(stereo, 16).data("1234"), "stereo-wave",
     R"(sox 'a$(b)'\''.wav' -c 1 'a$(b)'\''_mono.wav')"},
    {"a name like a pattern", waveBlock("a[1].wav"), format(stereo, 16).data("1234"), "stereo-wave",
     "sox --no-glob 'a[1].wav' -c 1 'a[1]_mono.wav'"},
    {"a name like an option", waveBlock("-o.wav"), tagged(3), "encoding",
     "sox ./-o.wav -b 16 -e signed-integer ./-o_16.wav"},
    {"stereo AIFF", kAiff, aiffOf(stereo, 2, 8, "1234"), "stereo-aiff",
     "sox a.aif -c 1 a_mono.aif"},
    {"last loop compressed", kWave + "\nLoop 0 Loop 10\nAdpcm 1", kGood,
     "repeated-option 4:8 flag-text 4:13 adpcm-loop 5:1",
     "a.wav: Adpcm is ignored because of Loop; 8 bytes are stored uncompressed"},
    {"no loop compressed", kWave + " Loop 0\nAdpcm 1", kGood, ""},
    {"no rate", "WaveFile a.wav", kGood, "sample-rate-missing", "SampleRate 22050"},
    {"other rate", "WaveFile a.wav SampleRate 22051", kGood, "sample-rate-differs 2:27",
     "SampleRate 22050"},
    {"no number", "WaveFile a.wav SampleRate 22,050", kGood, "number-text 2:27"},
    {"24 bits looped", kLooped, format(mono, 24).data("123"), "raw-width broken-loop"},
    {"no sustain loop", kLoopedAiff, looped(0, 4), "broken-loop"},
    {"loop of no length", kLoopedAiff, looped(1, 0), "broken-loop"},
    {"loop to the end", kLoopedAiff, looped(1, 4), ""},
    {"loop beyond the end", kLoopedAiff, looped(1, 5), "broken-loop"},
    {"loop without a marker", kAiff, looped(1, 4, 3), "broken-loop"},
    {"loop not asked for", kAiff, looped(1, 4), "loop-ignored"},
    {"ping-pong loop", kLoopedAiff, looped(2, 4), "loop-ignored"},
    {"loop of a WAV", kWave, mono16("12").chunk("smpl", sampler(1)), "loop-ignored"},
    {"smpl without a loop", kWave, mono16("12").chunk("smpl", sampler(0)), ""},
    {"markers out of order", kLoopedAiff,
     aiffOf(mono, 4, 8, "abcd").inst({1, 1, 2}).mark({{2, 0}, {1, 4}}), "loop-markers",
     "numbers 2, 1, and"},
    {"nine markers out of order", kLoopedAiff,
     aiffOf(mono, 4, 8, "abcd")
         .inst({1, 1, 2})
         .mark({{2, 0}, {1, 4}, {3, 4}, {4, 4}, {5, 4}, {6, 4}, {7, 4}, {8, 4}, {9, 4}}),
     "loop-markers", "numbers 2, 1, 3, 4, 5, 6, 7, 8, ..., and"},
    {"wrap of 4 steps", kLooped, mono16(samples16({0, 251, 502, 753, 1004})), ""},
    {"wrap of 5 steps", kLooped, mono16(samples16({0, 201, 402, 602, 802, 1003})),
     "loop-click 4:1"},
    {"wrap of 1000", kLooped, mono16(samples16({0, 200, 400, 600, 800, 1000})), ""},
    {"wrap on the right", kLooped,
     format(stereo, 16).data(samples16({0, 0, 0, -400, 0, -800, 0, -1200, 0, -1600, 0, -2001})),
     "stereo-wave loop-click 4:1"},
    {"wrap of 8 bits", kLooped, format(mono, 8).data("abcdef"), "loop-click 4:1"},
    {"sequence", kMidi, sequence(0x7FFF, 0, song()), ""},
    {"type 1", kMidi, sequence(96, 1, song()), "sequence-type", " a.mid a_type0.mid"},
    {"no tempo", kMidi, sequence(96, 0, events().note(0, 1, 60, 100).endOfTrack()),
     "sequence-no-tempo"},
    {"short tempo", kMidi, sequence(96, 0, events().meta(0, 0x51, "12").endOfTrack()),
     "sequence-no-tempo"},
    {"no end", kMidi, sequence(96, 0, events().tempo(0, 9)), "sequence-broken"},
    {"empty track", kMidi, sequence(96, 0, {}), "sequence-broken"},
    {"track not first", kMidi, Bytes(midi()).text("XFIH").be32(0).text("MTrk"), "sequence-broken"},
    {"header cut", kMidi, "MThd", "sequence-broken"},
    {"division 0", kMidi, sequence(0, 0, song()), "sequence-broken"},
    {"frames", kMidi, sequence(0xE728, 0, song()), "sequence-smpte"},
    {"late tempo", kMidi, sequence(96, 0, events().tempo(1, 500000).endOfTrack()),
     "sequence-late-tempo"},
};

/// What may be an error although the tool packs everything.
const std::set<std::string_view> kJudgements{"encoding",    "stereo-aiff", "damaged-sound",
                                             "empty-sound", "broken-loop", "sequence-broken"};

class AssetCheckTest : public CommandTest {
 protected:
  /// Checks a script of one block, and compares what is found with what the tool does.
  void check(const std::string& block) {
    const CapturedConsole silence;
    const std::string text = "BankFileName b.tvb\n" + block + " AssetEnd\nScriptEnd\n";
    TokenFile script;
    load(script, text);
    Findings findings;
    const ScriptModel model = readScript(script, findings);
    script.freeData();
    FolderNames folders;
    const CheckedAsset asset = checkAsset(model.blocks.at(0), folders, findings);
    found_ = said_ = "";
    bool isRefused = false;
    bool isFault = false;
    for (const Diagnostic& one : findings.sorted()) {
      const Position place = SourceText(text).positionOf(one.offset);
      found_ += (found_.empty() ? "" : " ") + std::string(one.code->name);
      if (place.line != 2 || place.column != block.find(' ') + 2) {
        found_ += ' ' + std::to_string(place.line) + ':' + std::to_string(place.column);
      }
      said_ += one.message + ". " + one.hint + "\n";
      const bool isError = one.code->severity == Severity::error;
      isFault = isFault || isError;
      isRefused = isRefused || (isError && !kJudgements.contains(one.code->name));
    }
    BankScript tool("script.txt");
    load(tool, text);
    tool.parseStatements();
    tool.freeData();
    const bool isStored = tool.assets.size() == 1;
    EXPECT_EQ(asset.isStored, isStored);
    EXPECT_TRUE(isStored ? !isRefused : isFault) << found_;
    EXPECT_EQ(asset.size, isStored ? tool.entries[0]->size : 0);
    EXPECT_EQ(asset.paddedSize, isStored ? tool.assets[0]->paddedSize : 0);
  }

  static void load(TokenFile& file, const std::string& text) {
    file.useMemory(blockOf(text).release(), text.size());
  }

  std::string found_, said_;
};

TEST_F(AssetCheckTest, FindsExactlyWhatIsWrong) {
  write("hit_1.wav", "");  // what new names must not replace
  for (const AssetRow& row : kAssetRows) {
    SCOPED_TRACE(row.name);
    write(row.file(), row.content);
    check(row.block);
    EXPECT_EQ(found_, row.found);
    EXPECT_THAT(said_, HasSubstr(row.said));
    fs::remove(row.file());
  }
}

TEST_F(AssetCheckTest, LooksForFewNamesInAWrongFolder) {
  constexpr int kFiles = 1000;
  for (int i = 0; i < kFiles; ++i) {
    write("f" + std::to_string(i), "");
  }
  FolderNames folders;
  for (int i = 0; i < 2'000'000 / kFiles; ++i) {
    EXPECT_EQ(folders.nearestName(i == 0 ? "f10x" : "not one of these"), i == 0 ? "f10" : "");
  }
  EXPECT_EQ(folders.nearestName("f10x"), "");
}

TEST_F(AssetCheckTest, AgreesWithTheToolOnEveryDamagedFile) {
  FileCache cache;
  setFileCache(&cache);
  for (const AssetRow& row : kAssetRows) {
    SCOPED_TRACE(row.name);
    const auto checkBytes = [&](const std::string& bytes) {
      cache.add(row.file(), {blockOf(bytes), bytes.size()});
      check(row.block);
    };
    write(row.file(), row.content);
    for (std::size_t i = 0; i < row.content.size() && !HasFailure(); ++i) {
      checkBytes(row.content.substr(0, i));
      for (const int flipped : {0x01, 0x80, 0xFF}) {
        std::string damaged = row.content;
        damaged[i] = static_cast<char>(damaged[i] ^ flipped);
        checkBytes(damaged);
      }
    }
    cache.remove(row.file());
    fs::remove(row.file());
  }
  setFileCache(nullptr);
}

TEST_F(AssetCheckTest, FindsTheFileThatOtherCaseMeans) {
  write("Boom.wav", kGood);
  const bool ignoresCase = fs::exists("BOOM.WAV");
  check(waveBlock("boom.WAV"));
  EXPECT_EQ(found_, ignoresCase ? "case-differs" : "missing-file");
  EXPECT_THAT(said_, HasSubstr("Boom.wav"));
  const std::string parts =
      "../" + fs::path(folder_.path()).parent_path().filename().string() + "/./";
  check(waveBlock(parts + "boom.WAV"));
  EXPECT_THAT(said_, HasSubstr(parts + "Boom.wav"));
  check(waveBlock("Boom.wav"));
  EXPECT_EQ(found_, "");
}

}  // namespace
}  // namespace tavrel::kit
