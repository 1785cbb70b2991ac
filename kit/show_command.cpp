// tavkit show: what a source file holds, and what a bank would make of it.
#include <fmt/format.h>

#include "compiler/script_language.h"
#include "kit/check/usual_type.h"
#include "kit/commands.h"
#include "kit/frame/arguments.h"
#include "kit/frame/captured_console.h"
#include "kit/frame/display_text.h"
#include "kit/frame/output.h"
#include "kit/show/file_view.h"

namespace tavrel::kit {

namespace {

/// Returns the view of a file of which nothing can be shown.
FileView opaqueView(const ShownFile& file) {
  const Converter converter = file.kind().converter;
  const bool isRead = converter == Converter::none || converter == Converter::rename;
  const AssetType type = usualType(file.name());
  return {.keyword = isRead || type != typeUserAsset ? statementOf(type).keyword : ""};
}

FileView viewOf(ShownFile& file) {
  const CapturedConsole silence;
  if (isWave(file.kind())) {
    return waveView(file);
  }
  if (isAiff(file.kind())) {
    return aiffView(file);
  }
  return isSequence(file.kind()) ? sequenceView(file) : opaqueView(file);
}

/// Appends what is said of one file. Returns true if a check of it finds no error.
bool showFile(const std::string& name, std::string& text) {
  ShownFile file(name);
  const std::string kind = file.kind().name.empty() ? "" : fmt::format("{}, ", file.kind().name);
  const FileView view = viewOf(file);
  const BankView bank = bankView(file, view);
  text += fmt::format("{}{}: {}{}\n{}{}", text.empty() ? "" : "\n", displayText(name), kind,
                      countText(file.size(), "byte"), bank.text, view.text);
  return bank.isWhole;
}

int runShow(const Arguments& arguments, Output& output) {
  bool isWhole = true;
  for (const std::string& name : arguments.operands) {
    isWhole = showFile(name, output.results) && isWhole;
  }
  return isWhole ? exitYes : exitNo;
}

}  // namespace

Command showCommand() {
  return {
      .name = "show",
      .operands = {.synopsis = "FILE ...",
                   .fewest = 1,
                   .most = Operands::kAnyNumber,
                   .completion = Completion::file},
      .summary = "Show what source files hold",
      .description =
          "Shows each file as tavrel reads it. Its content decides what it is, not its name. One "
          "line says what a bank would make of it and by which statement. What \"tavkit check\" "
          "would report of such a block follows. The exit code is 1 if that is an error, or if no "
          "statement reads such a file. Of a damaged file everything is shown that can be read. A "
          "file that can't be read at all, a folder and a device are exit code 2.\n\n"
          "Of a WAV file it shows the chunks, the format and the loops of its smpl chunks; of an "
          "AIFF file the chunks, the format, the instrument and the markers, which tavrel counts "
          "from 1 in the order of the file. A loop is its first frame and the one after its last. "
          "Note 60 is C3.\n\n"
          "The levels are those of the samples that tavrel reads, for each channel: the peak is "
          "the largest magnitude and RMS the root of the mean square, both in dB of full scale, "
          "which is a magnitude of 32768 for 16 bits. A sine of full scale has -3.01 dBFS RMS, "
          "and silence -inf. The DC offset is the mean in percent of full scale. Samples that "
          "aren't PCM have no levels.\n\n"
          "Of a MIDI file it shows the header and each event of the first track, the only one that "
          "tavrel reads, with bar, beat and tick. A bar has four quarter notes, whatever the time "
          "signature. A division in frames is taken as ticks per quarter note.",
      .example = "tavkit show engine.aif theme.mid",
      .options = {},
      .run = runShow,
  };
}

}  // namespace tavrel::kit
