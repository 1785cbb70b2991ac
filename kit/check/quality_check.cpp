#include "kit/check/quality_check.h"

#include <fmt/format.h>

#include <new>

#include "compiler/wave_rules.h"
#include "kit/check/block_findings.h"
#include "kit/quality/wave_quality.h"
#include "samples/adpcm_stream.h"

namespace tavrel::kit {

namespace {

/// Compresses a sound as the tool does, and compares the two.
WaveQuality qualityOf(const SourceSound& source) {
  const std::uint32_t codeBytes = adpcmCodeBytes(source.size);
  const ByteBlock stream = newBytes(codeBytes);
  if (!stream) {
    throw std::bad_alloc();
  }
  AdpcmState state;
  encodeAdpcm(state, source.samples, codeBytes, stream.get());
  return compareStream(stream.get(), source.samples, codeBytes);
}

}  // namespace

void checkQuality(const CheckedAsset& asset, double lowest, Findings& findings) {
  BlockFindings block(*asset.block, findings);
  if (!asset.isStored || asset.block->row->type != typeWave || block.valueOf(kNotStored) == 0) {
    return;
  }
  const SourceSound source = readSource(block.fileName());
  if (!isCompressed(source.bits, block.valueOf(waveLoop) != 0, true)) {
    return;
  }
  const WaveQuality quality = qualityOf(source);
  if (quality.decibels && *quality.decibels < lowest) {
    block.addAtOption(
        "low-quality", kNotStored,
        fmt::format("compression leaves {:.2f} dB, below {}; the worst error is {}, at sample {}",
                    *quality.decibels, lowest, quality.worstError, quality.worstSample),
        "Listen to the sound as tavkit extract writes it, and remove Adpcm 1 if it is bad");
  }
}

}  // namespace tavrel::kit
