#include "kit/bank/asset_choice.h"

#include <fmt/format.h>

#include <optional>
#include <set>
#include <unordered_map>

#include "kit/frame/ascii.h"
#include "kit/frame/failure.h"
#include "kit/frame/nearest.h"
#include "kit/frame/whole_number.h"

namespace tavrel::kit {

namespace {

/// Finds assets by their defines, in small letters. Different assets can have the same one.
class DefineIndex {
 public:
  explicit DefineIndex(const NamedBank& bank) {
    for (std::uint32_t id = 0; id < bank.assets().size(); ++id) {
      if (!bank.defines[id].empty()) {
        whole_.emplace(lowered(bank.defines[id]), id);
        short_.emplace(lowered(defineWithoutPrefix(bank, id)), id);
      }
    }
  }

  [[nodiscard]] std::vector<std::uint32_t> find(const std::string& define) const {
    const std::vector<std::uint32_t> ids = find(whole_, define);
    return ids.empty() ? find(short_, define) : ids;
  }

 private:
  using Index = std::unordered_multimap<std::string, std::uint32_t>;

  static std::vector<std::uint32_t> find(const Index& index, const std::string& define) {
    std::vector<std::uint32_t> ids;
    const auto [first, end] = index.equal_range(lowered(define));
    for (auto found = first; found != end; ++found) {
      ids.push_back(found->second);
    }
    return ids;
  }

  Index whole_;
  Index short_;
};

[[noreturn]] void failUnknown(const NamedBank& bank, const std::string& word) {
  std::vector<std::string> candidates = bank.defines;
  for (std::uint32_t id = 0; id < bank.assets().size(); ++id) {
    candidates.emplace_back(defineWithoutPrefix(bank, id));
  }
  throw Failure(
      fmt::format("{} has no asset {}{}", bank.file.path, word, didYouMean(word, candidates)));
}

}  // namespace

std::string_view defineWithoutPrefix(const NamedBank& bank, std::uint32_t id) {
  std::string_view define = bank.defines[id];
  const std::string_view prefix = bank.header ? std::string_view(bank.header->prefix) : "";
  if (define.size() > prefix.size() && define.starts_with(prefix) && define[prefix.size()] == '_') {
    define.remove_prefix(prefix.size() + 1);
  }
  return define;
}

std::vector<std::uint32_t> chosenAssets(const NamedBank& bank,
                                        const std::vector<std::string>& words) {
  const auto count = static_cast<std::uint32_t>(bank.assets().size());
  const DefineIndex index(bank);
  std::set<std::uint32_t> chosen;
  for (const std::string& word : words) {
    const auto id = wholeNumber(word);  // extracted files have zeros before it
    if (id && *id < count) {
      chosen.insert(*id);
      continue;
    }
    const std::vector<std::uint32_t> ids = index.find(word);
    if (ids.empty()) {
      failUnknown(bank, word);
    }
    chosen.insert(ids.begin(), ids.end());
  }
  for (std::uint32_t id = 0; words.empty() && id < count; ++id) {
    chosen.insert(id);
  }
  return {chosen.begin(), chosen.end()};
}

}  // namespace tavrel::kit
