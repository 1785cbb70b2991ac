// Builds Standard MIDI Files readably, damage included:
//   midi().ppqn(96).track(events().note(0, 1, 60, 100).endOfTrack())
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tests/support/bytes.h"

namespace tavrel::test {

/// The events of a track. Times are delta times in ticks, channels count from 1.
class Events {
 public:
  /// A delta time and whatever is to stand behind it.
  Events& raw(std::uint32_t delta, std::string_view bytes) {
    variableLength(delta);
    bytes_.text(bytes);
    return *this;
  }
  /// A message of one data byte.
  Events& message(std::uint32_t delta, std::uint32_t status, std::uint32_t data) {
    return raw(delta, Bytes().u8(status).u8(data));
  }
  /// A message of two data bytes.
  Events& message(std::uint32_t delta, std::uint32_t status, std::uint32_t first,
                  std::uint32_t second) {
    return raw(delta, Bytes().u8(status).u8(first).u8(second));
  }
  /// A message of two data bytes that takes its status from the event before.
  Events& running(std::uint32_t delta, std::uint32_t first, std::uint32_t second) {
    return raw(delta, Bytes().u8(first).u8(second));
  }
  /// A note on; with a velocity of 0 it ends the note.
  Events& note(std::uint32_t delta, std::uint32_t channel, std::uint32_t number,
               std::uint32_t velocity) {
    return message(delta, 0x90 + channel - 1, number, velocity);
  }
  Events& noteOff(std::uint32_t delta, std::uint32_t channel, std::uint32_t number) {
    return message(delta, 0x80 + channel - 1, number, 64);
  }
  Events& meta(std::uint32_t delta, std::uint32_t type, std::string_view payload) {
    return raw(delta, Bytes().u8(0xFF).u8(type)).withLength(payload);
  }
  /// A system event; `payload` goes up to the closing 0xF7, if there is one.
  Events& system(std::uint32_t delta, std::uint32_t status, std::string_view payload) {
    return raw(delta, Bytes().u8(status)).withLength(payload);
  }
  Events& tempo(std::uint32_t delta, std::uint32_t microseconds) {
    return meta(delta, 0x51, Bytes().u8(microseconds >> 16).be16(microseconds));
  }
  Events& endOfTrack(std::uint32_t delta = 0) { return meta(delta, 0x2F, ""); }
  Events& append(const Events& more) {
    bytes_.text(more.str());
    return *this;
  }

  [[nodiscard]] const std::string& str() const { return bytes_.str(); }

 private:
  Events& withLength(std::string_view payload) {
    return raw(static_cast<std::uint32_t>(payload.size()), payload);
  }
  void variableLength(std::uint32_t value) {
    for (int shift = 28; shift > 0; shift -= 7) {
      if (value >> shift != 0) {
        bytes_.u8((value >> shift & 0x7F) | 0x80);
      }
    }
    bytes_.u8(value & 0x7F);
  }

  Bytes bytes_;
};

inline Events events() { return {}; }

/// A file of one header and any number of tracks: format 0, 96 ticks per quarter note, and lengths
/// and a count of tracks that are true, unless the test claims others.
class MidiBuilder {
 public:
  MidiBuilder& format(std::uint32_t value) { return set(format_, value); }
  MidiBuilder& ppqn(std::uint32_t value) { return set(ppqn_, value); }
  MidiBuilder& claimTracks(std::uint32_t count) { return set(claimedTracks_, count); }
  /// More header bytes, behind the three words and counted in the header's length.
  MidiBuilder& headerTail(const std::string& bytes) { return set(headerTail_, bytes); }
  MidiBuilder& track(const Events& events) {
    return track(events, static_cast<std::uint32_t>(events.str().size()));
  }
  MidiBuilder& track(const Events& events, std::uint32_t claimedLength) {
    ++tracks_;
    return chunk("MTrk", claimedLength, events.str());
  }
  MidiBuilder& chunk(std::string_view id, std::uint32_t claimedLength, std::string_view content) {
    return trailing(Bytes().text(id).be32(claimedLength).text(content));
  }
  MidiBuilder& trailing(std::string_view bytes) {
    chunks_.text(bytes);
    return *this;
  }

  [[nodiscard]] std::string str() const {
    Bytes file;
    file.text("MThd").be32(static_cast<std::uint32_t>(2 + 2 + 2 + headerTail_.size()));
    file.be16(format_).be16(claimedTracks_.value_or(tracks_)).be16(ppqn_).text(headerTail_);
    return file.text(chunks_.str());
  }
  operator std::string() const { return str(); }  // NOLINT(google-explicit-constructor)

 private:
  template <typename Field, typename Value>
  MidiBuilder& set(Field& field, const Value& value) {
    field = value;
    return *this;
  }

  std::uint32_t format_ = 0;
  std::uint32_t ppqn_ = 96;
  std::uint32_t tracks_ = 0;
  std::optional<std::uint32_t> claimedTracks_;
  std::string headerTail_;
  Bytes chunks_;
};

inline MidiBuilder midi() { return {}; }

}  // namespace tavrel::test
