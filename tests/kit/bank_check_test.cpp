// What check finds in the bank as a whole, and the forms in which it prints the problems.
#include "kit/check/bank_check.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "kit/frame/command_line.h"
#include "kit/frame/json.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::kit {
namespace {

class BankCheckTest : public testing::Test {
 protected:
  BankCheckTest() : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(directory_.path());
    std::filesystem::create_directory("in");
    for (const char* name : {"four.dat", "in/four.dat", "in/x.dat"}) {
      directory_.write(name, "four");
    }
    directory_.write("five.dat", "fives");
    std::filesystem::create_hard_link("four.dat", "link.dat");
  }
  ~BankCheckTest() override { std::filesystem::current_path(before_); }

  /// Runs `tavkit check`. Returns each problem as "code line:column", separated by blanks.
  std::string check(const std::string& script, std::vector<std::string> options = {}) {
    directory_.write("s.txt", script + "ScriptEnd\n");
    options.insert(options.begin(), {"check", "s.txt", "--json"});
    status_ = runCommandLine(options, output_ = {});
    std::string problems;
    const Json document = Json::parse(output_.results);
    for (const Json& one : document["diagnostics"]) {
      problems += (problems.empty() ? "" : " ") + one["code"].get<std::string>() + ' ' +
                  one["line"].dump() + ':' + one["column"].dump();
    }
    return problems;
  }

  test::TemporaryDirectory directory_;
  std::filesystem::path before_;
  Output output_;
  int status_ = 0;
};

std::string asset(const std::string& file) { return "UserAsset " + file + " AssetEnd\n"; }

std::string bank(const std::string& name) { return "BankFileName " + name + "\n"; }

TEST_F(BankCheckTest, FindsWhatSpoilsTheBankItsHeaderOrOtherFiles) {
  for (const char* name : {"a-b.dat", "bank_data.size", "bank_header.size", "c.h"}) {
    directory_.write(name, "four");
  }
  const std::string stem76(76, 'g');
  struct Row {
    std::string script, problems;
    std::vector<std::string> options = {};
  };
  for (const Row& row : {
           Row{bank("b.tvb") + asset("four.dat"), ""},
           Row{bank("b.tvb") + asset("a-b.dat"), "define-invalid 2:11"},
           Row{bank("b.tvb") + asset("in/x.dat"), "define-invalid 2:11"},
           Row{bank("b.tvb") + asset("in\\x.dat"), ""},
           Row{bank("b.tvb") + asset("four.dat foo Paramter0 5"), "unknown-word 2:20"},
           Row{bank("a-b.tvb") + asset("four.dat") + asset("five.dat"), "define-invalid 1:14"},
           Row{bank("a-b.tvb") + asset("four.dat"), "define-invalid 1:14", {"--prefix", "P"}},
           Row{bank("2b.tvb") + asset("four.dat"), "define-invalid 1:14"},
           Row{bank("2b.tvb") + asset("four.dat"), "", {"--prefix", "P"}},
           Row{bank("b.tvb") + asset("four.dat"), "define-invalid 1:14", {"--prefix", "2"}},
           Row{bank("in/b.tvb"), "define-invalid 1:14"},
           Row{bank("in/b.tvb"), "define-invalid 1:14", {"--prefix", "P"}},
           Row{bank("b.tvb"), "", {"--bank-dir", "in", "--header-dir", "in"}},
           Row{bank("b.tvb") + asset("four.dat") + asset("in\\four.dat"), "define-duplicate 3:11"},
           Row{bank("b.tvb") + asset("bank_data.size"), "define-duplicate 2:11"},
           Row{bank("b.tvb") + asset("bank_header.size"), "define-duplicate 2:11"},
           Row{bank("b_c.tvb") + asset("c.h"), "define-duplicate 2:11", {"--prefix", "_b"}},
           Row{bank("b_c.tvb") + asset("c.h"), "", {"--prefix", "b"}},
           Row{bank(stem76 + ".tvb"), ""},
           Row{bank(stem76 + "g.tvb"), "long-guard 1:14"},
           Row{bank("b.tvb") + "FxOutputBank five.dat AssetEnd\n" + asset("four.dat"),
               "unaligned 3:11"},
           Row{bank("b.tvb") + "FxOutputBank four.dat AssetEnd\n" + asset("five.dat"), ""},
           Row{bank("b.bin"), "bank-name 1:14"},
           Row{bank("b.c.tvb"), "bank-name 1:14"},
           Row{bank("b.tvb") + asset("four.dat") + asset("link.dat"), "same-file-twice 3:11"},
           Row{bank("b.tvb") + asset("four.dat") + asset("four.dat"),
               "define-duplicate 3:11 same-file-twice 3:11"},
           Row{bank("b.tvb"), "over-budget 1:14", {"--max-bytes", "31"}},
           Row{bank("b.tvb"), "", {"--max-bytes", "32"}},
           Row{bank("four.tvb") + asset("four.h"), "output-overlap 1:14 missing-file 2:11"},
           // Files that would be written over.
           Row{bank("s.txt") + asset("four.dat"), "output-overlap 1:14 bank-name 1:14"},
           Row{bank("four.dat") + asset("in\\x.dat"), "bank-name 1:14"},
           Row{bank("four.dat") + asset("link.dat"), "output-overlap 1:14 bank-name 1:14"},
           Row{bank("b.h") + asset("four.dat"), "output-overlap 1:14 bank-name 1:14"},
           Row{bank("b.h") + asset("four.dat"), "bank-name 1:14", {"--bank-dir", "in"}},
           Row{bank("b.h"),
               "output-overlap 1:14 bank-name 1:14",
               {"--bank-dir", "in", "--header-dir", "./in/../in/"}},
           Row{bank("b.tvb") + asset("s.txt"), "output-overlap 1:14"},
       }) {
    SCOPED_TRACE(row.script);
    EXPECT_EQ(check(row.script, row.options), row.problems);
    EXPECT_EQ(status_, output_.results.find("\"errors\": 0") == std::string::npos ? 1 : 0);
  }
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
    std::vector<std::string_view> codes;
  } rows[] = {{32768, 0, {}},
              {32769, 0, {"too-many-assets"}},
              {2, half, {}},
              {2, half + 4, {"bank-too-long"}},
              {3, 2 * half, {"bank-too-long"}}};
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
    std::vector<std::string_view> found;
    for (const Diagnostic& one : findings.sorted()) {
      found.push_back(one.code->name);
    }
    EXPECT_EQ(found, row.codes);
  }
}

}  // namespace
}  // namespace tavrel::kit
