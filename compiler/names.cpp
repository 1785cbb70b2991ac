#include "compiler/names.h"

#include <algorithm>
#include <initializer_list>
#include <span>

#include "foundation/text_utilities.h"

namespace tavrel {

namespace {

/// Joins the parts in `text` and terminates it. Returns false, with `text` unchanged, if there is
/// no room.
bool join(std::initializer_list<std::string_view> parts, std::span<char> text) {
  std::size_t length = 0;
  for (const std::string_view part : parts) {
    length += part.size();
  }
  if (length >= text.size()) {
    return false;
  }
  char* end = text.data();
  for (const std::string_view part : parts) {
    end = std::copy(part.begin(), part.end(), end);
  }
  *end = '\0';
  return true;
}

}  // namespace

void nameHeader(FileName& header, const char* bankName) {
  header.setName(bankName);
  header.changeExtension("h");
}

bool assetName(std::string_view stem, std::string_view extension, AssetData::Name& name) {
  return join({stem, "_", extension}, name);
}

bool guardName(std::string_view baseName, Guard& guard) {
  return join({"_", baseName, "_H"}, guard) && toUpper(guard.data());
}

void changeToDefine(char* assetName) {
  toUpper(assetName);
  replaceChar(assetName, '~', '_');
}

std::string defineName(std::string prefix, std::string name) {
  toUpper(prefix.data());
  changeToDefine(name.data());
  return prefix.append("_").append(name);
}

}  // namespace tavrel
