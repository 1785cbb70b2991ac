#include "fuzz/replace_build.h"

#include <vector>

#include "fuzz/input_parts.h"
#include "fuzz/small_build.h"
#include "fuzz/work_directory.h"

namespace tavrel::fuzz {

std::string replaceBuild(std::string_view input) {
  static const std::vector<SmallFile> smallFiles = smallBuild();
  WorkDirectory::removeFiles();
  for (const SmallFile& file : smallFiles) {
    WorkDirectory::write(file.name.c_str(), file.content);
  }
  std::string script = confined(cutOff(input));
  WorkDirectory::write("s.txt", script);
  WorkDirectory::write("w.wav", cutOff(input));
  WorkDirectory::write("f.aif", cutOff(input));
  WorkDirectory::write("m.mid", input);
  return script;
}

}  // namespace tavrel::fuzz
