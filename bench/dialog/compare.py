"""Times the dialog and the program that only shows the same list, in turn; see `compare`.

Each time is that of a process of its own, in which a dialog on one file was opened before. The order of the programs
changes from round to round, so that none always follows the same one.
"""

import argparse
import json
import os
import shutil
import statistics
import subprocess
import sys
import tempfile

SIZES = (10_000, 100_000)
OPENING_GOAL = 1.5  # times the program that reads the folder
KEYSTROKE_GOAL = 2 * 1000 / 60  # milliseconds: two frames
KEYSTROKE_SIZE = 10_000
TASKS = ("opening", "scrolling", "keystroke")

OURS = "Multi Rename"
READING = "list of callbacks, folder read"
WITHOUT_READING = "list of callbacks, in memory"
TEXTS = "list of texts, in memory"


def windows_path(path):
    return "Z:" + path.replace("/", "\\")


def words(program, folder, count):
    folder = windows_path(folder)
    return {
        OURS: ["time_dialog.exe", folder, str(count)],
        READING: ["fill_list.exe", "folder", str(count), folder],
        WITHOUT_READING: ["fill_list.exe", "callbacks", str(count)],
        TEXTS: ["fill_list.exe", "texts", str(count)],
    }[program]


PROGRAMS = (TEXTS, WITHOUT_READING, READING, OURS)


def make_files(folder, count):
    os.mkdir(folder)
    for number in range(1, count + 1):
        os.close(os.open(os.path.join(folder, "IMG_%06d.jpg" % number), os.O_CREAT | os.O_WRONLY, 0o644))


def run(call, programs):
    """The milliseconds that the program printed, by task."""
    with tempfile.TemporaryFile("w+") as output, tempfile.TemporaryFile("w+") as errors:
        status = subprocess.run(["wine", os.path.join(programs, call[0])] + call[1:], stdin=subprocess.DEVNULL,
                                stdout=output, stderr=errors, timeout=300).returncode
        output.seek(0)
        errors.seek(0)
        if status != 0:
            sys.exit("%s ended with %d: %s" % (" ".join(call), status, errors.read()))
        numbers = output.read().split()
    return {task: float(number) for task, number in zip(TASKS, numbers) if number != "-"}


def measure(programs, folder, count, rounds):
    times = {}
    for round_number in range(rounds):
        turn = round_number % len(PROGRAMS)
        for program in PROGRAMS[turn:] + PROGRAMS[:turn]:
            for task, time in run(words(program, folder, count), programs).items():
                times.setdefault((task, program), []).append(time)
        print("  %d files, round %d of %d done" % (count, round_number + 1, rounds), file=sys.stderr)
    return times


def verdict(is_met):
    return "met" if is_met else "missed"


def goal_of(task, count, mine, reading):
    """What the dialog should reach, and whether it did; nothing where there is no goal."""
    if task == "opening":
        return "at most %.1f x %s: %s" % (OPENING_GOAL, READING, verdict(mine <= OPENING_GOAL * reading))
    if task == "keystroke" and count == KEYSTROKE_SIZE:
        return "at most two frames, %d ms: %s" % (KEYSTROKE_GOAL, verdict(mine <= KEYSTROKE_GOAL))
    return ""


def rows(count, times):
    medians = {key: statistics.median(values) for key, values in times.items()}
    for task in TASKS:
        mine = medians[task, OURS]
        reading = medians.get((task, READING))
        for program in PROGRAMS:
            if (task, program) not in times:
                continue
            median = medians[task, program]
            yield {"files": count, "task": task, "program": program, "median": median,
                   "min": min(times[task, program]), "runs": len(times[task, program]),
                   "ratio": median / reading if reading else None,
                   "ratio_without_reading": median / medians[task, WITHOUT_READING] if reading else None,
                   "goal": goal_of(task, count, mine, reading) if program == OURS else ""}


def print_table(all_rows):
    form = "%-8s  %-10s %-31s %10s %10s %10s %10s  %s"
    print(form % ("files", "task", "program", "median ms", "least ms", "x reading", "x memory", "goal"))
    last = None
    for row in all_rows:
        if last not in (None, (row["files"], row["task"])):
            print()
        last = (row["files"], row["task"])
        ratios = ["%.2f" % row[key] if row[key] else "" for key in ("ratio", "ratio_without_reading")]
        print((form % ("{:,}".format(row["files"]), row["task"], row["program"], "%.1f" % row["median"],
                       "%.1f" % row["min"], *ratios, row["goal"])).rstrip())


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--programs", required=True)
    options.add_argument("--json", required=True)
    options.add_argument("--folder", default="/dev/shm")
    options.add_argument("--rounds", type=int, default=6)
    options.add_argument("--quick", action="store_true")
    chosen = options.parse_args()
    base = tempfile.mkdtemp(prefix="multirename-dialog-", dir=chosen.folder)
    all_rows = []
    try:
        for count in SIZES[:1] if chosen.quick else SIZES:
            folder = os.path.join(base, str(count))
            make_files(folder, count)
            all_rows += rows(count, measure(chosen.programs, folder, count, chosen.rounds))
    finally:
        shutil.rmtree(base, ignore_errors=True)
    print("Medians of %d rounds. Times end when all is painted; \"x reading\" is the ratio to the list whose program"
          " reads\nthe folder, which the goal of opening goes by, \"x memory\" that to the same list without reading.\n"
          % chosen.rounds)
    print_table(all_rows)
    with open(chosen.json, "w", encoding="ascii") as file:
        json.dump({"rounds": chosen.rounds, "rows": all_rows}, file, indent=1)


if __name__ == "__main__":
    main()
