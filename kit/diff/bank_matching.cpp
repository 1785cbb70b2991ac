#include "kit/diff/bank_matching.h"

#include <list>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "kit/bank/blob_content.h"

namespace tavrel::kit {

namespace {

class Matching {
 public:
  Matching(NamedBank& older, NamedBank& newer)
      : old_{older, std::vector<bool>(older.assets().size())},
        new_{newer, std::vector<bool>(newer.assets().size())},
        pairs_(older.assets().size()) {}

  /// An asset that has no define takes no part.
  void matchByDefine() {
    std::map<std::string_view, std::list<std::uint32_t>> idsByDefine;
    for (const std::uint32_t id : new_.unmatched()) {
      idsByDefine[new_.bank.defines[id]].push_back(id);
    }
    idsByDefine.erase("");
    for (const std::uint32_t oldId : old_.unmatched()) {
      const auto found = idsByDefine.find(old_.bank.defines[oldId]);
      if (found != idsByDefine.end() && !found->second.empty()) {
        match(oldId, found->second.front(), false);
        found->second.pop_front();
      }
    }
  }

  /// Reads only blobs of a size that is left over in both banks.
  void matchByContent() {
    const std::set<std::uint32_t> oldSizes = old_.unmatchedSizes();
    const std::set<std::uint32_t> newSizes = new_.unmatchedSizes();
    std::map<Content, std::list<std::uint32_t>> idsByContent;
    for (const std::uint32_t id : new_.unmatched()) {
      if (oldSizes.contains(new_.asset(id).size)) {
        idsByContent[new_.content(id)].push_back(id);
      }
    }
    for (const std::uint32_t id : old_.unmatched()) {
      if (newSizes.contains(old_.asset(id).size)) {
        matchEqual(id, idsByContent[old_.content(id)]);
      }
    }
  }

  void matchById() {
    for (const std::uint32_t id : old_.unmatched()) {
      if (id < new_.isMatched.size() && !new_.isMatched[id]) {
        match(id, id, false);
      }
    }
  }

  /// Returns the pairs, followed by what is left over of the new bank.
  std::vector<AssetPair> takePairs() {
    for (std::uint32_t id = 0; id < old_.isMatched.size(); ++id) {
      pairs_[id].oldId = id;
    }
    for (const std::uint32_t id : new_.unmatched()) {
      pairs_.push_back({.newId = id});
    }
    return std::move(pairs_);
  }

 private:
  using Content = std::pair<std::uint32_t, std::uint64_t>;  // size and hash

  /// One of the two banks, and which of its assets have a counterpart.
  struct Side {
    NamedBank& bank;
    std::vector<bool> isMatched;

    [[nodiscard]] const tavrel_asset& asset(std::uint32_t id) const { return bank.assets()[id]; }

    [[nodiscard]] Content content(std::uint32_t id) const {
      return {asset(id).size, blobHash(bank.file, asset(id))};
    }

    [[nodiscard]] std::vector<std::uint32_t> unmatched() const {
      std::vector<std::uint32_t> ids;
      for (std::uint32_t id = 0; id < isMatched.size(); ++id) {
        if (!isMatched[id]) {
          ids.push_back(id);
        }
      }
      return ids;
    }

    [[nodiscard]] std::set<std::uint32_t> unmatchedSizes() const {
      std::set<std::uint32_t> sizes;
      for (const std::uint32_t id : unmatched()) {
        sizes.insert(asset(id).size);
      }
      return sizes;
    }
  };

  void match(std::uint32_t oldId, std::uint32_t newId, bool byContent) {
    pairs_[oldId].newId = newId;
    pairs_[oldId].isMatchedByContent = byContent;
    old_.isMatched[oldId] = true;
    new_.isMatched[newId] = true;
  }

  /// Matches an old asset with the first of `newIds` that has the same blob, and removes that one.
  void matchEqual(std::uint32_t oldId, std::list<std::uint32_t>& newIds) {
    for (auto newId = newIds.begin(); newId != newIds.end(); ++newId) {
      if (equalBlobs(old_.bank.file, old_.asset(oldId), new_.bank.file, new_.asset(*newId))) {
        match(oldId, *newId, true);
        newIds.erase(newId);
        return;
      }
    }
  }

  Side old_;
  Side new_;
  std::vector<AssetPair> pairs_;  // by old id
};

}  // namespace

std::vector<AssetPair> matchAssets(NamedBank& older, NamedBank& newer) {
  Matching matching(older, newer);
  matching.matchByDefine();
  matching.matchByContent();
  matching.matchById();
  return matching.takePairs();
}

}  // namespace tavrel::kit
