// tavkit extract: the assets of a bank as files.
#include <fmt/format.h>

#include <filesystem>

#include "kit/bank/asset_choice.h"
#include "kit/bank/asset_facts.h"
#include "kit/commands.h"
#include "kit/extract/extraction_plan.h"
#include "kit/extract/script_plan.h"
#include "kit/frame/display_text.h"
#include "kit/frame/failure.h"
#include "kit/frame/output.h"
#include "kit/frame/output_file.h"
#include "kit/frame/whole_number.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

namespace fs = std::filesystem;

std::uint16_t channelsOf(const Arguments& arguments) {
  const std::string text = arguments.value("--channels").value_or("1");
  const auto channels = wholeNumber(text);
  if (!channels || *channels < 1 || *channels > kMostChannels) {
    throw Failure(
        fmt::format("--channels must be a number from 1 to {}, not {}", kMostChannels, text));
  }
  return static_cast<std::uint16_t>(*channels);
}

ExtractionRequest requestOf(const Arguments& arguments) {
  return {.folder = hostPath(arguments.value("--output").value_or("").c_str()),
          .isRaw = arguments.has("--raw"),
          .channels = channelsOf(arguments),
          .replaces = arguments.has("--force")};
}

/// Makes the folder if it is missing. Returns true if it has been made.
bool makeFolder(const std::string& folder) {
  if (folder.empty() || pathKind(folder.c_str()) == PathKind::directory) {
    return false;
  }
  std::error_code error;
  const bool isNew = fs::create_directory(folder, error);
  if (error) {
    throw Failure(fmt::format("can't make the folder {}: {}", folder, error.message()));
  }
  return isNew;
}

Existing existingOf(const ExtractionRequest& request) {
  return request.replaces ? Existing::replace : Existing::refuse;
}

void writeFiles(NamedBank& bank, const std::vector<ExtractedFile>& files,
                const ExtractionRequest& request) {
  std::uint64_t bytes = 0;
  for (const ExtractedFile& file : files) {
    bytes += bank.assets()[file.id].size;
  }
  Progress progress(bytes);
  for (const ExtractedFile& file : files) {
    OutputFile output(file.path, existingOf(request));
    const AssetSource source{bank.file, bank.assets()[file.id], progress};
    const ByteSink write = [&output](const std::uint8_t* piece, std::uint64_t count) {
      output.write(piece, count);
    };
    if (file.wave) {
      writeWave(source, *file.wave, write);
    } else {
      writeBlob(source, write);
    }
    output.finish();
  }
}

/// As `writeFiles`, with the folder made before. After a failure, files that are whole stay.
void writeIntoFolder(NamedBank& bank, const std::vector<ExtractedFile>& files,
                     const ExtractionRequest& request) {
  const bool isNew = makeFolder(request.folder);
  try {
    writeFiles(bank, files, request);
  } catch (...) {
    std::error_code isNotEmpty;
    if (isNew) {
      fs::remove(request.folder, isNotEmpty);
    }
    throw;
  }
}

/// Returns a line for each thing in the files that isn't as the bank has it.
std::string notes(const NamedBank& bank, const std::vector<ExtractedFile>& files,
                  const ExtractionRequest& request) {
  std::string lines;
  for (const ExtractedFile& file : files) {
    const tavrel_asset& asset = bank.assets()[file.id];
    for (const std::string& change : file.wave ? file.wave->changes : std::vector<std::string>()) {
      lines += fmt::format("tavkit: {}: {}\n", displayText(file.name), change);
    }
    if (asset.type == TAVREL_WAVE && !file.wave && !request.isRaw) {
      lines += fmt::format("tavkit: {}: no WAV file holds samples of {} bits; written as it is\n",
                           displayText(file.name), waveFacts(asset).bits);
    }
  }
  return lines;
}

void extractWithScript(NamedBank& bank, const std::vector<std::uint32_t>& ids,
                       const ExtractionRequest& request, const std::string& path, Output& output) {
  if (request.isRaw) {
    throw Failure("--script doesn't go with --raw: no script packs raw waves");
  }
  const ScriptPlan plan = planScript(bank, ids, request, path);
  writeIntoFolder(bank, plan.files, request);
  writeFile(path, plan.script, existingOf(request));
  output.messages += notes(bank, plan.files, request);
  for (const std::string& note : plan.notes) {
    output.messages += fmt::format("tavkit: {}\n", note);
  }
}

int runExtract(const Arguments& arguments, Output& output) {
  const ExtractionRequest request = requestOf(arguments);
  NamedBank bank = openNamedBank(arguments);
  const std::vector<std::uint32_t> ids =
      chosenAssets(bank, {arguments.operands.begin() + 1, arguments.operands.end()});
  const auto script = arguments.value("--script");
  if (script) {
    extractWithScript(bank, ids, request, hostPath(script->c_str()), output);
  } else {
    const std::vector<ExtractedFile> files = plannedFiles(bank, ids, request);
    writeIntoFolder(bank, files, request);
    output.messages += notes(bank, files, request);
  }
  return exitYes;
}

}  // namespace

Command extractCommand() {
  return {
      .name = "extract",
      .operands = {.synopsis = "BANK [ID | DEFINE ...]",
                   .fewest = 1,
                   .most = Operands::kAnyNumber,
                   .completion = Completion::bank},
      .summary = "Write the assets of a bank to files",
      .description =
          "Writes all assets to files, or those that are named: by id, or by define, with or "
          "without the bank's prefix and in any case. The extension is part of a define: "
          "boom_wav, not boom. Prints a line for each thing that a file can't hold as the bank "
          "has it.\n\n"
          "Waves become WAV files. ADPCM is decoded to 16 bits, and a loop becomes a smpl "
          "chunk. A sample rate of 0 or below becomes 22050 Hz, and a loop that isn't inside "
          "the sound is left out. Samples of other widths than 4, 8, 16, 24 and 32 bits are "
          "written as they are, to a .raw file. Sequences become .mid files, and all other "
          "assets are written as they are.\n\n"
          "A file is named after the define without the bank's prefix, in lower case: boom.wav "
          "for SFX_BOOM_WAV, and bell.wav for SFX_BELL_AIF. Waves and sequences get the "
          "extension of what is written, other assets keep that of their define, or get .bin "
          "if it has none. An asset without a define is named after its id, as in 0007.wav, "
          "and so is one whose name some system doesn't take: one with a separator, a control "
          "character or two dots in a row, the name of a device such as con, or a name of more "
          "than 200 bytes. If several assets have the same name, each gets its id too, as in "
          "level_4.dat, or the id alone if that name is taken. Without --script, the choice of "
          "assets doesn't change their names.\n\n"
          "With --script the files pack into the bank again. OUT.txt is a build script for "
          "them; its first lines say how to run it. Files then get the names that make the "
          "defines again: a sound whose define ends in _AIF becomes an AIFF file, and so does "
          "one whose loop isn't the whole sound, which no WAV file can hold for tavrel. An "
          "opaque file gets no extension if its define has none, and assets with the same "
          "define share a file if one serves all of them. Names in OUT.txt are relative to its "
          "folder, which can't be that of BANK, because packing would replace it. tavrel packs "
          "every asset in memory, and a line is printed for each one that won't be the same: "
          "its compressed samples were clamped, or its file can't have the name for its "
          "define. An asset that no statement makes is left out, so later ids change. With a "
          "choice of assets the script packs a bank of those. --channels is for WAV files; an "
          "AIFF file has one channel.\n\n"
          "If a file exists already, if a name isn't in the bank, if a sound is too long for a "
          "WAV file or if OUT.txt couldn't pack the files, nothing is written. Each file "
          "appears when it is whole. If the disk is full, files that are whole stay. OUT.txt "
          "is written last.",
      .example = "tavkit extract sfx.tvb -o sounds boom_wav 7",
      .options = joined({{.names = "-o,--output",
                          .value = "DIR",
                          .help = "Write to the folder DIR, which is made if its parent exists",
                          .completion = Completion::folder},
                         {.names = "--raw", .help = "Write waves as the bank has them, as .raw"},
                         {.names = "--channels",
                          .value = "N",
                          .help = "Treat waves as N interleaved channels, 1 by default"},
                         {.names = "--script",
                          .value = "OUT.txt",
                          .help = "Write a build script too, which packs the files into the bank",
                          .completion = Completion::file},
                         {.names = "--force",
                          .help = "Replace existing files; links themselves, not their targets"}},
                        bankOptions()),
      .run = runExtract,
  };
}

}  // namespace tavrel::kit
