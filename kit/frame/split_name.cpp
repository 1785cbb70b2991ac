#include "kit/frame/split_name.h"

#include <new>

#include "foundation/file_name.h"
#include "kit/frame/required_text.h"

namespace tavrel::kit {

SplitName splitName(const std::string& path) {
  FileName file;
  if (!file.splitNameAndPath(path.c_str())) {
    throw std::bad_alloc();
  }
  return {.stem = requiredText(file.getNameOnly()),
          .extension = requiredText(file.getExtensionOnly())};
}

}  // namespace tavrel::kit
