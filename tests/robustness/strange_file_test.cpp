// The tool among files that are no files, disks that are full and streams that are closed: it may
// never hang, crash, or say "Done!" without a whole bank and header.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <filesystem>

#include "midi/midi_asset_file.h"
#include "tests/support/midi_builder.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/tool_run.h"

namespace tavrel::test {
namespace {

const std::string kParseFails = "Error: Failed to parse script...\n";
const std::string kBankFails = "Error: Failed to write bank...\n";
const std::string kHeaderFails = "Error: Failed to write header...\n";

/// Packs the example bank in a folder of its own, with shell text in front of the tool and
/// arguments or redirections behind it. Gives the bank, or the closing line of a failure.
std::string outcome(const std::string& front, const std::string& behind = "") {
  const TemporaryDirectory directory;
  std::filesystem::copy(TAVREL_SOURCE_DIR "/examples", directory.path());
  const ToolRun run = runTool(directory.path(), "demo.txt " + behind, front);
  if (run.exitCode == 0) {
    EXPECT_THAT(directory.read("demo.h"), testing::EndsWith("_H\n")) << front << behind;
    return directory.read("demo.tvb");
  }
  EXPECT_EQ(run.exitCode, 1) << front << behind;
  return run.standardError.substr(run.standardError.rfind("Error: "));
}

TEST(StrangeFiles, InThePlaceOfAnInput) {
  const std::string withoutMidi = outcome("sed -i /Midi.*0/,/AssetEnd/d demo.txt;");
  for (const std::string make :
       {"true ", "mkdir ", "mkfifo ", "ln -s /dev/zero ", "ln -s loop ", "ln -s /proc/self/mem "}) {
    for (const std::string name :
         {"demo.txt", "boom.wav", "engine.aif", "level.dat", "theme.mid"}) {
      // A sequence that can't be read is left out, and that is all.
      EXPECT_EQ(outcome("rm " + name + "; ln -s loop loop; " + make + name + ';'),
                name == "theme.mid" ? withoutMidi : kParseFails)
          << make << name;
    }
  }
}

TEST(StrangeFiles, InThePlaceOfAnOutputOrAStream) {
  const std::string whole = outcome("");
  // The reader of the pipe goes away at once. A bank in /dev/null can't be asked for its length.
  const std::string pipe = "mkfifo pipe; : <pipe >/dev/null 2>&1 &";
  const struct {
    std::string front, behind, expected;
  } rows[] = {{"ln -s /dev/full demo.tvb;", "", kBankFails},
              {"ln -s /dev/full demo.h;", "", kHeaderFails},
              {"mkdir demo.tvb;", "", kBankFails},
              {"mkdir demo.h;", "", kHeaderFails},
              {"mkfifo demo.tvb;", "", kBankFails},
              {"mkfifo demo.h;", "", kHeaderFails},
              {"ln -s /dev/null demo.tvb;", "", kHeaderFails},
              {"", "bankPath none/", kBankFails},
              {"", "headerPath none/", kHeaderFails},
              {"", "bankPath /proc/", kBankFails},
              {"", "headerPath /proc/", kHeaderFails},
              {"ulimit -f 1;", "", kBankFails},
              {"ln -s demo.txt demo.tvb; ln -s blip.wav demo.h;", "", whole},
              {"", ">&-", whole},
              {"", "2>&-", whole},
              {"", ">&- 2>&- <&-", whole},
              {"", ">/dev/full", whole},
              {"", "2>/dev/full", whole},
              {pipe, ">pipe", whole},
              {pipe, "2>pipe", whole},
              {"rm demo.txt;", "<&-", kParseFails}};
  for (const auto& [front, behind, expected] : rows) {
    EXPECT_EQ(outcome(front, behind), expected) << front << behind;
  }
}

// Left out under sanitizers, which take memory of their own.
TEST(Memory, DoesNotGrowWithWhatAFileClaims) {
  // A system event that claims 4 GiB less one byte, in a file of 28 bytes.
  const std::string claim = Bytes().u8(0xF0).u8(0x8F).fill(3, 0xFF).u8(0x7F);
  const TemporaryDirectory directory;
  const std::string name = directory.write("c.mid", midi().track(events().raw(0, claim)));
  MidiAssetFile file(name.c_str(), 0);
  ASSERT_TRUE(file.load());
  rusage before{};
  rusage after{};
  std::uint32_t tempo = 0;
  getrusage(RUSAGE_SELF, &before);
  EXPECT_FALSE(file.firstTempo(tempo));
  getrusage(RUSAGE_SELF, &after);
  EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 1024) << "kilobytes";
}

}  // namespace
}  // namespace tavrel::test
