#include "kit/frame/split_name.h"

#include "foundation/file_name.h"
#include "kit/frame/required_text.h"

namespace tavrel::kit {

SplitName splitName(const std::string& path) {
  FileName file;
  file.splitNameAndPath(path.c_str());
  return {.stem = requiredText(file.getNameOnly()),
          .extension = requiredText(file.getExtensionOnly())};
}

}  // namespace tavrel::kit
