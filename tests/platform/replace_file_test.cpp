#include "platform/replace_file.h"

#include <chrono>
#include <cstdlib>
#include <thread>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

namespace fs = std::filesystem;
using enum Existing;
using enum std::errc;

class ReplaceFile : public testing::Test {
 protected:
  /// Replaces a file by one of the content "new", as a program would, up to the first error.
  [[nodiscard]] std::error_code replace(const std::string& name, Existing existing) const {
    ReplacementFile file;
    std::error_code error = file.createNew(directory_.path(name), existing);
    for (const std::string piece : {"n", "", "ew"}) {
      error = error ? error : file.write(piece.data(), piece.size());
    }
    error = error ? error : file.flushToDisk();
    return error ? error : file.replaceFile();
  }
  [[nodiscard]] std::ptrdiff_t fileCount() const {
    return std::distance(fs::directory_iterator(directory_.path()), {});
  }

  const TemporaryDirectory directory_;
};

TEST_F(ReplaceFile, ReplacesFilesAndNothingElse) {
  directory_.write("there", "old");
  fs::create_directory(directory_.path("folder"));
  EXPECT_EQ(replace("there", refuse), file_exists);
  EXPECT_EQ(replace("folder", refuse), file_exists);
  EXPECT_EQ(replace("folder", Existing::replace), is_a_directory);
  EXPECT_EQ(replace("folder", followLink), is_a_directory);
  EXPECT_EQ(replace("missing/file", refuse), no_such_file_or_directory);
  EXPECT_EQ(replace("missing/file", followLink), no_such_file_or_directory);
  EXPECT_EQ(directory_.read("there"), "old");
  for (const auto& [name, existing] : {std::pair("there", Existing::replace),
                                       {"other", Existing::replace},
                                       {"folder/file", refuse},
                                       {"folder/other", followLink}}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(replace(name, existing), std::error_code());
    EXPECT_EQ(directory_.read(name), "new");
  }
  EXPECT_EQ(fileCount(), 3) << "a temporary file is left";
}

TEST_F(ReplaceFile, ReadOnlyFilesAreReplacedOrLeftAlone) {
  directory_.write("out", "old");
  fs::permissions(directory_.path("out"), fs::perms(0444));
  const std::error_code error = replace("out", Existing::replace);  // fails on some hosts
  EXPECT_TRUE(!error || error == permission_denied) << error.message();
  EXPECT_EQ(directory_.read("out"), error ? "old" : "new");
  EXPECT_EQ(fileCount(), 1);
  fs::permissions(directory_.path("out"), fs::perms(0644));
}

TEST_F(ReplaceFile, RefusesAFileThatAppearsMeanwhile) {
  ReplacementFile file;
  ASSERT_FALSE(file.createNew(directory_.path("out"), refuse));
  directory_.write("out", "old");
  ASSERT_FALSE(file.flushToDisk());
  EXPECT_EQ(file.replaceFile(), file_exists);
  EXPECT_EQ(directory_.read("out"), "old");
}

TEST_F(ReplaceFile, TemporaryFileIsWrittenByNameAndDiscarded) {
  ReplacementFile file;
  ASSERT_FALSE(file.createNew(directory_.path("out"), followLink));
  directory_.write(fs::path(file.temporaryPath()).filename().string(), "by name");
  ReplacementFile other;
  ASSERT_FALSE(other.createNew(directory_.path("out"), followLink));
  EXPECT_EQ(fileCount(), 2);
  other.discard();
  EXPECT_EQ(other.write("x", 1), bad_file_descriptor);
  ASSERT_FALSE(file.flushToDisk());
  ASSERT_FALSE(file.replaceFile());
  EXPECT_EQ(file.temporaryPath(), "");
  EXPECT_EQ(fileCount(), 1);
  EXPECT_EQ(directory_.read("out"), "by name");
  EXPECT_EQ(file.write("x", 1), bad_file_descriptor);
}

TEST_F(ReplaceFile, OldFileStaysWholeWhileItIsOpen) {
  directory_.write("out", "old");
  std::ifstream reader(directory_.path("out"));
  const std::error_code error = replace("out", Existing::replace);  // fails on some hosts
  EXPECT_EQ(directory_.read("out"), error ? "old" : "new");
  EXPECT_EQ(fileCount(), 1);
  std::thread closing([&reader] {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    reader.close();
  });
  EXPECT_EQ(replace("out", Existing::replace), std::error_code());
  closing.join();
  EXPECT_EQ(directory_.read("out"), "new");
}

TEST_F(ReplaceFile, FollowsOrReplacesLinksAndKeepsModes) {
  std::error_code unsupported;
  fs::create_symlink("folder/target", directory_.path("link"), unsupported);
  if (unsupported) {
    GTEST_SKIP() << "no links on this host";
  }
  const auto isLink = [this] { return fs::is_symlink(directory_.path("link")); };
  const auto mode = [this](const char* name) {
    return static_cast<int>(fs::status(directory_.path(name)).permissions());
  };
  fs::create_directory(directory_.path("folder"));
  EXPECT_EQ(replace("link", refuse), file_exists);
  ASSERT_FALSE(replace("link", followLink));  // makes its target
  EXPECT_TRUE(isLink());
  EXPECT_EQ(directory_.read("folder/target"), "new");

  directory_.write("plain", "");
  const int modeOfNewFiles = mode("plain");
  EXPECT_EQ(mode("folder/target"), modeOfNewFiles);
  for (const int kept : {0600, 0666}) {
    fs::permissions(directory_.path("folder/target"), fs::perms(kept));
    ASSERT_FALSE(replace("link", followLink));
    EXPECT_EQ(mode("folder/target"), kept);
  }

  fs::permissions(directory_.path("folder/target"), fs::perms(0444));
  EXPECT_EQ(replace("link", followLink), permission_denied);
  ASSERT_FALSE(replace("link", Existing::replace));
  EXPECT_FALSE(isLink());
  EXPECT_EQ(mode("link"), modeOfNewFiles);

  for (int length = 1; length <= 40; ++length) {
    const std::string next = length == 1 ? "plain" : std::to_string(length - 1);
    fs::create_symlink(next, directory_.path(std::to_string(length)));
  }
  EXPECT_EQ(replace("39", followLink), std::error_code());
  EXPECT_EQ(replace("40", followLink), too_many_symbolic_link_levels);
  fs::create_symlink("loop", directory_.path("loop"));
  EXPECT_EQ(replace("loop", followLink), too_many_symbolic_link_levels);
  // Not the function, which a host without links may not have either.
  ASSERT_EQ(std::system(("mkfifo '" + directory_.path("pipe") + "'").c_str()), 0);
  EXPECT_EQ(replace("pipe", followLink), not_supported);
}

}  // namespace tavrel::test
