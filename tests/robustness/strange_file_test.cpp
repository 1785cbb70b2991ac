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

const char* const kParseFails = "Error: Failed to parse script...\n";
const char* const kBankFails = "Error: Failed to write bank...\n";
const char* const kHeaderFails = "Error: Failed to write header...\n";
const char* const kDone = "";

/// The small build in a folder of its own, and runs of the tool in it.
class StrangeFiles : public testing::Test {
 protected:
  StrangeFiles() {
    for (const SmallFile& file : smallBuild()) {
      directory.write(file.name, file.content);
    }
    EXPECT_EQ(runTool(directory.path(), {"s.txt"}).exitCode, 0);
    wholeBank = directory.read("b.tvb");
    removeOutputs();
  }

  void removeOutputs() const {
    std::filesystem::remove_all(directory.path("b.tvb"));
    std::filesystem::remove_all(directory.path("b.h"));
  }

  /// Compares the exit code and the bank, or the closing line of the failure.
  void expectOutcome(const ToolRun& run, const std::string& failure, const std::string& bank,
                     const char* bankName = "b.tvb", const char* headerName = "b.h") const {
    EXPECT_EQ(run.exitCode, failure == kDone ? 0 : 1);
    if (failure != kDone) {
      EXPECT_THAT(run.standardError, testing::EndsWith(failure));
      return;
    }
    EXPECT_EQ(directory.read(bankName), bank);
    EXPECT_THAT(directory.read(headerName), testing::EndsWith("_H\n"));
  }

  TemporaryDirectory directory;
  std::string wholeBank;
};

TEST_F(StrangeFiles, InThePlaceOfAnInput) {
  std::vector<std::string> blocks = smallBlocks();
  blocks.erase(blocks.begin() + 3);
  directory.write("no_midi.txt", smallScript(blocks));
  ASSERT_EQ(runTool(directory.path(), {"no_midi.txt"}).exitCode, 0);
  const std::string bankWithoutMidi = directory.read("b.tvb");
  const struct {
    const char* name;
    const char* failure;  // a sequence that can't be read is left out, and that is all
  } inputs[] = {{"s.txt", kParseFails},
                {"w.wav", kParseFails},
                {"f.aif", kParseFails},
                {"d.dat", kParseFails},
                {"m.mid", kDone}};
  for (const std::string make :
       {"true ", "mkdir ", "mkfifo ", "ln -s /dev/zero ", "ln -s loop ", "ln -s /proc/self/mem "}) {
    for (const auto& input : inputs) {
      const std::string name = input.name;
      SCOPED_TRACE(make + name);
      removeOutputs();
      const ToolRun run =
          runTool(directory.path(), {"s.txt"},
                  {.shellPrefix = "mv " + name + " kept; ln -sf loop loop; " + make + name + ';'});
      expectOutcome(run, input.failure, bankWithoutMidi);
      std::filesystem::remove_all(directory.path(name));
      std::filesystem::rename(directory.path("kept"), directory.path(name));
    }
  }
}

TEST_F(StrangeFiles, InThePlaceOfAnOutput) {
  using Arguments = std::vector<std::string>;
  const struct {
    const char* prepare;
    Arguments arguments;
    const char* failure;
  } rows[] = {
      {"ln -s /dev/full b.tvb;", {}, kBankFails},
      {"ln -s /dev/full b.h;", {}, kHeaderFails},
      {"mkdir b.tvb;", {}, kBankFails},
      {"mkdir b.h;", {}, kHeaderFails},
      {"ln -s /dev/null b.tvb;", {}, kHeaderFails},  // there is no bank to ask for its length
      {"", {"bankPath", "none/"}, kBankFails},
      {"", {"headerPath", "none/"}, kHeaderFails},
      {"", {"bankPath", "/proc/"}, kBankFails},
      {"", {"headerPath", "/proc/"}, kHeaderFails},
      {"ulimit -f 1;", {}, kBankFails},
      {"cp s.txt b.tvb;", {}, kDone},
  };
  for (const auto& row : rows) {
    Arguments arguments{"s.txt"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    SCOPED_TRACE(testing::PrintToString(arguments) + row.prepare);
    removeOutputs();
    const ToolRun run = runTool(directory.path(), arguments, {.shellPrefix = row.prepare});
    expectOutcome(run, row.failure, wholeBank);
  }
}

TEST_F(StrangeFiles, AnOutputMayTakeThePlaceOfAnInput) {
  const ToolRun run =
      runTool(directory.path(), {"s.txt"}, {.shellPrefix = "sed -i s/b.tvb/s.txt/ s.txt;"});
  expectOutcome(run, kDone, wholeBank, "s.txt", "s.h");
}

TEST_F(StrangeFiles, InThePlaceOfTheStandardStreams) {
  // The reader of the pipe goes away at once.
  const std::string pipe = "rm -f pipe; mkfifo pipe; : <pipe >/dev/null 2>&1 &";
  const struct {
    std::string prepare;
    std::string redirections;
  } rows[] = {{"", ">&-"},        {"", "2>&-"},        {"", "<&-"},     {"", ">&- 2>&- <&-"},
              {"", ">/dev/full"}, {"", "2>/dev/full"}, {pipe, ">pipe"}, {pipe, "2>pipe"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.redirections);
    removeOutputs();
    const ToolRun run = runTool(directory.path(), {"s.txt"},
                                {.shellPrefix = row.prepare, .redirections = row.redirections});
    expectOutcome(run, kDone, wholeBank);
  }
  EXPECT_EQ(runTool(directory.path(), {"none.txt"}, {.redirections = "<&-"}).exitCode, 1);
}

/// One asset from a large file, and how much of it a run may hold.
struct LargeFile {
  const char* block;
  const char* name;
  std::string head;         // the bytes behind it are a hole
  std::uint64_t shareHeld;  // besides one copy of the file, in bytes
};

TEST(MemoryOfARun, IsItsPayloadsAndOneFile) {
  if (TAVREL_SANITIZED) {
    GTEST_SKIP() << "a sanitizer takes memory of its own";
  }
  constexpr std::uint32_t kSize = 64U << 20U;
  constexpr std::uint64_t kAlwaysAllowed = 16U << 20U;
  const std::string wave = wav().fmt(1, 16, 22050).data("").claimDataSize(kSize).str();
  const std::string sound =
      aiff().comm(1, kSize / 2, 16).ssnd("").claimSize("SSND", 4 + 4 + kSize).str();
  const std::string chunks = aiff().comm(1, 2, 16).ssnd("abcd").claimFormSize(kSize).str();
  const LargeFile files[] = {
      {"WaveFile l.wav", "l.wav", wave, kSize},
      {"WaveFile l.wav Adpcm 1", "l.wav", wave, kSize / 4},
      {"WaveFile l.aif", "l.aif", sound, kSize},
      {"WaveFile l.aif", "l.aif", chunks, kSize / 8 * sizeof(IffChunk)},  // empty chunks
      {"MidiFileType0 l.mid", "l.mid", smallMidi(), kSize},
      {"UserAsset l.dat", "l.dat", "", 0},
  };
  for (const LargeFile& file : files) {
    SCOPED_TRACE(testing::Message() << file.block << ", file of " << file.head.size() << " + hole");
    const TemporaryDirectory directory;
    directory.write("s.txt", std::string("BankFileName b.tvb\n") + file.block + " AssetEnd\n");
    const std::string name = directory.write(file.name, file.head);
    std::filesystem::resize_file(name, file.head.size() + kSize);
    const std::uint64_t limit = kSize + file.shareHeld + kAlwaysAllowed;
    const std::string prefix = "ulimit -v " + std::to_string(limit / 1024) + ';';
    EXPECT_EQ(runTool(directory.path(), {"s.txt"}, {.shellPrefix = prefix}).exitCode, 0);
    EXPECT_GT(std::filesystem::file_size(directory.path("b.tvb")), 32U) << "an empty bank";
  }
}

TEST(MemoryOfARun, DoesNotGrowWithWhatAFileClaims) {
  if (TAVREL_SANITIZED) {
    GTEST_SKIP() << "a sanitizer takes memory of its own";
  }
  // A system event that claims 4 GiB less one byte, in a file of 28 bytes.
  const std::string claim = Bytes().u8(0xF0).u8(0x8F).fill(3, 0xFF).u8(0x7F);
  const TemporaryDirectory directory;
  const std::string name = directory.write("c.mid", midi().track(events().raw(0, claim)).str());
  MidiAssetFile file(name.c_str(), 0);
  ASSERT_TRUE(file.load());
  rusage before{};
  getrusage(RUSAGE_SELF, &before);
  std::uint32_t tempo = 0;
  EXPECT_FALSE(file.firstTempo(tempo));
  rusage after{};
  getrusage(RUSAGE_SELF, &after);
  EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 1024) << "kilobytes";
}

}  // namespace
}  // namespace tavrel::test
