/* The game's side of a sound bank: opens a bank safely and reads its samples.
 *
 * C99 and C++11, this one file. Allocates nothing, opens no files, keeps no state of its own. Every
 * function is defined for any bytes, at any alignment, on hosts of either byte order.
 *
 * A bank, all of it little-endian:
 *
 *   Offset          Width       Content
 *   0               4           count: the number of assets, 32,768 at most
 *   4               44 x count  the table: the record of asset `id` at 4 + 44 x id
 *   4 + 44 x count              the blobs, in the order of the table
 *                   0 to 31     zero bytes, up to a multiple of 32
 *
 * A record:
 *
 *   Offset  Width  Content
 *   0       4      type: one of tavrel_asset_type
 *   4       4      offset of the blob from the start of the bank, in bytes
 *   8       4      size of the blob in bytes, without padding
 *   12      8 x 4  parameters 0 to 7, signed
 *
 * The header that is generated with a bank defines each asset's id, the bank's file name, and two
 * sizes for tavrel_bank_check_header. */
#ifndef TAVREL_BANK_H
#define TAVREL_BANK_H

#include <stddef.h>
#include <stdint.h>

enum {
  TAVREL_COUNT_SIZE = 4,
  TAVREL_RECORD_SIZE = 4 + 4 + 4 + 8 * 4,
  TAVREL_BANK_ALIGNMENT = 32, /* the length of a bank is a multiple of this */
  TAVREL_MAX_ASSETS = 32768
};

/* What a blob is, by the type in its record; a bank may have others. All but waves are whole files
 * as they were packed. */
enum tavrel_asset_type {
  TAVREL_WAVE = 1,
  TAVREL_SEQUENCE = 2, /* a Standard MIDI File */
  TAVREL_TONE_BANK = 3,
  TAVREL_FX_PROGRAM_BANK = 4,
  TAVREL_FX_OUTPUT_BANK = 5,
  TAVREL_USER_ASSET = 6
};

/* The parameters by type. Those not listed are 0; those of user assets are the user's own.
 *
 *      Wave                                        Sequence
 *   0  sample rate in hertz                        ticks per quarter note; negative: SMPTE time
 *   1  1 if it loops                               volume
 *   2  bits per sample, 4 for ADPCM                General MIDI mode
 *   3  random pitch amount                         loop setting, as its script states it
 *   4  loop start, in samples
 *   5  loop end, in samples                        first tempo in microseconds per quarter note
 *
 * Parameter 0 of a tone bank is 1 for melodic sounds, 0 for drums.
 *
 * Samples of 8 and 16 bits are signed. The samples of a wave's channels alternate, left first. The
 * number of channels isn't stored, and samples of all channels are counted alike. */

typedef enum tavrel_status {
  TAVREL_OK,         /* 0 */
  TAVREL_TOO_SHORT,  /* no bank, or less of it in memory than its table */
  TAVREL_BAD_COUNT,  /* more assets than a bank can have, or than this one has room for */
  TAVREL_BAD_LENGTH, /* not a multiple of 32, or 4 GiB and more */
  TAVREL_BAD_RECORD  /* a blob outside the bank or inside the one before it */
} tavrel_status;

/* View of an open bank. Valid as long as the bytes that it was opened on. */
typedef struct tavrel_bank {
  const uint8_t* bytes;
  uint32_t size;  /* of the whole bank, in bytes */
  uint32_t count; /* ids are 0 to count - 1 */
  uint32_t held;  /* how many of the bank's bytes are in memory, from the start */
} tavrel_bank;

typedef struct tavrel_asset {
  uint32_t type, offset, size;
  const uint8_t* bytes; /* null if the blob isn't in memory: read `size` bytes at `offset` */
  int32_t parameters[8];
} tavrel_asset;

typedef struct tavrel_wave {
  const uint8_t* bytes; /* the asset's: null if the samples aren't in memory */
  uint32_t size;        /* in bytes */
  int32_t sample_rate;  /* in hertz */
  int32_t bits;         /* per sample; 4 for ADPCM */
  int32_t random_pitch_amount;
  uint32_t sample_count; /* of all channels, 4294967295 at most; 0 for widths but 4, 8 and 16 */
  int loops;             /* 1 or 0 */
  uint32_t loop_start;   /* in samples, as packed: compare it with sample_count before use */
  uint32_t loop_end;     /* the sample after the last one of the loop, as packed */
} tavrel_wave;

/* What an ADPCM decoder carries from sample to sample. */
typedef struct tavrel_adpcm {
  int32_t predictor; /* the last sample */
  int32_t step;      /* the width of the steps, 127 to 24576 */
} tavrel_adpcm;

/* Returns a short description, never null. */
static inline const char* tavrel_status_text(tavrel_status status) {
  switch (status) {
    case TAVREL_OK:
      return "no error";
    case TAVREL_TOO_SHORT:
      return "too short for a bank and its table";
    case TAVREL_BAD_COUNT:
      return "bad number of assets";
    case TAVREL_BAD_LENGTH:
      return "bad length";
    case TAVREL_BAD_RECORD:
      return "an asset lies outside the bank or inside another one";
  }
  return "unknown status";
}

/* Not part of the interface: the numbers of the format, whatever the host's byte order. */

static inline uint32_t tavrel_load32(const uint8_t* bytes) {
  return bytes[0] | (uint32_t)bytes[1] << 8 | (uint32_t)bytes[2] << 16 | (uint32_t)bytes[3] << 24;
}

static inline int32_t tavrel_signed32(uint32_t value) {
  return value <= 0x7FFFFFFFu ? (int32_t)value : -(int32_t)(0xFFFFFFFFu - value) - 1;
}

/* Opening */

/* Returns the bytes that tavrel_bank_open_table needs, 4 + 44 x count. Returns 0 if the bank has
 * more assets than a bank can have. */
static inline uint32_t tavrel_bank_table_size(const void* first_four_bytes) {
  const uint32_t count = tavrel_load32((const uint8_t*)first_four_bytes);
  return count <= TAVREL_MAX_ASSETS ? TAVREL_COUNT_SIZE + TAVREL_RECORD_SIZE * count : 0;
}

/* Not part of the interface: the checks of the whole table, with `bank` filled in. Comparing sizes
 * with what is left of the bank can't wrap. */
static inline tavrel_status tavrel_check_table(const tavrel_bank* bank) {
  uint32_t end = TAVREL_COUNT_SIZE + TAVREL_RECORD_SIZE * bank->count;
  uint32_t id;
  for (id = 0; id < bank->count; ++id) {
    const uint8_t* record = bank->bytes + TAVREL_COUNT_SIZE + TAVREL_RECORD_SIZE * id;
    const uint32_t offset = tavrel_load32(record + 4);
    const uint32_t size = tavrel_load32(record + 8);
    if (offset < end || offset > bank->size || size > bank->size - offset) {
      return TAVREL_BAD_RECORD;
    }
    end = offset + size;
  }
  return TAVREL_OK;
}

/* Not part of the interface: the checks up to the table, and `bank` filled in. */
static inline tavrel_status tavrel_check_sizes(tavrel_bank* bank, const uint8_t* bytes,
                                               uint64_t held, uint64_t size) {
  uint32_t table_size;
  if (size < TAVREL_BANK_ALIGNMENT) {
    return TAVREL_TOO_SHORT;
  }
  if (size % TAVREL_BANK_ALIGNMENT != 0 || size > 0xFFFFFFFFu) {
    return TAVREL_BAD_LENGTH;
  }
  if (bytes == NULL || held < TAVREL_COUNT_SIZE) {
    return TAVREL_TOO_SHORT;
  }
  table_size = tavrel_bank_table_size(bytes);
  if (table_size == 0 || table_size > size) {
    return TAVREL_BAD_COUNT;
  }
  if (held < table_size) {
    return TAVREL_TOO_SHORT;
  }
  bank->bytes = bytes;
  bank->size = (uint32_t)size;
  bank->count = tavrel_load32(bytes);
  bank->held = (uint32_t)(held < size ? held : size);
  return TAVREL_OK;
}

/* Opens a bank of `bank_size` bytes of which only the first `held` are at `table`, at least the
 * table: for a game that streams its sounds. Checks every record. On failure the bank is empty: no
 * bytes, no assets. */
static inline tavrel_status tavrel_bank_open_table(tavrel_bank* bank, const void* table,
                                                   size_t held, uint64_t bank_size) {
  static const tavrel_bank empty = {NULL, 0, 0, 0};
  tavrel_status status;
  *bank = empty;
  status = tavrel_check_sizes(bank, (const uint8_t*)table, held, bank_size);
  if (status == TAVREL_OK) {
    status = tavrel_check_table(bank);
  }
  if (status != TAVREL_OK) {
    *bank = empty;
  }
  return status;
}

/* Opens a bank that is in memory whole: `size` bytes at `bytes`, its file's content. Checks every
 * record, so that each asset lies inside. On failure the bank is empty: no bytes, no assets. */
static inline tavrel_status tavrel_bank_open(tavrel_bank* bank, const void* bytes, size_t size) {
  return tavrel_bank_open_table(bank, bytes, size, bytes != NULL ? size : 0);
}

/* Checks that the bank has the sizes in its generated header: `data_size` is the value of its
 * ..._BANK_DATA_SIZE, `header_size` that of ..._BANK_HEADER_SIZE. Returns TAVREL_BAD_LENGTH if
 * their sum isn't the bank's length, TAVREL_BAD_COUNT if `header_size` is that of another number of
 * assets. A bank of the same sizes passes even if it was packed from other sounds. */
static inline tavrel_status tavrel_bank_check_header(const tavrel_bank* bank, uint32_t data_size,
                                                     uint32_t header_size) {
  const uint32_t table_size = TAVREL_COUNT_SIZE + TAVREL_RECORD_SIZE * bank->count;
  if ((uint64_t)data_size + header_size != bank->size) {
    return TAVREL_BAD_LENGTH;
  }
  if (header_size < table_size || header_size - table_size >= TAVREL_BANK_ALIGNMENT) {
    return TAVREL_BAD_COUNT;
  }
  return TAVREL_OK;
}

/* Assets */

/* Reads the record of an asset. Returns 0, and leaves `asset` alone, if the bank has no such id. */
static inline int tavrel_bank_asset(const tavrel_bank* bank, uint32_t id, tavrel_asset* asset) {
  const uint8_t* record;
  int i;
  if (id >= bank->count) {
    return 0;
  }
  record = bank->bytes + TAVREL_COUNT_SIZE + TAVREL_RECORD_SIZE * id;
  asset->type = tavrel_load32(record);
  asset->offset = tavrel_load32(record + 4);
  asset->size = tavrel_load32(record + 8);
  asset->bytes = asset->offset + asset->size <= bank->held ? bank->bytes + asset->offset : NULL;
  for (i = 0; i < 8; ++i) {
    asset->parameters[i] = tavrel_signed32(tavrel_load32(record + 12 + 4 * i));
  }
  return 1;
}

/* Not part of the interface: the samples in `size` bytes, as many as fit a uint32_t. */
static inline uint32_t tavrel_samples_in(int32_t bits, uint32_t size) {
  switch (bits) {
    case 4:
      return size <= 0x7FFFFFFFu ? 2 * size : 0xFFFFFFFFu;
    case 8:
      return size;
    case 16:
      return size / 2;
    default:
      return 0;
  }
}

/* Reads an asset as a wave. Returns 0, and leaves `wave` alone, if it is none. */
static inline int tavrel_asset_wave(const tavrel_asset* asset, tavrel_wave* wave) {
  if (asset->type != TAVREL_WAVE) {
    return 0;
  }
  wave->bytes = asset->bytes;
  wave->size = asset->size;
  wave->sample_rate = asset->parameters[0];
  wave->bits = asset->parameters[2];
  wave->random_pitch_amount = asset->parameters[3];
  wave->sample_count = tavrel_samples_in(wave->bits, wave->size);
  wave->loops = asset->parameters[1] != 0;
  wave->loop_start = (uint32_t)asset->parameters[4];
  wave->loop_end = (uint32_t)asset->parameters[5];
  return 1;
}

/* Samples */

/* Makes `state` that of a stream's start. */
static inline void tavrel_adpcm_start(tavrel_adpcm* state) {
  state->predictor = 0;
  state->step = 127;
}

/* Not part of the interface: decodes one code of 4 bits. The step changes by a factor and is kept
 * from 127 to 24576. Compilers turn comparisons into branches. Small steps, which reach no upper
 * limit, and large ones seldom alternate, so that branch is predictable. Whether a large step
 * reaches 24576 is as random as the codes of noise, so a shift selects the next step instead. */
static inline int16_t tavrel_adpcm_next(tavrel_adpcm* state, unsigned code) {
  static const uint32_t factors[16] = {230, 230, 230, 230, 307, 409, 512, 614,
                                       230, 230, 230, 230, 307, 409, 512, 614};
  static const uint32_t eighths[16] = {1, 3, 5, 7, 9, 11, 13, 15, 1, 3, 5, 7, 9, 11, 13, 15};
  /* The largest steps that the factors leave within 24576. */
  static const uint32_t largest[16] = {24576, 24576, 24576, 24576, 20494, 15383, 12288, 10247,
                                       24576, 24576, 24576, 24576, 20494, 15383, 12288, 10247};
  const uint32_t step = (uint32_t)state->step;
  const uint32_t product = step * factors[code];
  const int32_t sign = -(int32_t)(code >> 3); /* 0, or -1 for a code that subtracts */
  uint32_t distance = step * eighths[code] / 8;
  uint32_t next;
  int32_t sample;
  if (step <= 8192) {
    next = product < 128 * 256 ? 127 : product / 256;
  } else {
    const uint32_t shift = (largest[code] - step) >> 27 | 8; /* 31 above `largest`, otherwise 8 */
    next = (uint32_t)(((uint64_t)24576 << 31 | product) >> shift);
    distance = distance < 32767 ? distance : 32767;
  }
  sample = state->predictor + (((int32_t)distance ^ sign) - sign);
  state->step = (int32_t)next;
  state->predictor = (uint32_t)(sample + 32768) <= 65535 ? sample : sample < 0 ? -32768 : 32767;
  return (int16_t)state->predictor;
}

/* Not part of the interface: decodes `count` codes from the one at `position` on, the low half of a
 * byte first. A state that no decoder has left is brought into range. */
static inline void tavrel_adpcm_codes(tavrel_adpcm* state, const uint8_t* stream, size_t position,
                                      size_t count, int16_t* samples) {
  tavrel_adpcm now = *state;
  now.predictor = now.predictor < -32768 ? -32768 : now.predictor > 32767 ? 32767 : now.predictor;
  now.step = now.step < 127 ? 127 : now.step > 24576 ? 24576 : now.step;
  if (count > 0) {
    stream += position / 2;
  }
  if (count > 0 && position % 2 == 1) {
    *samples++ = tavrel_adpcm_next(&now, *stream++ >> 4);
    --count;
  }
  for (; count >= 2; count -= 2) {
    const unsigned pair = *stream++;
    *samples++ = tavrel_adpcm_next(&now, pair & 15);
    *samples++ = tavrel_adpcm_next(&now, pair >> 4);
  }
  if (count > 0) {
    *samples = tavrel_adpcm_next(&now, *stream & 15);
  }
  *state = now;
}

/* Decodes the next `code_bytes` bytes of an ADPCM stream, in pieces of any size. Writes two samples
 * for each byte. */
static inline void tavrel_adpcm_decode(tavrel_adpcm* state, const uint8_t* codes, size_t code_bytes,
                                       int16_t* samples) {
  tavrel_adpcm_codes(state, codes, 0, 2 * code_bytes, samples);
}

/* Reads up to `count` samples from `position` on, counted in samples, as signed 16 bits whatever
 * the width; those of 8 bits times 256. Returns how many: fewer at the end of the wave, 0 where its
 * bytes aren't in memory and for widths but 4, 8 and 16.
 *
 * ADPCM goes on from `state`, which must be that of the sample before `position`; to begin again,
 * call tavrel_adpcm_start and read from 0. `state` may be null for other widths.
 *
 * To stream, read a piece of the asset from the file, set the wave's `bytes` and `size` to it and
 * `sample_count` to its samples, and read it from 0; `state` carries on from piece to piece. */
static inline uint32_t tavrel_wave_read(const tavrel_wave* wave, tavrel_adpcm* state,
                                        uint32_t position, int16_t* samples, uint32_t count) {
  const uint32_t in_memory = tavrel_samples_in(wave->bits, wave->size);
  const uint32_t end = wave->sample_count < in_memory ? wave->sample_count : in_memory;
  const uint8_t* bytes = wave->bytes;
  uint32_t i;
  if (bytes == NULL || position >= end || (wave->bits == 4 && state == NULL)) {
    return 0;
  }
  count = count < end - position ? count : end - position;
  if (wave->bits == 4) {
    tavrel_adpcm_codes(state, bytes, position, count, samples);
  } else if (wave->bits == 8) {
    bytes += position;
    for (i = 0; i < count; ++i) {
      samples[i] = (int16_t)(((bytes[i] ^ 0x80) - 0x80) * 256);
    }
  } else {
    bytes += 2 * (size_t)position;
    for (i = 0; i < count; ++i) {
      const int value = bytes[2 * (size_t)i] | bytes[2 * (size_t)i + 1] << 8;
      samples[i] = (int16_t)((value ^ 0x8000) - 0x8000);
    }
  }
  return count;
}

#endif
