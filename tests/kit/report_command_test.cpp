// tavkit report: the documents of the page and what the command refuses. tests/report has the page
// in a browser.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "kit/frame/command_line.h"
#include "tests/support/bank_builder.h"
#include "tests/support/midi_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::kit {
namespace {

using nlohmann::json;
using test::bankOf;
using testing::HasSubstr;
using testing::Not;

class ReportTest : public testing::Test {
 protected:
  int run(std::vector<std::string> arguments) {
    output_ = {};
    arguments.insert(arguments.begin(), "report");
    arguments.insert(arguments.end(), {"-o", page_});
    return runCommandLine(arguments, output_);
  }

  /// Returns a document of the page.
  json document(const std::string& id) {
    const std::string start = "<script type=\"application/json\" id=\"" + id + "\">";
    const std::string page = folder_.read("page.html");
    const std::size_t first = page.find(start) + start.size();
    return json::parse(page.substr(first, page.find("</script>", first) - first));
  }

  test::TemporaryDirectory folder_;
  std::string page_ = folder_.path("page.html");
  Output output_;
};

TEST_F(ReportTest, HasWhatIsDrawn) {
  const auto loud = std::string("\x7F\x80\x40\xC0", 4) + std::string(4, '\0');
  const std::string song = test::midi(96).track(
      test::events().tempo(0, 500000).note(48, 1, 60, 100).note(48, 1, 60, 0).endOfTrack(96));
  const std::string bank = folder_.write(
      "b.tvb",
      bankOf({{1, loud, {8000, 1, 8, 0, 2, 4}}, {2, song, {96}}, {6, "<!--"}, {6, "<!--"}}));
  ASSERT_EQ(run({bank}), 0) << output_.messages;
  const json whole = document("report");
  EXPECT_EQ(whole["list"]["assets"].size(), 4U);
  EXPECT_EQ(whole["duplicates"], json::parse("[[2, 3]]"));
  const json wave = document("asset-0");
  EXPECT_EQ(wave["peak"], 1);
  EXPECT_EQ(wave["clipped"], 2);
  EXPECT_EQ(wave["seam"], json::parse(R"({"before": [16384, -16384], "after": [16384, -16384]})"));
  EXPECT_EQ(wave["peaks"][0], "AH8AfwCAAIAAQABAAMAAwAAAAAAAAAAAAAAAAAAAAAA=");
  EXPECT_EQ(wave["audio"], "f4BAwAAAAAA=");
  const json sequence = document("asset-1")["sequence"];
  EXPECT_EQ(sequence["notes"], json::parse("[48, 48, 60, 100, 0]"));
  EXPECT_EQ(sequence["ticks"], 192);
  EXPECT_EQ(document("asset-2")["firstBytes"], "PCEtLQ==");
}

TEST_F(ReportTest, LeavesOutSoundsThatDontFit) {
  const std::string mebibyte(std::size_t{1} << 20U, 'a');
  const std::string bank = folder_.write(
      "b.tvb",
      bankOf({{1, "aaaa", {8000, 0, 8}}, {1, mebibyte, {8000, 0, 8}}, {1, "aaaa", {8000, 0, 8}}}));
  ASSERT_EQ(run({bank, "--audio-limit", "1"}), 0) << output_.messages;
  EXPECT_TRUE(document("asset-0")["audio"].is_string());
  EXPECT_TRUE(document("asset-1")["audio"].is_null());
  EXPECT_EQ(document("asset-1")["bucket"], 1024);
  EXPECT_TRUE(document("asset-2")["audio"].is_string());
}

TEST_F(ReportTest, ShowsAScriptThatDoesntPack) {
  const std::string bank = folder_.write("b.tvb", bankOf({{6, "four"}}));
  const std::string script =
      folder_.write("s.txt", "BankFileName b.tvb\nUserAsset <gone> AssetEnd\n");
  ASSERT_EQ(run({bank, "--script", script}), 0) << output_.messages;
  EXPECT_THAT(folder_.read("page.html"), Not(HasSubstr("<gone")));
  EXPECT_FALSE(document("report")["packs"]);
  EXPECT_EQ(document("report")["check"]["diagnostics"][0]["code"], "missing-file");
}

TEST_F(ReportTest, RefusesWhatItCantAnswer) {
  const std::string bank = folder_.write("b.tvb", bankOf({{6, "four"}}));
  const std::string text = folder_.write("s.txt", "no bank");
  const struct {
    std::vector<std::string> arguments;
    const char* message;
  } rows[] = {
      {{text}, "s.txt"},
      {{bank, "--script", folder_.path("gone.txt")}, "gone.txt"},
      {{bank, "--audio-limit", "1k"}, "--audio-limit takes"},
      {{bank, "--prefix", "P"}, "--prefix needs --script"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.message);
    EXPECT_EQ(run(row.arguments), 2);
    EXPECT_THAT(output_.messages, HasSubstr(row.message));
    EXPECT_FALSE(std::filesystem::exists(page_));
  }
  const std::string asset = folder_.write("a.dat", "four");
  const std::string script = folder_.write(
      "s.txt", "BankFileName b.tvb\nUserAsset " + asset + " AssetEnd\nUserAsset gone AssetEnd\n");
  for (const std::string& source : {bank, script, asset}) {
    page_ = source;
    EXPECT_EQ(run({bank, "--script", script}), 2);
    EXPECT_THAT(output_.messages, HasSubstr("would replace"));
  }
}

}  // namespace
}  // namespace tavrel::kit
