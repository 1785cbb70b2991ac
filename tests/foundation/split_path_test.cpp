#include "foundation/split_path.h"

#include <gtest/gtest.h>

namespace tavrel::test {

TEST(SplitPath, TakesNamesApartAtBothSlashesAndTheLastDot) {
  std::string parts;
  for (const char* text : {"c:\\s\\b.wav", "c:b.wav", "s\\a/b.wav", "a/b\\c", "s.x\\b", "s\\", "b.",
                           ".wav", "b.old.wav", "b.sample", "\\b.wav", "/b.wav", ""}) {
    SplitPath path(text);
    parts += path.getStem() + std::string(" in ") + path.getFullPath() + ", ";
  }
  EXPECT_EQ(parts,
            "b in c:\\s\\b.wav, c:b in c:b.wav, b in s\\a/b.wav, c in a/b\\c, b in s.x\\b, "
            " in s\\, b in b,  in .wav, b.old in b.old.wav, b in b.sam, b in \\b.wav, "
            "/b in /b.wav,  in , ");
  SplitPath path(nullptr);
  EXPECT_TRUE(path.setDirectory("a/") && path.setStem("b") && path.setExtension("film"));
  EXPECT_FALSE(path.parse(nullptr) || path.setStem(nullptr));
  EXPECT_EQ(path.getFullPath() + std::string(path.getNameWithExtension()), "a/b.filmb.film");
}

}  // namespace tavrel::test
