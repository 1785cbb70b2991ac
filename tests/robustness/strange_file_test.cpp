// The tool among files that are no files, disks that are full and streams that are closed: it may
// never hang, crash, or say "Done!" without a whole bank and header.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <filesystem>

#include "midi/midi_asset_file.h"
#include "samples/iff_file.h"
#include "tests/support/aiff_builder.h"
#include "tests/support/midi_builder.h"
#include "tests/support/small_build.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/tool_run.h"
#include "tests/support/wav_builder.h"

namespace tavrel::test {
namespace {

const std::string kParseFails = "Error: Failed to parse script...\n";
const std::string kBankFails = "Error: Failed to write bank...\n";
const std::string kHeaderFails = "Error: Failed to write header...\n";

/// Runs the small build in a folder of its own, with shell text in front of the tool and arguments
/// or redirections behind it. Gives the bank, or the closing line of a failure.
std::string outcome(const std::string& front, const std::string& behind = "") {
  const TemporaryDirectory directory;
  for (const SmallFile& file : smallBuild()) {
    directory.write(file.name, file.content);
  }
  const ToolRun run =
      runTool(directory.path(), {"s.txt"}, {.shellPrefix = front, .redirections = behind});
  if (run.exitCode == 0) {
    EXPECT_THAT(directory.read("b.h"), testing::EndsWith("_H\n")) << front << behind;
    return directory.read("b.tvb");
  }
  EXPECT_EQ(run.exitCode, 1) << front << behind;
  return run.standardError.substr(run.standardError.rfind("Error: "));
}

TEST(StrangeFiles, InThePlaceOfAnInput) {
  const std::string withoutMidi = outcome("sed -i /m.mid/d s.txt;");
  for (const std::string make :
       {"true ", "mkdir ", "mkfifo ", "ln -s /dev/zero ", "ln -s loop ", "ln -s /proc/self/mem "}) {
    for (const std::string name : {"s.txt", "w.wav", "f.aif", "d.dat", "m.mid"}) {
      // A sequence that can't be read is left out, and that is all.
      EXPECT_EQ(outcome("rm " + name + "; ln -s loop loop; " + make + name + ';'),
                name == "m.mid" ? withoutMidi : kParseFails)
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
  } rows[] = {{"ln -s /dev/full b.tvb;", "", kBankFails},
              {"ln -s /dev/full b.h;", "", kHeaderFails},
              {"mkdir b.tvb;", "", kBankFails},
              {"mkdir b.h;", "", kHeaderFails},
              {"mkfifo b.tvb;", "", kBankFails},
              {"mkfifo b.h;", "", kHeaderFails},
              {"ln -s /dev/null b.tvb;", "", kHeaderFails},
              {"", "bankPath none/", kBankFails},
              {"", "headerPath none/", kHeaderFails},
              {"", "bankPath /proc/", kBankFails},
              {"", "headerPath /proc/", kHeaderFails},
              {"ulimit -f 1;", "", kBankFails},
              {"ln -s s.txt b.tvb; ln -s w.wav b.h;", "", whole},
              {"", ">&-", whole},
              {"", "2>&-", whole},
              {"", ">&- 2>&- <&-", whole},
              {"", ">/dev/full", whole},
              {"", "2>/dev/full", whole},
              {pipe, ">pipe", whole},
              {pipe, "2>pipe", whole},
              {"rm s.txt;", "<&-", kParseFails}};
  for (const auto& [front, behind, expected] : rows) {
    EXPECT_EQ(outcome(front, behind), expected) << front << behind;
  }
}

// The two that follow are left out under sanitizers, which take memory of their own.
TEST(MemoryOfARun, IsItsPayloadsAndOneFile) {
  constexpr std::uint32_t kSize = 64U << 20U;
  constexpr std::uint64_t kAlwaysAllowed = 16U << 20U;
  const std::string wave = wav().fmt(1, 16, 22050).data("").claimDataSize(kSize);
  const std::string sound = aiff().comm(1, kSize / 2, 16).ssnd("").claimSize("SSND", 8 + kSize);
  const std::string chunks = aiff().comm(1, 2, 16).ssnd("abcd").claimFormSize(kSize);
  const struct {
    std::string block, name, head;  // the bytes behind the head are a hole
    std::uint64_t shareHeld;        // besides one copy of the file, in bytes
  } rows[] = {{"WaveFile l.wav", "l.wav", wave, kSize},
              {"WaveFile l.wav Adpcm 1", "l.wav", wave, kSize / 4},
              {"WaveFile l.aif", "l.aif", sound, kSize},
              {"WaveFile l.aif", "l.aif", chunks, kSize / 8 * sizeof(IffChunk)},  // empty chunks
              {"MidiFileType0 l.mid", "l.mid", smallMidi(), kSize},
              {"UserAsset l.dat", "l.dat", "", 0}};
  for (const auto& [block, name, head, shareHeld] : rows) {
    SCOPED_TRACE(block + ", a hole behind " + std::to_string(head.size()));
    const TemporaryDirectory directory;
    directory.write("s.txt", "BankFileName b.tvb\n" + block + " AssetEnd\n");
    std::filesystem::resize_file(directory.write(name, head), head.size() + kSize);
    const std::uint64_t limit = (kSize + shareHeld + kAlwaysAllowed) / 1024;
    const std::string prefix = "ulimit -v " + std::to_string(limit) + ';';
    EXPECT_EQ(runTool(directory.path(), {"s.txt"}, {.shellPrefix = prefix}).exitCode, 0);
    EXPECT_GT(std::filesystem::file_size(directory.path("b.tvb")), 32U) << "an empty bank";
  }
}

TEST(MemoryOfARun, DoesNotGrowWithWhatAFileClaims) {
  // A system event that claims 4 GiB less one byte, in a file of 28 bytes.
  const std::string claim = Bytes().u8(0xF0).u8(0x8F).fill(3, 0xFF).u8(0x7F);
  const TemporaryDirectory directory;
  const std::string name = directory.write("c.mid", midi().track(events().raw(0, claim)).str());
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
