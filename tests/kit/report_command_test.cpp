// tavkit report: the documents of the page and what the command refuses. tests/report has the page
// in a browser.
#include <cmath>

#include "tests/kit/command_test.h"
#include "tests/support/bank_builder.h"
#include "tests/support/midi_builder.h"
#include "tests/support/sound_builder.h"

namespace tavrel::kit {
namespace {

using test::bankOf;

class ReportTest : public CommandTest {
 protected:
  int report(const Lines& arguments) {
    return run({"report", "b.tvb", "-o", "page.html"}, arguments);
  }

  /// Returns a document of the page.
  Json document(const std::string& id) {
    const std::string start = "<script type=\"application/json\" id=\"" + id + "\">";
    const std::string page = folder_.read("page.html");
    const std::size_t first = page.find(start) + start.size();
    return Json::parse(page.substr(first, page.find("</script>", first) - first));
  }
};

TEST_F(ReportTest, HasWhatIsDrawn) {
  const auto loud = std::string("\x7F\x80\x40\xC0", 4) + std::string(4, '\0');
  const std::string song = test::midi(96).track(test::events()
                                                    .tempo(0, 500000)
                                                    .message(0, 0xB0, 7, 100)
                                                    .meta(0, 0x58, "\6\3\x18\x8")
                                                    .note(48, 1, 60, 100)
                                                    .note(48, 1, 60, 0)
                                                    .endOfTrack(96));
  write("b.tvb",
        bankOf({{1, loud, {8000, 1, 8, 0, 2, 4}}, {2, song, {96}}, {6, "<!--"}, {6, "<!--"}}));
  ASSERT_EQ(report({}), 0) << output_.messages;
  const Json whole = document("report");
  EXPECT_EQ(whole["list"]["assets"].size(), 4U);
  EXPECT_EQ(whole["duplicates"], Json::parse("[[2, 3]]"));
  const Json wave = document("asset-0");
  EXPECT_EQ(wave["peak"], 1);
  EXPECT_EQ(wave["clipped"], 2);
  const double squares = std::pow(127 / 128.0, 2) + std::pow(1, 2) + 2 * std::pow(0.5, 2);
  EXPECT_NEAR(wave["rms"], std::sqrt(squares / 8), 1e-6);
  EXPECT_EQ(wave["seam"], Json::parse(R"({"before": [16384, -16384], "after": [16384, -16384]})"));
  EXPECT_EQ(wave["peaks"][0], "AH8AfwCAAIAAQABAAMAAwAAAAAAAAAAAAAAAAAAAAAA=");
  EXPECT_EQ(wave["audio"], "f4BAwAAAAAA=");
  const Json sequence = document("asset-1")["sequence"];
  EXPECT_EQ(sequence["notes"], Json::parse("[48, 48, 60, 100, 0]"));
  EXPECT_EQ(sequence["hasAllNotes"], true);
  EXPECT_EQ(sequence["signatures"], Json::parse("[[0, 6, 3]]"));
  EXPECT_EQ(sequence["ticks"], 192);
  EXPECT_EQ(document("asset-2")["firstBytes"], "PCEtLQ==");
}

TEST_F(ReportTest, LeavesOutSoundsThatDontFit) {
  const std::string mebibyte(std::size_t{1} << 20U, 'a');
  write(
      "b.tvb",
      bankOf({{1, "aaaa", {8000, 0, 8}}, {1, mebibyte, {8000, 0, 8}}, {1, "aaaa", {8000, 0, 8}}}));
  ASSERT_EQ(report({"--audio-limit", "1"}), 0) << output_.messages;
  EXPECT_TRUE(document("asset-0")["audio"].is_string());
  EXPECT_TRUE(document("asset-1")["audio"].is_null());
  EXPECT_EQ(document("asset-1")["bucket"], 1024);
  EXPECT_TRUE(document("asset-2")["audio"].is_string());
}

TEST_F(ReportTest, DrawsLongSoundsAtSeveralScalesAndTheStartOfOthers) {
  const struct {
    std::size_t samples, bucket, scales;
  } rows[] = {{1024, 1, 2}, {1028, 1, 3}, {2047, 1, 3}, {2048, 4, 2}};
  std::vector<test::BankAsset> assets;
  for (const auto& row : rows) {
    assets.push_back({1, std::string(row.samples, 'a'), {8000, 0, 8}});
  }
  assets.push_back({1, "", {8000, 0, 8}});
  assets.push_back({6, std::string(97, 'a')});
  write("b.tvb", bankOf(assets));
  ASSERT_EQ(report({}), 0) << output_.messages;
  EXPECT_FALSE(document("asset-4").contains("peaks")) << "without samples";
  EXPECT_EQ(document("asset-5")["firstBytes"].get<std::string>().size(), 96 / 3 * 4U);
  for (std::size_t id = 0; id < std::size(rows); ++id) {
    const Json wave = document("asset-" + std::to_string(id));
    EXPECT_EQ(wave["bucket"], rows[id].bucket) << id;
    EXPECT_EQ(wave["peaks"].size(), rows[id].scales) << id;
  }
}

TEST_F(ReportTest, ShowsTheQualityOfAScriptOrWhyItDoesntPack) {
  write("a.wav", test::wav().fmt(test::mono, 16, 8000).data("four"));
  write("s.txt", "BankFileName b.tvb WaveFile a.wav SampleRate 8000 Adpcm 1 AssetEnd ScriptEnd\n");
  ASSERT_TRUE(runTool({"s.txt"}));
  ASSERT_EQ(report({"--script", "s.txt"}), 0) << output_.messages;
  EXPECT_EQ(document("report")["packs"], true);
  EXPECT_EQ(document("report")["quality"]["waves"][0]["file"], "a.wav");
  EXPECT_EQ(document("report")["judged"], Json::parse("[[0, 0]]"));
  EXPECT_EQ(document("asset-0")["sourcePeaks"][0], "Zm9mb3VydXI=") << "fo, fo, ur, ur";
  write("s.txt", "BankFileName b.tvb\nUserAsset <gone> AssetEnd\n");
  ASSERT_EQ(report({"--script", "s.txt"}), 0) << output_.messages;
  EXPECT_THAT(folder_.read("page.html"), testing::Not(testing::HasSubstr("<gone")));
  EXPECT_FALSE(document("report")["packs"]);
  EXPECT_EQ(document("report")["check"]["diagnostics"][0]["code"], "missing-file");
}

TEST_F(ReportTest, RefusesWhatItCantAnswer) {
  write("b.tvb", bankOf({{6, "four"}}));
  write("a.dat", "four");
  write("s.txt", "BankFileName b.tvb\nUserAsset a.dat AssetEnd\nUserAsset gone AssetEnd\n");
  expectAnswers({"report", "b.tvb"}, {{{"--header", "gone.h"}, "gone.h"},
                                      {{"--script", "gone.txt"}, "gone.txt"},
                                      {{"--audio-limit", "1k"}, "--audio-limit takes"},
                                      {{"--prefix", "P"}, "--prefix needs --script"},
                                      {{"--script", "s.txt", "-o", "b.tvb"}, "would replace"},
                                      {{"--script", "s.txt", "-o", "s.txt"}, "would replace"},
                                      {{"--script", "s.txt", "-o", "gone"}, "would replace"},
                                      {{"--script", "s.txt", "-o", "a.dat"}, "would replace"}});
}

}  // namespace
}  // namespace tavrel::kit
