#include "tests/support/expected_run.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>

namespace tavrel::test {
namespace {

// In the order of `Outcome`.
constexpr std::array<const char*, 5> kClosingLines{
    "Error: Failed to parse script...\n", "Error: Failed to write bank...\n",
    "Error: Failed to write header...\n", "Error: Failed to write header...\n", ""};

using FileContents = std::map<std::string, std::string>;

std::string replaced(std::string text, char from, char to) {
  std::replace(text.begin(), text.end(), from, to);
  return text;
}

FileContents allFiles(const TemporaryDirectory& folder) {
  FileContents files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path())) {
    if (entry.is_regular_file()) {
      const std::string name = entry.path().lexically_relative(folder.path()).generic_string();
      files[name] = folder.read(name);
    }
  }
  return files;
}

std::string bankFile(const ExpectedRun& expected) {
  return expected.bankPath + expected.bankName.value_or(expected.baseName + ".tvb");
}

std::string expectedOutput(const ExpectedRun& expected) {
  std::string lines = expectedBanner(expected) + expected.reading;
  if (expected.outcome >= Outcome::bankFails) {
    lines += "Writing Bank File: " + bankFile(expected) + "\n" + expected.writing;
  }
  if (expected.outcome >= Outcome::headerFails) {
    lines += "Writing Header File: " + expected.baseName + ".h\n";
  }
  return lines + (expected.outcome == Outcome::done ? "Done!\n" : "");
}

/// Long texts are compared without a diff, which would take more memory than a machine has.
void expectSame(const std::string& actual, const std::string& expected, const std::string& what) {
  if (actual.size() + expected.size() < 100000) {
    EXPECT_EQ(actual, expected) << what;
  } else {
    const auto place =
        std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
    EXPECT_TRUE(actual == expected) << what << " at byte " << place.first - actual.begin();
  }
}

void addWritten(FileContents& files, const ExpectedRun& expected, const std::string& stamp) {
  const std::string& base = expected.baseName;
  const ExpectedBank& bank = expected.bank;
  if (expected.outcome > Outcome::bankFails) {
    files[replaced(bankFile(expected), '\\', '/')] = bank.bytes();
  }
  if (expected.outcome == Outcome::done) {
    const std::string name = expected.headerPath + expected.headerName.value_or(base + ".h");
    files[replaced(name, '\\', '/')] =
        expectedHeader(base, expected.prefix.value_or(upperCased(base)), bank.dataSize(),
                       bank.headerSize(), expected.defines, stamp);
  }
}

}  // namespace

ExpectedRun& ExpectedRun::asset(const AssetKindRow& kind, const std::string& file,
                                const std::string& payload, const std::string& options,
                                const std::vector<std::int32_t>& parameters) {
  std::string name = file + (file.find('.') == std::string::npos ? "_" : "");
  name = replaced(name, '.', '_');
  *script += std::string(kind.keyword) + " " + file + " " + options + " AssetEnd\n";
  files[file] = payload;
  reading += kind.reading + file + "\n";
  writing += kind.writing + name + "\n";
  bank.asset(kind.type, payload, kind.pad, parameters);
  defines.push_back({upperCased(name), static_cast<int>(defines.size())});
  return *this;
}

void prepareRun(const TemporaryDirectory& folder, const ExpectedRun& expected) {
  for (const auto& [name, content] : expected.files) {
    std::filesystem::create_directories(std::filesystem::path(folder.path(name)).parent_path());
    if (!name.ends_with('/')) {
      folder.write(name, content);
    }
  }
  if (expected.script) {
    folder.write(expected.scriptFile, *expected.script);
  }
}

std::string expectedBanner(const ExpectedRun& expected) {
  const std::string rule = std::string(79, '-') + "\n";
  return rule + "Tavrel Audio Packager\nRevision 1.82 7/22/1999 5:36 pm\n\n" + "Script File:\t" +
         expected.scriptFile + "\nHeader Path:\t" + expected.headerPath + "\nBank Path:\t" +
         expected.bankPath + "\n" + rule;
}

void expectRun(const TemporaryDirectory& folder, const ExpectedRun& expected) {
  SCOPED_TRACE("arguments " + testing::PrintToString(expected.arguments) + ", script " +
               expected.script.value_or("missing").substr(0, 500));
  prepareRun(folder, expected);
  FileContents files = allFiles(folder);
  std::string stamp;
  ToolRun run;
  do {
    stamp = currentStamp();
    run = runTool(folder.path(), expected.arguments);
  } while (stamp != currentStamp());
  EXPECT_EQ(run.exitCode, expected.outcome == Outcome::done ? 0 : 1);
  expectSame(run.standardOutput, expectedOutput(expected), "standard output");
  EXPECT_EQ(run.standardError,
            expected.problems + kClosingLines.at(static_cast<std::size_t>(expected.outcome)));
  addWritten(files, expected, stamp);
  EXPECT_EQ(allFiles(folder).size(), files.size()) << "the run left files that nobody asked for";
  for (const auto& [name, content] : files) {
    expectSame(folder.read(name), content, name);
  }
}

void expectRun(const ExpectedRun& expected) { expectRun(TemporaryDirectory(), expected); }

}  // namespace tavrel::test
