#include "kit/report/sequence_picture.h"

#include <array>
#include <vector>

#include "kit/bank/asset_facts.h"
#include "kit/frame/captured_console.h"
#include "midi/sequence_clock.h"

namespace tavrel::kit {

namespace {

constexpr std::uint32_t kMetaTimeSignature = 0x58;

/// What is collected at most of each kind, so that the page stays in proportion to the bank.
constexpr std::size_t kMostNotes = 100'000;
constexpr std::size_t kMostChanges = 10'000;

struct Note {
  std::uint64_t start = 0;  ///< in ticks
  std::uint64_t length = 0;
  std::uint8_t number = 0;
  std::uint8_t velocity = 0;
  std::uint8_t channel = 0;
};

/// Collects notes. A note-off ends the oldest note of its number and channel.
class NoteList {
 public:
  void start(const MidiEvent& event, std::uint64_t tick) {
    if (notes_.size() == kMostNotes) {
      isWhole_ = false;
      return;
    }
    open(event).ids.push_back(notes_.size());
    notes_.push_back({.start = tick,
                      .number = payloadByte(event, 0),
                      .velocity = payloadByte(event, 1),
                      .channel = event.statusLow});
  }

  void stop(const MidiEvent& event, std::uint64_t tick) {
    OpenNotes& notes = open(event);
    if (notes.ended < notes.ids.size()) {
      Note& note = notes_[notes.ids[notes.ended++]];
      note.length = tick - note.start;
    }
  }

  /// Ends all notes that still sound.
  void stopAll(std::uint64_t tick) {
    for (auto& channel : open_) {
      for (OpenNotes& notes : channel) {
        for (; notes.ended < notes.ids.size(); ++notes.ended) {
          Note& note = notes_[notes.ids[notes.ended]];
          note.length = tick - note.start;
        }
      }
    }
  }

  /// Puts five numbers for each note.
  void put(Json& json) const {
    Json list = Json::array();
    list.get_ref<Json::array_t&>().reserve(5 * notes_.size());
    for (const Note& note : notes_) {
      list.push_back(note.start);
      list.push_back(note.length);
      list.push_back(note.number);
      list.push_back(note.velocity);
      list.push_back(note.channel);
    }
    json["notes"] = std::move(list);
    json["hasAllNotes"] = isWhole_;
  }

 private:
  struct OpenNotes {
    std::vector<std::size_t> ids;
    std::size_t ended = 0;
  };

  OpenNotes& open(const MidiEvent& event) { return open_[event.statusLow][payloadByte(event, 0)]; }

  std::vector<Note> notes_;
  std::array<std::array<OpenNotes, 256>, 16> open_;
  bool isWhole_ = true;
};

/// Walks through a sequence and collects what is drawn.
class Walk {
 public:
  explicit Walk(std::uint16_t division) : clock_(division) { addTempo(500'000); }

  void take(const MidiEvent& event) {
    tick_ += event.deltaTime;
    clock_.advance(event.deltaTime);
    if (isNoteOn(event)) {
      notes_.start(event, tick_);
    } else if (isNoteOff(event)) {
      notes_.stop(event, tick_);
    } else if (isMetaType(event, kMetaTempo) && event.dataLength >= 3) {
      clock_.setTempo(event);
      addTempo(tempoOf(event));
    } else if (isMetaType(event, kMetaTimeSignature) && event.dataLength >= 2 &&
               signatures_.size() < kMostChanges) {
      signatures_.push_back({tick_, payloadByte(event, 0), payloadByte(event, 1)});
    }
  }

  Json asJson() {
    notes_.stopAll(tick_);
    Json json = {{"ticks", tick_}, {"tempos", tempos_}, {"signatures", signatures_}};
    notes_.put(json);
    return json;
  }

 private:
  /// Adds tick, seconds and tempo of a change. The time of later ticks goes on from there.
  void addTempo(std::uint32_t microseconds) {
    if (tempos_.size() < kMostChanges) {
      tempos_.push_back({tick_, rounded(clock_.seconds().value_or(0), 6), microseconds});
    }
  }

  SequenceClock clock_;
  std::uint64_t tick_ = 0;
  NoteList notes_;
  Json tempos_ = Json::array();
  Json signatures_ = Json::array();
};

}  // namespace

Json sequencePicture(BankFile& bank, const tavrel_asset& asset) {
  const CapturedConsole silence;
  MidiFile file;
  if (!file.useImage(bank.blob(asset), asset.size) || !file.readHeaderChunk() ||
      !file.readTrackHeader()) {
    requireMemory(file);
    return nullptr;
  }
  Walk walk(file.ppqn);
  HeldEvent event;
  bool isEnd = false;
  while (!isEnd && file.getNextEvent(event)) {
    walk.take(event);
    isEnd = isMetaType(event, kMetaEndOfTrack);
    clearEvent(event);
  }
  requireMemory(file);
  Json json = walk.asJson();
  json["division"] = file.ppqn;
  return json;
}

}  // namespace tavrel::kit
