#include "samples/aiff_file.h"

#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

/// Two frames of 16 bits, stored as "abcd".
AiffBuilder small() { return aiff().comm(mono, 2, 16).ssnd("abcd"); }

const std::string kLongName(100, 'n');

/// What a query returns and its out-values, which are 7 before.
std::string loopOf(const AiffFile& file, std::int32_t which) {
  std::uint32_t loop[] = {7, 7, 7};
  const bool found = file.getLoop(which, loop[0], loop[1], loop[2]);
  return (found ? "yes" : "no") + testing::PrintToString(loop);
}

template <typename Value>
std::string answer(const AiffFile& file, bool (AiffFile::*query)(Value&) const) {
  Value value = 7;
  return (file.*query)(value) ? std::to_string(value) + ' ' : "no " + std::to_string(value) + ' ';
}

std::string answersOf(const AiffFile& file) {
  return answer(file, &AiffFile::getDataSize) + answer(file, &AiffFile::getBitsPerSample) +
         answer(file, &AiffFile::getChannels) + answer(file, &AiffFile::getSampleRate) +
         std::to_string(file.getSustainLoopMode());
}

TEST(AiffFile, ConvertsSamplesAndFindsLoops) {
  const std::string none = "no{ 7, 7, 7 }";
  const std::string millionChunks(std::size_t{8} * 1000000, '\0');
  const auto marked = [] { return small().mark({{1, 10}, {2, 20}}); };
  const struct {
    const char* name;
    std::string content, samples = "badc", loops = "no{ 7, 7, 7 }no{ 7, 7, 7 }";
  } rows[] = {
      {"16 bits", small()},
      {"8 bits", aiff().comm(mono, 2, 8).ssnd("\x01\xFF"), "\x81\x7F"},
      {"24 bits", aiff().comm(mono, 1, 24).ssnd("abc"), ""},
      {"stereo, sound first", aiff().ssnd("\x01\x02").comm(stereo, 1, 8), "\x81"},
      {"second sound", small().ssnd("second")},
      {"a million chunks", small().claimFormSize(0xFFFFFFFF).str().insert(12, millionChunks)},
      {"markers in their order, names of all lengths",
       small()
           .inst({1, 3, 4}, {2, 1, 2})
           .mark({{2, 10}, {1, 20, "abc"}, {9, 30, kLongName}, {7, 40}}),
       "badc", "yes{ 1, 30, 40 }yes{ 2, 10, 20 }"},
      {"loops at both ends", marked().inst({0, 2, 1}, {1, 1, 1}), "badc",
       "yes{ 0, 20, 10 }yes{ 1, 10, 10 }"},
      {"loops without markers", small().inst({1, 1, 1}, {1, 1, 1})},
      {"markers below the first", marked().inst({1, 0, 1}, {1, 1, 0})},
      {"markers after the last", marked().inst({1, 3, 1}, {1, 1, 0xFFFF})},
      {"last marker without pad byte", marked().claimSize("MARK", 2 + (7 + 1) + 7)},
      {"no markers", small().mark({})},
  };
  const TemporaryDirectory directory;
  for (const auto& [name, content, samples, loops] : rows) {
    SCOPED_TRACE(name);
    AiffFile file(directory.write("a.aif", content).c_str());
    EXPECT_TRUE(file.load());
    std::uint32_t size = 7;
    EXPECT_TRUE(file.getDataSize(size));
    EXPECT_EQ(std::string(file.getSampleData(), file.getSampleData() + size), samples);
    EXPECT_EQ(loopOf(file, 1) + loopOf(file, 2), loops);
    EXPECT_EQ(loopOf(file, 3), none);
  }
}

TEST(AiffFile, ReportsWhatIsDamaged) {
  const std::string damaged = "ERROR: AIFF file is damaged: ";
  const Bytes halfMarker = Bytes().be16(2).fill(6).u8(1).text("a").fill(6);
  const auto marked = [] { return small().mark({{1, 10, "ab"}, {2, 20}}); };
  const struct {
    const char* name;
    std::string content, errors = "";
  } rows[] = {
      {"no COMM", aiff().ssnd("abcd")},
      {"no SSND", aiff().comm(mono, 2, 16)},
      {"short COMM", aiff().ssnd("").comm(mono, 0, 16).claimSize("COMM", 17), damaged + "COMM\n"},
      {"short SSND", aiff().comm(mono, 0, 16).chunk("SSND", "1234567"), damaged + "SSND\n"},
      {"4 GiB of samples", aiff().comm(mono, 0x80000002, 16).ssnd("abcd"), damaged + "SSND\n"},
      {"too few samples", small().claimSize("SSND", 8 + 3), damaged + "SSND\n"},
      {"cut samples", small().substr(0, 12 + (8 + 18) + 8 + 8 + 3), damaged + "SSND\n"},
      {"short INST", small().chunk("INST", std::string(19, 'i')), damaged + "INST\n"},
      {"short MARK", small().chunk("MARK", "1"), damaged + "MARK\n"},
      {"no name length", small().chunk("MARK", halfMarker), damaged + "MARK\n"},
      {"cut name", marked().claimSize("MARK", 2 + 7 + 1), damaged + "MARK\n"},
      {"no pad byte", marked().claimSize("MARK", 2 + 7 + 2), damaged + "MARK\n"},
      {"another form", small().form("AIFC"),
       "ERROR: This is not a 'AIFF' file.\nERROR: Not an AIFF file.\n"},
  };
  const TemporaryDirectory directory;
  for (const auto& [name, content, errors] : rows) {
    SCOPED_TRACE(name);
    AiffFile file(directory.write("a.aif", content).c_str());
    testing::internal::CaptureStderr();
    EXPECT_FALSE(file.load());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), errors);
    EXPECT_EQ(answersOf(file), "no 0 no 0 no 0 no 0 0");
    EXPECT_EQ(loopOf(file, 1), "no{ 0, 0, 0 }");
    EXPECT_EQ(file.getSampleData(), nullptr);
  }
}

TEST(AiffFile, RecordsAreZeroBeforeTheyAreLoaded) {
  const AiffFile file("");
  const auto& [id, size, channels, frames, sampleSize, sampleRate] = file.common;
  EXPECT_EQ(id | size | channels | frames | sampleSize | sampleRate, 0);
  const auto& sound = file.sound;
  EXPECT_EQ(sound.id | sound.size | sound.offset | sound.blockSize, 0);
  const auto& inst = file.instrument;
  EXPECT_EQ(inst.id | inst.size | inst.rootNote | inst.loNote | inst.hiNote | inst.lowVelocity |
                inst.highVelocity | inst.sustainLoop.mode,
            0U);
  EXPECT_EQ(inst.detune, 0);
  EXPECT_EQ(inst.gain, 0);
  EXPECT_EQ(inst.sustainLoop.startId, 0);
  EXPECT_EQ(inst.sustainLoop.endId, 0);
  EXPECT_EQ(file.markerList.id | file.markerList.count, 0);
}

TEST(AiffFile, KeepsAndDumpsTheFieldsOfItsChunks) {
  const TemporaryDirectory directory;
  const std::string rule(34, '-');
  const struct {
    Loop sustain, release;
    std::string sustainMode, releaseMode;
  } rows[] = {{{0, 1, 0xFFFE}, {1, 5, 6}, "No Loop Set\n", "Forward\n"},
              {{2, 1, 0xFFFE}, {3, 5, 6}, "Forwards and Backwards\n", ""}};
  for (const auto& [sustain, release, sustainMode, releaseMode] : rows) {
    const AiffBuilder common = aiff().comm(stereo, 2, 16);
    const Bytes sound = Bytes().be32(0x01020304).be32(0x05060708).text("abcd");
    const std::string content = AiffBuilder(common)
                                    .chunk("SSND", sound)
                                    .inst(sustain, release)
                                    .mark({{0xFFFF, 4000000000U, kLongName}});
    AiffFile file(directory.write("a.aif", content).c_str());
    file.dump = true;
    testing::internal::CaptureStdout();
    EXPECT_TRUE(file.load());
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "-------------- Instrument --------------\n\nId:            1229869908\n"
              "Size:          20\nRoot Note:     60\nDetune:        -5\nLo Note:       1\n"
              "Hi Note:       127\nLow Velocity:  2\nHigh Velocity: 126\nGain: -6\n"
              "Sustain Loop:  \nMode:          " +
                  sustainMode + "Start ID:      1\nEnd ID:        -2\n" +
                  "Release Loop:  \nMode:          " + releaseMode +
                  "Start ID:      5\nEnd ID:        6\n" + rule +
                  "------------------\n-------------- MARK --------------\n\n" +
                  "Size:              Varies\nNumber of Markers: 1\n" + rule +
                  "\n-------------- Marker --------------\n\nId:       -1\n" +
                  "Position: 4000000000\nName:     " + std::string(79, 'n') + '\n' + rule + '\n');
    EXPECT_EQ(answersOf(file), "4 16 2 44100 " + std::to_string(sustain[0]));
    EXPECT_EQ(testing::PrintToString(std::array{file.common.id, file.common.size, file.sound.id,
                                                file.sound.size, file.sound.offset,
                                                file.sound.blockSize, file.markerList.id}),
              testing::PrintToString(
                  std::array{0x434F4D4D, 18, 0x53534E44, 12, 0x01020304, 0x05060708, 0x4D41524B}));
  }
}

}  // namespace tavrel::test
