"""A copy of the tree with a build of its own, in which one mutant after another is tried."""

import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

from processes import run

BUILD_LIMIT = 600  # seconds
# Tests that don't run on the host alone, should there be any.
_FOREIGN = re.compile("wine|qemu|browser|bazel", re.I)

# Where the tests make their files, many and short-lived. A disk takes most of a run's time.
_MEMORY = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None


def _stamps(folder):
    found = {}
    for path, _, names in os.walk(folder):
        for name in names:
            whole = os.path.join(path, name)
            status = os.lstat(whole)
            found[os.path.relpath(whole, folder)] = (status.st_mtime_ns, status.st_size)
    return found


def _mirror(source, target):
    """Makes target the same as source, times included, so that ninja finds nothing to do."""
    wanted, present = _stamps(source), _stamps(target)
    for name in present.keys() - wanted.keys():
        (target / name).unlink()
    for name in wanted:
        if present.get(name) != wanted[name]:
            (target / name).parent.mkdir(parents=True, exist_ok=True)
            (target / name).unlink(missing_ok=True)  # copy2 refuses to replace a link
            shutil.copy2(source / name, target / name, follow_symlinks=False)


class WorkingCopy:
    def __init__(self, folder, cores):
        self._live, self._clean, self._cores = folder / "live", folder / "clean", cores
        self._tree, self._build = self._live / "tree", self._live / "build"
        self._tests = {}  # what to build for each
        self._seconds = {}  # that each test takes without a mutant

    def prepare(self, files):
        """Builds and tests the given files: name, content and mode of each. Costs little if few of
        them have changed."""
        for name in _stamps(self._tree).keys() - files.keys():
            (self._tree / name).unlink()
        for name, (content, mode) in files.items():
            path = self._tree / name
            if not path.exists() or path.read_bytes() != content:
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_bytes(content)
            path.chmod(mode)
        configure = ["cmake", "-G", "Ninja", "-S", self._tree, "-B", self._build]
        configure += ["-DCMAKE_CXX_COMPILER=g++", "-DCMAKE_BUILD_TYPE=Release"]
        configure += ["-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG", "-DTAVREL_WERROR=OFF"]
        told = {"stdout": sys.stderr, "stderr": None}
        make = ["ninja", "-C", self._build, f"-j{self._cores}"]
        if run(configure, BUILD_LIMIT, **told) != 0 or run(make, BUILD_LIMIT, **told) != 0:
            raise SystemExit("mutate: the tree doesn't build")
        self._find_tests()
        self._measure()
        _mirror(self._live, self._clean)  # what each mutant starts from

    def _measure(self):
        for name in self._tests:
            start = time.monotonic()
            if self._test(name, BUILD_LIMIT) != 0:
                raise SystemExit(f"mutate: the test {name} fails without a mutant")
            self._seconds[name] = time.monotonic() - start

    def sources(self):
        """Returns the names of the files of the tree that the build compiles or includes."""
        listed = self._ask("ninja", "-C", self._build, "-t", "deps")
        # A compiler cache may have made the paths relative to the build.
        paths = {os.path.normpath(self._build / p) for p in re.findall("^ +(.*)", listed, re.M)}
        tree = f"{self._tree}/"
        return {path.removeprefix(tree) for path in paths if path.startswith(tree)}

    def judge(self, mutant):
        """Returns what became of the mutant, and by which test or limit."""
        path = self._tree / mutant.file
        path.write_text(mutant.applied(path.read_text()))
        try:
            return self._judge_by_tests(mutant.file.split("/")[0])
        finally:
            _mirror(self._clean, self._live)

    def _judge_by_tests(self, folder):
        for name in self._ordered(folder):
            if failure := self._build_failure(self._tests[name]):
                return failure
            passed = self._test(name, self._limit(name))
            if passed is None:
                return "noticed", f"the time limit of {name}"
            if passed != 0:
                return "noticed", name
        return "survived", ""

    def _limit(self, name):
        """A test without a program of its own may compile the mutant once more."""
        return BUILD_LIMIT if self._tests[name] == ["all"] else 10 + 10 * self._seconds[name]

    def _ordered(self, folder):
        """The likeliest to notice a mutant of the folder come first, then the quickest."""
        first = [folder, "compiler", "end_to_end"]

        def rank(name):
            place = first.index(name) if name in first else len(first)
            return place, self._tests[name] == ["all"], self._seconds[name]

        return sorted(self._tests, key=rank)

    def _find_tests(self):
        build = f"{self._build}/"
        listed = self._ask("ninja", "-C", build, "-t", "targets", "all")
        targets = set(re.findall(r"^(\S+): ", listed, re.M))
        listed = self._ask("ctest", "--test-dir", build, "--show-only=json-v1")
        for test in json.loads(listed)["tests"]:
            disabled = {"name": "DISABLED", "value": True} in test["properties"]
            if not disabled and not _FOREIGN.search(test["name"]):
                words = [w.removeprefix(build) for w in test["command"] if w.startswith(build)]
                self._tests[test["name"]] = [w for w in words if w in targets] or ["all"]

    def _ask(self, *command):
        return subprocess.run(command, capture_output=True, text=True, check=True).stdout

    def _build_failure(self, targets):
        """Returns what became of a mutant that doesn't build; None if it does."""
        with tempfile.TemporaryFile("w+") as log:
            make = ["ninja", "-C", self._build, f"-j{self._cores}", *targets]
            code = run(make, BUILD_LIMIT, stdout=log)
            if code == 0:
                return None
            if code is None:
                return "noticed", "the build's time limit"
            log.seek(0)
            failed = re.findall(r"^FAILED: (\S+)", log.read(), re.M)
        # Other steps than the compiler's run the tool.
        made = [name for name in failed if not name.endswith(".o")]
        return ("noticed", f"the build of {made[0]}") if made else ("rejected", "the compiler")

    def _test(self, name, limit):
        with tempfile.TemporaryDirectory(dir=_MEMORY, ignore_cleanup_errors=True) as scratch:
            surroundings = os.environ | {"TMPDIR": scratch, "GTEST_FAIL_FAST": "1"}
            command = ["ctest", "--test-dir", self._build, "-R", f"^{re.escape(name)}$"]
            return run(command, limit, env=surroundings)
