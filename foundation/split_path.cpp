#include "foundation/split_path.h"

#include <new>
#include <string_view>

namespace tavrel {

namespace {

constexpr std::string_view kSeparators = "\\/";
constexpr std::size_t kLongestExtension = 3;
constexpr std::size_t kNone = std::string_view::npos;

/// Returns where the name starts. A slash at the very start ends no directory; a backslash does.
std::size_t nameStart(std::string_view text, std::size_t lastSeparator) {
  if (lastSeparator != kNone && lastSeparator > 0) {
    return lastSeparator + 1;
  }
  return text.starts_with('\\') ? 1 : 0;
}

bool assign(std::string& part, const char* text) {
  if (text == nullptr) {
    return false;
  }
  try {
    part = text;
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

/// Joins the parts in `whole` and returns its text, which is empty if memory runs out.
const char* join(std::string& whole, std::string_view directory, std::string_view stem,
                 std::string_view extension) {
  whole.clear();
  try {
    whole.append(directory).append(stem);
    if (!extension.empty()) {
      whole.append(".").append(extension);
    }
  } catch (const std::bad_alloc&) {
    whole.clear();
  }
  return whole.c_str();
}

}  // namespace

SplitPath::SplitPath(const char* text) { parse(text); }

bool SplitPath::parse(const char* text) {
  if (text == nullptr) {
    return false;
  }
  const std::string_view all = text;
  const std::size_t separator = all.find_last_of(kSeparators);
  const std::size_t dot = all.rfind('.');
  const bool hasExtension = dot != kNone && (separator == kNone || dot > separator);
  const std::size_t start = nameStart(all, separator);
  const std::size_t end = hasExtension ? dot : all.size();
  try {
    std::string newStem(all.substr(start, end - start));
    std::string newExtension(hasExtension ? all.substr(dot + 1, kLongestExtension) : "");
    std::string newDirectory(all.substr(0, start));
    stem_.swap(newStem);
    extension_.swap(newExtension);
    directory_.swap(newDirectory);
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

const char* SplitPath::getFullPath() { return join(fullPath_, directory_, stem_, extension_); }

const char* SplitPath::getNameWithExtension() {
  return join(nameWithExtension_, "", stem_, extension_);
}

const char* SplitPath::getStem() const { return stem_.c_str(); }

bool SplitPath::setStem(const char* text) { return assign(stem_, text); }

bool SplitPath::setExtension(const char* text) { return assign(extension_, text); }

bool SplitPath::setDirectory(const char* text) { return assign(directory_, text); }

}  // namespace tavrel
