#include "kit/check/sequence_check.h"

#include <fmt/format.h>

#include <string_view>

#include "kit/bank/asset_facts.h"
#include "kit/check/fix_command.h"
#include "kit/check/unreadable_file.h"
#include "midi/midi_asset_file.h"
#include "midi/sequence_summary.h"

namespace tavrel::kit {

namespace {

constexpr std::uint16_t kCountsFrames = 0x8000;

/// Checks the headers, with which the tool accepts or refuses a file. Returns false for a file that
/// it refuses.
bool checkHeaders(MidiAssetFile& file, BlockFindings& findings) {
  const bool isAccepted = file.judge();
  if (file.headerId.data() != std::string_view("MThd")) {
    reportOtherForm(findings.fileName(), "a MIDI file", findings);
  } else if (file.headerValid == 0) {
    findings.addAtFile("sequence-broken", "the file ends in its header", "Save it again");
  } else if (file.format != 0) {
    findings.addAtFile(
        "sequence-type",
        fmt::format("the file is of type {}, and tavrel leaves it out", file.format),
        "Save it as type 0 in its editor, or " + sequenceCommand(findings.fileName()));
  } else if (file.trackValid == 0) {
    findings.addAtFile("sequence-broken", "no track follows the header directly",
                       "Save the sequence again");
  }
  return isAccepted;
}

/// Checks the events. Returns false if the track breaks off.
bool checkTrack(MidiAssetFile& file, BlockFindings& findings) {
  SequenceSummary summary;
  const char* fault = nullptr;
  const bool isWhole = summarize(file, summary);
  requireMemory(file);
  if (file.trackLength == 0) {
    fault = "the track is empty";
  } else if (!isWhole) {
    fault = "the track breaks off before its end";
  } else if (!summary.seconds.has_value()) {
    fault = "time counts in 0 ticks";
  }
  if (fault != nullptr) {
    findings.addAtFile("sequence-broken", fault, "Save the sequence again");
  }
  return isWhole;
}

/// Checks the tempo, without which the tool refuses a sequence.
bool checkTempo(MidiAssetFile& file, BlockFindings& findings) {
  std::uint32_t tempo = 0;
  file.runningStatus = 0;
  if (!file.firstTempo(tempo)) {
    requireMemory(file);
    return false;
  }
  if (file.accumulatedTime > 0) {
    findings.addAtFile("sequence-late-tempo",
                       fmt::format("the first tempo comes after {} ticks; until then a sequence "
                                   "plays 120 beats per minute",
                                   file.accumulatedTime),
                       "Put a tempo at the start of the sequence");
  }
  return true;
}

}  // namespace

void checkSequence(CheckedAsset& asset, FolderNames& folders, BlockFindings& findings) {
  MidiAssetFile file(asset.openedPath.c_str(), 0);
  if (!file.loadImage()) {
    return reportUnread(asset.openedName, folders, findings);
  }
  if (!checkHeaders(file, findings)) {
    return;
  }
  if ((file.ppqn & kCountsFrames) != 0) {
    findings.addAtFile("sequence-smpte",
                       "time is counted in frames, and the bank would hold a negative division",
                       "Save the sequence with ticks per quarter note");
  }
  const bool isWhole = checkTrack(file, findings);
  asset.isStored = checkTempo(file, findings);
  asset.size = file.assetSize;
  if (!asset.isStored && isWhole) {
    findings.addAtFile("sequence-no-tempo", "without a tempo event tavrel leaves the file out",
                       "Put a tempo at the start of the sequence");
  }
}

}  // namespace tavrel::kit
