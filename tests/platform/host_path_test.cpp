#include "platform/host_path.h"

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(HostPath, BackslashesBecomeSlashesOnlyIfTheFolderExists) {
  const TemporaryDirectory directory;
  const std::string folder = directory.path("");
  const bool usesSlashes = std::filesystem::path::preferred_separator == '/';
  std::filesystem::create_directories(directory.path("snd/deep"));
  directory.write("snd/file", "");
  directory.write(usesSlashes ? "snd\\own.wav" : "own.wav", "");
  for (const auto& [name, found] : {std::pair{"snd\\deep/..\\new.wav", "snd/deep/../new.wav"},
                                    {"snd\\own.wav", "snd\\own.wav"},
                                    {"no folder\\new.wav", "no folder\\new.wav"},
                                    {"snd\\file\\new.wav", "snd\\file\\new.wav"}}) {
    EXPECT_EQ(hostPath((folder + name).c_str()), folder + (usesSlashes ? found : name));
  }
  EXPECT_EQ(hostPath("\\new.wav"), usesSlashes ? "/new.wav" : "\\new.wav") << "in the root folder";
}

}  // namespace tavrel::test
