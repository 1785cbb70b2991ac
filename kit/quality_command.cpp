// tavkit quality: what compression does to the sounds of a script.
#include <fmt/format.h>

#include <algorithm>

#include "kit/commands.h"
#include "kit/frame/display_text.h"
#include "kit/frame/output.h"
#include "kit/frame/text_table.h"
#include "kit/pack/packed_script.h"
#include "kit/quality/quality_limit.h"
#include "kit/quality/script_quality.h"

namespace tavrel::kit {

namespace {

bool isWorse(const JudgedWave& first, const JudgedWave& second) {
  const auto& one = first.quality.decibels;
  const auto& other = second.quality.decibels;
  return one && (!other || *one < *other);
}

std::string asText(std::vector<JudgedWave> waves) {
  if (waves.empty()) {
    return "The script compresses no wave.\n";
  }
  std::stable_sort(waves.begin(), waves.end(), isWorse);
  TextTable table({{"dB", Alignment::right},
                   {"worst error", Alignment::right},
                   {"at sample", Alignment::right},
                   {"clipped", Alignment::right},
                   {"id", Alignment::right},
                   {"define"},
                   {"file"}});
  for (const auto& [id, asset, quality] : waves) {
    table.add({quality.decibels ? fmt::format("{:.2f}", *quality.decibels) : "-",
               std::to_string(quality.worstError), std::to_string(quality.worstSample),
               std::to_string(quality.clipped), std::to_string(id), displayText(asset->define),
               displayText(asset->file)});
  }
  return table.text();
}

int runQuality(const Arguments& arguments, Output& output) {
  const auto limit = qualityLimit(arguments);
  changeDirectory(arguments);
  const PackedScript script(planFor(arguments.operands.front(), arguments));
  const std::vector<JudgedWave> waves = judgeWaves(script.assets());
  output.results = arguments.has("--json") ? documentText(qualityAsJson(waves)) : asText(waves);
  if (!limit) {
    return exitYes;
  }
  const auto lower = std::count_if(waves.begin(), waves.end(), [&limit](const JudgedWave& wave) {
    return wave.quality.decibels && *wave.quality.decibels < *limit;
  });
  output.messages =
      fmt::format("{} of {} below {} dB\n", lower, countText(waves.size(), "wave"), *limit);
  return lower > 0 ? exitNo : exitYes;
}

}  // namespace

Command qualityCommand() {
  return {
      .name = "quality",
      .operands = {.synopsis = "SCRIPT", .fewest = 1, .most = 1, .completion = Completion::script},
      .summary = "Measure what compression does to the sounds of a script",
      .description =
          "Packs the script in memory, and compares each sound that becomes ADPCM with the samples "
          "of its file. Prints the signal-to-noise ratio in decibels (the power of the source over "
          "the power of the error, over all samples that are stored), the worst error (the decoded "
          "sample less that of the source) and where it is, counted from 0, and how many samples "
          "are clipped (decoded as -32768 or 32767 where the source isn't). The worst sound comes "
          "first. A silent sound and one without an error have no ratio and come last.\n\n"
          "A low ratio is no proof of a bad sound: noise, rain and shots always have one. With "
          "--below the exit code is 1 if a ratio is lower, whatever the script allows; \"tavkit "
          "check --below\" heeds what it allows.\n\n"
          "Writes no file. Exits with 2 if the script can't be packed.",
      .example = "tavkit quality sounds.txt --below 20",
      .options = joined(scriptOptions(),
                        {belowOption("Exit with 1 if a sound has a ratio below DB decibels"),
                         {.names = "--json", .help = "Print one JSON document"}}),
      .run = runQuality,
  };
}

}  // namespace tavrel::kit
