/* Loads the example bank, lists its assets, and decodes one by its define. C99, for hosts of any
 * byte order. The first argument is the bank's file name. */
#include <inttypes.h>
#include <stdio.h>
#include <tavrel/bank.h>

#include "demo.h"

/* The two sizes in the header add up to the length of the bank. */
static uint8_t bytes[DEMO_BANK_HEADER_SIZE + DEMO_BANK_DATA_SIZE];

static int fail(const char* reason) {
  fprintf(stderr, "%s: %s\n", DEMO_FILENAME, reason);
  return 1;
}

int main(int argc, char** argv) {
  FILE* file = fopen(argc > 1 ? argv[1] : DEMO_FILENAME, "rb");
  if (!file || fread(bytes, 1, sizeof bytes, file) != sizeof bytes || fgetc(file) != EOF) {
    return fail("missing, or not packed together with demo.h");
  }
  fclose(file);
  tavrel_bank bank;
  tavrel_status status = tavrel_bank_open(&bank, bytes, sizeof bytes);
  if (status == TAVREL_OK) {
    status = tavrel_bank_check_header(&bank, DEMO_BANK_DATA_SIZE, DEMO_BANK_HEADER_SIZE);
  }
  if (status != TAVREL_OK) {
    return fail(tavrel_status_text(status));
  }
  tavrel_asset asset;
  for (uint32_t id = 0; tavrel_bank_asset(&bank, id, &asset); ++id) {
    printf("asset %" PRIu32 ": type %" PRIu32 ", %" PRIu32 " bytes\n", id, asset.type, asset.size);
  }

  tavrel_wave boom;
  if (!tavrel_bank_asset(&bank, DEMO_BOOM_WAV, &asset) || !tavrel_asset_wave(&asset, &boom)) {
    return fail("boom is no wave");
  }
  tavrel_adpcm state;
  tavrel_adpcm_start(&state);
  int16_t samples[4];
  const uint32_t count = tavrel_wave_read(&boom, &state, 0, samples, 4);
  printf("boom: %" PRId32 " hertz, %" PRIu32 " samples, begins with", boom.sample_rate,
         boom.sample_count);
  for (uint32_t i = 0; i < count; ++i) {
    printf(" %d", samples[i]);
  }
  printf("\n");
  return 0;
}
