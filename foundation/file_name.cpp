#include "foundation/file_name.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <utility>

#include "foundation/console.h"
#include "platform/console_input.h"

namespace tavrel {

namespace {

constexpr std::string_view kExtensionMargin("\0\0\0\0\0", 1 + 4);  // a dot, four characters
constexpr std::size_t kLongestExtension = 5;
constexpr std::size_t kExtensionSearch = 4;  // how far from its end a name's dot counts

/// Returns the length of `name` without the extension that `changeExtension` replaces and its dot.
std::size_t lengthWithoutExtension(std::string_view name) {
  for (std::size_t back = 1; back <= kExtensionSearch && back <= name.size(); ++back) {
    const char character = name[name.size() - back];
    if (character == '.') {
      return name.size() - back;
    }
    if (character == '\\' || character == '/') {
      break;
    }
  }
  return name.size();
}

/// Prints a format with one or two addresses.
void printAddress(const char* format, const void* first, const void* second = nullptr) {
  std::array<char, 128> text{};
  std::snprintf(text.data(), text.size(), format, first, second);
  printUnterminated(stdout, text.data());
}

void dumpText(const char* label, const char* addressFormat, const OwnedText& text) {
  if (text) {
    printLine(stdout, label, text.get());
    printAddress(addressFormat, text.get());
  }
}

}  // namespace

FileName::FileName(const char* newName) { setName(newName); }

FileName::FileName(const char* newName, const char* newPath) {
  setName(newName);
  setPath(newPath);
}

void FileName::clear() {
  name.reset();
  path.reset();
  nameAndPath_.reset();
  nameOnly_.reset();
  extensionOnly_.reset();
}

bool FileName::replace(OwnedText& text, std::string_view newText, std::string_view margin) {
  text = makeText(newText, margin);
  if (!text) {
    error = kOutOfMemory;
  }
  return text != nullptr;
}

bool FileName::setName(const char* text) {
  if (text == nullptr) {
    name.reset();
    error = kOutOfMemory;
    return false;
  }
  nameCapacity_ = std::strlen(text) + kExtensionMargin.size();
  return replace(name, text, kExtensionMargin);
}

bool FileName::setPath(const char* text) {
  if (text == nullptr) {
    path.reset();
    error = kOutOfMemory;
    return false;
  }
  return replace(path, text);
}

bool FileName::splitNameAndPath(const char* text) {
  const std::string_view fullName = text != nullptr ? text : "";
  const std::size_t backslash = fullName.rfind('\\');
  const std::size_t nameStart = backslash == std::string_view::npos ? 0 : backslash + 1;
  // Copied before `clear`: the text may be one of this object's own.
  OwnedText newName = makeText(fullName.substr(nameStart));
  OwnedText newPath = makeText(fullName.substr(0, nameStart));
  clear();
  if (text == nullptr || !newName || !newPath) {
    error = kOutOfMemory;
    return false;
  }
  nameCapacity_ = std::strlen(newName.get());
  name = std::move(newName);
  path = std::move(newPath);
  return true;
}

bool FileName::changeExtension(const char* extension) {
  const std::size_t stem = lengthWithoutExtension(textOrEmpty(name));
  if (!name || extension == nullptr || stem + 1 + std::strlen(extension) > nameCapacity_) {
    return true;
  }
  name[stem] = '.';
  std::strcpy(name.get() + stem + 1, extension);
  return true;
}

const char* FileName::getNameAndPath() {
  if (!path && !setPath("")) {
    return nullptr;
  }
  if (!name) {
    error = kOutOfMemory;
    return nullptr;
  }
  nameAndPath_ = makeText(path.get(), name.get());
  if (!nameAndPath_) {
    error = kOutOfMemory;
  }
  return nameAndPath_.get();
}

const char* FileName::getNameOnly() {
  const std::string_view whole = textOrEmpty(name);
  replace(nameOnly_, whole.substr(0, whole.find('.')));
  return nameOnly_.get();
}

const char* FileName::getExtensionOnly() {
  const std::string_view whole = textOrEmpty(name);
  const std::size_t dot = whole.find('.');
  if (dot == std::string_view::npos) {
    return &noName_;
  }
  replace(extensionOnly_, whole.substr(dot + 1, kLongestExtension));
  return extensionOnly_.get();
}

bool FileName::dump() const {
  const std::string_view border =
      "****************************************************************************";
  printLine(stdout, border);
  printAddress("This: %p\n", this);
  if (name) {
    printLine(stdout, "name: ", name.get());
    printAddress("name is at: %p the pointer is at: %p\n", name.get(), this);
  }
  dumpText("path: ", "path is at: %p\n", path);
  dumpText("nameAndPath: ", "nameAndPath is at: %p\n", nameAndPath_);
  dumpText("nameOnly: ", "nameOnly is at: %p\n", nameOnly_);
  dumpText("extensionOnly: ", "extensionOnly is at: %p\n", extensionOnly_);
  printLine(stdout, border);
  printLine(stdout, "Any key...");
  takeOneCharacter();
  return true;
}

}  // namespace tavrel
