#include "kit/check/sound_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

#include "compiler/wave_rules.h"
#include "kit/check/loop_check.h"
#include "samples/adpcm_stream.h"

namespace tavrel::kit {

namespace {

bool isOn(int parameter, const BlockFindings& findings) { return findings.valueOf(parameter) != 0; }

/// Returns true if the tool reads all of `text` as a number.
bool isPlainNumber(std::string_view text) {
  text.remove_prefix(text.starts_with('+') ? 1 : 0);
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

/// A value that is no number has been reported already.
void checkRate(const LoadedSound& sound, BlockFindings& findings) {
  const ScriptOption* option = findings.option(waveSampleRate);
  if (option == nullptr || !isPlainNumber(option->value->text)) {
    return;
  }
  const std::int32_t rate = findings.valueOf(waveSampleRate);
  if (static_cast<std::uint32_t>(rate) != sound.rate) {
    findings.addAtValue(
        "sample-rate-differs", waveSampleRate,
        fmt::format("the file has {} Hz, and the bank would say {} Hz", sound.rate, rate),
        fmt::format("SampleRate {}", sound.rate));
  }
}

void checkWidth(const LoadedSound& sound, std::string_view extension, BlockFindings& findings) {
  if (isOn(kNotStored, findings) && sound.bits != 16) {
    findings.addAtOption(
        "adpcm-width", kNotStored,
        fmt::format("Adpcm is ignored because the samples have {} bits; {} bytes are stored "
                    "uncompressed",
                    sound.bits, sound.size),
        soxCommand(findings.fileName(), fixOf(sound, extension, findings)));
  }
}

/// Checks the number of samples of a sound that is compressed.
void checkPairs(const LoadedSound& sound, BlockFindings& findings) {
  const std::uint32_t samples = waveSampleCount(sound.size, sound.bits);
  if (samples == 1) {
    findings.addAtFile("empty-sound",
                       "a sound of one sample is nothing when compressed: the bank would hold 0 "
                       "bytes",
                       "Remove Adpcm 1");
  } else if (samples % 2 == 1) {
    findings.addAtOption("adpcm-odd", kNotStored,
                         fmt::format("compression drops the last of {} samples", samples));
  }
}

void checkLoop(const LoadedSound& sound, bool isPlayable, BlockFindings& findings) {
  const std::uint32_t samples = waveSampleCount(sound.size, sound.bits);
  if (sound.loopStart < sound.loopEnd && sound.loopEnd <= samples) {
    if (isPlayable) {
      checkWrap(sound, findings);
    }
    return;
  }
  findings.addAtFile("broken-loop",
                     fmt::format("the bank would hold a loop from sample {} to {} of {}",
                                 sound.loopStart, sound.loopEnd, samples),
                     "Set the loop in a sound editor, or remove Loop 1");
}

}  // namespace

SoundFix fixOf(const LoadedSound& sound, std::string_view extension,
               const BlockFindings& findings) {
  const bool isFine8Bits = sound.bits == 8 && !isOn(kNotStored, findings);
  return {.oldBits = sound.bits,
          .toMono = sound.channels > 1,
          .to16Bits = !isFine8Bits && sound.bits != 16,
          .extension = extension};
}

void checkSoundOptions(const CheckedAsset& asset, BlockFindings& findings) {
  const ScriptBlock& block = findings.block();
  const bool namesRate = std::any_of(
      block.options.begin(), block.options.end(),
      [](const ScriptOption& option) { return option.row->parameter == waveSampleRate; });
  if (!namesRate && block.isFinished) {
    const std::string rate =
        asset.fileRate == 0 ? "" : fmt::format("SampleRate {}", asset.fileRate);
    const bool canFix = isPlainNumber(std::to_string(asset.fileRate)) && !rate.empty();
    findings.addAtFile("sample-rate-missing", "without SampleRate the bank would say 0 Hz", rate,
                       canFix ? std::optional(block.withOption(rate)) : std::nullopt);
  }
  if (isOn(waveLoop, findings) && isOn(kNotStored, findings)) {
    findings.addAtOption(
        "adpcm-loop", kNotStored,
        fmt::format(
            "Adpcm is ignored because of Loop{}",
            asset.isStored ? fmt::format("; {} bytes are stored uncompressed", asset.size) : ""),
        "Remove Adpcm 1 or Loop 1");
  }
}

void checkSound(const LoadedSound& sound, bool isPlayable, std::string_view extension,
                CheckedAsset& asset, BlockFindings& findings) {
  const bool loops = isOn(waveLoop, findings);
  const bool isAdpcm = isCompressed(sound.bits, loops, isOn(kNotStored, findings));
  asset.size = isAdpcm ? adpcmStreamSize(sound.size) : sound.size;
  asset.fileRate = sound.rate;
  asset.fileBits = sound.bits;
  checkRate(sound, findings);
  checkWidth(sound, extension, findings);
  if (sound.bits == 16 && sound.size < 2) {
    findings.addAtFile("empty-sound", "the file has less than one sample");
  } else if (isAdpcm) {
    checkPairs(sound, findings);
  }
  if (loops) {
    checkLoop(sound, isPlayable, findings);
  }
}

}  // namespace tavrel::kit
