"""tavkit quality agrees with a decoder that is written from docs/adpcm.md.

quality_test.py TAVREL TAVKIT
"""

import json
import math
import pathlib
import random
import struct
import subprocess
import sys
import tempfile

TAVREL, TAVKIT = (str(pathlib.Path(path).resolve()) for path in sys.argv[1:3])
FACTORS = (230, 230, 230, 230, 307, 409, 512, 614)
NOISE = random.Random(1)
SOUNDS = {
    "noise": [NOISE.randint(-32768, 32767) for _ in range(9001)],
    "quiet": [NOISE.randint(-3, 3) for _ in range(4098)],
    "sine": [round(30000 * math.sin(i / 20)) for i in range(20000)],
    "square": [32766 if i // 50 % 2 else -32767 for i in range(3000)],
    "limits": [32767 if i // 50 % 2 else -32768 for i in range(3000)],
    "silent": [0] * 100,
}


def decoded(stream):
    predictor, step, samples = 0, 127, []
    for byte in stream:
        for code in (byte & 15, byte >> 4):
            delta = min(step * (2 * (code & 7) + 1) // 8, 32767)
            predictor = max(-32768, min(32767, predictor - delta if code & 8 else predictor + delta))
            step = max(127, min(24576, step * FACTORS[code & 7] // 256))
            samples.append(predictor)
    return samples


def expected(source, samples):
    source = source[:len(source) // 2 * 2]
    pairs = list(zip(samples, source))
    errors = [sample - original for sample, original in pairs]
    power = sum(original ** 2 for original in source)
    worst = max(range(len(errors)), key=lambda i: (abs(errors[i]), -i))
    limits = (-32768, 32767)
    clipped = sum(sample in limits and original not in limits for sample, original in pairs)
    ratio = 10 * math.log10(power / sum(error ** 2 for error in errors)) if power else None
    return ratio, errors[worst], worst, clipped


with tempfile.TemporaryDirectory() as name:
    folder = pathlib.Path(name)
    script = "BankFileName s.tvb\n"
    for sound, samples in SOUNDS.items():
        data = struct.pack(f"<{len(samples)}h", *samples)
        head = struct.pack("<4sI4s4sIHHIIHH4sI", b"RIFF", 36 + len(data), b"WAVE", b"fmt ", 16, 1, 1,
                           8000, 16000, 2, 16, b"data", len(data))
        (folder / f"{sound}.wav").write_bytes(head + data)
        script += f"WaveFile {sound}.wav SampleRate 8000 Adpcm 1 AssetEnd\n"
    (folder / "s.txt").write_text(script)
    subprocess.run([TAVREL, "s.txt"], cwd=folder, check=True, stdout=subprocess.DEVNULL)
    bank = (folder / "s.tvb").read_bytes()
    answer = subprocess.run([TAVKIT, "quality", "-C", folder, "s.txt", "--json"], check=True,
                            stdout=subprocess.PIPE)
waves = json.loads(answer.stdout)["waves"]
assert [wave["file"] for wave in waves] == [f"{sound}.wav" for sound in SOUNDS]
for wave, source in zip(waves, SOUNDS.values()):
    _, offset, size = struct.unpack_from("<3I", bank, 4 + 44 * wave["id"])
    ratio, *others = expected(source, decoded(bank[offset:offset + size]))
    assert wave["snr"] == ratio or abs(wave["snr"] - ratio) < 0.0051, (wave, ratio)
    assert [wave["worstError"], wave["worstSample"], wave["clipped"]] == others, (wave, others)
assert waves[3]["clipped"] > waves[4]["clipped"]
