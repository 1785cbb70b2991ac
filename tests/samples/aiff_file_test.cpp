#include "samples/aiff_file.h"

#include <gtest/gtest.h>

#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

/// The dump of an instrument with loops of these modes, and of one marker.
std::string dumpOf(const std::string& sustainMode, const std::string& releaseMode) {
  const std::string rule(34, '-');
  return "FORM\n    odd \n    COMM\n    SSND\n    INST\n    MARK\n"
         "-------------- Instrument --------------\n\nId:            1229869908\n"
         "Size:          20\nRoot Note:     60\nDetune:        -5\nLo Note:       1\n"
         "Hi Note:       127\nLow Velocity:  2\nHigh Velocity: 126\nGain: -6\n"
         "Sustain Loop:  \nMode:          " +
         sustainMode + "Start ID:      1\nEnd ID:        -2\n" +
         "Release Loop:  \nMode:          " + releaseMode + "Start ID:      0\nEnd ID:        0\n" +
         rule + "------------------\n-------------- MARK --------------\n\n" +
         "Size:              Varies\nNumber of Markers: 1\n" + rule +
         "\n-------------- Marker --------------\n\nId:       -1\nPosition: 4000000000\n" +
         "Name:     " + std::string(79, 'n') + '\n' + rule + '\n';
}

/// What a file of this content prints, the samples that it has and its loops.
std::string toldBy(const std::string& content, bool dump) {
  const TemporaryDirectory directory;
  AiffFile file(directory.write("a.aif", content).c_str());
  file.dump = file.verbose = dump;
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const bool loads = file.load();
  std::string told = (loads ? "" : "fails: ") + testing::internal::GetCapturedStderr();
  told += testing::internal::GetCapturedStdout();
  std::uint32_t numbers[] = {7, 7};
  std::uint16_t channels = 7;
  const int answers =
      file.getDataSize(numbers[0]) + file.getSampleRate(numbers[1]) + file.getChannels(channels);
  EXPECT_EQ(answers, loads ? 3 : 0);
  EXPECT_EQ(numbers[1], loads ? 44100U : 0);
  EXPECT_EQ(channels, loads ? file.common.channels : 0);
  EXPECT_EQ(file.getChunkSize(iffId("MARK"), numbers[1]), file.hasChunk(iffId("MARK")));
  told.append(file.getSampleData(), file.getSampleData() + numbers[0]);
  for (const int which : {1, 2, 3}) {
    std::uint32_t loop[] = {0, 0, 0};
    told += file.getLoop(which, loop[0], loop[1], loop[2]) ? testing::PrintToString(loop) : "";
  }
  return told;
}

TEST(AiffFile, TellsItsSamplesAndLoopsOrWhatIsDamaged) {
  const auto small = [] {
    return aiff().chunk("odd ", "a").comm(mono, 2, 16).ssnd("\x12\x34\x56\x78");
  };
  const std::string swapped = "\x34\x12\x78\x56";
  const std::string damaged = "fails: ERROR: AIFF file is damaged: ";
  const std::string millionChunks(std::size_t{8} * 1000000, '\0');
  const std::string n(100, 'n');
  const Marker distant{0xFFFF, 4000000000U, n};
  const std::pair<std::string, std::string> rows[] = {
      {small().inst({0, 1, 0xFFFE}, {1}).mark({distant}),
       dumpOf("No Loop Set\n", "Forward\n") + swapped},
      {small().inst({2, 1, 0xFFFE}, {3}).mark({distant}),
       dumpOf("Forwards and Backwards\n", "") + swapped},
      {aiff().ssnd("\x01\x02").comm(stereo, 1, 8), "\x81"},
      {aiff().chunk("SSND", Bytes().fill(8, 1).text("\x12\x34")).comm(stereo, 1, 16), "\x34\x12"},
      {small().inst({1, 3, 4}, {2, 1, 2}).mark({{2, 10}, {1, 20, "abc"}, {9, 30, n}, {7, 40}}),
       swapped + "{ 1, 30, 40 }{ 2, 10, 20 }"},
      {small().inst({1, 0, 1}, {1, 1, 2}).mark({{1, 5}}), swapped},
      {small().inst({1, 2, 1}, {1, 1, 0xFFFF}).mark({{1, 5}}), swapped},
      {small().mark({{1, 10}, {2, 20}}).claimSize("MARK", 2 + (7 + 1) + 7), swapped},
      {small().mark({}).ssnd("second"), swapped},
      {"JUNK" + small().str().substr(4), swapped},
      {small().claimFormSize(4 + (8 + 2) + (8 + 18)), "fails: "},
      {small().claimFormSize(4 + (8 + 2) + (8 + 18) + 1), swapped},
      {small().claimSize("COMM", 0xFFFFFFFF), "fails: "},
      {small().str().substr(0, 12 + (8 + 2) + (8 + 18) + 7), "fails: "},
      {small().claimFormSize(0xFFFFFFFF).str().insert(12, millionChunks), swapped},
      {aiff().chunk("SSND", "").comm(mono, 0, 16).claimSize("COMM", 17), damaged + "COMM\n"},
      {aiff().comm(mono, 0, 16).chunk("SSND", "1234567"), damaged + "SSND\n"},
      {aiff().comm(mono, 0x80000002, 16).ssnd("abcd"), damaged + "SSND\n"},
      {small().claimSize("SSND", 8 + 3), damaged + "SSND\n"},
      {small().chunk("INST", std::string(19, 'i')), damaged + "INST\n"},
      {small().chunk("MARK", ""), damaged + "MARK\n"},
      {small().chunk("MARK", Bytes().be16(2).fill(6).u8(1).text("a")), damaged + "MARK\n"},
      {small().mark({{1, 10, "ab"}}).claimSize("MARK", 2 + 7 + 1), damaged + "MARK\n"},
      {small().mark({{1, 10, "ab"}, {2, 20}}).claimSize("MARK", 2 + 7 + 2), damaged + "MARK\n"},
      {aiff(), "fails: "},
      {aiff().comm(mono, 2, 16), "fails: "},
      {aiff().str().substr(0, 11),
       "fails: ERROR: This is not a 'AIFF' file.\nERROR: Not an AIFF file.\n"}};
  for (const auto& [content, told] : rows) {
    EXPECT_EQ(toldBy(content, told.starts_with("FORM")), told) << content;
  }
}

}  // namespace tavrel::test
