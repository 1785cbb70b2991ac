#!/usr/bin/env python3
"""Compares a release's bill of materials with its files, and with SPDX 2.3: release_test.py FOLDER"""

import hashlib
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

import jsonschema

FOLDER = pathlib.Path(sys.argv.pop(1))
SCHEMA = json.loads((pathlib.Path(__file__).parent / "spdx.json").read_text())
WINDOWS = {"libstdc++-windows", "libgcc-windows", "libssp-windows", "mingw-w64"}
LIBRARIES = {
    "tavrel": {"libstdc++", "libgcc", "glibc"},
    "tavkit": {"fmt", "CLI11", "nlohmann-json", "libstdc++", "libgcc", "glibc"},
    "tavrel.exe": WINDOWS,
    "tavkit.exe": WINDOWS | {"fmt", "CLI11", "nlohmann-json"},
}


def digest(path, algorithm="sha256"):
    return hashlib.new(algorithm, path.read_bytes()).hexdigest()


class ReleaseTest(unittest.TestCase):
    def setUp(self):
        path, = FOLDER.glob("*.spdx.json")
        self.spdx = json.loads(path.read_text())
        self.elements = {element["SPDXID"]: element for element in
                         [self.spdx, *self.spdx["packages"], *self.spdx["files"]]}

    def related(self, kind):
        return [(self.elements[each["spdxElementId"]], self.elements[each["relatedSpdxElement"]])
                for each in self.spdx["relationships"] if each["relationshipType"] == kind]

    def test_is_spdx(self):
        jsonschema.validate(self.spdx, SCHEMA)
        self.assertEqual(len(self.elements), 1 + len(self.spdx["packages"]) + len(self.spdx["files"]))

    def test_describes_the_files_of_the_release(self):
        described = {package["packageFileName"]: package["checksums"][0]["checksumValue"]
                     for _, package in self.related("DESCRIBES")}
        paths = [path for path in FOLDER.iterdir() if path.suffix in (".gz", ".deb", ".zip")]
        self.assertEqual(described, {path.name: digest(path) for path in paths})

    def test_lists_what_is_in_the_packages(self):
        for pattern, command in (("*.deb", "dpkg-deb -x {} ."), ("*.zip", "cmake -E tar x {}")):
            archive, = FOLDER.resolve().glob(pattern)
            with self.subTest(archive.name), tempfile.TemporaryDirectory() as folder:
                subprocess.run(command.format(archive).split(), cwd=folder, check=True)
                unpacked = {f"./{path.relative_to(folder)}": [digest(path, "sha1"), digest(path)]
                            for path in pathlib.Path(folder).rglob("*") if path.is_file()}
                listed = {file["fileName"]: [each["checksumValue"] for each in file["checksums"]]
                          for package, file in self.related("CONTAINS")
                          if package["packageFileName"] == archive.name}
                self.assertEqual(listed, unpacked)

    def test_names_the_libraries_of_each_program(self):
        linked = {}
        for file, library in self.related("STATIC_LINK"):
            linked.setdefault(pathlib.Path(file["fileName"]).name, set()).add(library["name"])
        self.assertEqual(linked, LIBRARIES)

    def test_sums(self):
        subprocess.run(["sha256sum", "--quiet", "--strict", "-c", "SHA256SUMS"], cwd=FOLDER, check=True)
        summed = {line.split("  ")[1] for line in (FOLDER / "SHA256SUMS").read_text().splitlines()}
        self.assertEqual(summed | {"SHA256SUMS"}, {path.name for path in FOLDER.iterdir()})


unittest.main()
