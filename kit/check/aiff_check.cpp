#include <fmt/format.h>

#include <algorithm>
#include <new>

#include "foundation/byte_order.h"
#include "kit/check/sound_check.h"
#include "kit/check/unreadable_file.h"
#include "kit/check/wave_check.h"
#include "samples/aiff_file.h"

namespace tavrel::kit {

namespace {

constexpr std::string_view kExtension = ".aif";
constexpr std::uint32_t kPingPong = 2;

std::string damageOf(const AiffFile& file) {
  switch (file.fault()) {
    case AiffFault::noCommon:
      return "the file has no format (a COMM chunk)";
    case AiffFault::noSound:
      return "the file has no samples (an SSND chunk)";
    default:
      IffFile::IdText id;
      IffFile::idToText(file.damagedChunk(), id.data());
      return fmt::format("the file ends in its {} chunk, or that is too short", id.data());
  }
}

void reportFault(const AiffFile& file, const std::string& name, FolderNames& folders,
                 BlockFindings& findings) {
  switch (file.fault()) {
    case AiffFault::cannotRead:
      return reportUnread(name, folders, findings);
    case AiffFault::noForm:
      return reportOtherForm(name, "an AIFF file", findings);
    case AiffFault::noMemory:
      throw std::bad_alloc();
    default:
      findings.addAtFile("damaged-sound", damageOf(file), "Export the sound again");
  }
}

void checkChannels(const LoadedSound& sound, BlockFindings& findings) {
  if (sound.channels > 1) {
    findings.addAtFile("stereo-aiff",
                       fmt::format("the file has {} channels, and tavrel stores only as many "
                                   "samples as one of them has, {} bytes",
                                   sound.channels, sound.size),
                       soxCommand(findings.fileName(), fixOf(sound, kExtension, findings)));
  }
}

void checkChunks(const AiffFile& file, BlockFindings& findings) {
  const auto sounds =
      std::count_if(file.chunkList().begin(), file.chunkList().end(),
                    [](const IffChunk& chunk) { return chunk.id == bigFourCc("SSND"); });
  if (file.sound.offset != 0) {
    findings.addAtFile("damaged-sound",
                       fmt::format("the samples begin at an offset of {} bytes, and tavrel "
                                   "stores what is before them",
                                   file.sound.offset),
                       "Export the sound again");
  }
  if (sounds > 1) {
    findings.addAtFile(
        "damaged-sound",
        fmt::format("the file has {} SSND chunks, and tavrel stores the first one alone", sounds),
        "Export the sound again");
  }
}

void reportEmpty(const LoadedSound& sound, BlockFindings& findings) {
  if (sound.bits == 8 || sound.bits == 16) {
    findings.addAtFile("empty-sound", "the file has no samples", "Export the sound again");
    return;
  }
  findings.addAtFile(
      "empty-sound",
      fmt::format("tavrel takes no samples of {} bits from AIFF files, only 8 and 16 bits",
                  sound.bits),
      soxCommand(findings.fileName(), fixOf(sound, kExtension, findings)));
}

/// Returns true unless the markers are numbered 1, 2, 3 in the order of the file. Sets `numbers` to
/// the first of the numbers.
bool areOutOfOrder(const AiffMarkerList& list, std::string& numbers) {
  constexpr std::uint16_t kMostShown = 8;
  bool isOutOfOrder = false;
  for (std::uint16_t i = 0; i < list.count; ++i) {
    const std::int16_t id = list.markers[i].id;
    isOutOfOrder = isOutOfOrder || id != i + 1;
    if (i < kMostShown) {
      numbers += fmt::format("{}{}", i == 0 ? "" : ", ", id);
    }
  }
  numbers += list.count > kMostShown ? ", ..." : "";
  return isOutOfOrder;
}

void checkMarkers(const AiffFile& file, BlockFindings& findings) {
  std::string numbers;
  if (findings.valueOf(waveLoop) != 0 && areOutOfOrder(file.markerList, numbers)) {
    findings.addAtFile("loop-markers",
                       fmt::format("the markers have the numbers {}, and tavrel counts them from "
                                   "1 in this order",
                                   numbers),
                       "Number the markers 1, 2, 3 in the order of the file");
  }
}

/// Checks a sustain loop whose markers the file has.
void checkMode(std::uint32_t mode, BlockFindings& findings) {
  if (findings.valueOf(waveLoop) == 0) {
    findings.addAtFile("loop-ignored", "without Loop 1 the bank won't hold the file's loop",
                       "Write Loop 1");
  } else if (mode == kPingPong) {
    findings.addAtFile("loop-ignored",
                       "the file's loop plays forwards and backwards, and the bank's forwards",
                       "Set a forward loop in a sound editor");
  }
}

/// Checks the sustain loop, if there is one, and sets the loop that the bank would hold. Returns
/// false if the tool refuses the file because of it.
bool checkSustainLoop(const AiffFile& file, LoadedSound& sound, BlockFindings& findings) {
  if (file.getSustainLoopMode() == 0) {
    return true;
  }
  checkMarkers(file, findings);
  std::uint32_t mode = 0;
  if (file.getLoop(1, mode, sound.loopStart, sound.loopEnd)) {
    checkMode(mode, findings);
    return true;
  }
  findings.addAtFile("broken-loop",
                     "the file's loop is between markers that it doesn't have, and tavrel "
                     "refuses the file",
                     "Set the loop in a sound editor");
  return false;
}

}  // namespace

// The samples that the tool takes: as many as the file has frames. They are those of one channel
// only if the file has one.
LoadedSound soundOf(const AiffFile& file) {
  LoadedSound sound{.bytes = file.getSampleData()};
  file.getDataSize(sound.size);
  file.getBitsPerSample(sound.bits);
  file.getChannels(sound.channels);
  file.getSampleRate(sound.rate);
  return sound;
}

void checkAiff(CheckedAsset& asset, FolderNames& folders, BlockFindings& findings) {
  AiffFile file(asset.openedPath.c_str());
  if (!file.load()) {
    return reportFault(file, asset.openedName, folders, findings);
  }
  LoadedSound sound = soundOf(file);
  checkChunks(file, findings);
  checkChannels(sound, findings);
  if (sound.size == 0) {
    return reportEmpty(sound, findings);
  }
  asset.fileLoops = file.getSustainLoopMode() != 0;
  asset.isStored = checkSustainLoop(file, sound, findings);
  if (asset.isStored) {
    checkSound(sound, sound.channels <= 1, kExtension, asset, findings);
  }
}

}  // namespace tavrel::kit
