#include "samples/aiff_file.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/aiff_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

namespace {

const std::string kSamples = Bytes().be16(0x1234).be16(0x5678);

std::string samplesOf(const AiffFile& file) {
  std::uint32_t size = 0;
  EXPECT_TRUE(file.getDataSize(size));
  return {reinterpret_cast<const char*>(file.getSampleData()), size};
}

/// One file on the disk, loaded with its lines captured.
struct Loaded {
  explicit Loaded(const std::string& content, bool dump = false)
      : file(directory.write("a.aif", content).c_str()) {
    file.dump = dump;
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    result = file.load();
    errors = testing::internal::GetCapturedStderr();
    output = testing::internal::GetCapturedStdout();
  }

  TemporaryDirectory directory;
  AiffFile file;
  bool result = false;
  std::string errors;
  std::string output;
};

AiffBuilder small() { return aiff().comm(mono, 2, 16).ssnd(kSamples); }

std::string damagedLine(const std::string& chunk) {
  return "ERROR: AIFF file is damaged: " + chunk + "\n";
}

}  // namespace

TEST(AiffFile, ConvertsSamplesByTheirWidth) {
  const std::string swapped = Bytes().le16(0x1234).le16(0x5678);
  const struct {
    const char* what;
    std::string content;
    std::uint32_t bits;
    std::string samples;
  } rows[] = {
      {"16 bits", small().str(), 16, swapped},
      {"8 bits", aiff().comm(mono, 3, 8).ssnd(Bytes().u8(0).u8(0xFF).u8(0x80)).str(), 8,
       Bytes().u8(0x80).u8(0x7F).u8(0)},
      {"stereo counts frames", aiff().comm(stereo, 1, 16).ssnd(kSamples).str(), 16,
       swapped.substr(0, 2)},
      {"24 bits", aiff().comm(mono, 1, 24).ssnd("abc").str(), 24, ""},
      {"24 bits, many frames", aiff().comm(mono, 0xFFFFFFFF, 24).ssnd("").str(), 24, ""},
      {"an offset is not applied", aiff().comm(mono, 2, 16).ssnd(kSamples, 2).str(), 16, swapped},
      {"SSND first", aiff().ssnd(kSamples).chunk("odd ", "x").comm(mono, 2, 16).str(), 16, swapped},
  };
  for (const auto& row : rows) {
    const Loaded loaded(row.content);
    ASSERT_TRUE(loaded.result) << row.what;
    EXPECT_EQ(loaded.errors + loaded.output, "");
    EXPECT_EQ(samplesOf(loaded.file), row.samples) << row.what;
    std::uint16_t bits = 0;
    EXPECT_TRUE(loaded.file.getBitsPerSample(bits));
    EXPECT_EQ(bits, row.bits) << row.what;
    std::uint32_t rate = 0;
    EXPECT_TRUE(loaded.file.getSampleRate(rate));
    EXPECT_EQ(rate, 44100U);
    EXPECT_EQ(loaded.file.common.size, 18U);
    EXPECT_EQ(loaded.file.getSustainLoopMode(), 0U);
  }
  EXPECT_EQ(Loaded(aiff().comm(mono, 1, 24).ssnd("abc").str()).file.getSampleData()[0], 'a');
}

TEST(AiffFile, LoopsNameMarkersByTheirPlace) {
  const Loop sustain{1, 1, 2};
  const Loop release{2, 3, 4};
  const std::string longName(100, 'n');
  // The ids are in another order than the markers, and the names of all parities.
  const Loaded loaded(small()
                          .mark({{2, 10, ""}, {1, 20, "abc"}, {9, 30, "abcd"}, {7, 40, longName}})
                          .inst(sustain, release)
                          .str());
  ASSERT_TRUE(loaded.result);
  std::uint32_t mode = 0;
  std::uint32_t start = 0;
  std::uint32_t end = 0;
  EXPECT_TRUE(loaded.file.getLoop(1, mode, start, end));
  EXPECT_EQ(std::tuple(mode, start, end), std::tuple(1U, 10U, 20U));
  EXPECT_TRUE(loaded.file.getLoop(2, mode, start, end));
  EXPECT_EQ(std::tuple(mode, start, end), std::tuple(2U, 30U, 40U));
  EXPECT_FALSE(loaded.file.getLoop(3, mode, start, end));
  EXPECT_EQ(std::tuple(mode, start, end), std::tuple(2U, 30U, 40U));
  EXPECT_EQ(loaded.file.getSustainLoopMode(), 1U);
  EXPECT_STREQ(loaded.file.markerList.markers[3].name.data(), longName.substr(0, 79).c_str());
}

TEST(AiffFile, LoopsOutsideTheMarkersAreRefused) {
  const std::uint32_t minusOne = 0xFFFF;
  for (const Loop& loop :
       {Loop{1, 0, 1}, {1, 1, 0}, {1, 2, 1}, {1, 1, 2}, {1, minusOne, 1}, {1, 1, 0x8000}}) {
    const Loaded loaded(small().inst(loop).mark({{1, 10, "a"}}).str());
    std::uint32_t out = 0;
    EXPECT_TRUE(loaded.result);
    EXPECT_FALSE(loaded.file.getLoop(1, out, out, out)) << loop.startId << " " << loop.endId;
  }
  const Loaded unmarked(small().inst({1, 1, 1}).str());
  std::uint32_t out = 0;
  EXPECT_TRUE(unmarked.result);
  EXPECT_EQ(unmarked.file.getSustainLoopMode(), 1U);
  EXPECT_FALSE(unmarked.file.getLoop(1, out, out, out));
}

TEST(AiffFile, DamageIsNamed) {
  const std::string notAiff = "ERROR: Not an AIFF file.\n";
  const auto markers = [](std::uint32_t count) {
    return small().mark(count, {{1, 10, "abc"}, {2, 20, ""}});
  };
  const struct {
    const char* what;
    std::string content;
    std::string errors;
  } rows[] = {
      {"AIFC", small().form("AIFC").str(), "ERROR: This is not a 'AIFF' file.\n" + notAiff},
      {"no COMM", aiff().ssnd(kSamples).str(), ""},
      {"no SSND", aiff().comm(mono, 2, 16).str(), ""},
      {"COMM of 2 bytes", aiff().chunk("COMM", "ab").ssnd(kSamples).str(), damagedLine("COMM")},
      {"COMM told before SSND", aiff().chunk("SSND", "").chunk("COMM", "").str(),
       damagedLine("COMM")},
      {"COMM claiming 17", small().claimSize("COMM", 17).str(), damagedLine("COMM")},
      {"SSND of 7 bytes", aiff().comm(mono, 0, 16).chunk("SSND", "1234567").str(),
       damagedLine("SSND")},
      {"frames beyond the data", aiff().comm(mono, 3, 16).ssnd(kSamples).str(),
       damagedLine("SSND")},
      {"frames that wrap", aiff().comm(mono, 0x80000002, 16).ssnd(kSamples).str(),
       damagedLine("SSND")},
      {"SSND claiming less", small().claimSize("SSND", 11).str(), damagedLine("SSND")},
      {"INST of 19 bytes", small().chunk("INST", std::string(19, 'i')).str(), damagedLine("INST")},
      {"MARK of 1 byte", small().chunk("MARK", "m").str(), damagedLine("MARK")},
      {"markers absent", markers(65535).str(), damagedLine("MARK")},
      {"one marker absent", markers(3).str(), damagedLine("MARK")},
      {"a name running out", markers(1).claimSize("MARK", 2 + 7 + 2).str(), damagedLine("MARK")},
      {"a header running out", small().mark(2, {{1, 1, "a longer name"}}).str(),
       damagedLine("MARK")},
  };
  for (const auto& row : rows) {
    const Loaded loaded(row.content);
    EXPECT_FALSE(loaded.result) << row.what;
    EXPECT_EQ(loaded.errors, row.errors) << row.what;
    EXPECT_EQ(loaded.file.getSampleData(), nullptr);
  }
}

TEST(AiffFile, LastPadsMayBeMissing) {
  EXPECT_TRUE(Loaded(aiff().comm(mono, 3, 8).ssnd("abc").withoutLastPad().str()).result);
  const std::string whole = small().mark({{1, 10, ""}, {2, 20, ""}}).str();
  const std::uint32_t unpadded = 2 + (7 + 1) + 7;
  EXPECT_TRUE(
      Loaded(small().mark({{1, 10, ""}, {2, 20, ""}}).claimSize("MARK", unpadded).str()).result);
  EXPECT_TRUE(Loaded(whole.substr(0, whole.size() - 1)).result);
  EXPECT_TRUE(Loaded(small().mark({}).str()).result);
}

TEST(AiffFile, TruncationsNeverShowMoreThanTheFile) {
  const std::string content = small().inst({1, 1, 1}).mark({{1, 10, "abcd"}}).str();
  const std::size_t soundEnd = 12 + (8 + 18) + (8 + 8 + kSamples.size());
  for (std::size_t size = 0; size < content.size(); ++size) {
    const Loaded loaded(content.substr(0, size));
    // Without sound there is nothing; behind it, cut headers count as absent and cut chunks don't.
    const bool isDamaged = !loaded.errors.empty();
    EXPECT_EQ(loaded.result, size >= soundEnd && !isDamaged) << size;
    if (loaded.result) {
      EXPECT_EQ(samplesOf(loaded.file).size(), kSamples.size());
    }
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
  size = 77;
  EXPECT_FALSE(file.getLoop(3, size, rate, rate));
  EXPECT_EQ(size, 0U);
}

TEST(AiffFile, DumpsInstrumentAndMarkers) {
  const std::string title = "-------------- ";
  const std::string rule(34, '-');
  const std::string marks = title + "MARK --------------\n\nSize:              Varies\n" +
                            "Number of Markers: 1\n" + rule + "\n" + title +
                            "Marker --------------\n\nId:       -1\nPosition: 4000000000\n" +
                            "Name:     begin\n" + rule + "\n";
  const std::string instrument =
      title + "Instrument --------------\n\n" + "Id:            1229869908\nSize:          20\n" +
      "Root Note:     60\nDetune:        -5\nLo Note:       1\nHi Note:       127\n" +
      "Low Velocity:  2\nHigh Velocity: 126\nGain: -6\n";
  const auto loops = [&](const std::string& sustain, const std::string& release) {
    return "Sustain Loop:  \nMode:          " + sustain + "Start ID:      1\nEnd ID:        -2\n" +
           "Release Loop:  \nMode:          " + release + "Start ID:      0\nEnd ID:        0\n" +
           std::string(52, '-') + "\n";
  };
  const auto content = [](std::uint32_t sustainMode, std::uint32_t releaseMode) {
    return small()
        .mark({{0xFFFF, 4000000000U, "begin"}})
        .inst({sustainMode, 1, 0xFFFE}, {releaseMode})
        .str();
  };
  EXPECT_EQ(Loaded(content(1, 0), true).output,
            instrument + loops("Forward\n", "No Loop Set\n") + marks);
  EXPECT_EQ(Loaded(content(3, 2), true).output,
            instrument + loops("", "Forwards and Backwards\n") + marks);
}

}  // namespace tavrel::test
