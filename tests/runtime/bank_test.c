/* Tests of tavrel/bank.h, in C99 that is C++11 too, for any host: scripts/runtime builds and runs
 * them for several. Exits with 1 and prints the lines that don't hold. */
#include "tavrel/bank.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

uint32_t second_unit(const void* bytes, size_t size, int16_t* samples);

static int failures;

static void check(int holds, int line, const char* fact, const char* row) {
  if (!holds && ++failures <= 20) {
    fprintf(stderr, "bank_test.c:%d: %s (%s)\n", line, fact, row);
  }
}
#define CHECK(fact, row) check((fact) != 0, __LINE__, #fact, row)

static void put32(uint8_t* bytes, uint32_t value) {
  int i;
  for (i = 0; i < 4; ++i) {
    bytes[i] = (uint8_t)(value >> 8 * i);
  }
}

/* A wave of 6 bytes at 136, a tone bank of 5 at 144, a user asset of 3 at 149. */
static void make_tiny(uint8_t* bytes) {
  static const uint32_t records[3][11] = {{1, 136, 6, 8000, 1, 16, 0, 0, 3},
                                          {3, 144, 5, 1},
                                          {6, 149, 3, 7, 0, 0, 0, 0, 0, 0, 0xFFFFFFFFu}};
  int i;
  put32(bytes, 3);
  for (i = 0; i < 33; ++i) {
    put32(bytes + 4 + 4 * i, records[i / 11][i % 11]);
  }
  memcpy(bytes + 136, "\0\0\xE8\x03\x18\xFC\0\0tonesmap", 16);
}

static void test_assets(const uint8_t* bytes) {
  tavrel_bank bank;
  tavrel_asset asset;
  tavrel_wave wave;
  CHECK(TAVREL_WAVE == 1 && TAVREL_SEQUENCE == 2 && TAVREL_TONE_BANK == 3, "types");
  CHECK(TAVREL_FX_PROGRAM_BANK == 4 && TAVREL_FX_OUTPUT_BANK == 5, "types of effects");
  CHECK(TAVREL_USER_ASSET == 6, "type of user assets");
  CHECK(tavrel_bank_open(&bank, bytes, 160) == TAVREL_OK, "tiny");
  CHECK(bank.bytes == bytes && bank.size == 160 && bank.count == 3 && bank.held == 160, "tiny");
  CHECK(tavrel_bank_asset(&bank, 0, &asset) && tavrel_asset_wave(&asset, &wave), "wave");
  CHECK(asset.type == 1 && asset.offset == 136 && asset.size == 6, "wave");
  CHECK(asset.bytes == bytes + 136 && wave.bytes == asset.bytes && wave.size == 6, "wave");
  CHECK(wave.sample_rate == 8000 && wave.bits == 16 && wave.random_pitch_amount == 0, "wave");
  CHECK(wave.loops == 1 && wave.loop_start == 0 && wave.loop_end == 3, "wave");
  CHECK(wave.sample_count == 3, "wave");
  CHECK(tavrel_bank_asset(&bank, 2, &asset) && asset.bytes == bytes + 149, "user asset");
  CHECK(asset.parameters[0] == 7 && asset.parameters[6] == 0 && asset.parameters[7] == -1, "user");
  CHECK(!tavrel_asset_wave(&asset, &wave) && wave.size == 6, "a user asset is no wave");
  CHECK(!tavrel_bank_asset(&bank, 3, &asset) && asset.type == 6, "no such id");
}

/* Waves of any parameters: a value that is off by one field or sign shows. */
static void test_wave_fields(void) {
  tavrel_asset asset = {1, 400, 0x80000000u, NULL, {-5, -2, 4, 100, -1, 9, 0, 0}};
  tavrel_wave wave;
  CHECK(tavrel_asset_wave(&asset, &wave) && wave.sample_count == 4294967295u, "ADPCM, too many");
  CHECK(wave.sample_rate == -5 && wave.loops == 1 && wave.random_pitch_amount == 100, "any");
  CHECK(wave.loop_start == 4294967295u && wave.loop_end == 9, "any");
  asset.size = 0x7FFFFFFFu;
  CHECK(tavrel_asset_wave(&asset, &wave) && wave.sample_count == 4294967294u, "ADPCM, the most");
}

static void test_refusals(const uint8_t* tiny_copy) {
  static const struct {
    const char* name;
    uint32_t offset, value; /* of a word of the tiny bank */
    uint32_t held, size;
    tavrel_status expected;
  } rows[] = {{"the table alone", 0, 3, 136, 160, TAVREL_OK},
              {"more held than the bank", 0, 2, 160, 128, TAVREL_BAD_RECORD},
              {"no asset, shortest", 0, 0, 32, 32, TAVREL_OK},
              {"too short", 0, 0, 31, 31, TAVREL_TOO_SHORT},
              {"odd length, and too little held", 0, 3, 0, 161, TAVREL_BAD_LENGTH},
              {"count not held", 0, 32769, 3, 160, TAVREL_TOO_SHORT},
              {"32,769 assets, too little held", 0, 32769, 4, 0xFFFFFFE0u, TAVREL_BAD_COUNT},
              {"count that wraps", 0, 0x10000000u, 160, 160, TAVREL_BAD_COUNT},
              {"table beyond the bank", 0, 4, 160, 160, TAVREL_BAD_COUNT},
              {"table not held", 0, 3, 135, 160, TAVREL_TOO_SHORT},
              {"blob in the table", 8, 135, 160, 160, TAVREL_BAD_RECORD},
              {"blob over the next", 12, 9, 160, 160, TAVREL_BAD_RECORD},
              {"blob up to the end", 100, 11, 160, 160, TAVREL_OK},
              {"blob beyond the end", 100, 12, 160, 160, TAVREL_BAD_RECORD},
              {"blob that wraps", 100, 0xFFFFFFFFu, 160, 160, TAVREL_BAD_RECORD},
              {"blob after the end", 96, 161, 160, 160, TAVREL_BAD_RECORD},
              {"unknown type", 92, 99, 160, 160, TAVREL_OK}};
  size_t i;
  for (i = 0; i < sizeof rows / sizeof rows[0]; ++i) {
    uint8_t bytes[160];
    tavrel_bank bank;
    memcpy(bytes, tiny_copy, 160);
    put32(bytes + rows[i].offset, rows[i].value);
    CHECK(tavrel_bank_open_table(&bank, bytes, rows[i].held, rows[i].size) == rows[i].expected,
          rows[i].name);
    CHECK(rows[i].expected == TAVREL_OK || (!bank.bytes && !bank.size && !bank.count && !bank.held),
          rows[i].name);
  }
}

static void test_limits(void) {
  const size_t size = 4 + 44 * 32768 + 28; /* a multiple of 32 */
  uint8_t* bytes = (uint8_t*)calloc(size, 1);
  tavrel_bank bank;
  tavrel_asset asset;
  uint32_t i;
  put32(bytes, 32768);
  for (i = 0; i < 32768; ++i) {
    put32(bytes + 8 + 44 * i, i < 32767 ? 1441796 : (uint32_t)size); /* the last is at the end */
  }
  CHECK(tavrel_bank_open(&bank, bytes, size) == TAVREL_OK && bank.count == 32768, "most assets");
  CHECK(tavrel_bank_asset(&bank, 32767, &asset) && asset.bytes == bytes + size, "empty at the end");
  CHECK(tavrel_bank_open_table(&bank, bytes, size + 9, size) == TAVREL_OK, "more held");
  CHECK(bank.held == size, "more held");
  CHECK(tavrel_bank_open_table(&bank, bytes, size, 0x100000000u) == TAVREL_BAD_LENGTH, "4 GiB");
  CHECK(tavrel_bank_open(&bank, NULL, 33) == TAVREL_TOO_SHORT, "null");
  free(bytes);
}

static void test_header(const uint8_t* bytes) {
  tavrel_bank bank;
  CHECK(tavrel_bank_open(&bank, bytes, 160) == TAVREL_OK, "tiny");
  CHECK(tavrel_bank_check_header(&bank, 24, 136) == TAVREL_OK, "no padding");
  CHECK(tavrel_bank_check_header(&bank, 4294967293u, 163) == TAVREL_BAD_LENGTH, "a sum that wraps");
  CHECK(tavrel_bank_check_header(&bank, 25, 135) == TAVREL_BAD_COUNT, "one byte too few");
  put32((uint8_t*)bytes, 0);
  CHECK(tavrel_bank_open(&bank, bytes, 160) == TAVREL_OK, "empty");
  CHECK(tavrel_bank_check_header(&bank, 125, 35) == TAVREL_OK, "31 bytes of padding");
  CHECK(tavrel_bank_check_header(&bank, 124, 36) == TAVREL_BAD_COUNT, "32 bytes of padding");
}

/* One code as the documentation of the stream has it, in floating point; all values are exact. */
static long plain_sample(long predictor, double* step, int code) {
  static const double factors[8] = {0.8984375,  0.8984375,  0.8984375, 0.8984375,
                                    1.19921875, 1.59765625, 2.0,       2.3984375};
  long delta = (long)(*step * ((code & 7) * 0.25 + 0.125));
  delta = delta > 32767 ? 32767 : delta;
  *step = (double)(long)(*step * factors[code & 7]);
  *step = *step > 24576 ? 24576 : *step < 127 ? 127 : *step;
  predictor += code & 8 ? -delta : delta;
  return predictor > 32767 ? 32767 : predictor < -32768 ? -32768 : predictor;
}

/* Every step and code, also where the predictor reaches its limits. */
static void test_adpcm_codes(void) {
  static const int32_t predictors[4] = {-32768, -1000, 32753, 32767};
  tavrel_wave wave;
  int32_t step, code;
  memset(&wave, 0, sizeof wave);
  wave.bits = 4;
  wave.size = wave.sample_count = 1;
  for (step = 127; step <= 24576; ++step) {
    for (code = 0; code < 64; ++code) {
      /* One more than is read: compilers warn of a 16-bit sample that can't be there. */
      const uint8_t bytes[2] = {(uint8_t)(code % 16), 0};
      tavrel_adpcm state = {predictors[code / 16], step};
      double plain_step = step;
      const long plain = plain_sample(state.predictor, &plain_step, bytes[0]);
      int16_t sample;
      wave.bytes = bytes;
      CHECK(tavrel_wave_read(&wave, &state, 0, &sample, 1) == 1, "one code");
      CHECK(sample == plain && state.predictor == plain, "every step and code");
      CHECK(state.step == (int32_t)plain_step, "every step and code");
    }
  }
}

static const uint8_t example[4] = {0x77, 0x1F, 0x77, 0xCF};
static const int16_t decoded[8] = {238, 808, -558, 97, 3040, 10099, -6832, -31196};

static void test_adpcm_pieces(void) {
  tavrel_adpcm state = {0, 0}; /* counts as a start */
  int16_t samples[8];
  tavrel_adpcm_decode(&state, example, 1, samples);
  tavrel_adpcm_decode(&state, example + 1, 3, samples + 2);
  CHECK(memcmp(samples, decoded, sizeof decoded) == 0, "in pieces");
  CHECK(state.predictor == -31196 && state.step == 24576, "in pieces");
}

static void test_wave_read(void) {
  static const struct {
    const char* name;
    int32_t bits;
    uint32_t size, sample_count, position, count, read;
    int16_t first, last;
  } rows[] = {{"8 bits", 8, 4, 4, 1, 3, 3, 0x1F00, -0x3100},
              {"16 bits, from the second", 16, 4, 2, 1, 9, 1, -0x3089, -0x3089},
              {"16 bits, odd size", 16, 3, 9, 0, 9, 1, 0x1F77, 0x1F77},
              {"32 bits", 32, 4, 4, 0, 1, 0, 0, 0},
              {"ADPCM, an odd piece", 4, 4, 8, 1, 2, 2, 238, -332},
              {"ADPCM, cut", 4, 4, 3, 0, 8, 3, 238, -558},
              {"beyond the end", 8, 4, 4, 4294967295u, 4294967295u, 0, 0, 0}};
  int16_t samples[8];
  tavrel_adpcm state;
  tavrel_wave wave;
  size_t i;
  uint32_t piece;
  memset(&wave, 0, sizeof wave);
  for (i = 0; i < sizeof rows / sizeof rows[0]; ++i) {
    wave.bytes = example;
    wave.bits = rows[i].bits;
    wave.size = rows[i].size;
    wave.sample_count = rows[i].sample_count;
    tavrel_adpcm_start(&state);
    CHECK(tavrel_wave_read(&wave, rows[i].bits == 4 ? &state : NULL, rows[i].position, samples,
                           rows[i].count) == rows[i].read,
          rows[i].name);
    CHECK(rows[i].read == 0 || samples[0] == rows[i].first, rows[i].name);
    CHECK(rows[i].read == 0 || samples[rows[i].read - 1] == rows[i].last, rows[i].name);
  }
  wave.bits = 4;
  wave.size = 4;
  wave.sample_count = 8;
  CHECK(tavrel_wave_read(&wave, NULL, 0, samples, 8) == 0, "ADPCM without a state");
  tavrel_adpcm_start(&state);
  for (i = 0; i < 8; i += piece) {
    piece = tavrel_wave_read(&wave, &state, (uint32_t)i, samples + i, 3);
  }
  CHECK(memcmp(samples, decoded, sizeof samples) == 0, "ADPCM three by three");
  wave.bytes = NULL;
  CHECK(tavrel_wave_read(&wave, &state, 0, samples, 8) == 0, "not in memory");
}

int main(void) {
  uint8_t misaligned[161] = {0};
  int16_t samples[3];
  uint8_t* bytes = misaligned + 1;
  make_tiny(bytes);
  test_assets(bytes);
  test_wave_fields();
  test_refusals(bytes);
  test_limits();
  CHECK(second_unit(bytes, 160, samples) == 3 && samples[2] == -1000, "another source file");
  CHECK(strstr(tavrel_status_text(TAVREL_BAD_RECORD), "asset"), "status");
  test_header(bytes);
  test_adpcm_codes();
  test_adpcm_pieces();
  test_wave_read();
  return failures != 0;
}
