// Operations of DiskFile on whole files and ranges.
#include "foundation/disk_file.h"
#include "platform/transfer.h"

namespace tavrel {

DiskFile::WholeRead DiskFile::readImage(ByteBlock& image, std::uint32_t& size,
                                        std::uint32_t spareBytes) {
  if (!open()) {
    return WholeRead::failed;
  }
  const WholeRead result = readOpenImage(image, size, spareBytes);
  close();  // can't fail: only files that are read are complete
  return result;
}

DiskFile::WholeRead DiskFile::readOpenImage(ByteBlock& image, std::uint32_t& size,
                                            std::uint32_t spareBytes) {
  if (!getSize(size)) {
    return WholeRead::failed;
  }
  image = newBytes(std::uint64_t{size} + spareBytes);
  if (!image) {
    return WholeRead::noMemory;
  }
  return read(image.get(), size) ? WholeRead::complete : WholeRead::failed;
}

bool DiskFile::readAll(ByteBlock& buffer, std::uint32_t& length) {
  if (!buffer) {
    std::uint32_t size = 0;
    if (!getSize(size)) {
      return false;
    }
    buffer = newBytes(size);
    if (!buffer) {
      return fail(errorNoMemory);
    }
    length = size;
  }
  return read(buffer.get(), length);
}

bool DiskFile::readWhole(ByteBlock& buffer, std::uint32_t& length) {
  return open() && readAll(buffer, length) && close();
}

bool DiskFile::writeWhole(const void* buffer, std::uint32_t length) {
  return buffer != nullptr && open() && write(buffer, length) && close();
}

bool DiskFile::readRange(void* buffer, std::uint32_t start, std::uint32_t end) {
  if (!canRead(buffer)) {
    return false;
  }
  if (end < start) {
    return fail(errorRead);
  }
  stream_.seekg(start);
  readBytes(stream_, buffer, end - start);
  return stream_.good() || fail(errorRead);
}

}  // namespace tavrel
