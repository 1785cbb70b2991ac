// tavkit report: one HTML file in which to look at a bank and to listen to it.
#include <fmt/format.h>

#include <filesystem>

#include "kit/check/opened_names.h"
#include "kit/check/run_file.h"
#include "kit/commands.h"
#include "kit/frame/failure.h"
#include "kit/frame/output.h"
#include "kit/frame/output_file.h"
#include "kit/frame/progress.h"
#include "kit/frame/script_options.h"
#include "kit/frame/whole_number.h"
#include "kit/report/asset_picture.h"
#include "kit/report/page.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

/// Returns the limit of --audio-limit in bytes.
std::uint64_t audioLimit(const Arguments& arguments) {
  constexpr std::uint64_t kMebibyte = std::uint64_t{1} << 20U;
  const std::string text = arguments.value("--audio-limit").value_or("32");
  const auto limit = wholeNumber(text);
  if (!limit) {
    throw Failure(
        fmt::format("--audio-limit takes a number of mebibytes, 0 to 4294967295, not {}", text));
  }
  return *limit * kMebibyte;
}

std::string pagePath(const Arguments& arguments) {
  if (const auto path = arguments.value("--output")) {
    return hostPath(path->c_str());
  }
  const std::filesystem::path bank(hostPath(arguments.operands.front().c_str()));
  return bank.stem().string() + ".html";
}

/// Throws Failure if the page would replace a file that it is made from.
void requireNoSource(const std::string& page, const NamedBank& bank, const Arguments& arguments) {
  std::vector<std::string> sources;
  if (const auto script = arguments.value("--script")) {
    sources = openedNames(modelOf(*script));
    sources.push_back(hostPath(script->c_str()));
  }
  if (bank.header) {
    sources.push_back(hostPath(bank.headerPath.c_str()));
  }
  sources.push_back(hostPath(bank.file.path.c_str()));
  if (isOneOf(page, sources)) {
    throw Failure(fmt::format("the page would replace {}, which it is made from", page));
  }
}

/// Writes a document in an element that browsers neither run nor show. A "<" in it is escaped, so
/// that no text can end the element.
void writeData(OutputFile& page, const std::string& id, const Json& document) {
  std::string text = fmt::format(R"(<script type="application/json" id="{}">)", id);
  for (const char c : document.dump(-1, ' ', false, Json::error_handler_t::replace)) {
    if (c == '<') {
      text += "\\u003c";
    } else {
      text += c;
    }
  }
  text += "</script>\n";
  page.write(text.data(), text.size());
}

void writeAssets(OutputFile& page, ReportData& data, AudioBudget budget) {
  Progress progress(data.subject.bank.file.size);
  for (std::uint32_t id = 0; id < data.subject.count(); ++id) {
    writeData(page, fmt::format("asset-{}", id), assetPicture(data, id, budget));
    progress.advance(data.subject.bank.assets()[id].size);
  }
}

int runReport(const Arguments& arguments, Output& /*output*/) {
  requireScriptFor(arguments);
  const AudioBudget budget(audioLimit(arguments));
  changeDirectory(arguments);
  const std::string path = pagePath(arguments);
  const auto script = arguments.value("--script");
  const auto plan = script ? std::optional(planFor(*script, arguments)) : std::nullopt;
  ReportData data = reportData(openNamedBank(arguments), plan);
  if (data.check) {
    data.check->path = pathForUser(*script, arguments);
  }
  requireNoSource(path, data.subject.bank, arguments);
  OutputFile page(path, Existing::followLink);
  page.write(kPageStart.data(), kPageStart.size());
  writeData(page, "report", reportAsJson(data));
  writeAssets(page, data, budget);
  page.write(kPageEnd.data(), kPageEnd.size());
  page.finish();
  return exitYes;
}

}  // namespace

Command reportCommand() {
  return {
      .name = "report",
      .operands = {.synopsis = "BANK", .fewest = 1, .most = 1, .completion = Completion::bank},
      .summary = "Write a page in which to look at a bank and to listen to it",
      .description =
          "Writes one HTML file, which opens from disk in any browser and loads nothing from "
          "anywhere. It shows what the bank is made of, what verify finds, the largest assets and "
          "those with the same content, and then each asset: waves with their loops, to be played, "
          "sequences as piano rolls, with a preview by plain oscillators, and the first bytes of "
          "everything else. With --script it also shows what check finds, and compares each "
          "compressed sound with its source.\n\n"
          "The file is STEM.html in the current folder, after the name of the bank, unless -o is "
          "given. An older one is replaced.\n\n"
          "Sounds are in the page as the bank has them, up to the limit of --audio-limit, in the "
          "order of their ids. One that no longer fits is left out, and the next may still fit. "
          "Waveforms are shown for all.\n\n"
          "In the page, up and down choose an asset, space plays and stops it, and / goes to the "
          "search. An asset has a link of its own, such as sfx.html#SFX_BOOM_WAV.\n\n"
          "Exits with 0 when the page is written, whatever it shows: with a script that tavrel "
          "can't pack as well.",
      .example = "tavkit report sfx.tvb --script sounds.txt",
      .options = joined(
          joined(bankOptions(), {scriptOption("Compare the bank with SCRIPT and its files")}),
          joined(scriptOptions(),
                 {{.names = "-o,--output",
                   .value = "FILE",
                   .help = "Write the page to FILE, replacing an older one",
                   .completion = Completion::file},
                  {.names = "--audio-limit",
                   .value = "MIB",
                   .help = "Leave out sounds beyond MIB mebibytes in total, 32 by default"}})),
      .run = runReport,
  };
}

}  // namespace tavrel::kit
