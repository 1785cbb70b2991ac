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
import unittest

TAVREL, TAVKIT = (str(pathlib.Path(path).resolve()) for path in sys.argv[1:3])
FACTORS = (230, 230, 230, 230, 307, 409, 512, 614)


def decoded(stream):
    predictor, step, samples = 0, 127, []
    for byte in stream:
        for code in (byte & 15, byte >> 4):
            delta = min(step * (2 * (code & 7) + 1) // 8, 32767)
            predictor = max(-32768, min(32767, predictor - delta if code & 8 else predictor + delta))
            step = max(127, min(24576, step * FACTORS[code & 7] // 256))
            samples.append(predictor)
    return samples


def sounds():
    """Names and samples; the files are WAV or AIFF by their extension."""
    noise = random.Random(1)
    yield "noise.wav", [noise.randint(-32768, 32767) for _ in range(9001)]
    yield "quiet.aif", [noise.randint(-3, 3) for _ in range(4098)]
    yield "sine.wav", [round(30000 * math.sin(i / 20)) for i in range(20000)]
    yield "square.aif", [32766 if i // 50 % 2 else -32767 for i in range(3000)]
    yield "limits.wav", [32767 if i // 50 % 2 else -32768 for i in range(3000)]


def contents(name, samples):
    if name.endswith(".wav"):
        data = struct.pack(f"<{len(samples)}h", *samples)
        return struct.pack("<4sI4s4sIHHIIHH4sI", b"RIFF", 36 + len(data), b"WAVE", b"fmt ", 16, 1, 1,
                           8000, 16000, 2, 16, b"data", len(data)) + data
    data = struct.pack(f">{len(samples)}h", *samples)
    return struct.pack(">4sI4s4sIHIH10s4sIII", b"FORM", 46 + len(data), b"AIFF", b"COMM", 18, 1,
                       len(samples), 16, b"\x40\x0B\xFA" + bytes(7), b"SSND", 8 + len(data), 0, 0) + data


class QualityTest(unittest.TestCase):
    def test_agrees(self):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            script = "BankFileName s.tvb\n"
            for name, samples in sounds():
                (folder / name).write_bytes(contents(name, samples))
                script += f"WaveFile {name} SampleRate 8000 Adpcm 1 AssetEnd\n"
            (folder / "s.txt").write_text(script)
            subprocess.run([TAVREL, "s.txt"], cwd=folder, check=True, stdout=subprocess.DEVNULL)
            bank = (folder / "s.tvb").read_bytes()
            answer = subprocess.run([TAVKIT, "quality", "-C", folder, "s.txt", "--json"], check=True,
                                    stdout=subprocess.PIPE)
        waves = json.loads(answer.stdout)["waves"]
        self.assertEqual([wave["file"] for wave in waves], [name for name, _ in sounds()])
        for wave, (name, source) in zip(waves, sounds()):
            with self.subTest(name):
                _, offset, size = struct.unpack_from("<3I", bank, 4 + 44 * wave["id"])
                source = source[:len(source) // 2 * 2]
                samples = decoded(bank[offset:offset + size])[:len(source)]
                errors = [sample - original for sample, original in zip(samples, source)]
                ratio = 10 * math.log10(sum(x * x for x in source) / sum(x * x for x in errors))
                self.assertAlmostEqual(wave["snr"], ratio, delta=0.0051)
                worst = max(range(len(errors)), key=lambda i: (abs(errors[i]), -i))
                self.assertEqual((wave["worstError"], wave["worstSample"]), (errors[worst], worst))
                limits = (-32768, 32767)
                self.assertEqual(wave["clipped"], sum(sample in limits and original not in limits
                                                      for sample, original in zip(samples, source)))
        self.assertGreater(waves[3]["clipped"], waves[4]["clipped"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
