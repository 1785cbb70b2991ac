// What check finds in the bank as a whole, and the forms in which it prints the problems.
#include "kit/check/bank_check.h"

#include "tests/kit/command_test.h"

namespace tavrel::kit {
namespace {

using testing::HasSubstr;

std::string asset(const std::string& file) { return "UserAsset " + file + " AssetEnd\n"; }

std::string bank(const std::string& name) { return "BankFileName " + name + "\n"; }

class BankCheckTest : public CommandTest {};

TEST_F(BankCheckTest, FindsWhatSpoilsTheBankItsHeaderOrOtherFiles) {
  for (const char* name : {"four.dat", "in/four.dat", "in/x.dat", "a-b.dat", "bank_data.size",
                           "bank_header.size", "c.h"}) {
    write(name, "four");
  }
  write("five.dat", "fives");
  fs::create_hard_link("four.dat", "link.dat");
  const std::string b = bank("b.tvb");
  const std::string four = asset("four.dat");
  const std::string five = asset("five.dat");
  const std::string stem76(76, 'g');
  const struct {
    std::string expected;
    Lines scripts, options = {};
  } groups[] = {
      {"",
       {b + four, b + asset("in\\x.dat"), bank(stem76 + ".tvb"),
        b + "FxOutputBank four.dat AssetEnd\n" + five}},
      {"unknown-word 2:20", {b + asset("four.dat foo Paramter0 5")}},
      {"define-invalid 2:11", {b + asset("a-b.dat"), b + asset("in/x.dat")}},
      {"unreadable-file 2:10 define-invalid 2:10",
       {b + "WaveFile a-b.dat SampleRate 1 AssetEnd\n"}},
      {"missing-file 2:11", {b + asset("a-c.dat")}},
      {"define-invalid 1:14",
       {bank("a-b.tvb") + four + five, bank("2b.tvb") + four, bank("in/b.tvb")}},
      {"define-invalid 1:14", {bank("a-b.tvb") + four, bank("in/b.tvb")}, {"--prefix", "P"}},
      {"", {bank("2b.tvb") + four}, {"--prefix", "P"}},
      {"define-invalid 1:14", {b + four}, {"--prefix", "2"}},
      {"", {b}, {"--bank-dir", "in", "--header-dir", "in"}},
      {"define-duplicate 3:11", {b + four + asset("in\\four.dat")}},
      {"define-duplicate 2:11", {b + asset("bank_data.size"), b + asset("bank_header.size")}},
      {"define-duplicate 2:11", {bank("b_c.tvb") + asset("c.h")}, {"--prefix", "_b"}},
      {"", {bank("b_c.tvb") + asset("c.h")}, {"--prefix", "b"}},
      {"long-guard 1:14", {bank(stem76 + "g.tvb")}},
      {"unaligned 3:11", {b + "FxOutputBank five.dat AssetEnd\n" + four}},
      {"bank-name 1:14", {bank("b.bin"), bank("b.c.tvb"), bank("four.dat") + asset("in\\x.dat")}},
      {"same-file-twice 3:11", {b + four + asset("link.dat")}},
      {"define-duplicate 3:11 same-file-twice 3:11", {b + four + four}},
      {"over-budget 1:14", {b}, {"--max-bytes", "31"}},
      {"", {b}, {"--max-bytes", "32"}},
      // Files that would be written over.
      {"output-overlap 1:14", {b + asset("s.txt")}},
      {"output-overlap 1:14 missing-file 2:11", {bank("four.tvb") + asset("four.h")}},
      {"output-overlap 1:14 bank-name 1:14",
       {bank("s.txt") + four, bank("four.dat") + asset("link.dat"), bank("b.h") + four}},
      {"bank-name 1:14", {bank("b.h") + four}, {"--bank-dir", "in"}},
      {"output-overlap 1:14 bank-name 1:14",
       {bank("b.h") + four},
       {"--bank-dir", "in", "--header-dir", "./in/../in/"}},
  };
  for (const auto& [expected, scripts, options] : groups) {
    for (const std::string& script : scripts) {
      SCOPED_TRACE(script);
      write("s.txt", script + "ScriptEnd\n");
      const int code = run({"check", "s.txt", "--json"}, options);
      EXPECT_EQ(problems(), expected);
      EXPECT_EQ(code, output_.results.find("\"errors\": 0") == std::string::npos ? 1 : 0);
    }
  }
  write("s.txt", b + four + four + asset("in\\four.dat"));
  run({"check", "s.txt"});
  const std::string mark = "AssetEnd\n          ^\n  ";
  EXPECT_THAT(output_.results, HasSubstr("four.dat " + mark + "Remove one of the two blocks\n"));
  EXPECT_THAT(output_.results, HasSubstr("in\\four.dat " + mark + "Rename the file\n"));
}

TEST_F(BankCheckTest, NamesTheLargestAssetsOfABankOverItsBudget) {
  std::string script = bank("b.tvb");
  for (const std::size_t size : {1U, 2U, 3U, 4U, 5U, 6U}) {
    const std::string name = std::to_string(size) + ".dat";
    write(name, std::string(size, 'x'));
    script += asset(name);
    write("s.txt", script);
    run({"check", "s.txt", "--max-bytes", "32"});
    if (size == 1) {
      EXPECT_THAT(output_.results,
                  HasSubstr("the bank has 64 bytes, 32 more than the 32 that --max-bytes allows; "
                            "its only asset: 1.dat (1 byte) [over-budget]"));
    }
  }
  EXPECT_THAT(output_.results, HasSubstr("; its largest assets: 6.dat (6 bytes), 5.dat (5 bytes), "
                                         "4.dat (4 bytes), 3.dat (3 bytes), 2.dat (2 bytes) ["));
}

TEST(BankLimitsTest, CountAndLengthPointAtTheFirstFileTooMuch) {
  ScriptBlock block;
  block.file = ScriptWord{"x.dat", 7};
  const RunPlan plan{.scriptPath = "s.txt"};
  // 4 + 44 * 2 + 2 * 2147483584 bytes are the last that 4294967264, a multiple of 32, holds.
  const std::uint64_t half = 2147483584;
  const struct {
    std::size_t count;
    std::uint64_t size;
    std::string codes;
  } rows[] = {{32768, 0, ""},
              {32769, 0, "too-many-assets"},
              {2, half, ""},
              {2, half + 4, "bank-too-long"},
              {3, 2 * half, "bank-too-long"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.count);
    std::vector<CheckedAsset> assets(row.count);
    for (std::size_t i = 0; i < row.count; ++i) {
      assets[i] = {.block = &block,
                   .isStored = true,
                   .openedName = "no such " + std::to_string(i),
                   .name = "n" + std::to_string(i),
                   .size = row.size,
                   .paddedSize = row.size};
    }
    Findings findings;
    checkBank({}, assets, plan, {}, findings);
    std::string found;
    for (const Diagnostic& one : findings.sorted()) {
      found += one.code->name;
    }
    EXPECT_EQ(found, row.codes);
  }
}

}  // namespace
}  // namespace tavrel::kit
