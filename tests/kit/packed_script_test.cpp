// Scripts packed in memory, with a run of the tool as the judge. What else is known of their assets
// is tested with the commands that print it.
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

TEST(PackedScript, IsWhatARunWritesOrFailsLikeOne) {
  const TemporaryDirectory folder;
  std::filesystem::current_path(folder.path());
  std::filesystem::create_directory("out");
  folder.write("b.wav", wav().fmt(mono, 16, 8000).data("123456789abc"));
  folder.write("c.mid", midi().track(events().tempo(0, 1).endOfTrack()));
  folder.write("d~.dat", "four5");
  stopClock({.wYear = 1999, .wMonth = 7, .wDay = 22, .wHour = 17, .wMinute = 36});
  const std::string name = "BankFileName s.tvb\n";
  for (const std::string& script :
       {name + "WaveFile b.wav Adpcm 1 AssetEnd WaveFile b.wav Loop 1 Adpcm 1 AssetEnd "
               "MidiFileType0 gone.mid AssetEnd MidiFileType0 c.mid Volume 3 AssetEnd\r\n"
               "\tuserasset d~.dat Parameter7 -1 AssetEnd WaveFile b.wav AssetEnd",
        name + "WavFile b.wav AssetEnd\n", name + "WaveFile gone.wav AssetEnd\n",
        std::string("ScriptEnd\n"), "BankFileName " + std::string(77, 'g') + ".tvb\n"}) {
    SCOPED_TRACE(folder.write("s.txt", script) + ": " + script);
    std::stringbuf bank;
    std::string header;
    std::string failure;
    try {
      PackedScript packed({"s.txt", "out/", "out/", "p"});
      EXPECT_EQ(packed.bankPath() + packed.headerPath(), "out/s.tvbout/s.h");
      EXPECT_TRUE(packed.writeBank(bank));
      header = packed.headerText();
    } catch (const PackFailure& thrown) {
      failure = thrown.advice();
    }
    EXPECT_TRUE(std::filesystem::is_empty("out"));
    const CapturedConsole console;
    const char* const run[] = {"tavrel", "s.txt",        "bankPath", "out/", "headerPath",
                               "out/",   "HeaderPrefix", "p",        nullptr};
    if (runTavrel(8, run) == 0) {
      EXPECT_TRUE(bank.str() == folder.read("out/s.tvb"));
      EXPECT_EQ(header, folder.read("out/s.h"));
    } else {
      EXPECT_EQ(failure, console.errors);
    }
    std::filesystem::remove_all("out");
    std::filesystem::create_directory("out");
  }
  restartClock();
  std::filesystem::current_path(std::filesystem::temp_directory_path());
}

}  // namespace
}  // namespace tavrel::kit
