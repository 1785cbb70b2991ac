// Builds Standard MIDI Files readably:
//   midi().ppqn(96).track(events().note(0, 1, 60, 100).endOfTrack())
#pragma once

#include "tests/support/bytes.h"

namespace tavrel::test {

/// The events of a track. Times are delta times in ticks, channels count from 1.
class Events : public Bytes {
 public:
  using Number = std::uint32_t;

  /// A delta time and whatever is to stand behind it.
  Events& raw(Number delta, std::string_view bytes) {
    std::string time(1, static_cast<char>(delta & 0x7F));
    for (Number rest = delta >> 7; rest != 0; rest >>= 7) {
      time.insert(0, 1, static_cast<char>(rest | 0x80));
    }
    text(time).text(bytes);
    return *this;
  }
  /// A message: its status, unless that is the one of the event before, and its data bytes.
  Events& message(Number delta, auto... bytes) {
    return raw(delta, std::string{static_cast<char>(bytes)...});
  }
  Events& running(Number delta, Number a, Number b) { return message(delta, a, b); }
  /// A note on; with a velocity of 0 it ends the note.
  Events& note(Number delta, Number channel, Number number, Number velocity) {
    return message(delta, 0x90 + channel - 1, number, velocity);
  }
  Events& noteOff(Number delta, Number channel, Number number) {
    return message(delta, 0x80 + channel - 1, number, 64);
  }
  Events& meta(Number delta, Number type, std::string_view payload) {
    return message(delta, 0xFF, type).withLength(payload);
  }
  /// A system event; `payload` goes up to the closing 0xF7, if there is one.
  Events& system(Number delta, Number status, std::string_view payload) {
    return message(delta, status).withLength(payload);
  }
  Events& tempo(Number delta, Number microseconds) {
    return meta(delta, 0x51, Bytes().u8(microseconds >> 16).be16(microseconds));
  }
  Events& endOfTrack(Number delta = 0) { return meta(delta, 0x2F, ""); }

 private:
  Events& withLength(std::string_view payload) {
    return raw(static_cast<Number>(payload.size()), payload);
  }
};

inline Events events() { return {}; }

/// A file of one header and any number of tracks: format 0 and 96 ticks per quarter note, unless
/// the test sets others.
class MidiBuilder {
 public:
  MidiBuilder& format(std::uint32_t value) { return set(format_, value); }
  MidiBuilder& ppqn(std::uint32_t value) { return set(ppqn_, value); }
  MidiBuilder& track(std::string_view events) {
    ++tracks_;
    const auto length = static_cast<std::uint32_t>(events.size());
    return trailing(Bytes().text("MTrk").be32(length).text(events));
  }
  MidiBuilder& trailing(std::string_view bytes) {
    chunks_ += bytes;
    return *this;
  }

  [[nodiscard]] std::string str() const {
    return Bytes().text("MThd").be32(6).be16(format_).be16(tracks_).be16(ppqn_).text(chunks_);
  }
  operator std::string() const { return str(); }  // NOLINT(google-explicit-constructor)

 private:
  MidiBuilder& set(std::uint32_t& field, std::uint32_t value) {
    field = value;
    return *this;
  }

  std::uint32_t format_ = 0;
  std::uint32_t ppqn_ = 96;
  std::uint32_t tracks_ = 0;
  std::string chunks_;
};

inline MidiBuilder midi() { return {}; }

}  // namespace tavrel::test
