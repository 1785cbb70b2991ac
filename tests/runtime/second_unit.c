/* A second source file with tavrel/bank.h in the same program, and an object that uses all of it.
 */
#include "tavrel/bank.h"

uint32_t second_unit(const void* bytes, size_t size, int16_t* samples);

/* Reads the samples of asset 0, three at most, if the bank is in order. Returns how many. */
uint32_t second_unit(const void* bytes, size_t size, int16_t* samples) {
  tavrel_bank bank;
  tavrel_asset asset;
  tavrel_wave wave;
  tavrel_adpcm state;
  tavrel_adpcm_start(&state);
  tavrel_adpcm_decode(&state, (const uint8_t*)bytes, 1, samples);
  if (tavrel_bank_open_table(&bank, bytes, tavrel_bank_table_size(bytes), size) != TAVREL_OK ||
      tavrel_bank_open(&bank, bytes, size) != TAVREL_OK ||
      tavrel_bank_check_header(&bank, 17, 143) != TAVREL_OK ||
      tavrel_status_text(TAVREL_OK)[0] == '\0' || !tavrel_bank_asset(&bank, 0, &asset) ||
      !tavrel_asset_wave(&asset, &wave)) {
    return 0;
  }
  return tavrel_wave_read(&wave, &state, 0, samples, 3);
}
