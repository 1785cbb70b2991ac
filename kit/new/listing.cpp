#include "kit/new/listing.h"

#include <fmt/format.h>

#include <set>

#include "kit/check/bank_check.h"
#include "kit/check/bank_names.h"
#include "kit/frame/captured_console.h"
#include "kit/frame/progress.h"
#include "kit/new/script_name.h"
#include "platform/file_identity.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

/// Files that need no block.
class KnownFiles {
 public:
  void add(const std::string& name) {
    if (const auto identity = fileIdentity(hostPath(name.c_str()).c_str())) {
      known_.insert(*identity);
    }
  }

  [[nodiscard]] bool contains(const FoundFile& file) const {
    if (known_.empty()) {
      return false;
    }
    const auto identity = fileIdentity(file.path.c_str());
    return identity && known_.contains(*identity);
  }

 private:
  std::set<FileIdentity> known_;
};

class Listing {
 public:
  Listing(const TargetScript& script, const RunPlan& plan) : script_(script), plan_(plan) {}

  std::deque<NewBlock> list(const std::vector<FoundFile>& files, bool wantsAdpcm);

 private:
  KnownFiles readScript();
  void judgeTogether();
  bool judge(const Diagnostic& problem);
  void endBefore(std::size_t first);
  void nameFixes();

  [[nodiscard]] std::size_t firstOffset() const { return script_.text().size(); }

  const TargetScript& script_;
  const RunPlan& plan_;
  FolderNames folders_;
  std::vector<CheckedAsset> oldAssets_;
  std::deque<NewBlock> entries_;  // the words of each one have the offset `firstOffset` + index
};

std::deque<NewBlock> Listing::list(const std::vector<FoundFile>& files, bool wantsAdpcm) {
  const CapturedConsole silence;
  const KnownFiles known = readScript();
  Progress progress(files.size());
  for (const FoundFile& file : files) {
    if (!known.contains(file)) {
      NewBlock& entry = entries_.emplace_back();
      entry.file = file;
      makeBlock(entry, firstOffset() + entries_.size() - 1, wantsAdpcm, folders_);
    }
    progress.advance(1);
  }
  judgeTogether();
  nameFixes();
  return std::move(entries_);
}

/// Checks the assets of the script, and returns the files that belong to it.
KnownFiles Listing::readScript() {
  KnownFiles known;
  const BankNames names = nameBank(script_.model(), plan_);
  for (const std::string& own : {plan_.scriptPath, names.bankPath, names.headerPath}) {
    known.add(own);
  }
  Findings ignored;
  for (const ScriptBlock& block : script_.model().blocks) {
    oldAssets_.push_back(checkAsset(block, folders_, ignored));
    oldAssets_.back().isMissing = false;  // it keeps its define until its file is back
    known.add(block.file->text);
    known.add(oldAssets_.back().openedName);
  }
  return known;
}

/// Takes entries from the list until the check of the bank has nothing against any of them.
void Listing::judgeTogether() {
  bool isFine = false;
  while (!isFine) {
    std::vector<CheckedAsset> assets = oldAssets_;
    for (const NewBlock& entry : entries_) {
      if (entry.isListed()) {
        assets.push_back(entry.asset);
      }
    }
    Findings findings;
    checkBank(script_.model(), assets, plan_, {}, findings);
    isFine = true;
    for (const Diagnostic& problem : findings.sorted()) {
      isFine = !judge(problem) && isFine;
    }
  }
}

/// Returns true if an entry is taken from the list.
bool Listing::judge(const Diagnostic& problem) {
  if (problem.offset < firstOffset()) {
    return false;
  }
  const std::size_t index = problem.offset - firstOffset();
  NewBlock& entry = entries_[index];
  const bool wasListed = entry.isListed();
  entry.judge(problem);
  if (problem.code->name == "too-many-assets" || problem.code->name == "bank-too-long") {
    endBefore(index);
  }
  return wasListed && !entry.isListed();
}

/// Takes all entries after one with which the bank is full from the list.
void Listing::endBefore(std::size_t first) {
  for (std::size_t index = first + 1; index < entries_.size(); ++index) {
    NewBlock& entry = entries_[index];
    if (entry.isListed()) {
      entry.reason = fmt::format("the bank is full before {}", entries_[first].file.name);
      entry.fix = entries_[first].fix;
    }
  }
}

/// Finds new names when all defines of the script are known.
void Listing::nameFixes() {
  FreeNames names;
  for (const CheckedAsset& asset : oldAssets_) {
    names.take(asset.name);
  }
  for (const NewBlock& entry : entries_) {
    if (entry.isListed()) {
      names.take(entry.asset.name);
    }
  }
  for (NewBlock& entry : entries_) {
    if (entry.lacksName) {
      entry.fix = names.renaming(entry.file);
    } else if (entry.isForeign) {
      entry.fix = names.conversion(entry.file);
    }
  }
}

}  // namespace

std::deque<NewBlock> listFiles(const std::vector<FoundFile>& files, const TargetScript& script,
                               const RunPlan& plan, bool wantsAdpcm) {
  return Listing(script, plan).list(files, wantsAdpcm);
}

}  // namespace tavrel::kit
