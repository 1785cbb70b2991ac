#include "platform/host_path.h"

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

constexpr bool kUsesSlashes = std::filesystem::path::preferred_separator == '/';

TEST(HostPath, BackslashesBecomeSlashesOnlyIfTheFolderExists) {
  const TemporaryDirectory directory;
  const std::string folder = directory.path("");
  std::filesystem::create_directories(directory.path("snd/deep"));
  directory.write("snd/file", "");
  directory.write(kUsesSlashes ? "snd\\own.wav" : "own.wav", "");
  for (const auto& [name, found] : {std::pair{"snd\\deep/..\\new.wav", "snd/deep/../new.wav"},
                                    {"snd\\own.wav", "snd\\own.wav"},
                                    {"no folder\\new.wav", "no folder\\new.wav"},
                                    {"snd\\file\\new.wav", "snd\\file\\new.wav"}}) {
    EXPECT_EQ(hostPath((folder + name).c_str()), folder + (kUsesSlashes ? found : name));
  }
  EXPECT_EQ(hostPath("\\new.wav"), kUsesSlashes ? "/new.wav" : "\\new.wav") << "in the root folder";
}

TEST(HostPath, HasADriveWhereThereAreDrives) {
  for (const auto& [path, hasOne] :
       {std::pair("C:x", true), {"C:", true}, {"C", false}, {":", false}, {"ab:c", false}}) {
    EXPECT_EQ(hasDrive(path), hasOne && !kUsesSlashes) << path;
  }
}

}  // namespace tavrel::test
