"""The JSON documents of tavkit are valid under their schemas, those of damaged banks too.

schemas_test.py TAVREL TAVKIT
"""

import json
import pathlib
import random
import re
import struct
import subprocess
import sys
import tempfile
import unittest

import jsonschema

SOURCE = pathlib.Path(__file__).parents[2]
TAVREL, TAVKIT = (str(pathlib.Path(path).resolve()) for path in sys.argv[1:3])

WAVE = struct.pack("<4sI4s4sIHHIIHH4sI", b"RIFF", 236, b"WAVE", b"fmt ", 16, 1, 1, 8000, 16000, 2,
                   16, b"data", 200) + bytes(range(200))
TRACK = b"\0\xFF\x51\3\7\xA1\x20\0\x90\x3C\x64\x60\x90\x3C\0\0\xFF\x2F\0"
SEQUENCE = struct.pack(">4sIHHH4sI", b"MThd", 6, 0, 1, 96, b"MTrk", len(TRACK)) + TRACK
SCRIPT = """BankFileName sfx.tvb
WaveFile a.wav SampleRate 8000 Adpcm 1 AssetEnd
WaveFile b.wav SampleRate 8000 Loop 1 AssetEnd
MidiFileType0 c.mid AssetEnd
MidiToneBank d.dat BankType Melodic AssetEnd
FxProgramBank e.dat AssetEnd
UserAsset f.dat Parameter7 -1 AssetEnd
ScriptEnd
"""


class SchemasTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        for name in ("a.wav", "b.wav", "c.mid", "d.dat", "e.dat", "f.dat"):
            content = {".wav": WAVE, ".mid": SEQUENCE, ".dat": b"opaque"}[name[1:]]
            (self.folder / name).write_bytes(content)
        self.bank = self.pack("old", SCRIPT)

    def pack(self, name, script):
        (self.folder / name).mkdir()
        (self.folder / f"{name}.txt").write_text(script)
        tool = [TAVREL, f"{name}.txt", "bankPath", f"{name}/", "headerPath", f"{name}/"]
        subprocess.run(tool, cwd=self.folder, check=True, stdout=subprocess.DEVNULL)
        return self.folder / name / "sfx.tvb"

    def validate(self, command, *operands):
        run = subprocess.run([TAVKIT, command, "--json", *operands], capture_output=True, cwd=self.folder)
        self.assertIn(run.returncode, (0, 1, 2), run.stderr)
        if run.returncode == 2:
            self.assertEqual(run.stdout, b"")
            return None
        document = json.loads(run.stdout)
        jsonschema.validate(document, json.loads((SOURCE / f"kit/schemas/{command}.json").read_text()))
        return document

    def test_whole_banks(self):
        other = self.pack("new", SCRIPT.replace("UserAsset", "FxOutputBank d.dat AssetEnd UserAsset"))
        self.assertEqual(len(self.validate("list", self.bank)["assets"]), 6)
        self.assertIsNone(self.validate("list", "--no-header", self.bank)["assets"][0]["define"])
        self.assertTrue(self.validate("verify", self.bank)["ok"])
        new = self.validate("verify", self.bank, "--script", "new.txt")
        self.assertEqual([one["code"] for one in new["findings"]], ["missing"])
        self.assertTrue(self.validate("diff", self.bank, self.bank)["same"])
        self.assertEqual(len(self.validate("diff", self.bank, other)["assets"]), 2)
        self.assertIsNone(self.validate("diff", "--no-header", self.bank, self.bank)["rebuild"])
        wave, = self.validate("quality", "old.txt")["waves"]
        self.assertEqual(wave["file"], "a.wav")

    def test_damaged_banks(self):
        whole = self.bank.read_bytes()
        damaged = self.folder / "damaged.tvb"
        generator = random.Random(1)
        for _ in range(60):
            content = bytearray(whole)
            for _ in range(generator.randrange(1, 4)):
                content[generator.randrange(4, 4 + 44 * 6 + 100)] = generator.randrange(256)
            damaged.write_bytes(content)
            self.validate("list", damaged)
            self.validate("verify", damaged)
            self.validate("diff", self.bank, damaged)

    def test_check(self):
        script = SCRIPT.replace("Loop 1", "Loop 10").replace("c.mid", "[n:1:2: \u00e9].mid")
        (self.folder / "bad.txt").write_text(script)
        document = self.validate("check", "-C", self.folder, "bad.txt")
        self.assertGreaterEqual(document["warnings"], 1)
        self.assertGreaterEqual(document["errors"], 1)
        text, sarif = (subprocess.run([TAVKIT, "check", "--format", form, "-C", self.folder, "bad.txt"],
                                      capture_output=True, encoding="utf-8").stdout
                       for form in ("text", "sarif"))  # fmt: skip
        self.match_lines(text, document["diagnostics"])
        self.judge_sarif(json.loads(sarif), document["diagnostics"])

    def match_lines(self, text, diagnostics):
        """The problem matchers find exactly the problems in the text."""
        tasks = json.loads((SOURCE / "integrations/vscode/tasks.json").read_text())["tasks"]
        github = json.loads((SOURCE / "integrations/github/tavkit.json").read_text())
        for pattern in (tasks[0]["problemMatcher"]["pattern"], github["problemMatcher"][0]["pattern"][0]):
            keys = ("code", "severity", "file", "line", "column", "message")
            found = [[match[pattern[key]] for key in keys]
                     for match in map(re.compile(pattern["regexp"]).match, text.split("\n")) if match]
            self.assertEqual(found, [[str(one[key]) for key in keys] for one in diagnostics])

    def judge_sarif(self, log, diagnostics):
        """What SARIF 2.1.0 requires, and what code scanning needs."""
        self.assertEqual(log["version"], "2.1.0")
        run, = log["runs"]
        self.assertEqual(run["columnKind"], "unicodeCodePoints")
        self.assertTrue(run["tool"]["driver"]["name"])
        rules = run["tool"]["driver"]["rules"]
        self.assertEqual(len({rule["id"] for rule in rules}), len(rules))
        self.assertTrue(all(rule["fullDescription"]["text"] and rule["help"]["text"] for rule in rules))
        found = []
        for result in run["results"]:
            self.assertEqual(rules[result["ruleIndex"]]["id"], result["ruleId"])
            place = result["locations"][0]["physicalLocation"]
            path = place["artifactLocation"]["uri"].removeprefix("file://")
            found.append([result["ruleId"], result["level"], path, place["region"]["startLine"],
                          place["region"]["startColumn"]])  # fmt: skip
            self.assertTrue(result["message"]["text"])
        keys = ("code", "severity", "file", "line", "column")
        self.assertEqual(found, [[one[key] for key in keys] for one in diagnostics])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
