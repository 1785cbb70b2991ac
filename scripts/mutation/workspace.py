"""A copy of the source tree in which one mutant at a time is built and tested."""

import shutil
import subprocess
from pathlib import Path

# A test program and the CTest tests that it holds. Those of a mutant's own folder run first, then
# these in turn, then whatever CTest has left.
_LATER = (("compiler_tests", "^compiler$"), ("end_to_end_tests", "^end_to_end$"))
_TIME_LIMIT = 300  # seconds for a build or a stage of tests; one that takes longer hangs


class Workspace:
    def __init__(self, folder, files):
        """Copies `files` into `folder`, where nothing that is unchanged is built again."""
        self._folder = folder
        self._build = folder / "build"
        for stale in set(self._sources()) - set(files):
            (folder / stale).unlink()
        for file in files:
            copy = folder / file
            if not copy.exists() or copy.read_bytes() != Path(file).read_bytes():
                copy.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(file, copy)

    def prepare(self):
        """Builds the tree as it is. Its tests must pass."""
        options = ["-DCMAKE_BUILD_TYPE=Release", "-DCMAKE_CXX_FLAGS_RELEASE=-O1", "-DTAVREL_WERROR=OFF"]
        for command in (["cmake", "-G", "Ninja", "-B", self._build, "-S", self._folder, *options],
                        ["cmake", "--build", self._build]):
            subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
        if not self._passes("."):
            raise SystemExit(f"The tests fail without a mutant: see {self._build}")

    def judge(self, mutant):
        """Returns "noticed", "survived", or "broken" for a mutant that doesn't compile."""
        source = self._folder / mutant.file
        original = source.read_text()
        source.write_text(mutant.applied(original))
        try:
            return self._judge(Path(mutant.file).parts[0])
        except subprocess.TimeoutExpired:
            return "noticed"
        finally:
            source.write_text(original)

    def _judge(self, folder):
        own = ((f"{folder}_tests", f"^{folder}$"),)
        for program, tests in (*dict.fromkeys(own + _LATER), ("all", ".")):
            if not self._builds(program):
                return "broken"
            if not self._passes(tests):
                return "noticed"
        return "survived"

    def _builds(self, target):
        extra = ["tavrel"] if target == "end_to_end_tests" else []
        return self._succeeds(["ninja", "-C", self._build, target, *extra])

    def _passes(self, tests):
        command = ["ctest", "--test-dir", self._build, "-R", tests, "--stop-on-failure",
                   "--timeout", "60", "--no-tests=error"]
        return self._succeeds(command)

    def _succeeds(self, command):
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        try:
            return process.wait(_TIME_LIMIT) == 0
        finally:
            process.kill()

    def _sources(self):
        for path in self._folder.rglob("*"):
            if path.is_file() and self._build not in path.parents:
                yield str(path.relative_to(self._folder))
