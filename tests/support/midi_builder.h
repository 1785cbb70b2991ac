// Builds Standard MIDI Files readably:
//   midi().track(events().note(0, 1, 60, 100).endOfTrack())
#pragma once

#include "tests/support/bytes.h"

namespace tavrel::test {

using Number = std::size_t;

/// The events of a track. Times are delta times in ticks, channels count from 1.
class Events : public Bytes {
 public:
  /// A delta time followed by any bytes.
  Events& raw(Number delta, std::string_view bytes) {
    for (int shift = 28; shift > 0; shift -= 7) {
      fill(delta >> shift == 0 ? 0 : 1, delta >> shift | 0x80);
    }
    u8(delta & 0x7F).text(bytes);
    return *this;
  }
  /// A message: its status, unless that equals the previous one, and its data bytes.
  Events& message(Number delta, auto... bytes) {
    return raw(delta, std::string{static_cast<char>(bytes)...});
  }
  /// A note on; with a velocity of 0 it ends the note.
  Events& note(Number delta, Number channel, Number number, Number velocity) {
    return message(delta, 0x90 + channel - 1, number, velocity);
  }
  Events& noteOff(Number delta, Number channel, Number number) {
    return message(delta, 0x80 + channel - 1, number, 64);
  }
  Events& meta(Number delta, Number type, std::string_view payload) {
    return message(delta, 0xFF, type).raw(payload.size(), payload);
  }
  /// A system event; `payload` goes up to the closing 0xF7, if there is one.
  Events& system(Number delta, Number status, std::string_view payload) {
    return message(delta, status).raw(payload.size(), payload);
  }
  Events& tempo(Number delta, Number microseconds) {
    return meta(delta, 0x51, Bytes().u8(microseconds >> 16).be16(microseconds));
  }
  Events& endOfTrack(Number delta = 0) { return meta(delta, 0x2F, ""); }
};

inline Events events() { return {}; }

/// A header and any number of tracks.
class MidiBuilder : public Bytes {
 public:
  MidiBuilder(Number format, Number ppqn) { text("MThd").be32(6).be16(format).be16(0).be16(ppqn); }
  MidiBuilder& track(std::string_view events) {
    ++at(4 + 4 + 2 + 1);  // the number of tracks
    text("MTrk").be32(events.size()).text(events);
    return *this;
  }
};

inline MidiBuilder midi(Number ppqn = 96, Number format = 0) { return {format, ppqn}; }

}  // namespace tavrel::test
