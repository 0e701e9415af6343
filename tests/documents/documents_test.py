"""What the documents say holds: each command that they show runs, each output is what comes out, each name exists.

    pytest tests/documents            needs the programs of build/linux-release
"""

import functools
import re
import shlex
import shutil
import subprocess

import pytest

from document import DOCUMENTS, ROOT, read
from session import CannotBeSetUp, Session, steps_of

COPY = ROOT / "build" / "documents" / "copy"
MINUTES = 60

documents = [read(path) for path in DOCUMENTS]


def line_of(thing):
    if isinstance(thing, list):
        return line_of(thing[0])
    return thing[0] if isinstance(thing, tuple) else thing.line


def of_all(things):
    """A test for each thing in each document, named by its place."""
    found = [(document, thing) for document in documents for thing in things(document)]
    return pytest.mark.parametrize("document, thing", found,
                                   ids=[f"{document.name}:{line_of(thing)}" for document, thing in found])


def fences(*kinds):
    return lambda document: [fence for fence in document.fences if fence.kind in kinds]


# ---- sessions at a prompt


def sessions(document):
    """The blocks that follow each other in one home: the first one says which files there are."""
    found = []
    for fence in fences("console")(document):
        if fence.remark[0] in ("run by", "in a copy"):
            continue
        if fence.remark[0] == "files" or not found:
            found.append([])
        found[-1].append(fence)
    return found


@of_all(sessions)
def test_what_is_shown_at_a_prompt_is_what_comes_out(document, thing):
    files = thing[0].remark[1].splitlines() if thing[0].remark[0] == "files" else []
    try:
        session = Session(files)
    except CannotBeSetUp as reason:
        pytest.skip(str(reason))
    with session:
        for fence in thing:
            difference = session.check(fence.text)
            assert not difference, f"{document.name}:{fence.line}\n{difference}"


@functools.cache
def files_of_rows(document_name, line):
    """The files that the last session in front of a line starts with."""
    document = next(document for document in documents if document.name == document_name)
    lines = [fence.remark[1] for fence in document.fences if fence.line < line and fence.remark[0] == "files"]
    return lines[-1].splitlines() if lines else []


def rows_with_a_command(document):
    return [row for row in document.rows if row.remark[0] == "rows"]


@of_all(rows_with_a_command)
def test_each_row_of_a_table_of_examples_holds(document, thing):
    given, expected = thing.codes[0], thing.codes[1]
    try:
        session = Session(files_of_rows(document.name, thing.line))
    except CannotBeSetUp as reason:
        pytest.skip(str(reason))
    with session:
        assert session.run(thing.remark[1].replace("{1}", shlex.quote(given))).removesuffix("\n") == expected


# ---- commands for those who build


def commands_of(text):
    return [line for line in text.splitlines() if line.strip() and not line.startswith("#")]


def without_comment(line):
    return re.sub(r"\s+#.*$", "", line)


def without_comments(script):
    """The commands of a script or a test, without the marks around words."""
    lines = [line for line in script.splitlines() if not line.lstrip().startswith("#")]
    return re.sub(r"[\"',\[\]]", "", "\n".join(lines))


def said_to_run_elsewhere(document):
    return [fence for fence in document.fences if fence.remark[0] == "run by"]


@of_all(said_to_run_elsewhere)
def test_commands_that_another_test_runs_stand_there(document, thing):
    runs = "".join(without_comments((ROOT / place).read_text()) for place in thing.remark[1].split())
    for line in commands_of(thing.text):
        command = without_comment(line).removeprefix("./")
        assert command in runs, f"{document.name}:{thing.line} says that {thing.remark[1]} runs {command}"


def run_in(folder, text):
    for line in commands_of(text):
        done = subprocess.run(["bash", "-c", line], cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, timeout=MINUTES * 60, check=False)
        assert done.returncode == 0, f"{line}\n{done.stdout[-4000:]}"


@of_all(lambda document: [fence for fence in fences("sh")(document) if not fence.remark[0]])
def test_each_command_for_those_who_build_runs(document, thing):
    run_in(ROOT, thing.text)


# ---- changes to the sources that a document explains, and what else is better done in a copy of them


@functools.lru_cache(maxsize=1)  # there is only one copy
def changed_copy(document_name):
    """Makes a copy of the sources with all changes of a document; gives what was wrong with making them. What was built
    in an earlier copy is kept, and little has to be built again."""
    document = next(document for document in documents if document.name == document_name)
    listed = subprocess.run(["git", "ls-files", "-z", "-co", "--exclude-standard"], cwd=ROOT, capture_output=True,
                            text=True, check=True).stdout
    names = {name for name in listed.split("\0") if name and (ROOT / name).is_file()}
    COPY.mkdir(parents=True, exist_ok=True)
    for path in [path for path in COPY.rglob("*") if path.is_file()]:
        name = str(path.relative_to(COPY))
        if name not in names and not name.startswith(("build/", ".git/")):
            path.unlink()
    for name in names:
        source, target = ROOT / name, COPY / name
        if not target.exists() or target.read_bytes() != source.read_bytes():  # the others keep their time
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)
    subprocess.run(["git", "init", "-q"], cwd=COPY, check=True)
    problems = ""
    for fence in fences("diff")(document):
        done = subprocess.run(["git", "apply", "-"], cwd=COPY, input=fence.text, capture_output=True,
                              text=True, check=False)
        if done.returncode:
            problems += f"{document.name}:{fence.line}: {done.stderr}"
    return problems


@of_all(lambda document: fences("diff")(document)[:1])
def test_changes_that_are_shown_fit_the_sources(document, thing):
    assert not changed_copy(document.name)


@of_all(lambda document: [fence for fence in document.fences if fence.remark[0] == "in a copy"])
def test_what_is_run_in_a_copy_gives_what_is_shown(document, thing):
    assert not changed_copy(document.name)
    if thing.kind == "sh":
        run_in(COPY, thing.text)
        return
    for command, shown in steps_of(thing.text):
        done = subprocess.run(["bash", "-c", command], cwd=COPY, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, timeout=MINUTES * 60, check=False)
        assert done.stdout == shown


# ---- sources that are shown


@of_all(fences("c", "cpp", "rc"))
def test_sources_that_are_shown_are_those_that_are_built(document, thing):
    key, value = thing.remark
    if key == "file":
        assert thing.text == (ROOT / value).read_text()
    else:
        assert key == "compiled by", "Say with <!-- file: … --> or <!-- compiled by: … --> where it comes from."
        done = subprocess.run(shlex.split(value) + ["-"], cwd=ROOT, input=thing.text, capture_output=True, text=True,
                              check=False)
        assert done.returncode == 0, done.stderr


@of_all(lambda document: document.fences)
def test_each_block_is_of_a_kind_that_is_tested(document, thing):
    assert thing.kind in ("console", "sh", "diff", "c", "cpp", "rc", "text")
    assert thing.remark[0] in ("", "files", "run by", "in a copy", "file", "compiled by")


# ---- names


@of_all(lambda document: [link for link in document.links if "://" not in link[1]])
def test_each_link_leads_somewhere(document, thing):
    path, _, anchor = thing[1].partition("#")
    target = (document.path.parent / path).resolve() if path else document.path
    assert target.exists()
    if anchor:
        assert anchor in read(target).anchors


def codes_like(pattern):
    return lambda document: [code for code in document.codes if re.fullmatch(pattern, code[1])]


folders = "|".join(sorted(path.name for path in ROOT.iterdir()
                          if path.is_dir() and path.name not in ("build", ".git")))


@of_all(codes_like(rf"(\./)?({folders})/[^ <>]*( .*)?"))
def test_each_path_that_is_named_exists(document, thing):
    path = thing[1].split(" ")[0].removeprefix("./").rstrip("/").replace("…", "*")
    assert list(ROOT.glob(path))


@functools.cache
def names_of_tests():
    found = set()
    for path in [*(ROOT / "src").rglob("*_test.cpp"), *(ROOT / "tests").rglob("*_test.cpp")]:
        found |= {f"{suite}.{name}" for suite, name in re.findall(r"^TEST(?:_F|_P)?\((\w+), (\w+)\)", path.read_text(),
                                                                re.MULTILINE)}
    return found


@of_all(codes_like(r"[A-Z][A-Za-z0-9]+\.[A-Z][A-Za-z0-9]+"))
def test_each_test_that_is_named_exists(document, thing):
    assert thing[1] in names_of_tests()


@functools.cache
def known_options():
    table = (ROOT / "src/cli/command_table.cpp").read_text()
    return {name for name in re.findall(r'OptionGroup::\w+,\s*"([\w-]+)"', table)}


@of_all(codes_like(r"multirename .*--[a-z].*"))
def test_each_option_of_the_program_that_is_named_exists(document, thing):
    assert set(re.findall(r"--([a-z][a-z-]*)", thing[1])) <= known_options()
