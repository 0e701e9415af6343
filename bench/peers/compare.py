"""Times this command line, its peers and a bare loop of system calls on the same files; see `compare`.

Each tool is called the way its manual suggests for many files. Lists of names that a peer wants are made beforehand
and cost it nothing; for tools that open an editor the editor is a small script. Every rename starts from files made
anew, rounds go from tool to tool, and after each rename the folder is compared with what it should hold.
"""

import argparse
import json
import os
import random
import re
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import threading
import time

SIZES = (1_000, 10_000, 100_000)
SLOW = 10.0  # seconds; a run that took longer is not repeated
SAMPLE = 2_000  # files the contents of which are looked at
RENAME_GOAL = 1.3  # times the bare loop, at the largest size
TASKS = ("preview", "prefix", "shift", "undo")


def old_name(number):
    return "IMG_%06d.jpg" % number


def new_name(task, number):
    if task == "prefix":
        return "New_%06d.jpg" % number
    return old_name(number + 1 if task == "shift" else number)


class Workplace:
    """The folder with the files, and beside it whatever the tools need."""

    def __init__(self, parent, programs):
        self.base = tempfile.mkdtemp(prefix="multirename-peers-", dir=parent)
        self.files = os.path.join(self.base, "files")
        self.tools = os.path.join(self.base, "tools")
        self.state = tempfile.mkdtemp(prefix="multirename-peers-state-")
        self.programs = programs
        os.mkdir(self.tools)
        self.count = 0

    def remove(self):
        shutil.rmtree(self.base, ignore_errors=True)
        shutil.rmtree(self.state, ignore_errors=True)

    def fill(self):
        """Makes the files anew; each holds its name."""
        shutil.rmtree(self.files, ignore_errors=True)
        os.mkdir(self.files)
        folder = os.open(self.files, os.O_RDONLY | os.O_DIRECTORY)
        for number in range(1, self.count + 1):
            file = os.open(old_name(number), os.O_CREAT | os.O_WRONLY, 0o644, dir_fd=folder)
            os.write(file, old_name(number).encode())
            os.close(file)
        os.close(folder)

    def use(self, count):
        self.count = count
        names = [old_name(number) for number in range(1, count + 1)]
        self.write("names", "".join(name + "\n" for name in names))
        self.write("names-backwards", "".join(name + "\n" for name in reversed(names)))
        # Both editors take a list of any form whose lines end in the names.
        self.write("edit-prefix", "#!/bin/sh\nexec sed -i 's/IMG_\\([0-9]*\\.jpg\\)$/New_\\1/' \"$1\"\n", 0o755)
        self.write("edit-shift",
                   "#!/bin/sh\nawk '{ n = length($0); printf \"%s%06d.jpg\\n\", substr($0, 1, n - 10),"
                   " substr($0, n - 9, 6) + 1 }' \"$1\" > \"$1.new\" && cat \"$1.new\" > \"$1\" && rm \"$1.new\"\n",
                   0o755)

    def write(self, name, text, mode=0o644):
        with open(self.tool(name), "w", encoding="ascii") as file:
            file.write(text)
        os.chmod(self.tool(name), mode)

    def tool(self, name):
        return os.path.join(self.tools, name)

    def is_right(self, task):
        """Whether the folder holds exactly the names that it should, each with the contents it had."""
        task = "none" if task in ("preview", "undo") else task
        expected = {new_name(task, number) for number in range(1, self.count + 1)}
        with os.scandir(self.files) as entries:
            if {entry.name for entry in entries} != expected:
                return False
        numbers = range(1, self.count + 1)
        if self.count > SAMPLE:
            numbers = [1, 2, self.count - 1, self.count] + random.Random(1).sample(numbers, SAMPLE)
        for number in numbers:
            with open(os.path.join(self.files, new_name(task, number)), encoding="ascii") as file:
                if file.read() != old_name(number):
                    return False
        return True


class Call:
    def __init__(self, words, stdin=os.devnull, variables=None):
        self.words = words
        self.stdin = stdin
        self.variables = variables or {}


def bare_loop(place, task):
    if task not in ("prefix", "shift"):
        return None
    return Call([os.path.join(place.programs, "bare_rename"), place.files, str(place.count), task])


def ours(place, task):
    words = {
        "preview": ["preview", "--in", place.files, "--text", "1=New_"],
        "prefix": ["rename", "--in", place.files, "--text", "1=New_"],
        "shift": ["rename", "--in", place.files, "--renumber", "2=2"],
        "undo": ["undo"],
    }[task]
    return Call([os.path.join(place.programs, "multirename")] + words, variables={"XDG_STATE_HOME": place.state})


def perl_rename(place, task):
    prefix = "s/^IMG_/New_/"
    if task == "preview":
        return Call(["file-rename", "-n", prefix], place.tool("names"))
    if task == "prefix":
        return Call(["file-rename", prefix], place.tool("names"))
    if task == "shift":
        # From the last name on: it refuses names that are still taken.
        return Call(["file-rename", 's/(\\d+)/sprintf("%06d", $1 + 1)/e'], place.tool("names-backwards"))
    return None


def mmv(place, task):
    if task == "preview":
        return Call(["mmv", "-n", "IMG_*", "New_#1"])
    if task == "prefix":
        return Call(["mmv", "IMG_*", "New_#1"])
    # Patterns are all that it takes, and they cannot count.
    return None


def qmv(place, task):
    if task == "undo":
        return None
    edit = place.tool("edit-shift" if task == "shift" else "edit-prefix")
    return Call(["qmv"] + (["--dummy"] if task == "preview" else []) + ["-f", "do", "-e", edit])


def vidir(place, task):
    if task not in ("prefix", "shift"):
        return None
    edit = place.tool("edit-" + task)
    return Call(["vidir", "."], variables={"EDITOR": edit, "VISUAL": edit})


def plain_rename(place, task):
    # One text for another is all that it knows, so it cannot shift.
    if task not in ("preview", "prefix"):
        return None
    dry = ["-n", "-v"] if task == "preview" else []
    return Call(["xargs", "-a", place.tool("names"), "rename.ul", "-o"] + dry + ["IMG_", "New_"])


def loop_of_mv(place, task):
    if task == "prefix":
        return Call(["bash", "-c", 'while read -r name; do mv -n -- "$name" "New_${name#IMG_}"; done'],
                    place.tool("names"))
    if task == "shift":
        script = ('while read -r name; do n=${name#IMG_}; n=$((10#${n%.jpg} + 1)); printf -v to IMG_%06d.jpg "$n";'
                  ' mv -n -- "$name" "$to"; done')
        return Call(["bash", "-c", script], place.tool("names-backwards"))
    return None


TOOLS = {
    "bare loop": bare_loop,
    "multirename": ours,
    "rename (Perl)": perl_rename,
    "mmv": mmv,
    "qmv": qmv,
    "vidir": vidir,
    "rename (util-linux)": plain_rename,
    "mv in a loop": loop_of_mv,
}


class Results:
    def __init__(self):
        self.times = {}
        self.remarks = {}
        self.wrong = set()

    def add(self, key, seconds, is_right):
        self.times.setdefault(key, []).append(seconds)
        if not is_right:
            self.wrong.add(key)

    def median(self, key):
        return statistics.median(self.times[key]) if key in self.times else None


def run(call, place, limit):
    """The seconds that a call took, or None when it took longer than the limit; and what it said of errors."""
    with open(call.stdin, "rb") as stdin, tempfile.TemporaryFile() as errors:
        was_late = threading.Event()
        start = time.monotonic()
        process = subprocess.Popen(call.words, cwd=place.files, stdin=stdin, stdout=subprocess.DEVNULL, stderr=errors,
                                   env={**os.environ, **call.variables}, start_new_session=True)

        def end():
            was_late.set()
            # It leads a group of its own, which holds all that it has started.
            os.killpg(process.pid, signal.SIGKILL)

        # Waiting with a time limit would look only now and then whether the process has ended.
        timer = threading.Timer(limit, end)
        timer.start()
        process.wait()
        seconds = time.monotonic() - start
        timer.cancel()
        errors.seek(0)
        return None if was_late.is_set() else seconds, errors.read().decode(errors="replace")


def is_to_run(results, tool, task, size, round_number):
    key = (size, tool, task)
    if any(results.remarks.get((smaller, tool, task)) for smaller in SIZES if smaller <= size):
        return False
    return round_number == 0 or (key not in results.wrong and max(results.times.get(key, [0])) <= SLOW)


def measure(place, results, tool, task, limit):
    call = TOOLS[tool](place, task)
    key = (place.count, tool, task)
    if call is None:
        results.remarks[key] = "has none" if task in ("preview", "undo") else "cannot"
        return
    if task in ("prefix", "shift"):
        place.fill()
    seconds, errors = run(call, place, limit)
    if seconds is None:
        results.remarks[key] = "more than %d s" % limit
        place.fill()
        return
    is_right = place.is_right(task)
    results.add(key, seconds, is_right)
    if not is_right and errors:
        print("%s, %s of %d: %s" % (tool, task, place.count, errors.splitlines()[0]), file=sys.stderr)
    if not is_right:
        place.fill()


def measure_size(place, results, size, rounds, limit):
    place.use(size)
    for round_number in range(rounds):
        place.fill()
        for task in ("preview", "shift", "prefix"):
            for tool in TOOLS:
                if is_to_run(results, tool, task, size, round_number):
                    measure(place, results, tool, task, limit)
                # What takes a batch back needs one, so it comes right behind it.
                if task == "prefix" and tool == "multirename":
                    measure(place, results, tool, "undo", limit)
            if task == "preview" and not place.is_right("preview"):
                sys.exit("a preview has changed the files")
        print("  %d files, round %d of %d done" % (size, round_number + 1, rounds), file=sys.stderr)


def goal_of(results, size, task):
    """What this command line should reach at a size, and whether it did; nothing where there is no goal."""
    mine = results.median((size, "multirename", task))
    if task in ("prefix", "shift") and size == SIZES[-1]:
        limit = RENAME_GOAL * results.median((size, "bare loop", task))
        return "at most %.1f x the bare loop: %s" % (RENAME_GOAL, "met" if mine <= limit else "missed")
    if task == "preview":
        peers = [results.median((size, tool, task)) for tool in TOOLS if tool != "multirename"]
        fastest = min((seconds for seconds in peers if seconds is not None), default=None)
        if fastest is None:
            return ""
        return "faster than every peer's: %s" % ("met" if mine < fastest else "missed")
    return ""


def rows(results, sizes):
    for size in sizes:
        for task in TASKS:
            bare = results.median((size, "bare loop", "shift" if task == "shift" else "prefix"))
            for tool in TOOLS:
                key = (size, tool, task)
                times = results.times.get(key)
                row = {"files": size, "task": task, "tool": tool}
                if times:
                    row |= {"median": statistics.median(times), "min": min(times), "runs": len(times),
                            "ratio": statistics.median(times) / bare, "right": key not in results.wrong,
                            "goal": goal_of(results, size, task) if tool == "multirename" else ""}
                else:
                    remark = next((results.remarks[(smaller, tool, task)] for smaller in SIZES
                                   if smaller <= size and (smaller, tool, task) in results.remarks), "not run")
                    row["remark"] = remark
                if not (task == "undo" and tool != "multirename") and not (task == "preview" and tool == "bare loop"):
                    yield row


def print_table(all_rows):
    form = "%-8s  %-8s  %-20s %10s %10s %10s  %-6s %s"
    last = None
    print(form % ("files", "task", "tool", "median ms", "least ms", "x bare", "names", "goal"))
    for row in all_rows:
        if last not in (None, (row["files"], row["task"])):
            print()
        last = (row["files"], row["task"])
        start = ("{:,}".format(row["files"]), row["task"], row["tool"])
        if "remark" in row:
            print((form % (*start, "", "", "", "", row["remark"])).rstrip())
        else:
            print((form % (*start, "%.1f" % (1000 * row["median"]), "%.1f" % (1000 * row["min"]),
                           "%.2f" % row["ratio"], "right" if row["right"] else "WRONG", row["goal"])).rstrip())


def file_system(path):
    return subprocess.run(["stat", "-f", "-c", "%T", path], check=True, capture_output=True, text=True).stdout.strip()


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--programs", required=True)
    options.add_argument("--json", required=True)
    options.add_argument("--folder", default="/dev/shm")
    options.add_argument("--rounds", type=int, default=5)
    options.add_argument("--limit", type=float, default=120.0, help="seconds")
    options.add_argument("--quick", action="store_true")
    options.add_argument("--only", help="only the tools whose names match, beside the bare loop and multirename")
    options.add_argument("--sizes", type=lambda text: [int(size) for size in text.split(",")])
    chosen = options.parse_args()
    sizes = chosen.sizes or (SIZES[:-1] if chosen.quick else SIZES)
    if chosen.only:
        for tool in list(TOOLS)[2:]:
            if not re.search(chosen.only, tool):
                del TOOLS[tool]
    place = Workplace(chosen.folder, chosen.programs)
    results = Results()
    try:
        where = {"files": file_system(place.base), "journal": file_system(place.state)}
        print("Files on %s (%s), journals on %s (%s); medians of up to %d interleaved rounds.\n" %
              (where["files"], chosen.folder, where["journal"], os.path.dirname(place.state), chosen.rounds))
        sys.stdout.flush()
        for size in sizes:
            measure_size(place, results, size, chosen.rounds, chosen.limit)
    finally:
        place.remove()
    all_rows = list(rows(results, sizes))
    print_table(all_rows)
    with open(chosen.json, "w", encoding="ascii") as file:
        json.dump({"file_systems": where, "rounds": chosen.rounds, "limit": chosen.limit, "rows": all_rows}, file,
                  indent=1)
    is_wrong = any(row["tool"] == "multirename" and not row.get("right", True) for row in all_rows)
    sys.exit(1 if is_wrong else 0)


if __name__ == "__main__":
    main()
