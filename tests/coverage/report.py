#!/usr/bin/env python3
"""Adds up, room by room, which lines and branches ran, from what `llvm-cov export` says; see scripts/coverage.

A branch is one outcome of one condition in the sources: a condition that is compiled more than once, in a template or
into several programs, has two branches all the same. `while (true)` decides nothing.
"""

import argparse
import json
import os
import sys
from collections import defaultdict
from pathlib import Path

ROOMS = ["text", "transforms", "fileset", "pattern", "rename", "settings", "run", "platform", "cli"]
NOT_PRODUCT = ("_test.cpp", "_reference.cpp", "_reference.h", "_fuzz.cpp", "_bench.cpp")


class Sources:
    """The files that count: those directly in a room's folder, so nothing that is for one system or for tests."""

    def __init__(self, root: Path):
        self.names = {}  # path -> name below src/
        for room in ROOMS:
            for path in (root / "src" / room).iterdir():
                if path.suffix in (".h", ".cpp") and not path.name.endswith(NOT_PRODUCT):
                    self.names[os.path.realpath(path)] = f"{room}/{path.name}"
        self.known = {}

    def name_of(self, path: str):
        """None when the file does not count. Headers are compiled through links, so that one has several paths."""
        if path not in self.known:
            self.known[path] = self.names.get(os.path.realpath(path))
        return self.known[path]


def read_lines(report: Path, sources: Sources) -> dict:
    """(file, line) -> how often it ran."""
    lines = defaultdict(int)
    name = None
    with report.open(encoding="utf-8") as text:
        for row in text:
            if row.startswith("SF:"):
                name = sources.name_of(row[3:].rstrip("\n"))
            elif name and row.startswith("DA:"):
                line, count = row[3:].split(",")[:2]
                lines[name, int(line)] += int(count)
    return lines


def read_branches(report: Path, sources: Sources) -> dict:
    """(file, line, column, outcome) -> how often it was taken."""
    branches = defaultdict(int)
    for part in json.loads(report.read_text(encoding="utf-8"))["data"]:
        for file in part["files"]:
            name = sources.name_of(file["filename"])
            if not name:
                continue
            text = Path(file["filename"]).read_text(encoding="utf-8").splitlines()
            for line, column, _, end, when_true, when_false, *_ in file["branches"]:
                if text[line - 1][column - 1:end - 1] == "true":
                    continue
                branches[name, line, column, "true"] += when_true
                branches[name, line, column, "false"] += when_false
    return branches


def print_uncovered(lines: dict, branches: dict):
    for (name, line), count in sorted(lines.items()):
        if count == 0:
            print(f"src/{name}:{line}: never ran")
    for (name, line, column, outcome), count in sorted(branches.items()):
        if count == 0 and lines.get((name, line)) != 0:
            print(f"src/{name}:{line}:{column}: never {outcome}")


def percent(part: int, whole: int) -> float:
    return 100.0 * part / whole if whole else 100.0


def row(room: str, counts: list[dict]) -> list[float]:
    cells, percents = "", []
    for found in counts:
        ran = sum(1 for count in found.values() if count > 0)
        percents.append(percent(ran, len(found)))
        cells += f"{ran:7} of {len(found):5} {percents[-1]:6.2f} %"
    print(f"{room:12}{cells}")
    return percents


def of_room(counts: dict, room: str) -> dict:
    return {key: count for key, count in counts.items() if key[0].startswith(room + "/")}


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("root", type=Path)
    parser.add_argument("lines", type=Path, help="what llvm-cov exports as lcov")
    parser.add_argument("branches", type=Path, help="what llvm-cov exports as JSON")
    parser.add_argument("--lines-goal", type=float, default=0)
    parser.add_argument("--branches-goal", type=float, default=0)
    parser.add_argument("--uncovered", action="store_true", help="name what never ran")
    asked = parser.parse_args()

    sources = Sources(asked.root)
    lines = read_lines(asked.lines, sources)
    branches = read_branches(asked.branches, sources)
    unseen = {name for name in sources.names.values() if name.endswith(".cpp")} - {name for name, _ in lines}
    if unseen:
        sys.exit(f"Nothing is known of {', '.join(sorted(unseen))}: in none of the programs.")
    if asked.uncovered:
        print_uncovered(lines, branches)
    print(f"{'':12}{'lines':>24}{'branches':>24}")
    for room in ROOMS:
        row(room, [of_room(lines, room), of_room(branches, room)])
    of_lines, of_branches = row("total", [lines, branches])
    if of_lines < asked.lines_goal or of_branches < asked.branches_goal:
        print(f"Under the goal of {asked.lines_goal:g} % of the lines and {asked.branches_goal:g} % of the branches.")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
