#include <gtest/gtest.h>

#include <algorithm>

#include "compiler/bank_script.h"
#include "tests/support/aiff_builder.h"
#include "tests/support/midi_builder.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/wav_builder.h"

namespace tavrel::test {
namespace {

/// A block on the file `name` in a folder of its own: what is stored, or the words of its failure,
/// in which % stands for the full file name. What the block leaves unread begins with `next`.
struct SoundBlock {
  std::string name;
  std::string content;
  std::string options;
  std::vector<std::int32_t> parameters;  // empty: the block fails
  std::string payload;
  std::string problems{};
  std::string next{};
};

void expectBlock(const SoundBlock& block) {
  SCOPED_TRACE(block.name + " " + block.options);
  const TemporaryDirectory folder;
  std::string fullName = folder.write(block.name, block.content);
  std::replace(fullName.begin(), fullName.end(), '/', '\\');
  const bool isMidi = block.name.ends_with(".mid");
  const bool isAiff = block.name.ends_with(".AIF") || block.name.ends_with(".aif");
  std::string text = fullName + " " + block.options;
  BankScript script("");
  auto memory = std::make_unique<std::uint8_t[]>(text.size());
  std::copy(text.begin(), text.end(), memory.get());
  script.useMemory(memory.release(), text.size());
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const bool stored = isMidi ? script.parseMidiFileType0(script) : script.parseWaveFile(script);
  std::string problems = block.problems;
  for (std::size_t mark = 0; (mark = problems.find('%', mark)) != std::string::npos;) {
    problems.replace(mark, 1, fullName);
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), problems);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), (isMidi   ? "Reading Midi File: "
                                                     : isAiff ? "Reading AIFF File: "
                                                              : "Reading Wave File: ") +
                                                        fullName + "\n");
  EXPECT_EQ(script.readToken() ? script.token.data() : "", block.next);
  script.freeData();
  ASSERT_EQ(stored, !block.parameters.empty());
  ASSERT_EQ(script.assets.size(), stored ? 1 : 0);
  if (!stored) {
    return;
  }
  const AssetEntry& entry = *script.entries[0];
  const AssetData& data = *script.assets[0];
  std::string padded = block.payload;
  padded.resize((padded.size() + 3) / 4 * 4);
  EXPECT_EQ(entry.type, isMidi ? 2U : 1U);
  EXPECT_EQ(data.kind, entry.type);
  EXPECT_EQ(entry.size, block.payload.size());
  EXPECT_EQ(std::string(data.payload.get(), data.payload.get() + data.paddedSize), padded);
  EXPECT_EQ(std::vector<std::int32_t>(entry.parameter.begin(), entry.parameter.end()),
            block.parameters);
}

std::string words(std::initializer_list<int> values) {
  Bytes bytes;
  for (const int value : values) {
    bytes.le16(static_cast<std::uint32_t>(value));
  }
  return bytes;
}

const char* const kNotFound = "ERROR: File: % not found.\n";

std::string unidentified(const std::string& token) {
  return "Script File: \nError: Unidentified token: " + token + " at line: 1\n";
}

TEST(SoundBlocks, WavSamplesReachTheBankSignedLoopedOrCompressed) {
  const std::string bytes = wav().fmt(mono, 8, 8000).data("\x80\xFF\x7F").str();
  const std::string steps = words({1000, 900, -500, 0, 32767, 32767, -32768, -32768});
  const std::string sixteen = wav().fmt(stereo, 16, 44100).data(steps).str();
  const std::string flipped("\0\x7F\xFF", 3);
  const SoundBlock blocks[] = {
      {"x.wav", bytes, "AssetEnd ", {0, 0, 8, 0, 0, 0, 0, 0}, flipped},
      {"X.WAV", bytes, "Loop 10 assetend ", {0, 1, 8, 0, 0, 3, 0, 0}, flipped},
      {"x.wav", bytes, "Loop 0 Adpcm 1 AssetEnd ", {0, 0, 8, 0, 0, 0, 0, 0}, flipped},
      {"x",
       sixteen,
       "RandomPitchAmount -7 SampleRate 1 SampleRate 22050 AssetEnd ",
       {22050, 0, 16, -7, 0, 0, 0, 0},
       steps},
      {"x.wav", sixteen, "Loop 1 AssetEnd ", {0, 1, 16, 0, 0, 8, 0, 0}, steps},
      {"x.wav", sixteen, "Loop 1 loop 0 Adpcm 0 AssetEnd ", {0, 0, 16, 0, 0, 0, 0, 0}, steps},
      {"a.b.wav", sixteen, "Adpcm 1 AssetEnd ", {0, 0, 4, 0, 0, 0, 0, 0}, "\x77\x1F\x77\xCF"},
      {"x.wav",
       wav().fmt(mono, 16, 8000).data(std::string(36, '\0')).str(),
       "Adpcm 1 AssetEnd ",
       {0, 0, 4, 0, 0, 0, 0, 0},
       std::string(12, '\x80')},
      {"x.wav",
       sixteen,
       "Adpcm 1 Loop 1 AssetEnd Next ",
       {0, 1, 16, 0, 0, 8, 0, 0},
       steps,
       "\nWARNING: ADPCM not allowed on loops, x.wav not compressed.\n\n",
       "Next"},
      {"x.wav",
       wav().fmt(mono, 4, 8000).data("abc").str(),
       "Loop 1 AssetEnd ",
       {0, 1, 4, 0, 0, 6, 0, 0},
       "abc"},
      {"x.wav",
       wav().fmt(mono, 24, 8000).data("abcdef").str(),
       "Loop 1 Adpcm 0 AssetEnd ",
       {0, 1, 24, 0, 0, 0, 0, 0},
       "abcdef"},
  };
  std::for_each(std::begin(blocks), std::end(blocks), expectBlock);
}

TEST(SoundBlocks, AiffSamplesAndTheirSustainLoopReachTheBank) {
  const std::string bytes = "\x01\xFF\x80";
  const std::string swapped = words({0x3412, 0x7856});
  const std::string looped = aiff()
                                 .comm(mono, 2, 16)
                                 .mark({{2, 1, "later"}, {1, 7, ""}})
                                 .inst({2, 1, 2})
                                 .ssnd("\x34\x12\x78\x56")
                                 .str();
  const SoundBlock blocks[] = {
      {"x.aif",
       aiff().comm(mono, 3, 8).ssnd(bytes).str(),
       "Loop 1 AssetEnd ",
       {0, 1, 8, 0, 0, 0, 0, 0},
       bytes},
      {"x.AIF",
       aiff().ssnd("\x34\x12\x78\x56half").comm(stereo, 2, 16).str(),
       "AssetEnd ",
       {0, 0, 16, 0, 0, 0, 0, 0},
       swapped},
      {"x.aif", looped, "SampleRate 8000 Loop 1 AssetEnd ", {8000, 1, 16, 0, 1, 7, 0, 0}, swapped},
      {"x.aif", looped, "AssetEnd ", {0, 0, 16, 0, 0, 0, 0, 0}, swapped},
  };
  std::for_each(std::begin(blocks), std::end(blocks), expectBlock);
}

TEST(SoundBlocks, ASoundThatCannotBeTakenFailsItsBlockInItsOwnWords) {
  const std::string good = wav().fmt(mono, 8, 8000).data("ab").str();
  const std::string notAiff = "ERROR: This is not a 'AIFF' file.\nERROR: Not an AIFF file.\n";
  const std::string damaged = "ERROR: AIFF file is damaged: ";
  const std::string noSamples = "ERROR: File: % has a 0 size wave data section.\n";
  const std::string badLoop = "ERROR: File: % has corrupt loop information.\n";
  const AiffBuilder sound = aiff().comm(mono, 2, 8).ssnd("ab");
  const SoundBlock blocks[] = {
      {"x.wav", "", "AssetEnd ", {}, "", kNotFound, "AssetEnd"},
      {"x.wav", wav().data("ab").str(), "Loop 1 ", {}, "", kNotFound, "Loop"},
      {"x.aiff", sound.str(), "AssetEnd ", {}, "", kNotFound, "AssetEnd"},
      {"a.b.aif2", sound.str(), "AssetEnd ", {}, "", kNotFound, "AssetEnd"},
      {"x.wav", wav().fmt(mono, 8, 1).data("").str(), "AssetEnd ", {}, "", noSamples, "AssetEnd"},
      {"x.wav", good, "Loop 2 AssetEnd ", {}, "", "", "AssetEnd"},
      {"x.wav", good, "Adpcm yes AssetEnd ", {}, "", "", "AssetEnd"},
      {"x.wav", good, "SampleRate ", {}, "", "", ""},
      {"x.wav", good, "Loop 1 ", {}, "", "", ""},
      {"x.wav", good, "Volume 1 ", {}, "", unidentified("Volume"), "1"},
      {"x.aif", good, "AssetEnd ", {}, "", notAiff + kNotFound, "AssetEnd"},
      {"x.aif", aiff().form("AIFC").str(), "AssetEnd ", {}, "", notAiff + kNotFound, "AssetEnd"},
      {"x.aif",
       aiff().comm(mono, 3, 8).ssnd("ab").str(),
       "AssetEnd ",
       {},
       "",
       damaged + "SSND\n" + kNotFound,
       "AssetEnd"},
      {"x.aif", aiff().comm(mono, 1, 24).ssnd("abc").str(), "A ", {}, "", noSamples, "A"},
      {"x.aif", AiffBuilder(sound).inst({1, 1, 2}).str(), "A ", {}, "", badLoop, "A"},
      {"x.aif",
       AiffBuilder(sound).inst({1, 1, 2}).mark({{1, 0, ""}}).str(),
       "A ",
       {},
       "",
       badLoop,
       "A"},
  };
  std::for_each(std::begin(blocks), std::end(blocks), expectBlock);
}

TEST(SoundBlocks, ASequenceIsJudgedBehindItsOptionsAndDroppedWithoutATempo) {
  const std::string song = midi().ppqn(0xE728).track(events().tempo(9, 16777215).endOfTrack());
  const std::string silent = midi().track(events().endOfTrack());
  const std::string refused = "Error: The file \"%\" is not a ";
  const SoundBlock blocks[] = {
      {"x.mid", song, "AssetEnd ", {-6360, 127, 1, 0, 0, 16777215, 0, 0}, song},
      {"x.mid",
       song + "tail",
       "volume loud GMMODE -2 Loop 3 Loop 4 AssetEnd ",
       {-6360, 0, -2, 4, 0, 16777215, 0, 0},
       song + "tail"},
      {"x.mid", "", "AssetEnd Next ", {}, "", "", "Next"},
      {"x.mid", silent, "AssetEnd Next ", {}, "", "", "Next"},
      {"x.mid",
       midi().format(1).track(events().tempo(0, 1)),
       "AssetEnd Next ",
       {},
       "",
       refused + "type 0 Standard MIDI File\n",
       "Next"},
      {"x.mid",
       "MThx",
       "AssetEnd ",
       {},
       "",
       "Error: Not a standard midi file.\n" + refused + "Standard MIDI File\n",
       ""},
      {"x.mid", song, "Volume ", {}, "", "", ""},
      {"x.mid", song, "Volume 1 ", {}, "", "", ""},
      {"x.mid", song, "Adpcm 1 ", {}, "", unidentified("Adpcm"), "1"},
  };
  std::for_each(std::begin(blocks), std::end(blocks), expectBlock);
}

}  // namespace
}  // namespace tavrel::test
