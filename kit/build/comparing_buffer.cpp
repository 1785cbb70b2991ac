#include "kit/build/comparing_buffer.h"

#include <algorithm>
#include <cstring>

#include "platform/host_path.h"

namespace tavrel::kit {

ComparingBuffer::ComparingBuffer(const std::string& path) {
  const bool isOpen = pathKind(path.c_str()) == PathKind::file &&
                      file_.open(path, std::ios::in | std::ios::binary) != nullptr;
  const std::streamoff size = isOpen ? std::streamoff(file_.pubseekoff(0, std::ios::end)) : -1;
  isEqual_ = size >= 0;
  size_ = static_cast<std::uint64_t>(std::max<std::streamoff>(size, 0));
  file_.pubseekpos(0);
}

ComparingBuffer::int_type ComparingBuffer::overflow(int_type character) {
  if (!traits_type::eq_int_type(character, traits_type::eof())) {
    const char one = traits_type::to_char_type(character);
    xsputn(&one, 1);
  }
  return traits_type::not_eof(character);
}

std::streamsize ComparingBuffer::xsputn(const char* text, std::streamsize count) {
  for (std::streamsize done = 0; isEqual_ && done < count;) {
    const auto left = static_cast<std::size_t>(count - done);
    const std::size_t length = std::min(left, piece_.size());
    compare(text + done, length);
    done += static_cast<std::streamsize>(length);
  }
  position_ += static_cast<std::uint64_t>(count);
  end_ = std::max(end_, position_);
  return count;
}

void ComparingBuffer::compare(const char* text, std::size_t count) {
  const auto length = static_cast<std::streamsize>(count);
  isEqual_ =
      file_.sgetn(piece_.data(), length) == length && std::memcmp(text, piece_.data(), count) == 0;
}

ComparingBuffer::pos_type ComparingBuffer::seekpos(pos_type position,
                                                   std::ios_base::openmode /*which*/) {
  position_ = static_cast<std::uint64_t>(std::streamoff(position));
  isEqual_ = isEqual_ && file_.pubseekpos(position) == position;
  return position;
}

}  // namespace tavrel::kit
