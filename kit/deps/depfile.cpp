#include "kit/deps/depfile.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "kit/frame/ascii.h"
#include "kit/frame/failure.h"

namespace tavrel::kit {

namespace {

// Make reads some of these as syntax even after a backslash, and ninja the others as the end of the
// name. No way to write them is common to both.
constexpr std::string_view kRefused = "\"'&*;<=>?[^`|";
constexpr std::string_view kRefusedAtEnd = ")\\: ";
constexpr std::string_view kRefusedAfterBackslash = " #:$";

/// Returns true for a name that changes how make works, as a target or in the first place after
/// one.
bool isWordOfMake(std::string_view name) {
  constexpr std::string_view kCapitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ_";
  const bool isSpecialTarget = name.size() > 1 && name[0] == '.' &&
                               name.find_first_not_of(kCapitals, 1) == std::string_view::npos;
  return isSpecialTarget || name == "define" || name == "undefine";
}

/// Returns what make or ninja would read differently, or nothing.
std::string faultOf(std::string_view name, std::string_view refused) {
  if (name.empty()) {
    return "no characters";
  }
  if (std::any_of(name.begin(), name.end(), isControl)) {
    return "a control character";
  }
  if (const std::size_t found = name.find_first_of(refused); found != std::string_view::npos) {
    return fmt::format("the character {}", name[found]);
  }
  if (name.front() == '~') {
    return "a ~ at its start";
  }
  if (kRefusedAtEnd.find(name.back()) != std::string_view::npos) {
    return fmt::format("\"{}\" at its end", name.back());
  }
  for (std::size_t i = 0; i + 1 < name.size(); ++i) {
    if (name[i] == '\\' && kRefusedAfterBackslash.find(name[i + 1]) != std::string_view::npos) {
      return fmt::format("a backslash before \"{}\"", name[i + 1]);
    }
  }
  return isWordOfMake(name) ? "a meaning for make" : "";
}

/// Returns a name as make and ninja read it.
std::string escaped(const std::string& name, std::string_view refused = kRefused) {
  const std::string fault = faultOf(name, refused);
  if (!fault.empty()) {
    throw Failure(fmt::format(
        "the name \"{}\" has {}, and make and ninja can't both read it in a depfile", name, fault));
  }
  std::string text;
  for (const char c : name) {
    if (c == '$') {
      text += '$';
    } else if (c == ' ' || c == '#' || c == ':') {
      text += '\\';
    }
    text += c;
  }
  return text;
}

}  // namespace

std::string depfileText(const std::string& target, const std::string& script,
                        const std::vector<std::string>& assets) {
  const std::string refusedInTarget = std::string(kRefused) + '%';
  std::string rule = fmt::format("{}: \\\n  {}", escaped(target, refusedInTarget), escaped(script));
  std::string emptyRules;
  for (const std::string& asset : assets) {
    const std::string name = escaped(asset);
    rule += " \\\n  " + name;
    if (asset.find('%') == std::string::npos) {
      emptyRules += '\n' + name + ":\n";
    }
  }
  return rule + '\n' + emptyRules;
}

}  // namespace tavrel::kit
