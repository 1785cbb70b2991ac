#include "kit/check/folder_names.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "foundation/text_utilities.h"
#include "kit/frame/nearest.h"
#include "kit/frame/source_file.h"
#include "platform/file_identity.h"
#include "platform/folder.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

namespace fs = std::filesystem;

std::string stemOf(std::string_view name) { return std::string(name.substr(0, name.rfind('.'))); }

std::string partInOtherCase(std::string_view name, const std::vector<std::string>& names) {
  const std::string wanted(name);
  const auto found = std::find_if(names.begin(), names.end(), [&wanted](const std::string& one) {
    return equalsIgnoringCase(one.c_str(), wanted.c_str());
  });
  return found == names.end() ? "" : *found;
}

std::string onlyPartInOtherCase(std::string_view name, const std::vector<std::string>& names) {
  const std::string wanted(name);
  const auto count = std::count_if(names.begin(), names.end(), [&wanted](const std::string& one) {
    return equalsIgnoringCase(one.c_str(), wanted.c_str());
  });
  return count == 1 ? partInOtherCase(name, names) : "";
}

/// Returns the nearest name, or one that differs only in its extension.
std::string nearestPart(std::string_view name, const std::vector<std::string>& names) {
  std::string best = nearest(name, names);
  if (!best.empty()) {
    return best;
  }
  const std::string stem = stemOf(name);
  const auto sameStem = std::find_if(names.begin(), names.end(), [&stem](const std::string& one) {
    return equalsIgnoringCase(stemOf(one).c_str(), stem.c_str());
  });
  return sameStem == names.end() ? "" : *sameStem;
}

std::string noOtherPart(std::string_view /*name*/, const std::vector<std::string>& /*names*/) {
  return "";
}

/// Returns true if the host finds the same file under a name whose letters have the other case.
bool isFoundInOtherCase(const std::string& path) {
  const std::string exchanged = inOtherCase(path);
  std::error_code failed;
  return exchanged != path && fs::equivalent(exchanged, path, failed);
}

}  // namespace

const std::vector<std::string>& FolderNames::namesIn(const std::string& folder) {
  const auto [place, isNew] = folders_.try_emplace(folder);
  std::vector<std::string>& names = place->second;
  if (isNew) {
    const std::string path = folder.empty() ? "." : hostPath(folder.c_str());
    listFolder(path.c_str(), names);
  }
  return names;
}

std::string FolderNames::replaceParts(const std::string& name, Choose choose) {
  std::string result;
  for (std::size_t start = 0; start < name.size();) {
    const std::size_t end = std::min(name.find_first_of("/\\", start), name.size());
    const std::string part = name.substr(start, end - start);
    const std::vector<std::string>& names = namesIn(result);
    const bool isThere = part.empty() || part == "." || part == ".." || part.back() == ':' ||
                         std::binary_search(names.begin(), names.end(), part);
    compared_ += isThere ? 0 : names.size();
    const std::string chosen = isThere ? part : choose(part, names);
    if (chosen.empty() && !part.empty()) {
      return "";
    }
    result += chosen + name.substr(end, 1);
    start = end + 1;
  }
  return result;
}

std::string FolderNames::nearestName(const std::string& name) {
  constexpr std::uint64_t kMostCompared = 2'000'000;  // which takes a second
  std::string found = compared_ < kMostCompared ? replaceParts(name, nearestPart) : "";
  return kindUnder(found) == PathKind::file ? found : "";
}

std::string FolderNames::onlyOtherCase(const std::string& name) {
  std::string found = replaceParts(name, onlyPartInOtherCase);
  return kindUnder(found) == PathKind::file ? found : "";
}

bool FolderNames::has(const std::string& name) {
  const std::vector<std::string>& names = namesIn("");
  return std::binary_search(names.begin(), names.end(), name);
}

std::string FolderNames::spelling(const std::string& name) {
  // Most names are right, and looking into folders that are listed already takes no system call.
  if (replaceParts(name, noOtherPart) == name) {
    return name;
  }
  if (!isFoundInOtherCase(hostPath(name.c_str()))) {
    return name;
  }
  std::string found = replaceParts(name, partInOtherCase);
  return found.empty() ? name : found;
}

}  // namespace tavrel::kit
