#include "samples/riff_file.h"

#include "foundation/byte_order.h"

namespace tavrel {

namespace {

ChunkInfo withId(std::uint32_t id) {
  ChunkInfo info;
  info.chunkId = id;
  return info;
}

ChunkInfo withFormType(const char* formType) {
  ChunkInfo info;
  info.formType = littleFourCc(formType);
  return info;
}

}  // namespace

RiffFile::RiffFile(const char* fullName) : FileName(fullName) {}

bool RiffFile::open() {
  if (isOpen) {
    return false;
  }
  handle = mmioOpenA(name.get(), nullptr, kMmioBuffered);
  isOpen = handle != nullptr;
  return isOpen;
}

bool RiffFile::close() {
  if (!isOpen || mmioClose(handle, 0) != 0) {
    return false;
  }
  handle = nullptr;
  isOpen = false;
  return true;
}

bool RiffFile::descendRiff(const char* formType, ChunkInfo& info) {
  info = withFormType(formType);
  return descend(info, nullptr, kMmioFindRiff);
}

bool RiffFile::descendChunk(const char* id, ChunkInfo& info, ChunkInfo parent) {
  info = withId(littleFourCc(id));
  return descend(info, &parent, kMmioFindChunk);
}

bool RiffFile::descendList(const char* listType, ChunkInfo& info) {
  info = withFormType(listType);
  return descend(info, nullptr, kMmioFindList);
}

bool RiffFile::descendNext(ChunkInfo& info, ChunkInfo parent) {
  info = {};
  return descend(info, &parent, kMmioFindAny);
}

bool RiffFile::descendNamedChunk(const char* id, ChunkInfo& info) {
  return descendChunkById(littleFourCc(id), info);
}

bool RiffFile::descendChunkById(std::uint32_t value, ChunkInfo& info) {
  info = withId(value);
  return descend(info, nullptr, kMmioFindChunk);
}

bool RiffFile::descend(ChunkInfo& info, const ChunkInfo* parent, std::uint32_t flags) {
  return isOpen && mmioDescend(handle, &info, parent, flags) == 0;
}

bool RiffFile::hasRiffForm(const char* formType, ChunkInfo& info) {
  return descendRiff(formType, info) && ascend(info);
}

bool RiffFile::holdsChunk(const ChunkInfo& info) const {
  return isOpen && info.chunkSize <= mmioBytesLeft(handle);
}

bool RiffFile::readChunk(const ChunkInfo& info, void* destination) {
  return readBytes(destination, info.chunkSize);
}

bool RiffFile::readBytes(void* destination, std::uint32_t count) {
  return isOpen && mmioRead(handle, destination, count) == count;
}

bool RiffFile::ascend(const ChunkInfo& info) { return isOpen && mmioAscend(handle, &info, 0) == 0; }

void RiffFile::fourCcToText(std::uint32_t value, char* text) {
  storeLittle32(reinterpret_cast<std::uint8_t*>(text), value);
  text[4] = '\0';
}

bool RiffFile::fourCcEquals(const char* text, std::uint32_t value) {
  return littleFourCc(text) == value;
}

}  // namespace tavrel
