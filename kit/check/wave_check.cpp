#include "kit/check/wave_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <new>

#include "compiler/wave_rules.h"
#include "kit/check/file_kind.h"
#include "kit/check/fix_command.h"
#include "kit/check/sound_check.h"
#include "kit/check/unreadable_file.h"
#include "kit/frame/source_file.h"
#include "platform/host_path.h"
#include "samples/wave_file.h"

namespace tavrel::kit {

namespace {

constexpr std::string_view kExtension = ".wav";
constexpr std::uint16_t kExtensible = 0xFFFE;

struct Encoding {
  std::uint16_t tag;
  const char* name;
  Converter reader;  ///< of a WAV file with this encoding
};

constexpr std::array<Encoding, 9> kEncodings{{
    {2, "ADPCM of another kind", Converter::sox},
    {3, "floating-point numbers", Converter::sox},
    {6, "A-law", Converter::sox},
    {7, "mu-law", Converter::sox},
    {0x11, "ADPCM of another kind", Converter::sox},
    {0x31, "GSM", Converter::sox},
    {0x50, "MPEG audio", Converter::ffmpeg},
    {0x55, "MP3", Converter::ffmpeg},
    {kExtensible, "of an unknown encoding", Converter::none},
}};

const Encoding* findEncoding(std::uint16_t tag) {
  const auto* row = std::find_if(kEncodings.begin(), kEncodings.end(),
                                 [tag](const Encoding& one) { return one.tag == tag; });
  return row == kEncodings.end() ? nullptr : row;
}

/// Returns how to make PCM of 16 bits from a sound of another encoding.
std::string pcmFix(std::uint16_t tag, const LoadedSound& sound, const BlockFindings& findings) {
  const Encoding* row = findEncoding(tag);
  if (row == nullptr || row->reader == Converter::none) {
    return "Export the sound again as PCM of 16 bits";
  }
  if (row->reader == Converter::ffmpeg) {
    return convertCommand(findings.fileName(),
                          {.pattern = "", .name = "", .extension = "", .converter = row->reader});
  }
  SoundFix fix = fixOf(sound, kExtension, findings);
  fix.to16Bits = fix.toPcm = true;
  return soxCommand(findings.fileName(), fix);
}

/// Of an AIFF file whose extension isn't aif the tool would read a WAV file with a shorter name.
bool isAiffOfOtherName(const std::string& openedName, const BlockFindings& findings) {
  return openedName != findings.fileName() && kindUnder(openedName) == PathKind::missing &&
         isAiff(kindOfFile(findings.fileName()));
}

const char* damageOf(WaveFault fault, const WaveChunks& chunks) {
  switch (fault) {
    case WaveFault::noFormat:
      return "the file has no format (a fmt chunk)";
    case WaveFault::formatCut:
      return "the file ends in its format (the fmt chunk)";
    case WaveFault::noData:
      return chunks.hasDataBeforeFormat
                 ? "the samples are before the format, and tavrel looks for them after it"
                 : "the file has no samples (a data chunk)";
    default:
      return "the file ends before the last of its samples";
  }
}

void reportFault(WaveFault fault, const std::string& openedName, FolderNames& folders,
                 BlockFindings& findings) {
  switch (fault) {
    case WaveFault::cannotOpen:
      if (isAiffOfOtherName(openedName, findings)) {
        return reportOtherForm(findings.fileName(), "a WAV file", findings);
      }
      return reportUnread(openedName, folders, findings);
    case WaveFault::noForm:
      return reportOtherForm(openedName, "a WAV file", findings);
    case WaveFault::noMemory:
      throw std::bad_alloc();
    default:
      findings.addAtFile("damaged-sound", damageOf(fault, readWaveChunks(openedName.c_str())),
                         "Export the sound again");
  }
}

void checkChunks(const WaveChunks& chunks, BlockFindings& findings) {
  if (chunks.dataCount > 1) {
    findings.addAtFile(
        "damaged-sound",
        fmt::format("the file has {} data chunks, and tavrel stores the first one after the "
                    "format alone",
                    chunks.dataCount),
        "Export the sound again");
  }
  if (!chunks.loops.empty()) {
    findings.addAtFile("loop-ignored",
                       findings.valueOf(waveLoop) != 0
                           ? "the bank won't hold the file's loop: Loop 1 repeats the whole sound"
                           : "the bank won't hold the file's loop",
                       "Save the sound as AIFF with its loop, and write Loop 1");
  }
}

/// Returns true for plain PCM.
bool checkEncoding(std::uint16_t tag, const LoadedSound& sound, BlockFindings& findings) {
  if (tag == kPcm && sound.bits != 4) {
    return true;
  }
  findings.addAtFile(
      "encoding",
      tag == kPcm ? "a game would take samples of 4 bits for ADPCM"
                  : fmt::format("the samples are {}, and a game plays what the bank holds as noise",
                                encodingName(tag)),
      pcmFix(tag, sound, findings));
  return false;
}

void checkForm(const LoadedSound& sound, BlockFindings& findings) {
  if (sound.channels > 1) {
    findings.addAtFile("stereo-wave",
                       fmt::format("the samples of {} channels alternate, and the bank doesn't say "
                                   "how many there are",
                                   sound.channels),
                       soxCommand(findings.fileName(), fixOf(sound, kExtension, findings)));
  }
  if (sound.bits != 4 && sound.bits != 8 && sound.bits != 16) {
    findings.addAtFile(
        "raw-width",
        fmt::format("samples of {} bits are stored as they are, {} bytes", sound.bits, sound.size),
        soxCommand(findings.fileName(), fixOf(sound, kExtension, findings)));
  }
}

}  // namespace

std::string encodingName(std::uint16_t tag) {
  const Encoding* row = findEncoding(tag);
  return row != nullptr ? row->name : fmt::format("of format {}", tag);
}

LoadedSound soundOf(const WaveFile& file) {
  LoadedSound sound{.bytes = file.getSampleData()};
  file.getDataSize(sound.size);
  file.getBitsPerSample(sound.bits);
  file.getChannels(sound.channels);
  file.getSampleRate(sound.rate);
  sound.loopEnd = waveSampleCount(sound.size, sound.bits);
  return sound;
}

std::uint16_t formatTagOf(const WaveFile& file, const WaveChunks& chunks) {
  std::uint16_t tag = 0;
  file.getFormatTag(tag);
  return tag == kExtensible ? chunks.subFormat.value_or(tag) : tag;
}

void checkWave(CheckedAsset& asset, FolderNames& folders, BlockFindings& findings) {
  WaveFile file(asset.block->file->text.c_str());  // cuts the name, which a second cut may change
  if (!file.load()) {
    return reportFault(file.fault(), asset.openedName, folders, findings);
  }
  const WaveChunks chunks = readWaveChunks(asset.openedPath.c_str());
  checkChunks(chunks, findings);
  asset.fileLoops = !chunks.loops.empty();
  const LoadedSound sound = soundOf(file);
  if (sound.size == 0) {
    findings.addAtFile("empty-sound", "the file has no samples", "Export the sound again");
    return;
  }
  asset.isStored = true;
  const bool isPcm = checkEncoding(formatTagOf(file, chunks), sound, findings);
  if (isPcm) {
    checkForm(sound, findings);
  }
  checkSound(sound, isPcm, kExtension, asset, findings);
}

}  // namespace tavrel::kit
