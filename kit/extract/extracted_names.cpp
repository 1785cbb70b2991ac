#include "kit/extract/extracted_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <unordered_map>

#include "kit/frame/ascii.h"
#include "kit/frame/contains.h"
#include "kit/frame/display_text.h"

namespace tavrel::kit {

namespace {

constexpr std::size_t kLongestName = 200;  // in bytes
constexpr const char* kOpaqueExtension = "bin";

// Devices of Windows, with any extension. The last characters of the last ones are digits in
// superscript.
constexpr std::array<std::string_view, 7> kDevices{"con",    "prn",     "aux",   "nul",
                                                   "conin$", "conout$", "clock$"};
constexpr std::array<std::string_view, 2> kNumberedDevices{"com", "lpt"};
constexpr std::array<std::string_view, 13> kDeviceNumbers{
    "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "\u00B9", "\u00B2", "\u00B3"};

bool isDevice(std::string_view name) {
  std::string stem = lowered(name.substr(0, name.find('.')));
  stem.erase(stem.find_last_not_of(' ') + 1);
  return contains(kDevices, stem) || (contains(kNumberedDevices, stem.substr(0, 3)) &&
                                      contains(kDeviceNumbers, std::string_view(stem).substr(3)));
}

/// The forms of a name, in the order in which they are tried.
enum Form : std::uint8_t { formDefine, formDefineAndId, formId };

/// An asset's parts of a name, and the form that it has got.
struct Candidate {
  std::size_t id = 0;
  std::string stem{};
  std::string extension{};
  Form form = formDefine;

  [[nodiscard]] std::string name() const {
    switch (form) {
      case formDefine:
        return fmt::format("{}.{}", stem, extension);
      case formDefineAndId:
        return fmt::format("{}_{}.{}", stem, id, extension);
      case formId:
        break;
    }
    return fmt::format("{:04}.{}", id, extension);
  }
};

/// Names a candidate after its id, with its extension if a safe name comes out.
void useId(Candidate& candidate) {
  candidate.form = formId;
  if (!isSafeName(candidate.name())) {
    candidate.extension = kOpaqueExtension;
  }
}

Candidate candidateOf(std::size_t id, const NameRequest& request) {
  const DefineParts parts = definePartsOf(request.define);
  Candidate candidate{.id = id, .stem = parts.stem, .extension = request.extension};
  if (candidate.extension.empty()) {
    candidate.extension = parts.extension.empty() ? kOpaqueExtension : parts.extension;
  }
  if (candidate.stem.empty() || !isSafeName(candidate.name())) {
    useId(candidate);
  }
  return candidate;
}

/// Lets all assets that share a define's name try the next form.
void separate(std::vector<Candidate>& candidates) {
  std::unordered_map<std::string, std::size_t> uses;
  for (const Candidate& candidate : candidates) {
    ++uses[candidate.name()];
  }
  for (Candidate& candidate : candidates) {
    if (candidate.form == formDefine && uses[candidate.name()] > 1) {
      candidate.form = formDefineAndId;
    }
  }
}

/// Returns all ids, sorted by form.
std::vector<std::size_t> placingOrder(const std::vector<Candidate>& candidates) {
  std::vector<std::size_t> ids(candidates.size());
  std::iota(ids.begin(), ids.end(), std::size_t{0});
  std::stable_sort(ids.begin(), ids.end(), [&candidates](std::size_t left, std::size_t right) {
    return candidates[left].form < candidates[right].form;
  });
  return ids;
}

/// Table of names and the ids of their owners. Once `separate` is done, two names of the same form
/// are never alike.
class NameTable {
 public:
  explicit NameTable(std::vector<Candidate>& candidates) : candidates_(candidates) {}

  /// Gives the candidate a name that is free. The last form has no alternative, so it takes a name
  /// from an owner that has it from its define, and the owner gets another one.
  void place(Candidate* candidate) {
    while (candidate != nullptr) {
      if (candidate->form == formDefineAndId && !isSafeName(candidate->name())) {
        useId(*candidate);
      }
      const auto [entry, isNew] = owners_.emplace(candidate->name(), candidate->id);
      if (isNew) {
        return;
      }
      if (candidate->form == formDefineAndId) {
        useId(*candidate);
        continue;
      }
      Candidate& owner = candidates_[entry->second];
      entry->second = candidate->id;
      owner.form = formDefineAndId;
      candidate = &owner;
    }
  }

 private:
  std::vector<Candidate>& candidates_;
  std::unordered_map<std::string, std::size_t> owners_;
};

}  // namespace

DefineParts definePartsOf(std::string_view define) {
  const std::size_t split = std::min(define.rfind('_'), define.size());
  return {.stem = lowered(define.substr(0, split)),
          .extension = lowered(define.substr(std::min(split + 1, define.size())))};
}

bool isSafeName(std::string_view name) {
  return !name.empty() && name.size() <= kLongestName && name.front() != '.' &&
         name.back() != '.' && name.back() != ' ' && name.find("..") == std::string_view::npos &&
         name.find_first_of("/\\:*?\"<>|") == std::string_view::npos && displayText(name) == name &&
         !isDevice(name);
}

std::vector<std::string> extractedNames(const std::vector<NameRequest>& requests) {
  std::vector<Candidate> candidates;
  candidates.reserve(requests.size());
  for (const NameRequest& request : requests) {
    candidates.push_back(candidateOf(candidates.size(), request));
  }
  separate(candidates);
  NameTable table(candidates);
  for (const std::size_t id : placingOrder(candidates)) {
    table.place(&candidates[id]);
  }
  std::vector<std::string> names;
  names.reserve(candidates.size());
  for (const Candidate& candidate : candidates) {
    names.push_back(candidate.name());
  }
  return names;
}

}  // namespace tavrel::kit
