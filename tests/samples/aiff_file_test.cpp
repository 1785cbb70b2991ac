#include "samples/aiff_file.h"

#include <array>

#include "tests/support/printed.h"
#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

/// Two frames of 16 bits, stored as "abcd".
AiffBuilder small() { return aiff().comm(mono, 2, 16).ssnd("abcd"); }

const std::string kLongName(100, 'n');

/// The number of each loop that is found or changes the out-values, which are 7 before.
std::string loopsOf(const AiffFile& file) {
  std::string text;
  for (const std::int32_t which : {0, 1, 2, 3}) {
    std::array<std::uint32_t, 3> loop{7, 7, 7};
    const bool found = file.getLoop(which, loop[0], loop[1], loop[2]);
    if (found || loop[0] != 7 || loop[1] != 7 || loop[2] != 7) {
      text += ' ' + std::to_string(which) + (found ? "" : " no") + testing::PrintToString(loop);
    }
  }
  return text;
}

/// What each query returns, and its out-value, which is 7 before.
std::string answersOf(const AiffFile& file) {
  std::string text;
  const auto ask = [&]<typename Value>(bool (AiffFile::*query)(Value&) const) {
    Value value = 7;
    text += (file.*query)(value) ? "yes " : "no ";
    text += std::to_string(value) + ' ';
  };
  ask(&AiffFile::getDataSize);
  ask(&AiffFile::getBitsPerSample);
  ask(&AiffFile::getChannels);
  ask(&AiffFile::getSampleRate);
  return text + std::to_string(file.getSustainLoopMode());
}

TEST(AiffFile, ConvertsSamplesAndFindsLoopsOrReportsWhatIsDamaged) {
  using enum AiffFault;
  const std::string damage = "ERROR: AIFF file is damaged: ";
  const std::string refused = "ERROR: This is not a 'AIFF' file.\nERROR: Not an AIFF file.\n";
  const auto marked = [] { return small().inst({2, 2, 1}).mark({{1, 10, "ab"}, {2, 20}}); };
  const struct {
    const char* name;
    std::string content, samplesAndLoops, damagedChunk = "";
    AiffFault fault = damagedChunk.empty() ? none : damaged;
  } rows[] = {
      {"8 bits", aiff().comm(mono, 2, 8).ssnd("\x01\xFF"), "\x81\x7F"},
      {"stereo, sound first", aiff().ssnd("\x01\x02").comm(stereo, 1, 8), "\x81"},
      {"markers in their order, names of all lengths",
       small()
           .inst({1, 3, 4}, {2, 1, 2})
           .mark({{2, 10}, {1, 20, "abc"}, {9, 30, kLongName}, {7, 40}}),
       "badc 1{ 1, 30, 40 } 2{ 2, 10, 20 }"},
      {"no loop markers", small().inst({1, 1, 1}, {1, 1, 1}).mark({}), "badc"},
      {"markers below the first", small().mark({{1, 10}}).inst({1, 0, 1}, {1, 1, 0}), "badc"},
      {"markers after the last", small().mark({{1, 10}}).inst({1, 2, 1}, {1, 1, 0xFFFF}), "badc"},
      {"no last pad byte", marked().claimSize("MARK", 2 + 10 + 7), "badc 1{ 2, 20, 10 }"},
      {"no COMM", aiff().ssnd("abcd"), "", "", noCommon},
      {"no SSND", aiff().comm(mono, 2, 16), "", "", noSound},
      {"short COMM", small().claimSize("COMM", 17), "", "COMM"},
      {"short SSND", aiff().comm(mono, 0, 16).chunk("SSND", "1234567"), "", "SSND"},
      {"4 GiB of samples", aiff().comm(mono, 0x80000002, 16).ssnd("abcd"), "", "SSND"},
      {"too few samples", small().claimSize("SSND", 8 + 3), "", "SSND"},
      {"cut samples", small().substr(0, 12 + (8 + 18) + 8 + 8 + 3), "", "SSND"},
      {"short INST", small().chunk("INST", std::string(19, 'i')), "", "INST"},
      {"short MARK", small().chunk("MARK", "1"), "", "MARK"},
      {"cut name", marked().claimSize("MARK", 2 + 7 + 1), "", "MARK"},
      {"no pad byte", marked().claimSize("MARK", 2 + 7 + 2), "", "MARK"},
      {"cut marker", marked().claimSize("MARK", 2 + 10 + 6), "", "MARK"},
      {"another form", small().form("AIFC"), "", "", noForm},
      {"form type cut off", small().substr(0, 11), "", "", noForm},
  };
  const TemporaryDirectory directory;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    AiffFile file(directory.write("a.aif", row.content).c_str());
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(file.load(), row.fault == none); }).errors,
              row.fault == damaged  ? damage + row.damagedChunk + '\n'
              : row.fault == noForm ? refused
                                    : "");
    EXPECT_EQ(file.fault(), row.fault);
    IffFile::IdText id{'?', '?', '?', '?', '?'};
    IffFile::idToText(file.damagedChunk(), id.data());
    EXPECT_EQ(id.data(), row.damagedChunk);
    std::uint32_t size = 7;
    if (file.getDataSize(size)) {
      EXPECT_EQ(std::string(file.getSampleData(), file.getSampleData() + size) + loopsOf(file),
                row.samplesAndLoops);
    } else {
      EXPECT_EQ(answersOf(file), "no 0 no 0 no 0 no 0 0");
      EXPECT_EQ(loopsOf(file), " 0 no{ 0, 0, 0 } 1 no{ 0, 0, 0 } 2 no{ 0, 0, 0 } 3 no{ 0, 0, 0 }");
      EXPECT_EQ(file.getSampleData(), nullptr);
    }
  }
  AiffFile missing("missing/a.aif");
  EXPECT_EQ(printedBy([&] { EXPECT_FALSE(missing.load()); }).errors, "ERROR: Not an AIFF file.\n");
  EXPECT_EQ(missing.fault(), cannotRead);
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
    const Bytes sound = Bytes().be32(0x01020304).be32(0x05060708).text("ab");
    const std::string content = aiff()
                                    .comm(stereo, 1, 24)
                                    .chunk("SSND", sound)
                                    .inst(sustain, release)
                                    .mark({{0xFFFF, 4000000000U, kLongName}});
    AiffFile file(directory.write("a.aif", content).c_str());
    file.dump = true;
    EXPECT_EQ(printedBy([&] { EXPECT_TRUE(file.load()); }).output,
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
    EXPECT_EQ(answersOf(file), "yes 0 yes 24 yes 2 yes 44100 " + std::to_string(sustain[0]));
    EXPECT_EQ(testing::PrintToString(std::array{file.common.id, file.common.size, file.sound.id,
                                                file.sound.size, file.sound.offset,
                                                file.sound.blockSize, file.markerList.id}),
              testing::PrintToString(
                  std::array{0x434F4D4D, 18, 0x53534E44, 10, 0x01020304, 0x05060708, 0x4D41524B}));
  }
}

}  // namespace tavrel::test
