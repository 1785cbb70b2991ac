#include "platform/host_path.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(HostPathTest, TellsFilesFoldersAndDevicesApart) {
  TemporaryDirectory directory;
  EXPECT_EQ(pathKind(directory.path("a").c_str()), PathKind::missing);
  EXPECT_EQ(pathKind(directory.write("a", "").c_str()), PathKind::file);
  EXPECT_EQ(pathKind(directory.path().c_str()), PathKind::directory);
  if (std::filesystem::is_character_file("/dev/zero")) {
    EXPECT_EQ(pathKind("/dev/zero"), PathKind::other);
  }
}

TEST(HostPathTest, BackslashesBecomeSlashesOnlyWhereThatLeadsSomewhere) {
  if (std::filesystem::path::preferred_separator != '/') {
    EXPECT_EQ(hostPath("\\new.wav"), "\\new.wav");
    return;
  }
  TemporaryDirectory directory;
  std::filesystem::create_directories(directory.path("snd/deep"));
  directory.write("snd\\own.wav", "");
  const std::string folder = directory.path("");
  for (const char* name :
       {"snd\\new.wav", "snd\\deep/new.wav", "snd\\deep\\..\\new.wav", "a.wav"}) {
    std::string slashes = folder + name;
    std::replace(slashes.begin(), slashes.end(), '\\', '/');
    EXPECT_EQ(hostPath((folder + name).c_str()), slashes);
  }
  for (const char* name : {"snd\\own.wav", "no folder\\new.wav", "snd\\own.wav\\new.wav"}) {
    EXPECT_EQ(hostPath((folder + name).c_str()), folder + name);
  }
  EXPECT_EQ(hostPath("\\new.wav"), "/new.wav") << "in the root folder";
}

}  // namespace tavrel::test
