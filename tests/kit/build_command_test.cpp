// tavkit build: what it writes, what it leaves alone, and what stops it. build_faults_test.py ends
// it in the middle.
#include <cstdlib>
#include <regex>

#include "kit/build/comparing_buffer.h"
#include "tests/kit/command_test.h"
#include "tests/support/sound_builder.h"

namespace tavrel::kit {
namespace {

using testing::HasSubstr;

void setEnvironment(const std::string& variable) {
  static std::string kept;
  kept = variable;
  putenv(kept.data());
}

class BuildTest : public CommandTest {
 protected:
  BuildTest() {
    setEnvironment("SOURCE_DATE_EPOCH=0");
    write("a.wav", test::wav().fmt(1, 16, 8000).data("12345678"));
    write("sub/b.dat", "bytes");
    write("s.txt",
          "BankFileName b.tvb\nWaveFile a.wav SampleRate 8000 AssetEnd\n"
          "UserAsset sub\\b.dat AssetEnd\nScriptEnd\n");
  }
  ~BuildTest() override { setEnvironment("SOURCE_DATE_EPOCH="); }

  int build(const Lines& arguments) {
    const int code = run({"build"}, arguments);
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
};

TEST_F(BuildTest, WritesWhatTheToolWritesAndReplacesOnlyWhatChanges) {
  EXPECT_EQ(build({"s.txt", "--depfile", "d", "--stamp", "sub/t"}), 0);
  EXPECT_EQ(output_.messages, "");
  const std::string bank = folder_.read("b.tvb");
  const std::string folder = fs::current_path().generic_string() + '/';
  std::string depfile = folder_.read("d");
  if (fs::path::preferred_separator != '/') {
    depfile = std::regex_replace(depfile, std::regex(R"(\\:)"), ":");
    depfile = std::regex_replace(depfile, std::regex(R"(\\(?!\n))"), "/");
  }
  EXPECT_EQ(std::regex_replace(depfile, std::regex(folder), "/"),
            "/sub/t: \\\n  /s.txt \\\n  /a.wav \\\n  /sub/b.dat\n\n/a.wav:\n\n/sub/b.dat:\n");
  EXPECT_THAT(folder_.read("b.h"), HasSubstr("Rev:\t1/1/1970 0:00 am - File"));
  EXPECT_THAT(filesIn("."), testing::ElementsAre("a.wav", "b.h", "b.tvb", "d", "s.txt", "sub",
                                                 "sub/b.dat", "sub/t"));

  for (const char* file : {"b.tvb", "b.h", "d", "sub/t"}) {
    age(file);
  }
  setEnvironment("SOURCE_DATE_EPOCH=60");
  EXPECT_EQ(build({"s.txt", "--depfile", "d", "--stamp", "sub/t"}), 0);
  EXPECT_TRUE(isNew("sub/t"));
  EXPECT_FALSE(isNew("b.tvb") || isNew("b.h") || isNew("d"));
  write("sub/b.dat", "bytEs");
  EXPECT_EQ(build({"s.txt"}), 0);
  EXPECT_TRUE(isNew("b.tvb"));
  EXPECT_FALSE(isNew("b.h"));

  write("sub/b.dat", "bytes");
  setEnvironment("SOURCE_DATE_EPOCH=");
  ASSERT_TRUE(runTool({"s.txt"}));
  EXPECT_TRUE(folder_.read("b.tvb") == bank);
  age("b.h");
  EXPECT_EQ(build({"s.txt"}), 0);
  EXPECT_FALSE(isNew("b.h")) << "the build's header differs from the tool's";
}

TEST_F(BuildTest, ReplacesAHeaderOrBankThatDiffersAnywhere) {
  ASSERT_EQ(build({"s.txt"}), 0);
  const std::string bank = folder_.read("b.tvb");
  const std::string header = folder_.read("b.h");
  for (const std::string& damaged :
       {bank + '\0', bank.substr(0, bank.size() - 1), 'x' + bank.substr(1), std::string()}) {
    write("b.tvb", damaged);
    EXPECT_EQ(build({"s.txt"}), 0);
    EXPECT_TRUE(folder_.read("b.tvb") == bank) << damaged.size();
  }
  const std::size_t revision = header.find("1/1/1970");
  for (const std::string& damaged : {header + '\n', header.substr(1), header.substr(0, revision),
                                     header.substr(0, revision - 1) + header.substr(revision)}) {
    write("b.h", damaged);
    EXPECT_EQ(build({"s.txt"}), 0);
    EXPECT_EQ(folder_.read("b.h"), header);
  }
}

TEST_F(BuildTest, SaysWhyItStopsAndWritesNothing) {
  write("bad.txt", "BankFileName b.tvb WaveFile a.wav Loop 2 AssetEnd ScriptEnd\n");
  write("warned.txt", "BankFileName b.tvb WaveFile a.wav AssetEnd ScriptEnd\n");
  write("odd.txt", "BankFileName b.tvb UserAsset sub\\b|.dat AssetEnd ScriptEnd\n");
  write("none.txt", "; none\n");
  write("long.txt", "BankFileName " + std::string(77, 'g') + ".tvb\nScriptEnd\n");
  write("list", "./a.wav\r\nsub/../sub/c.dat\n");
  write("all", "a.wav\nsub/b.dat\n");
  const std::string warning = "warned.txt:1:29: warning: a.wav: ";
  expectAnswers(
      {"build"},
      {
          {{"bad.txt"}, "bad.txt:1:40: error: a.wav: ", 1},
          {{"bad.txt", "--format", "json"}, "\"code\": \"bad-flag\"", 1},
          {{"bad.txt", "--no-check"}, "Error: Failed to parse script...\ntavkit: ", 1},
          {{"long.txt", "--no-check"},
           "chars allowed\nError: Failed to write header...\ntavkit: ",
           1},
          {{"none.txt", "--no-check", "--stamp", "x"}, "Failed to parse script", 1},
          {{"warned.txt", "--werror", "--stamp", "x"}, warning, 1},
          {{"s.txt", "--max-bytes", "3"}, "[over-budget]", 1},
          {{"s.txt", "--declared", "list"}, "b.dat isn't listed in list\n", 1},
          {{"s.txt", "--declared", "gone"}, "can't read gone"},
          {{"gone.txt"}, "can't read gone.txt"},
          {{"s.txt", "--allow", "flag"}, "there is no code flag"},
          {{"s.txt", "--stamp", "no/x"}, "can't write no/x: "},
          {{"s.txt", "--bank-dir", "no"}, "can't write no/b.tvb: "},
          {{"s.txt", "--stamp", "x", "--depfile", "x"}, "two files of the build are one: x and x"},
          {{"s.txt", "--stamp", "b.tvb"}, "two files of the build are one: b.tvb and b.tvb"},
          {{"s.txt", "--depfile", "sub/b.dat"},
           "two files of the build are one: sub/b.dat and sub"},
          {{"s.txt", "--declared", "all", "--depfile", "all"}, "are one: all and all"},
          {{"s.txt", "--depfile", "x", "--stamp", "a%"}, "has the character %"},
      });
  EXPECT_EQ(build({"warned.txt"}), 0);
  EXPECT_THAT(output_.messages, HasSubstr(warning));
  EXPECT_EQ(build({"warned.txt", "--no-check"}), 0);
  EXPECT_EQ(output_.messages, "");
  write("list", "a.wav\n\nunused\nsub\\.\\b.dat\nsub\\b.dat");
  EXPECT_EQ(build({"s.txt", "--declared", "list"}), 0);
  EXPECT_EQ(output_.messages, "tavkit: warning: unused is listed in list and not used\n");
}

TEST_F(BuildTest, FollowsALinkBeforeAParentFolder) {
  write("other/folder/c.dat", "not this");
  write("other/c.dat", "c");
  write("c.dat", "another");
  std::error_code unsupported;
  fs::create_directory_symlink("other/folder", "link", unsupported);
  if (unsupported) {
    GTEST_SKIP() << "no links on this host";
  }
  write("s.txt", "BankFileName b.tvb UserAsset link\\..\\c.dat AssetEnd ScriptEnd\n");
  write("list", "c.dat\n");
  EXPECT_EQ(build({"s.txt", "--declared", "list"}), 1);
  write("list", "other/c.dat\n");
  EXPECT_EQ(build({"s.txt", "--declared", "list", "--depfile", "d"}), 0);
  EXPECT_EQ(output_.messages, "");
  EXPECT_THAT(folder_.read("d"), HasSubstr("/other/c.dat:\n"));
}

TEST_F(BuildTest, TakesTheTimeOfTheEnvironment) {
  for (const auto& [value, time] : {std::pair("951782459", "\t2/29/2000 0:00 am -"),
                                    std::pair("253402300799", "\t12/31/9999 11:59 pm -")}) {
    setEnvironment(std::string("SOURCE_DATE_EPOCH=") + value);
    fs::remove("b.h");
    EXPECT_EQ(build({"s.txt"}), 0);
    EXPECT_THAT(folder_.read("b.h"), HasSubstr(time));
  }
  for (const std::string value : {"253402300800", "-1", "1x", " 1", "99999999999999999999"}) {
    setEnvironment("SOURCE_DATE_EPOCH=" + value);
    expectAnswers({"build"}, {{{"s.txt"}, "not " + value + '\n'}});
  }
}

TEST_F(BuildTest, KeepsWhatIsReadOnlyAndItsCompany) {
  ASSERT_EQ(build({"s.txt"}), 0);
  const std::string bank = folder_.read("b.tvb");
  fs::permissions("b.h", fs::perms::owner_read, fs::perm_options::replace);
  EXPECT_EQ(build({"s.txt", "--stamp", "x"}), 0) << "b.h need not change";
  write("s.txt", "BankFileName b.tvb UserAsset a.wav AssetEnd ScriptEnd\n");
  expectAnswers({"build"}, {{{"s.txt"}, "can't write b.h: "}});
  EXPECT_TRUE(folder_.read("b.tvb") == bank);
  fs::permissions("b.h", fs::perms::owner_write, fs::perm_options::add);
}

TEST_F(BuildTest, ComparesWhatIsWrittenWithAFile) {
  const struct {
    std::string file, written;
    bool isEqual;
  } rows[] = {{"", "", true},      {"ab", "ab", true}, {"ab", "a", false},
              {"ab", "ac", false}, {"a", "ab", false}, {"", "a", false}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.file + ' ' + row.written);
    write("old", row.file);
    ComparingBuffer buffer("old");
    std::ostream stream(&buffer);
    for (const char c : row.written) {
      stream.put(c);
    }
    EXPECT_EQ(buffer.isEqual(), row.isEqual);
    EXPECT_FALSE(ComparingBuffer("missing").isEqual());
  }
}

}  // namespace
}  // namespace tavrel::kit
