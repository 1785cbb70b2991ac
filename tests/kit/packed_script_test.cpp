// Scripts packed in memory, with a run of the tool as the judge.
#include "kit/pack/packed_script.h"

#include <gmock/gmock.h>

#include <sstream>

#include "compiler/run_driver.h"
#include "kit/frame/captured_console.h"
#include "platform/local_time.h"
#include "tests/support/midi_builder.h"
#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::kit {
namespace {

using namespace tavrel::test;

class PackedScriptTest : public testing::Test {
 protected:
  PackedScriptTest() {
    std::filesystem::current_path(folder_.path());
    for (const char* name : {"out", "include", "in"}) {
      std::filesystem::create_directory(name);
    }
    folder_.write("in/a b.wav", wav().fmt(mono, 16, 8000).data("12345678"));
    folder_.write("b.wav", wav().fmt(mono, 16, 8000).data("123456789abc"));
    folder_.write("c.mid", midi().track(events().tempo(0, 1).endOfTrack()));
    folder_.write("d~.dat", "four5");
    stopClock({.wYear = 1999, .wMonth = 7, .wDay = 22, .wHour = 17, .wMinute = 36});
  }
  ~PackedScriptTest() override {
    restartClock();
    std::filesystem::current_path(std::filesystem::temp_directory_path());
  }

  /// Runs the tool. Returns what it prints on standard error if it fails.
  std::string runTool(const std::string& prefix) {
    const CapturedConsole console;
    const char* const arguments[] = {"tavrel",       "s.txt",        "bankPath",
                                     "out/",         "headerPath",   "include/",
                                     "HeaderPrefix", prefix.c_str(), nullptr};
    return runTavrel(8, arguments) == 0 ? "" : console.errors;
  }

  static RunPlan plan(const std::string& prefix) {
    return {.scriptPath = "s.txt",
            .bankDirectory = "out/",
            .headerDirectory = "include/",
            .prefix = prefix};
  }

  const TemporaryDirectory folder_;
};

TEST_F(PackedScriptTest, HasTheBytesAndTheHeaderOfARun) {
  folder_.write("s.txt",
                "BankFileName my.tvb ; b.wav AssetEnd\nWaveFile b.wav Adpcm 1 AssetEnd\n"
                "MidiFileType0 gone.mid AssetEnd MidiFileType0 c.mid Volume 3 AssetEnd\r\n"
                "\tuserasset d~.dat Parameter7 -1 AssetEnd WaveFile b.wav Loop 1 Adpcm 1 AssetEnd");
  for (const std::string prefix : {"", "snd"}) {
    PackedScript packed(plan(prefix));
    EXPECT_FALSE(std::filesystem::exists("out/my.tvb"));
    ASSERT_EQ(runTool(prefix), "");
    std::stringbuf bank;
    EXPECT_TRUE(packed.writeBank(bank));
    EXPECT_TRUE(bank.str() == folder_.read("out/my.tvb"));
    EXPECT_EQ(packed.headerText(), folder_.read("include/my.h"));
    EXPECT_EQ(packed.bankPath(), "out/my.tvb");
    EXPECT_EQ(packed.headerPath(), "include/my.h");
    std::filesystem::remove("out/my.tvb");
  }
}

TEST_F(PackedScriptTest, KnowsWhatItsAssetsAreMadeFrom) {
  const std::string text =
      "BankFileName s WaveFile b.wav Adpcm 1 AssetEnd MidiFileType0 gone.mid AssetEnd ;d~.dat\n"
      "UserAsset .\\d~.dat Parameter1 -2 AssetEnd ";
  folder_.write("s.txt", text);
  const PackedScript packed(plan(""));
  ASSERT_EQ(packed.assets().size(), 2U);
  const PackedAsset& wave = packed.assets()[0];
  const PackedAsset& data = packed.assets()[1];
  EXPECT_EQ(wave.define, "S_B_WAV");
  EXPECT_EQ(data.define, "S_D__DAT");
  EXPECT_EQ(wave.file, "b.wav");
  EXPECT_EQ(data.file, ".\\d~.dat");
  EXPECT_TRUE(wave.isCompressed);
  EXPECT_FALSE(data.isCompressed);
  EXPECT_EQ(wave.scriptOffset, text.find("WaveFile"));
  EXPECT_EQ(data.scriptOffset, text.find("UserAsset"));
  EXPECT_EQ(data.record.type, 6U);
  EXPECT_EQ(data.record.offset, 4 + 2 * 44 + 4U) << "after one word of ADPCM";
  EXPECT_EQ(std::string(data.record.bytes, data.record.bytes + data.record.size), "four5");
  EXPECT_EQ(data.record.parameters[1], -2);
}

TEST_F(PackedScriptTest, FailsWithTheMessagesOfTheTool) {
  for (const std::string& script :
       {std::string("BankFileName s.tvb\nWaveFil b.wav AssetEnd\n"), std::string("ScriptEnd\n"),
        std::string("BankFileName s.tvb WaveFile gone.wav AssetEnd\n"),
        "BankFileName " + std::string(77, 'g') + ".tvb\n"}) {
    SCOPED_TRACE(script);
    folder_.write("s.txt", script);
    const std::string printed = runTool("");
    ASSERT_NE(printed, "");
    try {
      const PackedScript packed(plan(""));
      ADD_FAILURE() << "packed";
    } catch (const PackFailure& failure) {
      EXPECT_EQ(failure.advice(), printed);
    }
  }
  folder_.write("s.txt", "BankFileName s.tvb\n\x1B[1m ");
  EXPECT_THROW(PackedScript{plan("")}, PackFailure);
  std::filesystem::remove("s.txt");
  try {
    const PackedScript packed(plan(""));
  } catch (const Failure& failure) {
    EXPECT_STREQ(failure.what(), "can't read s.txt: there is no such file");
  }
}

}  // namespace
}  // namespace tavrel::kit
