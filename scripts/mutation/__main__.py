"""Measures the tests by random mutants: see scripts/mutate."""

import argparse
import hashlib
import json
import random
import subprocess
import sys
import threading
from collections import Counter
from pathlib import Path

from mutants import flat, mutants_of
from workspace import Workspace

_FOLDERS = ("compiler", "samples", "midi", "foundation", "platform", "runtime", "kit")
_PLACE = Path("build-mutate")
_EQUIVALENT = Path("scripts/equivalent_mutants.tsv")


def arguments():
    parser = argparse.ArgumentParser(prog="scripts/mutate", description=__doc__)
    parser.add_argument("--random", type=int, required=True, metavar="N", help="how many mutants")
    parser.add_argument("--seed", required=True, metavar="S", help="picks them")
    parser.add_argument("--jobs", type=int, default=1, metavar="J", help="copies of the tree")
    parser.add_argument("folders", nargs="*", default=_FOLDERS, help="all by default")
    return parser.parse_args()


def files_of_tree():
    command = ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"]
    listed = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    return sorted(file for file in set(listed.split("\0")) if Path(file).is_file())


def hash_of(files):
    whole = hashlib.sha256()
    for file in files:
        if not file.startswith(("docs/", "scripts/")):
            whole.update(file.encode() + b"\0" + Path(file).read_bytes())
    return whole.hexdigest()


def equivalent_mutants():
    """Returns file, line before and line after of the mutants that change nothing observable."""
    rows = [line.split("\t") for line in _EQUIVALENT.read_text().splitlines()[1:]]
    return {(file, flat(before), flat(after)) for file, before, after, _ in rows}


def shuffled_mutants(files, folders, seed):
    """Yields mutants line by line in random order, so that long expressions don't weigh more."""
    chosen = [f for f in files if f.split("/")[0] in folders and f.endswith((".h", ".cpp"))]
    lines = {}
    for file in chosen:
        for mutant in mutants_of(file, Path(file).read_text()):
            lines.setdefault((file, mutant.line), []).append(mutant)
    generator = random.Random(seed)
    for key in generator.sample(sorted(lines), len(lines)):
        yield generator.choice(lines[key])


class Run:
    """Judges mutants until enough of them compile. Keeps each result, so that it can be resumed."""

    def __init__(self, options, files):
        self._lock = threading.Lock()
        self._wanted = options.random
        known = equivalent_mutants()
        candidates = shuffled_mutants(files, options.folders, options.seed)
        self._mutants = (mutant for mutant in candidates if mutant.key()[:3] not in known)
        name = f"{options.seed}-{'-'.join(options.folders)}.jsonl"
        self._file = _PLACE / name
        self._results, self.counted = self._load(hash_of(files)), []

    def _load(self, tree):
        rows = [json.loads(row) for row in self._file.read_text().splitlines()] if self._file.exists() else []
        if not rows or rows[0] != tree:
            self._file.write_text(json.dumps(tree) + "\n")
            return {}
        return {tuple(key): result for key, result in rows[1:]}

    def work(self, workspace):
        while mutant := self._next():
            result = workspace.judge(mutant)
            with self._lock:
                with self._file.open("a") as file:
                    file.write(json.dumps([mutant.key(), result]) + "\n")
                self._count(mutant, result)

    def _next(self):
        with self._lock:
            for mutant in self._mutants if len(self.counted) < self._wanted else ():
                if (result := self._results.get(mutant.key())) is None:
                    return mutant
                self._count(mutant, result)
                if len(self.counted) >= self._wanted:
                    break
        return None

    def _count(self, mutant, result):
        if result == "broken" or len(self.counted) >= self._wanted:
            return
        self.counted.append((mutant, result))
        if result == "survived":
            print(mutant, flush=True)
        print(f"{len(self.counted)} of {self._wanted}", end="\r", file=sys.stderr, flush=True)


def print_summary(counted):
    made, noticed = Counter(), Counter()
    for mutant, result in counted:
        for name in (mutant.file.split("/")[0], "all"):
            made[name] += 1
            noticed[name] += result == "noticed"
    for name in sorted(made, key=lambda name: (name == "all", name)):
        print(f"{name:<12}{noticed[name]:>5} of {made[name]:>4} noticed{100 * noticed[name] / made[name]:>7.1f} %")


def main():
    options = arguments()
    _PLACE.mkdir(exist_ok=True)
    files = files_of_tree()
    run = Run(options, files)
    workspaces = [Workspace(_PLACE / f"tree{job}", files) for job in range(options.jobs)]
    for workspace in workspaces:
        workspace.prepare()
    threads = [threading.Thread(target=run.work, args=(workspace,)) for workspace in workspaces]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    print_summary(run.counted)


main()
