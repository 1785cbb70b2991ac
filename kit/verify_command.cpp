// tavkit verify: whether a bank and its header are what the tool would write.
#include <fmt/format.h>

#include "kit/commands.h"
#include "kit/frame/colour.h"
#include "kit/frame/display_text.h"
#include "kit/frame/output.h"
#include "kit/frame/script_options.h"
#include "kit/verify/verify.h"
#include "kit/verify/verify_json.h"

namespace tavrel::kit {

namespace {

std::string failureText(const std::string& code, const std::string& message, bool isColoured) {
  return fmt::format("{}FAIL{}  {}: {}\n", isColoured ? kRed : "", isColoured ? kPlain : "", code,
                     message);
}

/// Returns what the verdicts don't cover.
std::string limits(const Subject& subject) {
  std::vector<const char*> unchecked;
  if (!subject.bank.header) {
    unchecked.push_back("the header, which is missing");
  }
  if (!subject.script) {
    unchecked.push_back("the content of blobs that aren't sequences");
  }
  return fmt::format(", {}{}{}", countText(subject.count(), "asset"),
                     unchecked.empty() ? "" : "; not checked: ", fmt::join(unchecked, ", and "));
}

std::string asText(const Subject& subject, const std::vector<Verdict>& verdicts, bool isColoured) {
  std::string text;
  for (const auto& [check, findings] : verdicts) {
    if (findings.empty()) {
      text += fmt::format("ok    {}: {}{}\n", check->code, check->fine,
                          check == &openCheck() ? limits(subject) : "");
    }
    for (const Finding& finding : findings) {
      text += failureText(check->code, fullMessage(subject.bank, finding), isColoured);
    }
  }
  return text;
}

int runVerify(const Arguments& arguments, Output& output) {
  requireScriptFor(arguments);
  changeDirectory(arguments);
  Subject subject{.bank = withHeader(BankFile(arguments.operands.front()), headerChoice(arguments)),
                  .sequences = {},
                  .script = {}};
  if (const auto script = arguments.value("--script")) {
    subject.script = std::make_unique<ScriptComparison>(subject.bank, planFor(*script, arguments));
  }
  subject.sequences = readSequences(subject.bank.file);
  const std::vector<Verdict> verdicts = verify(subject);
  output.results = arguments.has("--json") ? documentText(verdictsAsJson(subject, verdicts))
                                           : asText(subject, verdicts, output.isColoured);
  return isFine(verdicts) ? exitYes : exitNo;
}

}  // namespace

Command verifyCommand() {
  return {
      .name = "verify",
      .operands = {.synopsis = "BANK", .fewest = 1, .most = 1, .completion = Completion::bank},
      .summary = "Check a bank and its header for damage",
      .description =
          "Checks that the bank and its header are what tavrel writes. Prints a line that begins "
          "with FAIL for each finding, and a line that begins with ok for each check without one. "
          "Exits with 1 if there is a finding. A bank that doesn't open is not checked any "
          "further.\n\n"
          "Checks of the bank: open (it opens), gap (each blob begins where the one before it and "
          "its padding end), padding (it is zero), length (the bank is no longer than its data and "
          "their padding), type (each type is known).\n\n"
          "Checks of records: parameter (it is in range for the type), unused-parameter (it is 0 "
          "where the type has none; a wave that doesn't loop has no loop points).\n\n"
          "Checks of blobs: adpcm-length (ADPCM has a multiple of 4 bytes), sequence (it can be "
          "read up to its End of Track), division and tempo (they are those of the sequence), loop "
          "(it lies inside its wave and starts before its end).\n\n"
          "Checks of the header: guard, sizes and file-name (they are what tavrel writes for a "
          "bank of this name), define (it is a C identifier and a number), duplicate (no name is "
          "there twice), missing-define (each asset has a define), extra-define (each define "
          "belongs to an asset that has no other).\n\n"
          "Checks against the script, with --script: it is packed again in memory, as tavrel would "
          "with the options given here, and compared asset by asset: stale (its type, bytes and "
          "parameters are what the script packs), missing (the bank has each asset of the script), "
          "extra (the script has each asset of the bank), reordered (the assets that both have are "
          "in the same order, so one that was inserted or removed moves no other). Assets are "
          "matched by define, or by id if the bank has no header. With --header-dir the header is "
          "looked for there instead of next to the bank. Exits with 2 if the script can't be "
          "packed.\n\n"
          "Without the script the samples of waves and the content of opaque assets can't be "
          "proven right or wrong: any bytes are allowed.",
      .example = "tavkit verify sfx.tvb --script sounds.txt",
      .options =
          joined(joined(bankOptions(), {scriptOption("Compare the bank with what SCRIPT packs")}),
                 joined(scriptOptions(), {{.names = "--json", .help = "Print one JSON document"}})),
      .run = runVerify,
  };
}

}  // namespace tavrel::kit
