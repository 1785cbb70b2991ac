#include "kit/check/file_kind.h"

#include <algorithm>
#include <array>
#include <new>

#include "foundation/disk_file.h"
#include "kit/frame/ascii.h"
#include "kit/frame/display_text.h"

namespace tavrel::kit {

namespace {

using namespace std::string_view_literals;

constexpr FileKind kWaveKind{"RIFF????WAVE", "a WAV file", "wav", Converter::rename};
constexpr FileKind kAiffKind{"FORM????AIFF", "an AIFF file", "aif", Converter::rename};
constexpr FileKind kUnknown{"", "", "", Converter::none};
constexpr FileKind kText{"", "text", "", Converter::none};
constexpr FileKind kHtml{"", "an HTML page", "", Converter::none};
constexpr FileKind kZeros{"", "nothing but zero bytes", "", Converter::none};

// The first row that fits counts.
constexpr std::array kKinds{
    kWaveKind,
    kAiffKind,
    FileKind{"FORM????AIFC", "an AIFF-C file", "aif", Converter::sox},
    FileKind{"FORM????8SVX", "an 8SVX file", "8svx", Converter::sox},
    FileKind{"RF64????WAVE", "an RF64 file", "", Converter::ffmpeg},
    FileKind{"BW64????WAVE", "a BW64 file", "", Converter::ffmpeg},
    FileKind{"riff\x2E\x91\xCF\x11"sv, "a W64 file", "", Converter::ffmpeg},
    FileKind{"RIFX????WAVE", "a big-endian WAV file (RIFX)", "wav", Converter::sox},
    FileKind{"RIFF????RMID", "a MIDI file in a RIFF file (RMI)", "", Converter::none},
    FileKind{"RIFF????AVI ", "an AVI film", "", Converter::ffmpeg},
    FileKind{"MThd", "a MIDI file", "mid", Converter::rename},
    FileKind{"fLaC", "a FLAC file", "flac", Converter::sox},
    FileKind{"OggS", "an Ogg file", "", Converter::ffmpeg},
    FileKind{"ID3", "an MP3 file", "mp3", Converter::ffmpeg},
    FileKind{"\xFF\xFB"sv, "an MP3 file", "mp3", Converter::ffmpeg},
    FileKind{"\xFF\xFA"sv, "an MP3 file", "mp3", Converter::ffmpeg},
    FileKind{"\xFF\xF3"sv, "an MP3 file", "mp3", Converter::ffmpeg},
    FileKind{"\xFF\xF2"sv, "an MP3 file", "mp3", Converter::ffmpeg},
    FileKind{"\xFF\xE3"sv, "an MP3 file", "mp3", Converter::ffmpeg},
    FileKind{"\xFF\xF1"sv, "an AAC file", "", Converter::ffmpeg},
    FileKind{"\xFF\xF9"sv, "an AAC file", "", Converter::ffmpeg},
    FileKind{"????ftyp", "an MPEG-4 file", "", Converter::ffmpeg},
    FileKind{"caff", "a CAF file", "", Converter::ffmpeg},
    FileKind{".snd", "an AU file", "au", Converter::sox},
    FileKind{"wvpk", "a WavPack file", "", Converter::ffmpeg},
    FileKind{"MAC ", "a Monkey's Audio file", "", Converter::ffmpeg},
    FileKind{"\x30\x26\xB2\x75"sv, "a WMA file", "", Converter::ffmpeg},
    FileKind{"#!AMR", "an AMR file", "", Converter::ffmpeg},
    FileKind{"Creative Voice File", "a VOC file", "voc", Converter::sox},
    FileKind{"IMPM", "an IT module", "", Converter::none},
    FileKind{"Extended Module: ", "an XM module", "", Converter::none},
    FileKind{"PK\x03\x04"sv, "a ZIP file", "", Converter::none},
    FileKind{"\x1F\x8B"sv, "a gzip file", "", Converter::none},
    FileKind{"%PDF", "a PDF file", "", Converter::none},
    FileKind{"\x89PNG"sv, "a PNG picture", "", Converter::none},
    FileKind{"\xFF\xD8\xFF"sv, "a JPEG picture", "", Converter::none},
    FileKind{"GIF8", "a GIF picture", "", Converter::none},
    FileKind{"version https://git-lfs", "a pointer of Git LFS, and the file itself isn't here", "",
             Converter::gitLfs},
};

bool fits(std::string_view pattern, std::string_view start) {
  return start.size() >= pattern.size() &&
         std::equal(pattern.begin(), pattern.end(), start.begin(),
                    [](char wanted, char byte) { return wanted == '?' || wanted == byte; });
}

bool isHtml(std::string_view text) {
  const std::string start = lowered(text.substr(0, kKindBytes));
  return start.find("<!doctype html") != std::string::npos ||
         start.find("<html") != std::string::npos;
}

/// Returns true for text in UTF-8 whose last character may be cut off.
bool isText(std::string_view start) {
  std::string spaced(start);
  std::replace_if(
      spaced.begin(), spaced.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; },
      ' ');
  const std::string shown = displayText(spaced);
  const auto difference = std::mismatch(spaced.begin(), spaced.end(), shown.begin(), shown.end());
  constexpr std::ptrdiff_t kLongestCut = 3;
  const auto isPartOfCharacter = [](char c) { return static_cast<unsigned char>(c) >= 0x80; };
  return difference.first != spaced.begin() && spaced.end() - difference.first <= kLongestCut &&
         std::all_of(difference.first, spaced.end(), isPartOfCharacter);
}

}  // namespace

const FileKind& kindOf(std::string_view start) {
  const auto* row = std::find_if(kKinds.begin(), kKinds.end(), [start](const FileKind& kind) {
    return fits(kind.pattern, start);
  });
  if (row != kKinds.end()) {
    return *row;
  }
  if (isText(start)) {
    return isHtml(start) ? kHtml : kText;
  }
  const bool isZero = !start.empty() && start.find_first_not_of('\0') == std::string_view::npos;
  return isZero ? kZeros : kUnknown;
}

const FileKind& kindOfFile(const std::string& name) {
  DiskFile file(modeRead, name.c_str(), "");
  std::array<char, kKindBytes> start{};
  if (!file.open()) {
    return file.error == FileName::kOutOfMemory ? throw std::bad_alloc() : kUnknown;
  }
  std::uint32_t size = kKindBytes;  // of a file that is too long for `getSize`
  file.getSize(size);
  size = std::min<std::uint32_t>(size, kKindBytes);
  const bool isRead = file.read(start.data(), size);
  file.close();
  return isRead ? kindOf({start.data(), size}) : kUnknown;
}

bool isAiff(const FileKind& kind) { return kind.pattern == kAiffKind.pattern; }

bool isSequence(const FileKind& kind) { return kind.pattern == "MThd"; }

bool isWave(const FileKind& kind) { return kind.pattern == kWaveKind.pattern; }

}  // namespace tavrel::kit
