"""Measures what the tests are worth by faults that nobody chose.

Prints how many of the mutants a test noticed, and each of the others. A mutant that doesn't compile
is replaced by another one. Work and results are kept in build-mutate/: a run that was stopped goes
on where it was, if the tree is still the same. Mutants that change nothing observable are listed in
scripts/equivalent_mutants.tsv and are not counted.
"""

import argparse
import fcntl
import hashlib
import json
import os
import queue
import random
import re
import resource
import signal
import subprocess
import sys
import threading
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from mutants import flat, mutants_of
from processes import Stopped, stop_all
from working_copy import WorkingCopy

ROOT = Path(__file__).resolve().parents[2]
WORK = ROOT / "build-mutate"
EQUIVALENTS = ROOT / "scripts" / "equivalent_mutants.tsv"
FOLDERS = ("compiler", "samples", "midi", "foundation", "platform", "kit", "runtime")


def parse_arguments():
    parser = argparse.ArgumentParser(prog="scripts/mutate", description=__doc__)
    what = parser.add_mutually_exclusive_group(required=True)
    what.add_argument("--random", type=int, metavar="N", help="try N mutants")
    what.add_argument("--again", action="store_true", help="try the survivors of earlier runs")
    what.add_argument("--list", action="store_true", help="print the survivors of earlier runs")
    parser.add_argument("--seed", type=int, default=1, metavar="S", help="picks the mutants")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), metavar="J")
    parser.add_argument("paths", nargs="*", help="only files whose names begin with one of these")
    return parser.parse_args()


def read_tree():
    """Returns what git knows or would add, as it is now: name, content and mode."""
    listed = subprocess.run(
        ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        cwd=ROOT, capture_output=True, text=True, check=True,
    ).stdout  # fmt: skip
    paths = {name: ROOT / name for name in sorted(set(listed.split("\0"))) if name}
    return {n: (p.read_bytes(), p.stat().st_mode) for n, p in paths.items() if p.is_file()}


def digest(files):
    """Tells trees apart. What is in scripts/ takes no part in the tests."""
    whole = hashlib.sha256()
    for name, (content, _) in files.items():
        if not name.startswith("scripts/"):
            whole.update(f"{name}\0{len(content)}\0".encode() + content)
    return whole.hexdigest()[:16]


def all_mutants(files, paths):
    found = []
    for name, (content, _) in files.items():
        if name.split("/")[0] in FOLDERS and name.endswith((".h", ".cpp")):
            if not paths or name.startswith(tuple(paths)):
                found += mutants_of(name, content.decode())
    return found


def read_equivalents(mutants):
    """Returns the keys of the listed mutants, and names the rows that don't fit.

    A row fits one mutant, or any number if it has "..." for the parts in which they differ.
    """
    listed = set()
    for row in EQUIVALENTS.read_text().splitlines()[1:]:
        file, before, after, _reason = row.split("\t")
        parts = "\t".join((file, flat(before), flat(after))).split("...")
        pattern = re.compile(r"[^\t]*".join(map(re.escape, parts)))
        keys = [m.key() for m in mutants if pattern.fullmatch("\t".join(m.key()[:3]))]
        if len(keys) == 1 or (keys and len(parts) > 1):
            listed.update(keys)
        else:
            print(f"mutate: fits {len(keys)} lines, ignored: {row}", file=sys.stderr)
    return listed


def pick(mutants, seed):
    """Returns one mutant of each line that has any. Lines are in random order."""
    lines = {}
    for mutant in mutants:
        lines.setdefault((mutant.file, mutant.line), []).append(mutant)
    dice = random.Random(seed)
    return [dice.choice(lines[line]) for line in dice.sample(list(lines), len(lines))]


class Results:
    """One JSON object a line, of all runs."""

    def __init__(self, path):
        self._path, self._rows, self._lock = path, [], threading.Lock()
        for line in path.read_text().splitlines() if path.exists() else []:
            try:
                self._rows.append(json.loads(line))
            except json.JSONDecodeError:
                pass  # a run was ended while it wrote this

    def of_tree(self, tree):
        return {tuple(row["key"]): row for row in self._rows if row["tree"] == tree}

    def survivors(self):
        latest = {tuple(row["key"]): row["outcome"] for row in self._rows}
        return {key for key, outcome in latest.items() if outcome == "survived"}

    def add(self, row):
        with self._lock, self._path.open("a") as file:
            file.write(json.dumps(row) + "\n")
            self._rows.append(row)


class Campaign:
    def __init__(self, files, jobs):
        self._tree, self._results = digest(files), Results(WORK / "results.jsonl")
        self._copies = queue.SimpleQueue()
        cores = max(1, (os.cpu_count() or 1) // jobs)
        copies = [WorkingCopy(WORK / f"copy-{job}", cores) for job in range(jobs)]
        self._pool = ThreadPoolExecutor(jobs)
        list(self._pool.map(lambda copy: copy.prepare(files), copies))
        for copy in copies:
            self._copies.put(copy)
        self.sources = copies[0].sources()
        self.known = self._results.of_tree(self._tree)

    def judge(self, mutant):
        row = self.known.get(mutant.key())
        if row is None:
            copy, start = self._copies.get(), time.monotonic()
            try:
                outcome, judge = copy.judge(mutant)
            finally:
                self._copies.put(copy)
            row = {"tree": self._tree, "key": mutant.key(), "outcome": outcome, "by": judge}
            row["seconds"] = round(time.monotonic() - start, 2)
            self._results.add(row)
        by = f" by {row['by']}" if row["by"] else ""
        sys.stderr.write(f"{row['seconds']:6.1f} s  {row['outcome']}{by}: {mutant}\n")
        return mutant, row["outcome"]

    def run(self, order, count):
        """Returns the first `count` mutants of `order` that compile, each with its outcome."""
        made, rest = [], iter(order)
        while batch := [m for m, _ in zip(rest, range(count - len(made)))]:
            judged = self._pool.map(self.judge, batch)
            made += [(mutant, outcome) for mutant, outcome in judged if outcome != "rejected"]
        return made


def report(made):
    print(f"{'':12}noticed   made")
    for folder in [*FOLDERS, "all"]:
        outcomes = [o for m, o in made if folder in ("all", m.file.split("/")[0])]
        if outcomes:
            noticed = outcomes.count("noticed")
            share = 100 * noticed / len(outcomes)
            print(f"{folder:12}{noticed:7}{len(outcomes):7}{share:6.1f} %")
    for mutant, outcome in made:
        if outcome == "survived":
            print(mutant)


def limit_resources():
    """A mutant may ask for all memory, or fill the disk."""
    for kind, size in (
        (resource.RLIMIT_AS, 16 << 30),
        (resource.RLIMIT_FSIZE, 5 << 30),
        (resource.RLIMIT_CORE, 0),
    ):
        resource.setrlimit(kind, (size, resource.getrlimit(kind)[1]))


def lock_folder():
    lock = (WORK / "lock").open("w")
    try:
        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except BlockingIOError:
        sys.exit("mutate: another run is at work in build-mutate/")
    return lock


def main():
    arguments = parse_arguments()
    WORK.mkdir(exist_ok=True)
    files = read_tree()
    mutants = all_mutants(files, arguments.paths)
    equivalents = read_equivalents(all_mutants(files, ()))
    survivors = Results(WORK / "results.jsonl").survivors() - equivalents
    if arguments.list:
        for mutant in mutants:
            if mutant.key() in survivors:
                print(mutant)
        return
    _lock = lock_folder()
    limit_resources()
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    try:
        campaign = Campaign(files, arguments.jobs)
        mutants = [mutant for mutant in mutants if mutant.file in campaign.sources]
        if not mutants:
            sys.exit("mutate: the build compiles no file that could be damaged")
        if arguments.again:
            order = [mutant for mutant in mutants if mutant.key() in survivors]
        else:
            order = [m for m in pick(mutants, arguments.seed) if m.key() not in equivalents]
        report(campaign.run(order, len(order) if arguments.again else arguments.random))
    except (KeyboardInterrupt, Stopped):
        sys.exit("mutate: stopped; the same command goes on from here")
    finally:
        stop_all()


main()
