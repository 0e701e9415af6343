#!/usr/bin/env python3
"""Tries whether the unit tests notice small mistakes in the engine's sources; see scripts/mutate.

Each mutant is compiled outside the sources, as an overlay of the one file that it changes, and linked in front of the
rest of the unit tests. It is caught when a test fails, crashes, takes far more time or memory than it should or when a
library assertion stops it. One that does not compile says nothing and is not counted.
"""

import argparse
import json
import math
import os
import random
import re
import resource
import shlex
import shutil
import signal
import subprocess
import sys
from collections import Counter
from concurrent.futures import ThreadPoolExecutor, as_completed
from dataclasses import dataclass
from pathlib import Path
from queue import Queue

from mutants import Mutant, mutants_of

ROOMS = ["text", "transforms", "fileset", "pattern", "rename", "run"]
NOT_PRODUCT = re.compile(r"_(test|reference|fuzz|bench)\.(h|cpp)$")
# The long comparisons of fast and plain pattern extraction are for an optimised build.
LEFT_OUT = "PatternAgreement.*"
# A header that more files of the engine include costs more than its few mutants tell.
MOST_DEPENDENTS = 8
FEWEST_FOR_A_SHARE = 100
MEMORY = 6 << 30  # bytes of address space
LARGEST_FILE = 16 << 30  # bytes, most of them never written: tests make files with holes
LONGEST = 300  # seconds, whatever the processor does meanwhile
WORKERS = 2


@dataclass
class Outcome:
    mutant: Mutant
    verdict: str  # survived, caught, "does not compile"


def sources(root: Path) -> list[str]:
    found = []
    for room in ROOMS:
        for path in sorted((root / "src" / room).iterdir()):
            if path.suffix in (".h", ".cpp") and not NOT_PRODUCT.search(path.name):
                found.append(str(path.relative_to(root)))
    return found


class Build:
    """The unit tests built as they are, and how each of their files is compiled."""

    def __init__(self, root: Path, folder: Path):
        self.root = root
        self.folder = folder
        self.commands = {}  # source from the root -> (compiler and flags, object)
        for entry in json.loads((folder / "compile_commands.json").read_text(encoding="utf-8")):
            source = Path(entry["file"])
            if source.is_relative_to(root):
                self.commands[str(source.relative_to(root))] = self.split_command(entry)
        link = self.ninja("-t", "commands", "-s", "unit_tests").strip().splitlines()[-1]
        self.link = [word for word in shlex.split(link) if word not in (":", "&&")]
        self.dependents = self.read_dependents()

    def ninja(self, *arguments: str) -> str:
        return subprocess.run(["ninja", "-C", str(self.folder), "--quiet", *arguments], check=True, text=True,
                              capture_output=True).stdout

    @staticmethod
    def split_command(entry: dict) -> tuple[list[str], str]:
        words = shlex.split(entry["command"])
        made = words.index("-o")
        compiled = words.index("-c")
        named = (made, made + 1, compiled, compiled + 1)
        return [word for i, word in enumerate(words) if i not in named], words[made + 1]

    def read_dependents(self) -> dict[str, list[str]]:
        """header -> the sources of the engine and, beside the header, of its test that include it"""
        by_object = {made: source for source, (_, made) in self.commands.items()}
        found = {}
        source = None
        for line in self.ninja("-t", "deps").splitlines():
            if not line.startswith(" "):
                source = by_object.get(line.split(":")[0])
            elif source and (header := os.path.realpath(self.folder / line.strip())).endswith(".h"):
                if header.startswith(str(self.root) + "/"):
                    name = header[len(str(self.root)) + 1:]
                    if source.split("/")[1] in ROOMS and not NOT_PRODUCT.search(source) or \
                            source == name.removesuffix(".h") + "_test.cpp":
                        found.setdefault(name, []).append(source)
        return found

    def suites(self, pattern: str) -> str:
        """A filter for the tests of the files below src/ that fit the pattern."""
        names = set()
        for path in (self.root / "src").glob(pattern):
            text = path.read_text(encoding="utf-8")
            names.update(re.findall(r"^\s*(?:TYPED_)?TEST(?:_[FP])?\(\s*(\w+)", text, re.MULTILINE))
        return ":".join(f"{name}.*:*/{name}.*:{name}/*" for name in sorted(names))

    def compiled_files(self, name: str) -> list[str]:
        """What has to be compiled anew when a file has changed."""
        return [name] if name.endswith(".cpp") else self.dependents.get(name, [])


class Worker:
    """A folder of its own, in which one mutant after the other is compiled, linked and tested."""

    def __init__(self, build: Build, folder: Path):
        self.build = build
        self.folder = folder
        self.program = folder / "unit_tests"
        self.limits = {}  # part of the tests -> seconds of processor time

    def compile_all(self, mutant: Mutant) -> list[str] | None:
        """The objects; None when one does not compile."""
        overlay = self.folder / "overlay"
        shutil.rmtree(overlay, ignore_errors=True)
        changed = overlay / Path(mutant.file).relative_to("src")
        changed.parent.mkdir(parents=True)
        text = (self.build.root / mutant.file).read_text(encoding="utf-8")
        changed.write_text(text[:mutant.start] + mutant.new + text[mutant.end:], encoding="utf-8")
        objects = []
        for i, source in enumerate(self.build.compiled_files(mutant.file)):
            flags, _ = self.build.commands[source]
            path = changed if source == mutant.file else self.build.root / source
            objects.append(str(self.folder / f"{i}.o"))
            # Headers are found by their room, so the overlay's come first.
            command = [flags[0], f"-I{overlay}", *flags[1:], "-o", objects[-1], "-c", str(path)]
            if not succeeds(command, self.build.folder):
                return None
        return objects

    def link_with(self, objects: list[str], replaced_tests: list[str]) -> bool:
        """Links the objects in front of all others: the first definition of an inline function is taken, and nothing
        is fetched from a library that is there already."""
        own = {self.build.commands[source][1] for source in self.build.commands}
        words = list(self.build.link)
        words[words.index("-o") + 1] = str(self.program)
        first = next(i for i, word in enumerate(words) if word in own)
        # A test's object is replaced: two would define the same tests.
        replaced = {self.build.commands[source][1] for source in replaced_tests}
        words = words[:first] + objects + [word for word in words[first:] if word not in replaced]
        return succeeds(words, self.build.folder)

    def passes(self, part: str, tests: str) -> bool:
        limit = self.limits.get(part, LONGEST)
        own_temporary = self.folder / "tmp"
        shutil.rmtree(own_temporary, ignore_errors=True)
        own_temporary.mkdir()
        process = subprocess.Popen(
            [self.program, "--gtest_fail_fast", "--gtest_brief=1", f"--gtest_filter={tests}"], cwd=own_temporary,
            env={**os.environ, "TMPDIR": str(own_temporary)}, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL, start_new_session=True,
            preexec_fn=lambda: limit_resources(limit))
        try:
            return process.wait(LONGEST) == 0
        except subprocess.TimeoutExpired:
            return False
        finally:
            if process.poll() is None or process.returncode != 0:
                end_group(process)

    def passes_surely(self, part: str, tests: str) -> bool:
        """What goes wrong far from the mutant counts only when it does so twice: a busy machine can do that too."""
        return self.passes(part, tests) or part == "all" and self.passes(part, tests)

    def parts(self, mutant: Mutant) -> list[tuple[str, str]]:
        """The tests beside the mutant first, then those of its room: most mistakes end there. Each with the name of its
        limit."""
        room = mutant.file.split("/")[1]
        beside = self.build.suites(f"{room}/{Path(mutant.file).stem}_test.cpp")
        of_room = self.build.suites(f"{room}/*_test.cpp")
        parts = [(room, f"{beside}:-{LEFT_OUT}")] if beside else []
        return parts + [(room, f"{of_room}:-{LEFT_OUT}:{beside}"), ("all", f"*:-{LEFT_OUT}:{of_room}")]

    def measure(self):
        """The tests pass on the sources as they are; from how long that takes follows how long a mutant may run."""
        if not self.link_with([], []):
            sys.exit("The unit tests cannot be linked.")
        rooms = {room: f"{self.build.suites(f'{room}/*_test.cpp')}:-{LEFT_OUT}" for room in ROOMS}
        for part, tests in {**rooms, "all": f"*:-{LEFT_OUT}"}.items():
            before = processor_time()
            if not self.passes(part, tests):
                sys.exit(f"The unit tests fail without a mutant: {part}.")
            self.limits[part] = math.ceil(2 + 3 * (processor_time() - before))

    def try_out(self, mutant: Mutant) -> Outcome:
        objects = self.compile_all(mutant)
        tests = [name for name in self.build.compiled_files(mutant.file) if NOT_PRODUCT.search(name)]
        if objects is None or not self.link_with(objects, tests):
            return Outcome(mutant, "does not compile")
        survives = all(self.passes_surely(part, tests) for part, tests in self.parts(mutant))
        return Outcome(mutant, "survived" if survives else "caught")


def succeeds(command: list[str], folder: Path) -> bool:
    try:
        return subprocess.run(command, cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              timeout=LONGEST).returncode == 0
    except subprocess.TimeoutExpired:
        return False


def limit_resources(seconds: int):
    resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds))
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (LARGEST_FILE, LARGEST_FILE))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def processor_time() -> float:
    """Seconds that processes that have ended took."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def end_group(process: subprocess.Popen):
    """Ends the tests and what they have started."""
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    process.wait()


class Equivalents:
    """The mutants that no test can tell from the sources. Each is three lines or more, as survivors are printed: the
    file, the line before it is changed, the line after, or a star for every change of that line that survives; then the
    reason. A blank line parts two of them."""

    def __init__(self, path: Path):
        self.listed = set()
        text = "\n".join(line for line in path.read_text(encoding="utf-8").splitlines() if not line.startswith("#"))
        for block in re.split(r"\n\s*\n", text.strip()):
            lines = [line.strip() for line in block.splitlines()]
            if not lines:
                continue
            if len(lines) < 4 or not lines[1].startswith("- ") or not lines[2].startswith("+ "):
                sys.exit(f"{path}: an entry that is not a file, two lines and a reason:\n{block}")
            self.listed.add((lines[0], lines[1][2:], lines[2][2:]))

    def __contains__(self, mutant: Mutant) -> bool:
        return any(key in self.listed for key in keys_of(mutant))

    def names(self, mutant: Mutant) -> bool:
        """True when the mutant is listed by itself."""
        return keys_of(mutant)[0] in self.listed

    def outdated(self, mutants: list[Mutant]) -> list[str]:
        known = {key for mutant in mutants for key in keys_of(mutant)}
        return [f"{file}\n- {old}\n+ {new}" for file, old, new in sorted(self.listed - known)]


def keys_of(mutant: Mutant) -> list[tuple[str, str, str]]:
    return [(mutant.file, mutant.old_line, new) for new in (mutant.new_line, "*")]


def text_of(mutant: Mutant) -> str:
    return f"{mutant.file}:{mutant.line}\n- {mutant.old_line}\n+ {mutant.new_line}"


def try_all(build: Build, chosen: list[Mutant], folder: Path, show) -> list[Outcome]:
    workers = Queue()
    first = Worker(build, folder / "0")
    first.folder.mkdir(parents=True, exist_ok=True)
    first.measure()
    for i in range(WORKERS):
        worker = Worker(build, folder / str(i))
        worker.folder.mkdir(parents=True, exist_ok=True)
        worker.limits = first.limits
        workers.put(worker)

    def try_one(mutant: Mutant) -> Outcome:
        worker = workers.get()
        try:
            return worker.try_out(mutant)
        finally:
            workers.put(worker)

    outcomes = []
    with ThreadPoolExecutor(WORKERS) as pool:
        tried = [pool.submit(try_one, mutant) for mutant in chosen]
        try:
            for one in as_completed(tried):
                outcomes.append(one.result())
                show(outcomes[-1], len(outcomes))
        except KeyboardInterrupt:
            print("Stopped; what was tried so far counts.")
            pool.shutdown(cancel_futures=True)
    return outcomes


def print_result(outcomes: list[Outcome], equivalents: Equivalents, goal: float) -> int:
    counted = [outcome for outcome in outcomes if outcome.verdict != "does not compile"]
    survivors = [outcome.mutant for outcome in counted if outcome.verdict == "survived"]
    same = [mutant for mutant in survivors if mutant in equivalents]
    caught = len(counted) - len(survivors)
    wrong = [outcome.mutant for outcome in counted if outcome.verdict == "caught" and equivalents.names(outcome.mutant)]
    if remaining := [mutant for mutant in survivors if mutant not in equivalents]:
        print("\nSurvivors:")
        for mutant in remaining:
            print("\n" + text_of(mutant))
    if wrong:
        print("\nListed as equivalent, but caught:")
        for mutant in wrong:
            print("\n" + text_of(mutant))
    all_that_differ = len(counted) - len(same)
    share = 100.0 * caught / all_that_differ if all_that_differ else 100.0
    by_room = Counter(outcome.mutant.file.split("/")[1] for outcome in counted)
    missed = Counter(mutant.file.split("/")[1] for mutant in remaining)
    print()
    for room in ROOMS:
        print(f"{room:12}{missed[room]:5} of {by_room[room]:5} survived")
    print(f"{len(outcomes) - len(counted)} did not compile, {len(same)} are equivalent.")
    print(f"{caught} of {all_that_differ} caught: {share:.1f} %")
    if share < goal:
        print(f"Under the goal of {goal:g} %.")
    return 1 if share < goal or wrong else 0


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("root", type=Path)
    parser.add_argument("build", type=Path, help="the folder of the preset mutation, built")
    parser.add_argument("--count", type=int, default=300)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--goal", type=float, default=90)
    parser.add_argument("--only", default="", help="only files whose names contain this")
    asked = parser.parse_args()

    root = asked.root.resolve()
    build = Build(root, asked.build.resolve())
    names = [name for name in sources(root) if 0 < len(build.compiled_files(name)) <= MOST_DEPENDENTS]
    mutants = mutants_of(root, names)
    equivalents = Equivalents(Path(__file__).resolve().parent / "equivalent.txt")
    if outdated := equivalents.outdated(mutants):
        sys.exit("Listed as equivalent, but no longer possible:\n\n" + "\n\n".join(outdated))
    mutants = [mutant for mutant in mutants if asked.only in mutant.file]
    chosen = random.Random(asked.seed).sample(mutants, min(asked.count, len(mutants)))
    print(f"{len(chosen)} of {len(mutants)} mutants of {len(names)} files, seed {asked.seed}", flush=True)

    def show(outcome: Outcome, done: int):
        if done % 25 == 0:
            print(f"[{done}]", flush=True)
        if outcome.verdict == "survived" and outcome.mutant not in equivalents:
            print(f"[{done}] survived: {text_of(outcome.mutant)}", flush=True)

    outcomes = try_all(build, chosen, root / "build" / "mutants", show)
    # The share of a few mistakes says nothing of all.
    return print_result(outcomes, equivalents, asked.goal if len(chosen) >= FEWEST_FOR_A_SHARE else 0)


if __name__ == "__main__":
    sys.exit(main())
