#include "kit/new/new_block.h"

#include <algorithm>
#include <array>

#include "compiler/wave_rules.h"
#include "kit/check/block_findings.h"
#include "kit/check/file_kind.h"
#include "kit/check/unreadable_file.h"
#include "kit/check/usual_type.h"
#include "kit/frame/contains.h"
#include "kit/frame/scoped_file_cache.h"
#include "kit/frame/split_name.h"
#include "kit/new/script_name.h"

namespace tavrel::kit {

namespace {

// Warnings that keep a file out of a new script.
constexpr std::array<std::string_view, 3> kAvoided{"name-cut", "case-differs", "same-file-twice"};

// Problems that another name of the file would solve.
constexpr std::array<std::string_view, 4> kOfNames{"name-cut", "define-invalid", "define-duplicate",
                                                   "long-name"};

/// Returns true for a sound that the tool's reader for this name doesn't read, or doesn't find.
bool needsOtherExtension(const NewBlock& entry, const FileKind& kind) {
  const bool isSound = isWave(kind) || isAiff(kind);
  return isSound &&
         (isAiff(kind) != isAiffExtension(splitName(entry.file.name).extension.c_str()) ||
          entry.asset.openedName != entry.file.name);
}

/// Returns true for a sound that no statement reads, but that can be converted.
bool isForeignSound(const FileKind& kind) {
  return kind.converter != Converter::none && kind.converter != Converter::rename;
}

/// Returns the type of the asset that a file is meant to be.
AssetType typeOf(const FileKind& kind, const std::string& name) {
  if (isSequence(kind)) {
    return typeMidi;
  }
  return isWave(kind) || isAiff(kind) || isForeignSound(kind) ? typeWave : usualType(name);
}

void addOption(ScriptBlock& block, int parameter, std::int32_t value) {
  const auto row =
      std::find_if(block.row->options.begin(), block.row->options.end(),
                   [parameter](const Option& option) { return option.parameter == parameter; });
  const std::size_t offset = block.keyword.offset;
  block.options.push_back({.row = &*row,
                           .keyword = {row->keyword, offset},
                           .value = ScriptWord{std::to_string(value), offset}});
}

void judgeAll(NewBlock& entry, const Findings& findings) {
  for (const Diagnostic& problem : findings.sorted()) {
    entry.judge(problem);
  }
}

void checkBlock(NewBlock& entry, FolderNames& folders) {
  Findings findings;
  entry.asset = checkAsset(entry.block, folders, findings);
  judgeAll(entry, findings);
  if (entry.asset.isMissing) {
    entry.reason = "this is a link to a file that isn't there";
    entry.fix.clear();
  }
}

void rejectForeignSound(NewBlock& entry) {
  Findings findings;
  BlockFindings blockFindings(entry.block, findings);
  const bool isNamedAiff = isAiffExtension(splitName(entry.file.name).extension.c_str());
  entry.isForeign = true;
  reportOtherForm(entry.file.name, isNamedAiff ? "an AIFF file" : "a WAV file", blockFindings);
  judgeAll(entry, findings);
}

/// Adds what the script must say of a sound. Compression takes pairs of samples.
void addSoundOptions(NewBlock& entry, bool wantsAdpcm) {
  constexpr std::uint64_t kPairBytes = 4;
  const CheckedAsset& sound = entry.asset;
  addOption(entry.block, waveSampleRate, static_cast<std::int32_t>(sound.fileRate));
  if (sound.fileLoops) {
    addOption(entry.block, waveLoop, 1);
  }
  if (isCompressed(sound.fileBits, sound.fileLoops, wantsAdpcm) && sound.size >= kPairBytes) {
    addOption(entry.block, kNotStored, 1);
  }
}

}  // namespace

void NewBlock::judge(const Diagnostic& problem) {
  const std::string_view code = problem.code->name;
  if (isListed() && (problem.code->severity == Severity::error || contains(kAvoided, code))) {
    reason = problem.message.substr(file.name.size() + std::string_view(": ").size());
    fix = code == "same-file-twice" ? "" : problem.hint;
    lacksName = contains(kOfNames, code);
  }
}

void makeBlock(NewBlock& entry, std::size_t offset, bool wantsAdpcm, FolderNames& folders) {
  constexpr std::uint32_t kMostKept = std::uint32_t{1} << 26U;  // larger files are read as needed
  ScopedFileCache cache;
  readIntoCache(entry.file.path, cache, kMostKept);
  const FileKind& kind = kindOfFile(entry.file.path);
  const Statement& statement = statementOf(typeOf(kind, entry.file.name));
  entry.block.row = &statement;
  entry.block.keyword = {statement.keyword, offset};
  entry.block.file = ScriptWord{entry.file.name, offset};
  entry.block.isFinished = true;
  entry.reason =
      entry.file.fault.empty() ? faultOfName(entry.file, statement, folders) : entry.file.fault;
  entry.lacksName = entry.file.fault.empty() && !entry.isListed();
  if (!entry.isListed()) {
    return;
  }
  if (isForeignSound(kind)) {
    return rejectForeignSound(entry);
  }
  checkBlock(entry, folders);
  entry.lacksName = !entry.isListed() && (entry.lacksName || needsOtherExtension(entry, kind));
  if (entry.isListed() && statement.type == typeWave) {
    addSoundOptions(entry, wantsAdpcm);
    if (entry.block.options.size() > 1) {
      checkBlock(entry, folders);
    }
  }
}

}  // namespace tavrel::kit
