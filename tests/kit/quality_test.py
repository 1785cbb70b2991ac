"""tavkit quality agrees with a decoder that is written from docs/adpcm.md.

quality_test.py TAVREL TAVKIT
"""

import array
import contextlib
import json
import math
import os
import random
import struct
import subprocess
import sys
import tempfile
import wave
from pathlib import Path

TAVREL, TAVKIT = map(os.path.abspath, sys.argv[1:])
FACTORS = (230, 230, 230, 230, 307, 409, 512, 614)
NOISE = random.Random(1)
SOUNDS = {
    "noise": [NOISE.randint(-32768, 32767) for _ in range(9001)],
    "sine": [round(30000 * math.sin(i / 20)) for i in range(20000)],
    "square": [32766 if i // 50 % 2 else -32767 for i in range(3000)],
    "limits": [32767 if i // 50 % 2 else -32768 for i in range(3000)],
    "silent": [0] * 100,
}
BLOCK = "WaveFile {}.wav SampleRate 8000 Adpcm 1 AssetEnd\n"


def decoded(stream):
    predictor, step = 0, 127
    for byte in stream:
        for code in (byte & 15, byte >> 4):
            delta = min(step * (2 * (code & 7) + 1) // 8, 32767)
            predictor = max(-32768, min(32767, predictor - delta if code & 8 else predictor + delta))
            step = max(127, min(24576, step * FACTORS[code & 7] // 256))
            yield predictor


def expected(source, stream):
    pairs = list(zip(decoded(stream), source))
    errors = [sample - original for sample, original in pairs]
    power = sum(original ** 2 for _, original in pairs)
    worst = max(errors, key=abs)
    limits = (-32768, 32767)
    clipped = sum(sample in limits and original not in limits for sample, original in pairs)
    ratio = 10 * math.log10(power / sum(error ** 2 for error in errors)) if power else None
    return ratio, worst, errors.index(worst), clipped


with tempfile.TemporaryDirectory() as folder, contextlib.chdir(folder):
    for name, samples in SOUNDS.items():
        with wave.open(f"{name}.wav", "wb") as file:
            file.setparams((1, 2, 8000, 0, "NONE", ""))
            file.writeframes(array.array("h", samples))
    Path("s.txt").write_text("BankFileName s.tvb\n" + "".join(map(BLOCK.format, SOUNDS)))
    subprocess.run([TAVREL, "s.txt"], check=True, stdout=subprocess.DEVNULL)
    bank = Path("s.tvb").read_bytes()
    waves = json.loads(subprocess.check_output([TAVKIT, "quality", "s.txt", "--json"]))["waves"]
assert [one["file"] for one in waves] == [f"{name}.wav" for name in SOUNDS]
for one, samples in zip(waves, SOUNDS.values()):
    _, offset, size = struct.unpack_from("<3I", bank, 4 + 44 * one["id"])
    ratio, *others = expected(samples, bank[offset:offset + size])
    assert one["snr"] == ratio or abs(one["snr"] - ratio) < 0.0051, (one, ratio)
    assert [one["worstError"], one["worstSample"], one["clipped"]] == others, (one, others)
assert waves[2]["clipped"] > waves[3]["clipped"]
