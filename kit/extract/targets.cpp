#include "kit/extract/targets.h"

#include <fmt/format.h>

#include <filesystem>

#include "kit/check/run_file.h"
#include "kit/frame/failure.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace fs = std::filesystem;

void checkTarget(const std::string& path, const NamedBank& bank, bool replaces) {
  std::error_code ignored;
  const fs::file_status status = fs::symlink_status(path, ignored);
  if (!fs::exists(status)) {
    return;
  }
  if (!replaces) {
    throw Failure(fmt::format("{} exists already; --force replaces it", path));
  }
  if (!fs::is_regular_file(status) && !fs::is_symlink(status)) {
    throw Failure(fmt::format("can't replace {}: it isn't a file", path));
  }
  if (fs::is_regular_file(status) && (isSameFile(path, hostPath(bank.file.path.c_str())) ||
                                      isSameFile(path, hostPath(bank.headerPath.c_str())))) {
    throw Failure(fmt::format("can't replace {}: it is the bank or its header", path));
  }
}

}  // namespace tavrel::kit
