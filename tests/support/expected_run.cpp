#include "tests/support/expected_run.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>

namespace tavrel::test {
namespace {

using FileContents = std::map<std::string, std::string>;

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

std::string withSlashes(std::string name) {
  std::replace(name.begin(), name.end(), '\\', '/');
  return name;
}

std::string expectedOutput(const ExpectedRun& expected) {
  std::string lines = expectedBanner(expected) + expected.reading;
  if (expected.outcome >= Outcome::bankFails) {
    lines += "Writing Bank File: " + expected.bankPath + expected.bankName + "\n";
    lines += expected.writing;
  }
  if (expected.outcome >= Outcome::headerFails) {
    lines += "Writing Header File: " + expected.baseName + ".h\n";
  }
  return lines + (expected.outcome == Outcome::done ? "Done!\n" : "");
}

std::string closingLine(Outcome outcome) {
  switch (outcome) {
    case Outcome::parseFails:
      return "Error: Failed to parse script...\n";
    case Outcome::bankFails:
      return "Error: Failed to write bank...\n";
    case Outcome::headerFails:
      return "Error: Failed to write header...\n";
    default:
      return "";
  }
}

void addWritten(FileContents& files, const ExpectedRun& expected, const std::string& stamp) {
  if (expected.outcome >= Outcome::headerFails) {
    files[withSlashes(expected.bankPath + expected.bankName)] = expected.bank.bytes();
  }
  if (expected.outcome == Outcome::done) {
    files[withSlashes(expected.headerPath + expected.headerName)] =
        expectedHeader(expected.baseName, expected.prefix, expected.bank.dataSize(),
                       expected.bank.headerSize(), expected.defines, stamp);
  }
}

}  // namespace

std::string expectedBanner(const ExpectedRun& expected) {
  const std::string rule = std::string(79, '-') + "\n";
  return rule + "Tavrel Audio Packager\nRevision 1.82 7/22/1999 5:36 pm\n\n" + "Script File:\t" +
         expected.scriptFile + "\nHeader Path:\t" + expected.headerPath + "\nBank Path:\t" +
         expected.bankPath + "\n" + rule;
}

void expectRun(const TemporaryDirectory& folder, const ExpectedRun& expected,
               const ToolRunOptions& options) {
  SCOPED_TRACE("arguments: " + testing::PrintToString(expected.arguments));
  FileContents files = allFiles(folder);
  std::string stamp;
  ToolRun run;
  do {
    stamp = currentStamp();
    run = runTool(folder.path(), expected.arguments, options);
  } while (stamp != currentStamp());
  EXPECT_EQ(run.exitCode, expected.outcome == Outcome::done ? 0 : 1);
  EXPECT_EQ(run.standardOutput, expectedOutput(expected));
  EXPECT_EQ(run.standardError, expected.problems + closingLine(expected.outcome));
  addWritten(files, expected, stamp);
  EXPECT_EQ(allFiles(folder).size(), files.size()) << "the run left files that nobody asked for";
  for (const auto& [name, content] : files) {
    EXPECT_EQ(folder.read(name), content) << name;
  }
}

}  // namespace tavrel::test
