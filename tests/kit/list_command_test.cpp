// tavkit list: a bank with every kind of asset, and the headers and command lines it accepts.
#include <regex>

#include "tests/kit/command_test.h"
#include "tests/support/bank_builder.h"
#include "tests/support/midi_builder.h"

namespace tavrel::kit {
namespace {

using testing::HasSubstr;

/// 15 assets: 5 waves, 3 tone banks, both DSP banks, a user asset, an unknown one, 3 sequences.
std::string everyKind() {
  const std::string whole = test::midi(96).track(test::events()
                                                     .tempo(0, 500000)
                                                     .note(0, 1, 60, 100)
                                                     .note(96, 1, 64, 100)
                                                     .note(96, 1, 60, 0)
                                                     .note(0, 1, 64, 0)
                                                     .endOfTrack(192));
  const std::string smpte =  // 25 frames a second, 40 ticks a frame
      test::midi(0xE728).track(test::events().note(0, 1, 60, 100).endOfTrack(1000));
  const std::string four = "four";
  return test::bankOf({{1, std::string(8, 'a'), {22050, 0, 4, 100}},
                       {1, std::string(12, 'b'), {6000, 1, 8, 0, 2, 9}},
                       {1, std::string(20, 'c'), {4, 0, 16}},
                       {1, std::string(6, 'd'), {44100, 0, 24}},
                       {1, four, {0, 0, 16}},
                       {3, four, {0}},
                       {3, four, {1}},
                       {3, four, {7}},
                       {4, four},
                       {5, four},
                       {6, "fives", {-1, 0, 0, 0, 0, 0, 0, 7}},
                       {9, four},
                       {2, whole, {96, 100, 1, 1, 0, 500000}},
                       {2, "MThd"},
                       {2, smpte, {-6360, 127, 1, 0, 0, 250000}}});
}

class ListTest : public CommandTest {
 protected:
  ListTest() {
    write("sfx.h", test::headerOf({"BOOM_WAV", "\x1B[31m", "\xFF"}) + "#define SFX_FAR 99\n");
  }

  std::string bank_ = folder_.write("sfx.tvb", everyKind());
};

TEST_F(ListTest, PrintsOneLineForEachAssetAndTotals) {
  ASSERT_EQ(run({"list", bank_}), 0);
  EXPECT_EQ(output_.messages, "");
  EXPECT_EQ(std::regex_replace(output_.results, std::regex(" +"), " "),
            "id define type rate bits bytes length loop details\n"
            " 0 SFX_BOOM_WAV wave 22050 4 8 0:00.001 adpcm, random pitch 100\n"
            " 1 SFX_\uFFFD[31m wave 6000 8 12 0:00.002 2-9 pcm\n"
            " 2 SFX_\uFFFD wave 4 16 20 0:02.500 pcm\n"
            " 3 wave 44100 24 6 ? raw\n"
            " 4 wave 0 16 4 ? pcm\n"
            " 5 toneBank 4 drum\n"
            " 6 toneBank 4 melodic\n"
            " 7 toneBank 4 unknown bank type\n"
            " 8 fxProgramBank 4\n"
            " 9 fxOutputBank 4\n"
            "10 userAsset 5 parameters -1 0 0 0 0 0 0 7\n"
            "11 unknown 4\n"
            "12 sequence 50 0:02.000 1 120.00 bpm, division 96, volume 100, GM mode 1, 6 events, "
            "2 voices\n"
            "13 sequence 4 ? no tempo, division 0, volume 0, GM mode 0, breaks off\n"
            "14 sequence 31 0:01.000 240.00 bpm, division -6360, volume 127, GM mode 1, 2 events, "
            "1 voice\n"
            "\n"
            "type assets bytes length\n"
            "unknown 1 4\n"
            "wave 5 50 0:02.503\n"
            "sequence 3 85 0:03.000\n"
            "toneBank 3 12\n"
            "fxProgramBank 1 4\n"
            "fxOutputBank 1 4\n"
            "userAsset 1 5\n"
            "table and padding 700\n"
            "bank 15 864\n");
}

TEST_F(ListTest, PrintsJson) {
  ASSERT_EQ(run({"list", "--json", bank_}), 0);
  Json document = Json::parse(output_.results);
  const Json assets = document["assets"];
  document["assets"] = Json::array();
  EXPECT_EQ(document.dump(), R"({"format":1,"bank":")" + bank_ +
                                 R"(","bytes":864,"dataBytes":172,"headerBytes":692,"assets":[]})");
  const std::vector<std::string> expected{
      R"({"id":0,"define":"SFX_BOOM_WAV","type":"wave","offset":664,"bytes":8,"parameters":[22050,0,4,100,0,0,0,0],"wave":{"sampleRate":22050,"bits":4,"encoding":"adpcm","samples":16,"seconds":0.0007,"randomPitchAmount":100,"loop":null}})",
      "{\"id\":1,\"define\":\"SFX_\uFFFD[31m\""
      R"(,"type":"wave","offset":672,"bytes":12,"parameters":[6000,1,8,0,2,9,0,0],"wave":{"sampleRate":6000,"bits":8,"encoding":"pcm","samples":12,"seconds":0.002,"randomPitchAmount":0,"loop":{"start":2,"end":9}}})",
      R"({"id":3,"define":null,"type":"wave","offset":704,"bytes":6,"parameters":[44100,0,24,0,0,0,0,0],"wave":{"sampleRate":44100,"bits":24,"encoding":"raw","samples":null,"seconds":null,"randomPitchAmount":0,"loop":null}})",
      R"({"id":4,"define":null,"type":"wave","offset":712,"bytes":4,"parameters":[0,0,16,0,0,0,0,0],"wave":{"sampleRate":0,"bits":16,"encoding":"pcm","samples":2,"seconds":null,"randomPitchAmount":0,"loop":null}})",
      R"({"id":5,"define":null,"type":"toneBank","offset":716,"bytes":4,"parameters":[0,0,0,0,0,0,0,0],"toneBank":{"bankType":"drum"}})",
      R"({"id":7,"define":null,"type":"toneBank","offset":724,"bytes":4,"parameters":[7,0,0,0,0,0,0,0],"toneBank":{"bankType":null}})",
      R"({"id":10,"define":null,"type":"userAsset","offset":736,"bytes":5,"parameters":[-1,0,0,0,0,0,0,7]})",
      R"({"id":12,"define":null,"type":"sequence","offset":748,"bytes":50,"parameters":[96,100,1,1,0,500000,0,0],"sequence":{"division":96,"microsecondsPerQuarter":500000,"bpm":120.0,"volume":100,"gmMode":1,"loop":1,"events":6,"seconds":2.0,"polyphony":2}})",
      R"({"id":13,"define":null,"type":"sequence","offset":800,"bytes":4,"parameters":[0,0,0,0,0,0,0,0],"sequence":{"division":0,"microsecondsPerQuarter":0,"bpm":null,"volume":0,"gmMode":0,"loop":0,"events":null,"seconds":null,"polyphony":null}})",
      R"({"id":14,"define":null,"type":"sequence","offset":804,"bytes":31,"parameters":[-6360,127,1,0,0,250000,0,0],"sequence":{"division":-6360,"microsecondsPerQuarter":250000,"bpm":240.0,"volume":127,"gmMode":1,"loop":0,"events":2,"seconds":1.0,"polyphony":1}})"};
  ASSERT_EQ(assets.size(), 15U);
  for (const std::string& asset : expected) {
    EXPECT_EQ(assets[Json::parse(asset)["id"].get<std::size_t>()].dump(), asset);
  }
}

TEST_F(ListTest, ReadsTheDefinesFromTheHeaderOfTheBank) {
  write("other.h", "#define OTHER 0\n");
  write("sfx.h", "#define SFX_BY_HAND 0\n");
  const std::map<Lines, const char*> rows{
      {{}, "null"}, {{"--header", "other.h"}, "\"OTHER\""}, {{"--no-header"}, "null"}};
  for (const auto& [options, define] : rows) {
    ASSERT_EQ(run({"list", bank_, "--json"}, options), 0);
    EXPECT_EQ(Json::parse(output_.results)["assets"][0]["define"].dump(), define);
  }
}

TEST_F(ListTest, FailsWithoutResults) {
  write("text", std::string(64, 'x'));
  expectAnswers({"list"}, {{{}, "too few operands\nUsage: tavkit list [OPTION ...] BANK"},
                           {{bank_, bank_}, "too many operands"},
                           {{bank_, "--jsn"}, "did you mean --json?"},
                           {{bank_, "--json=1"}, "--json takes no value"},
                           {{bank_, "--json=true"}, "--json takes no value"},
                           {{bank_, "--header"}, "--header needs a value\n"},
                           {{bank_, "--header", "none.h"}, "can't read"},
                           {{"text"}, "is not a bank: bad number of assets"},
                           {{"."}, "folder"},
                           {{"texts"}, "no such file"},
                           {{"\x1B\n"}, "can't read \uFFFD\uFFFD: "},
                           {{"--", "--json"}, "can't read --json: "},
                           {{"[x]"}, "can't read [x]: "},
                           {{"/none"}, "can't read /none: "}});
  expectAnswers(
      {}, {{{"lits"}, "did you mean list?\nRun "}, {{"--verison"}, "did you mean --version?"}});
  expectAnswers({"diff"},
                {{{bank_}, "too few operands"}, {{bank_, bank_, bank_}, "too many operands"}});
  expectAnswers({"explain"}, {{{bank_, bank_}, "too many operands"}});
  for (const char* command : {"verify", "deps", "build", "quality", "report"}) {
    expectAnswers({command}, {{{}, "too few operands"}, {{bank_, bank_}, "too many operands"}});
  }
  for (const Lines& arguments : {Lines{"--version"}, {"list", "--version"}}) {
    EXPECT_EQ(run(arguments), 0);
    EXPECT_THAT(output_.results, testing::StartsWith("tavkit 1."));
  }
  EXPECT_EQ(run({"--help"}), 0);
  EXPECT_THAT(output_.results, HasSubstr("\n  list     List the assets of a bank\n"));
  EXPECT_EQ(run({"list", "--help"}), 0);
  EXPECT_THAT(output_.results, HasSubstr("Usage: tavkit list [OPTION ...] BANK\n"));
  EXPECT_THAT(output_.results, HasSubstr("\n  --header FILE  Read "));
  EXPECT_THAT(output_.results, HasSubstr("\n  -h, --help     Show "));
}

}  // namespace
}  // namespace tavrel::kit
