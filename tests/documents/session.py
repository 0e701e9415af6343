"""Runs what a document shows at a prompt, in a home of its own, and compares what comes out with what is shown."""

import os
import re
import shlex
import shutil
import subprocess
import tempfile
from pathlib import Path

from document import ROOT

PROGRAMS = [ROOT / "build" / "linux-release" / "multirename",
            ROOT / "packaging" / "file-managers" / "multirename-in-terminal"]
SECONDS = 60


class CannotBeSetUp(Exception):
    """This machine cannot give files what the document says of them."""


def steps_of(text):
    """The commands of a block, behind "$ ", each with the output that is shown for it. A line that begins with "> "
    goes on with the command before it."""
    steps = []
    for line in text.splitlines():
        if line.startswith("$ "):
            steps.append([line[2:], ""])
        elif line.startswith("> ") and steps and not steps[-1][1]:
            steps[-1][0] += "\n" + line[2:]
        elif steps:
            steps[-1][1] += line + "\n"
        else:
            raise ValueError(f"There is output in front of the first command: {line}")
    return [tuple(step) for step in steps]


def without_dates(command, text):
    """Batches are named for the moment of the rename, and a list of them tells it."""
    text = re.sub(r"\b\d{8}-\d{6}-\d{3}\b", "BATCH-OF-THIS-TIME--", text)
    return re.sub(r"\b\d{4}-\d\d-\d\d \d\d:\d\d\b", "DATE-OF-THIS-RUN", text) if "undo --list" in command else text


class Session:
    """A user's home with files in it, given as lines "NAME [modified=TIME] [created=TIME] [size=BYTES]", times as
    2024-07-03T14:07:09 in UTC. A name with "/" at its end is a folder."""

    def __init__(self, files):
        self.base = Path(tempfile.mkdtemp(prefix="document-"))
        self.home = self.base / "home"
        self.mounted = False
        programs = self.base / "programs"
        programs.mkdir()
        for program in PROGRAMS:
            (programs / program.name).symlink_to(program)
        self.environment = {
            "PATH": f"{programs}:/usr/bin:/bin:/usr/sbin:/sbin", "HOME": str(self.home), "TZ": "UTC",
            "LC_ALL": "C.UTF-8", "XDG_STATE_HOME": str(self.base / "state"),
        }
        self.folder = self.home
        self.status = 0
        try:
            self.make_files(files)
        except BaseException:
            self.close()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        if self.mounted:
            subprocess.run(["umount", self.home], check=True)
        shutil.rmtree(self.base)

    def make_files(self, lines):
        self.home.mkdir()
        created = {}
        modified = {}
        for line in lines:
            name, *details = shlex.split(line)
            known = dict(detail.split("=", 1) for detail in details)
            path = self.home / name
            if name.endswith("/"):
                path.mkdir(parents=True)
                continue
            path.parent.mkdir(parents=True, exist_ok=True)
            with path.open("wb") as file:
                file.truncate(int(known.pop("size", 0)))
            if "modified" in known:
                modified[name] = known.pop("modified")
            if "created" in known:
                created[name] = known.pop("created")
            if known:
                raise ValueError(f"Unknown details of {name}: {known}")
        for name, time in modified.items():
            subprocess.run(["touch", "-d", time + "Z", self.home / name], check=True)
        if created:
            self.change_creation(created)

    def change_creation(self, created):
        """No system call sets the moment of creation, so the files go into a file system that is written outside."""
        image = self.base / "disk"
        tools = [tool for tool in ("mke2fs", "debugfs", "mount") if not shutil.which(tool)]
        if os.geteuid() != 0 or tools:
            raise CannotBeSetUp("The moment of creation can be set only by root and with e2fsprogs.")
        subprocess.run(["mke2fs", "-q", "-t", "ext4", "-d", self.home, image, "64M"], check=True)
        commands = "".join(f'set_inode_field "/{name}" crtime {re.sub("[^0-9]", "", time)}\n'
                           for name, time in created.items())
        subprocess.run(["debugfs", "-w", "-f", "-", image], input=commands, text=True, check=True, capture_output=True)
        mounted = subprocess.run(["mount", "-o", "loop", image, self.home], capture_output=True, text=True, check=False)
        if mounted.returncode:
            raise CannotBeSetUp(mounted.stderr)
        self.mounted = True
        shutil.rmtree(self.home / "lost+found")

    def run(self, command):
        """What a terminal would show: standard output and errors."""
        here = self.base / "folder"
        script = f"(exit {self.status})\n{command}\nstatus=$?\npwd > {shlex.quote(str(here))}\nexit $status\n"
        done = subprocess.run(["bash", "-c", script], cwd=self.folder, env=self.environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, timeout=SECONDS, check=False)
        self.status = done.returncode
        self.folder = Path(here.read_text().rstrip("\n"))
        return done.stdout.replace(str(self.home), "/home/ann")

    def check(self, text):
        """The first step of a block whose output is another than is shown, as text; nothing when all are as shown."""
        for command, shown in steps_of(text):
            out = without_dates(command, self.run(command))
            expected = without_dates(command, shown)
            # A line's end that cannot be seen is not shown.
            if [line.rstrip() for line in out.splitlines()] != [line.rstrip() for line in expected.splitlines()]:
                return f"$ {command}\n--- gives\n{out}--- but the document shows\n{expected}"
        return ""
