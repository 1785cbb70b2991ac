// tavkit build: what it writes, what it leaves alone, and what stops it. build_faults_test.py ends
// it in the middle.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <regex>

#include "compiler/run_driver.h"
#include "kit/frame/captured_console.h"
#include "kit/frame/command_line.h"
#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::kit {
namespace {

namespace fs = std::filesystem;
using test::wav;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

void setEnvironment(const std::string& variable) {
  static std::string kept;
  kept = variable;
  putenv(kept.data());
}

class BuildTest : public testing::Test {
 protected:
  BuildTest() {
    setEnvironment("SOURCE_DATE_EPOCH=0");
    fs::create_directory(directory_.path("sub"));
    fs::current_path(directory_.path());
    directory_.write("a.wav", wav().fmt(1, 16, 8000).data("12345678"));
    directory_.write("sub/b.dat", "bytes");
    directory_.write("s.txt", kScript);
  }
  ~BuildTest() override {
    setEnvironment("SOURCE_DATE_EPOCH=");
    fs::current_path(fs::temp_directory_path());
  }

  int build(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "build");
    output_ = {};
    const int code = runCommandLine(arguments, output_);
    EXPECT_EQ(output_.results, "");
    return code;
  }

  /// Makes a file an hour old, so that it shows whether it is replaced.
  static void age(const std::string& name) {
    fs::last_write_time(name, fs::file_time_type::clock::now() - std::chrono::hours(1));
  }
  static bool isNew(const std::string& name) {
    return fs::last_write_time(name) > fs::file_time_type::clock::now() - std::chrono::minutes(30);
  }

  [[nodiscard]] std::vector<std::string> names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(".")) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  const std::string kScript =
      "BankFileName b.tvb\nWaveFile a.wav SampleRate 8000 AssetEnd\n"
      "UserAsset sub\\b.dat AssetEnd\nScriptEnd\n";
  const test::TemporaryDirectory directory_;
  Output output_;
};

TEST_F(BuildTest, WritesWhatTheToolWritesAndReplacesOnlyWhatChanges) {
  EXPECT_EQ(build({"s.txt", "--depfile", "d", "--stamp", "sub/t"}), 0);
  EXPECT_EQ(output_.messages, "");
  const std::string bank = directory_.read("b.tvb");
  const std::string header = directory_.read("b.h");
  const std::string folder = fs::current_path().generic_string() + '/';
  const bool isWindows = fs::path::preferred_separator != '/';
  std::string depfile = directory_.read("d");
  if (isWindows) {
    depfile = std::regex_replace(depfile, std::regex(R"(\\:)"), ":");
    depfile = std::regex_replace(depfile, std::regex(R"(\\(?!\n))"), "/");
  }
  EXPECT_EQ(depfile, folder + "sub/t: \\\n  " + folder + "s.txt \\\n  " + folder + "a.wav \\\n  " +
                         folder + "sub/b.dat\n\n" + folder + "a.wav:\n\n" + folder +
                         "sub/b.dat:\n");
  EXPECT_THAT(header, HasSubstr("Rev:\t1/1/1970 0:00 am - File"));
  EXPECT_THAT(names(), ElementsAre("a.wav", "b.h", "b.tvb", "d", "s.txt", "sub"));

  for (const char* file : {"b.tvb", "b.h", "d", "sub/t"}) {
    age(file);
  }
  setEnvironment("SOURCE_DATE_EPOCH=60");
  EXPECT_EQ(build({"s.txt", "--depfile", "d", "--stamp", "sub/t"}), 0);
  EXPECT_TRUE(isNew("sub/t"));
  EXPECT_FALSE(isNew("b.tvb") || isNew("b.h") || isNew("d"));
  directory_.write("sub/b.dat", "bytEs");
  EXPECT_EQ(build({"s.txt"}), 0);
  EXPECT_TRUE(isNew("b.tvb"));
  EXPECT_FALSE(isNew("b.h"));

  directory_.write("sub/b.dat", "bytes");
  setEnvironment("SOURCE_DATE_EPOCH=");
  const CapturedConsole silence;
  const char* const arguments[] = {"tavrel", "s.txt", nullptr};
  ASSERT_EQ(runTavrel(2, arguments), 0);
  EXPECT_TRUE(directory_.read("b.tvb") == bank);
  age("b.h");
  EXPECT_EQ(build({"s.txt"}), 0);
  EXPECT_FALSE(isNew("b.h")) << "the build's header differs from the tool's";
}

TEST_F(BuildTest, ReplacesAHeaderOrBankThatDiffersAnywhere) {
  ASSERT_EQ(build({"s.txt"}), 0);
  const std::string bank = directory_.read("b.tvb");
  const std::string header = directory_.read("b.h");
  for (const std::string& damaged :
       {bank + '\0', bank.substr(0, bank.size() - 1), 'x' + bank.substr(1), std::string()}) {
    directory_.write("b.tvb", damaged);
    EXPECT_EQ(build({"s.txt"}), 0);
    EXPECT_TRUE(directory_.read("b.tvb") == bank) << damaged.size();
  }
  const std::size_t revision = header.find("1/1/1970");
  for (const std::string& damaged : {header + '\n', header.substr(1), header.substr(0, revision),
                                     header.substr(0, revision - 1) + header.substr(revision)}) {
    directory_.write("b.h", damaged);
    EXPECT_EQ(build({"s.txt"}), 0);
    EXPECT_EQ(directory_.read("b.h"), header);
  }
}

TEST_F(BuildTest, SaysWhyItStopsAndWritesNothing) {
  directory_.write("bad.txt", "BankFileName b.tvb WaveFile a.wav Loop 2 AssetEnd ScriptEnd\n");
  directory_.write("warned.txt", "BankFileName b.tvb WaveFile a.wav AssetEnd ScriptEnd\n");
  directory_.write("odd.txt", "BankFileName b.tvb UserAsset sub\\b|.dat AssetEnd ScriptEnd\n");
  directory_.write("none.txt", "; none\n");
  directory_.write("list", "./a.wav\r\nsub/../sub/c.dat\n");
  directory_.write("all", "a.wav\nsub/b.dat\n");
  const std::string warning = "warned.txt:1:29: warning: a.wav: ";
  const struct {
    int code;
    std::vector<std::string> arguments;
    std::string message;
  } kRows[]{
      {1, {"bad.txt"}, "bad.txt:1:40: error: a.wav: "},
      {1, {"bad.txt", "--format", "json"}, "\"code\": \"bad-flag\""},
      {1, {"bad.txt", "--no-check"}, "Error: Failed to parse script...\ntavkit: "},
      {1, {"none.txt", "--no-check", "--stamp", "x"}, "Failed to parse script"},
      {1, {"warned.txt", "--werror", "--stamp", "x"}, warning},
      {1, {"s.txt", "--max-bytes", "3"}, "[over-budget]"},
      {1, {"s.txt", "--declared", "list"}, "b.dat isn't listed in list\n"},
      {2, {"s.txt", "--declared", "gone"}, "can't read gone"},
      {2, {"gone.txt"}, "can't read gone.txt"},
      {2, {"s.txt", "--allow", "flag"}, "there is no code flag"},
      {2, {"s.txt", "--stamp", "no/x"}, "can't write no/x: "},
      {2, {"s.txt", "--bank-dir", "no"}, "can't write no/b.tvb: "},
      {2, {"s.txt", "--stamp", "x", "--depfile", "x"}, "two files of the build are one: x and x"},
      {2, {"s.txt", "--stamp", "b.tvb"}, "two files of the build are one: b.tvb and b.tvb"},
      {2, {"s.txt", "--depfile", "sub/b.dat"}, "two files of the build are one: sub/b.dat and sub"},
      {2, {"s.txt", "--declared", "all", "--depfile", "all"}, "are one: all and all"},
      {2, {"s.txt", "--depfile", "x", "--stamp", "a%"}, "has the character %"},
  };
  const std::vector<std::string> before = names();
  for (const auto& [code, arguments, message] : kRows) {
    SCOPED_TRACE(testing::PrintToString(arguments));
    EXPECT_EQ(build(arguments), code);
    EXPECT_THAT(output_.messages, HasSubstr(message));
    EXPECT_EQ(names(), before);
  }
  EXPECT_EQ(build({"warned.txt"}), 0);
  EXPECT_THAT(output_.messages, HasSubstr(warning));
  EXPECT_EQ(build({"warned.txt", "--no-check"}), 0);
  EXPECT_EQ(output_.messages, "");
  directory_.write("list", "a.wav\n\nunused\nsub/./b.dat\nsub/b.dat");
  EXPECT_EQ(build({"s.txt", "--declared", "list"}), 0);
  EXPECT_EQ(output_.messages, "tavkit: warning: unused is listed in list and not used\n");
}

TEST_F(BuildTest, FollowsALinkBeforeAParentFolder) {
  fs::create_directories("other/folder");
  directory_.write("other/c.dat", "c");
  directory_.write("c.dat", "another");
  std::error_code unsupported;
  fs::create_directory_symlink("other/folder", "link", unsupported);
  if (unsupported) {
    GTEST_SKIP() << "no links on this host";
  }
  directory_.write("s.txt", "BankFileName b.tvb UserAsset link\\..\\c.dat AssetEnd ScriptEnd\n");
  directory_.write("list", "c.dat\n");
  EXPECT_EQ(build({"s.txt", "--declared", "list"}), 1);
  directory_.write("list", "other/c.dat\n");
  EXPECT_EQ(build({"s.txt", "--declared", "list", "--depfile", "d"}), 0);
  EXPECT_EQ(output_.messages, "");
  EXPECT_THAT(directory_.read("d"), HasSubstr("/other/c.dat:\n"));
}

TEST_F(BuildTest, TakesTheTimeOfTheEnvironment) {
  const struct {
    std::string value, expected;
  } kRows[]{{"951782459", "2/29/2000 0:00 am"},
            {"253402300799", "12/31/9999 11:59 pm"},
            {"253402300800", ""},
            {"-1", ""},
            {"1x", ""},
            {" 1", ""},
            {"99999999999999999999", ""}};
  for (const auto& [value, expected] : kRows) {
    SCOPED_TRACE(value);
    setEnvironment("SOURCE_DATE_EPOCH=" + value);
    fs::remove("b.h");
    EXPECT_EQ(build({"s.txt"}), expected.empty() ? 2 : 0);
    EXPECT_THAT(expected.empty() ? output_.messages : directory_.read("b.h"),
                HasSubstr(expected.empty() ? "not " + value + '\n' : "\t" + expected + " -"));
  }
}

TEST_F(BuildTest, KeepsWhatIsReadOnlyAndItsCompany) {
  ASSERT_EQ(build({"s.txt"}), 0);
  const std::string bank = directory_.read("b.tvb");
  fs::permissions("b.h", fs::perms::owner_read, fs::perm_options::replace);
  EXPECT_EQ(build({"s.txt", "--stamp", "x"}), 0) << "b.h need not change";
  directory_.write("s.txt", "BankFileName b.tvb UserAsset a.wav AssetEnd ScriptEnd\n");
  EXPECT_EQ(build({"s.txt"}), 2);
  EXPECT_THAT(output_.messages, HasSubstr("can't write b.h: "));
  EXPECT_TRUE(directory_.read("b.tvb") == bank);
  EXPECT_THAT(names(), ElementsAre("a.wav", "b.h", "b.tvb", "s.txt", "sub", "x"));
  fs::permissions("b.h", fs::perms::owner_write, fs::perm_options::add);
}

}  // namespace
}  // namespace tavrel::kit
