#include "samples/aiff_file.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/aiff_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

namespace {

const std::string kSamples = Bytes().be16(0x1234).be16(0x5678);

/// One file on the disk, asked to load, with its lines captured.
struct Loaded {
  explicit Loaded(const std::string& content, bool dump = false)
      : file(directory.write("a.aif", content).c_str()) {
    file.dump = dump;
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_EQ(file.load(), file.loaded);
    errors = testing::internal::GetCapturedStderr();
    output = testing::internal::GetCapturedStdout();
  }

  TemporaryDirectory directory;
  AiffFile file;
  std::string errors;
  std::string output;
};

AiffBuilder small() { return aiff().comm(mono, 2, 16).ssnd(kSamples); }

/// The sample bytes of a file of this content, or the lines that it fails with.
std::string samplesOf(const std::string& content) {
  const Loaded loaded(content);
  std::uint32_t size = 0;
  if (!loaded.file.getDataSize(size)) {
    return "fails: " + loaded.errors;
  }
  return {reinterpret_cast<const char*>(loaded.file.getSampleData()), size};
}

/// "mode start-end" of a loop of the loaded file.
std::string loopOf(const Loaded& loaded, int which) {
  std::uint32_t mode = 9;
  std::uint32_t start = 9;
  std::uint32_t end = 9;
  const bool found = loaded.file.getLoop(which, mode, start, end);
  return (found ? "" : "none: ") + std::to_string(mode) + " " + std::to_string(start) + "-" +
         std::to_string(end);
}

std::string damaged(const std::string& chunk) {
  return "fails: ERROR: AIFF file is damaged: " + chunk + "\n";
}

}  // namespace

TEST(AiffFile, ConvertsSamplesByTheirWidth) {
  const std::string swapped = Bytes().le16(0x1234).le16(0x5678);
  const std::string signedBytes = Bytes().u8(0).u8(0xFF).u8(0x80);
  const std::string unsignedBytes = Bytes().u8(0x80).u8(0x7F).u8(0);
  EXPECT_EQ(samplesOf(small().str()), swapped);
  EXPECT_EQ(samplesOf(aiff().comm(mono, 3, 8).ssnd(signedBytes).str()), unsignedBytes);
  EXPECT_EQ(samplesOf(aiff().comm(stereo, 1, 16).ssnd(kSamples).str()), swapped.substr(0, 2));
  EXPECT_EQ(samplesOf(aiff().comm(mono, 2, 16).ssnd(kSamples, 2).str()), swapped) << "offset";
  EXPECT_EQ(samplesOf(aiff().ssnd(kSamples).chunk("odd ", "x").comm(mono, 2, 16).str()), swapped);
  EXPECT_EQ(samplesOf(aiff().comm(mono, 0xFFFFFFFF, 24).ssnd("abc").str()), "");

  const Loaded wide(aiff().comm(stereo, 1, 24).ssnd("abc").str());
  EXPECT_EQ(wide.file.getSampleData()[0], 'a') << "a width that isn't converted";
  std::uint16_t bits = 0;
  std::uint16_t channels = 0;
  std::uint32_t rate = 0;
  EXPECT_TRUE(wide.file.getBitsPerSample(bits) && wide.file.getChannels(channels));
  EXPECT_TRUE(wide.file.getSampleRate(rate));
  EXPECT_EQ(std::tuple(bits, channels, rate), std::tuple(24, stereo, 44100U));
}

TEST(AiffFile, LoopsNameMarkersByTheirPlace) {
  const std::string longName(100, 'n');
  // The ids are in another order than the markers, and the names of all parities.
  const Loaded loaded(small()
                          .mark({{2, 10, ""}, {1, 20, "abc"}, {9, 30, "abcd"}, {7, 40, longName}})
                          .inst({1, 1, 2}, {2, 3, 4})
                          .str());
  EXPECT_EQ(loopOf(loaded, 1), "1 10-20");
  EXPECT_EQ(loopOf(loaded, 2), "2 30-40");
  EXPECT_EQ(loopOf(loaded, 3), "none: 9 9-9");
  EXPECT_EQ(loaded.file.getSustainLoopMode(), 1U);
  EXPECT_EQ(loaded.file.markerList.markers[3].name.data(), longName.substr(0, 79));
}

TEST(AiffFile, LoopsOutsideTheMarkersAreRefused) {
  for (const Loop& loop : {Loop{1, 0, 1}, {1, 1, 0}, {1, 2, 1}, {1, 1, 2}, {1, 0xFFFF, 1}}) {
    const Loaded loaded(small().inst(loop).mark({{1, 10, "a"}}).str());
    EXPECT_EQ(loopOf(loaded, 1), "none: 9 9-9") << loop.startId << " " << loop.endId;
  }
  EXPECT_EQ(loopOf(Loaded(small().inst({1, 1, 1}).str()), 1), "none: 9 9-9") << "no MARK";
  EXPECT_EQ(loopOf(Loaded("not loaded"), 3), "none: 0 0-0");
}

TEST(AiffFile, DamageIsNamed) {
  const auto marks = [](std::uint32_t count) { return small().mark(count, {{1, 1, "a"}, {2, 2}}); };
  EXPECT_EQ(samplesOf(aiff().form("AIFC").str()),
            "fails: ERROR: This is not a 'AIFF' file.\nERROR: Not an AIFF file.\n");
  EXPECT_EQ(samplesOf(aiff().ssnd(kSamples).str()), "fails: ");
  EXPECT_EQ(samplesOf(aiff().comm(mono, 2, 16).str()), "fails: ");
  EXPECT_EQ(samplesOf(aiff().chunk("SSND", "").chunk("COMM", "ab").str()), damaged("COMM"));
  EXPECT_EQ(samplesOf(small().claimSize("COMM", 17).str()), damaged("COMM"));
  EXPECT_EQ(samplesOf(aiff().comm(mono, 0, 16).chunk("SSND", "1234567").str()), damaged("SSND"));
  EXPECT_EQ(samplesOf(aiff().comm(mono, 3, 16).ssnd(kSamples).str()), damaged("SSND"));
  EXPECT_EQ(samplesOf(aiff().comm(mono, 0x80000002, 16).ssnd(kSamples).str()), damaged("SSND"));
  EXPECT_EQ(samplesOf(small().claimSize("SSND", 11).str()), damaged("SSND"));
  EXPECT_EQ(samplesOf(small().chunk("INST", std::string(19, 'i')).str()), damaged("INST"));
  EXPECT_EQ(samplesOf(small().chunk("MARK", "m").str()), damaged("MARK"));
  EXPECT_EQ(samplesOf(marks(65535).str()), damaged("MARK")) << "none of them is there";
  EXPECT_EQ(samplesOf(marks(3).str()), damaged("MARK"));
  EXPECT_EQ(samplesOf(marks(1).claimSize("MARK", 2 + 7).str()), damaged("MARK")) << "the name";
  EXPECT_EQ(samplesOf(small().mark(2, {{1, 1, "longer name"}}).str()), damaged("MARK"));
}

TEST(AiffFile, LastPadsMayBeMissing) {
  EXPECT_EQ(samplesOf(aiff().comm(mono, 1, 8).ssnd("\x01").withoutLastPad().str()), "\x81");
  const std::string marked = small().mark({{1, 10}, {2, 20}}).str();
  EXPECT_EQ(samplesOf(marked.substr(0, marked.size() - 1)), samplesOf(marked));
  const std::uint32_t unpadded = 2 + (7 + 1) + 7;
  EXPECT_TRUE(
      Loaded(small().mark({{1, 10}, {2, 20}}).claimSize("MARK", unpadded).str()).file.loaded);
  EXPECT_TRUE(Loaded(small().mark({}).str()).file.loaded);
}

TEST(AiffFile, TruncatedFilesLoadOnlyWithTheirSound) {
  const std::string content = small().inst({1, 1, 1}).mark({{1, 10, "abcd"}}).str();
  const std::size_t soundEnd = 12 + (8 + 18) + (8 + 8 + kSamples.size());
  const std::size_t chunkEnd = soundEnd + 8 + 20;
  for (std::size_t size = 0; size < content.size() - 1; ++size) {
    // A header that is cut counts as absent; what is cut behind its header is damage.
    const bool loads =
        size >= soundEnd && (size < soundEnd + 8 || (size >= chunkEnd && size < chunkEnd + 8));
    EXPECT_EQ(Loaded(content.substr(0, size)).file.loaded, loads) << size;
  }
}

TEST(AiffFile, NothingAnswersBeforeLoad) {
  const AiffFile file("a.aif");
  std::uint32_t size = 77;
  std::uint32_t rate = 77;
  std::uint16_t bits = 77;
  std::uint16_t channels = 77;
  EXPECT_FALSE(file.getDataSize(size) || file.getSampleRate(rate));
  EXPECT_FALSE(file.getBitsPerSample(bits) || file.getChannels(channels));
  EXPECT_EQ(size + rate + bits + channels, 0U);
  EXPECT_EQ(file.getSampleData(), nullptr);
}

TEST(AiffFile, DumpsInstrumentAndMarkers) {
  const std::string rule = std::string(34, '-') + "\n";
  const std::string marks =
      "-------------- MARK --------------\n\nSize:              Varies\nNumber of Markers: 1\n" +
      rule + "-------------- Marker --------------\n\nId:       -1\nPosition: 4000000000\n" +
      "Name:     begin\n" + rule;
  const std::string instrument =
      "-------------- Instrument --------------\n\nId:            1229869908\n"
      "Size:          20\nRoot Note:     60\nDetune:        -5\nLo Note:       1\n"
      "Hi Note:       127\nLow Velocity:  2\nHigh Velocity: 126\nGain: -6\n";
  const auto dumpOf = [](std::uint32_t sustain, std::uint32_t release) {
    const Loop loop{sustain, 1, 0xFFFE};
    return Loaded(small().mark({{0xFFFF, 4000000000U, "begin"}}).inst(loop, {release}).str(), true)
        .output;
  };
  const auto loops = [](const std::string& sustain, const std::string& release) {
    return "Sustain Loop:  \nMode:          " + sustain + "Start ID:      1\nEnd ID:        -2\n" +
           "Release Loop:  \nMode:          " + release + "Start ID:      0\nEnd ID:        0\n" +
           std::string(52, '-') + "\n";
  };
  EXPECT_EQ(dumpOf(1, 0), instrument + loops("Forward\n", "No Loop Set\n") + marks);
  EXPECT_EQ(dumpOf(3, 2), instrument + loops("", "Forwards and Backwards\n") + marks);
}

}  // namespace tavrel::test
