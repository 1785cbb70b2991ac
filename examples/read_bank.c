/* Loads the example bank, checks it, lists its assets, and finds one by its define. C99, without
 * dependencies, for hosts of any byte order. The first argument is the bank's file name. */
#include <inttypes.h>
#include <stdio.h>

#include "demo.h"

enum { kTable = 4, kRecord = 44, kType = 0, kOffset = 1, kSize = 2, kSampleRate = 3, kBits = 5 };

/* The two sizes in the header add up to the length of the bank. A stale bank can have that length
 * too: pack the bank and compile the program in one build. */
static uint8_t bank[DEMO_BANK_HEADER_SIZE + DEMO_BANK_DATA_SIZE];

static uint32_t readLong(const uint8_t* bytes) {
  return bytes[0] | (uint32_t)bytes[1] << 8 | (uint32_t)bytes[2] << 16 | (uint32_t)bytes[3] << 24;
}

/* One of the eleven words of an asset's record: kType, kOffset, kSize, then the parameters. */
static uint32_t word(uint32_t id, uint32_t index) {
  return readLong(bank + kTable + kRecord * id + 4 * index);
}

static int fail(const char* reason) {
  fprintf(stderr, "%s: %s\n", DEMO_FILENAME, reason);
  return 1;
}

int main(int argc, char** argv) {
  FILE* file = fopen(argc > 1 ? argv[1] : DEMO_FILENAME, "rb");
  if (!file || fread(bank, 1, sizeof bank, file) != sizeof bank || fgetc(file) != EOF) {
    return fail("missing, or not of the size that demo.h states");
  }
  fclose(file);
  const uint32_t count = readLong(bank);
  if (count > (sizeof bank - kTable) / kRecord || count <= DEMO_BOOM_WAV) {
    return fail("bad count");
  }
  for (uint32_t id = 0; id < count; ++id) {
    const uint32_t offset = word(id, kOffset), size = word(id, kSize);
    if (offset > sizeof bank || size > sizeof bank - offset) {
      return fail("bad table");
    }
    printf("asset %" PRIu32 ": type %" PRIu32 ", %" PRIu32 " bytes\n", id, word(id, kType), size);
  }
  const uint8_t* boom = bank + word(DEMO_BOOM_WAV, kOffset);
  printf("boom: %" PRIu32 " hertz, %" PRIu32 " bits, begins with %02x\n",
         word(DEMO_BOOM_WAV, kSampleRate), word(DEMO_BOOM_WAV, kBits), boom[0]);
  return 0;
}
