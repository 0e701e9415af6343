"""Where the packages are that scripts/package makes, and what their tests share."""

import subprocess
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD = ROOT / "build"
PACKAGES = BUILD / "packages"


def only(pattern):
    """The one package whose name is like that."""
    found = list(PACKAGES.glob(pattern))
    assert len(found) == 1, f"{PACKAGES} holds {len(found)} of {pattern}; scripts/package makes it."
    return found[0]


def run(*words, **more):
    """Runs a command to its end and gives what came of it, standard output and errors in one text."""
    # Not through a pipe: what a program leaves running in the background, as Wine does, would keep that open.
    with tempfile.TemporaryFile("w+") as output:
        done = subprocess.run([str(word) for word in words], stdin=subprocess.DEVNULL, stdout=output,
                              stderr=subprocess.STDOUT, timeout=600, check=False, **more)
        output.seek(0)
        done.stdout = output.read()
        return done


def run_well(*words, **more):
    """The output of a command that has to end well."""
    done = run(*words, **more)
    assert done.returncode == 0, f"{words}\n{done.stdout}"
    return done.stdout
