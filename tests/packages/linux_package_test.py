"""The .deb, installed in a Debian of its own that holds nothing but the base system."""

import gzip
import os
import shlex
import shutil
import subprocess
import sys
import time
import types

import pytest

from package import BUILD, ROOT, only, run, run_well

BASE = BUILD / "debian" / "base"
SYSTEM = BUILD / "debian" / "system"
DEB = "multirename_0.1.0_amd64.deb"  # as the user's guide names it

# What a file manager may pass: all that shells would touch.
AWKWARD = ["IMG_1 a'b.jpg", 'IMG_2 a"b $c `d`.jpg', "IMG_3 -x; ls.jpg"]


def base_system():
    """Debian's base system, fetched once."""
    if not BASE.exists():
        fresh = BASE.with_name("fresh")
        shutil.rmtree(fresh, ignore_errors=True)
        fresh.parent.mkdir(parents=True, exist_ok=True)
        run_well("debootstrap", "--variant=minbase", "bookworm", fresh, "http://deb.debian.org/debian")
        fresh.rename(BASE)
    return BASE


class System:
    """The Debian in which the package is installed, and a user of it."""

    def as_root(self, command):
        return run("/usr/sbin/chroot", SYSTEM, "/bin/sh", "-c", command, env={"PATH": "/usr/sbin:/usr/bin:/sbin:/bin"})

    def as_user(self, command, **variables):
        """Runs a command in the user's home, which holds what `give` has put there."""
        environment = {"PATH": "/home/ann/bin:/usr/bin:/bin", "HOME": "/home/ann", "LC_ALL": "C.UTF-8", **variables}
        return run("/usr/sbin/chroot", "--userspec=1000:1000", SYSTEM, "/bin/sh", "-c", "cd && " + command, env=environment)

    def give(self, *names):
        """Gives the user a home with these files and nothing else."""
        home = SYSTEM / "home" / "ann"
        shutil.rmtree(home, ignore_errors=True)
        home.mkdir(parents=True)
        for name in names:
            (home / name).write_text("what it holds")
        self.give_to_user(home)

    def give_program(self, name, script):
        path = SYSTEM / "home" / "ann" / "bin" / name
        path.parent.mkdir(exist_ok=True)
        path.write_text("#!/bin/sh\n" + script)
        path.chmod(0o755)
        self.give_to_user(path.parent)

    @staticmethod
    def give_to_user(path):
        run_well("chown", "-R", "1000:1000", path)

    @staticmethod
    def names():
        return sorted(path.name for path in (SYSTEM / "home" / "ann").iterdir() if path.is_file())


@pytest.fixture(scope="module", name="system")
def installed_system():
    if os.geteuid() != 0:
        pytest.skip("Only root can make a Debian of its own.")
    shutil.rmtree(SYSTEM, ignore_errors=True)
    run_well("cp", "-a", base_system(), SYSTEM)
    shutil.copy(only("multirename_*.deb"), SYSTEM / "tmp" / DEB)
    (SYSTEM / "etc/apt/apt.conf.d/90yes").write_text('APT::Get::Assume-Yes "true";')
    system = System()
    done = system.as_root("cd /tmp && export DEBIAN_FRONTEND=noninteractive && apt install ./multirename_0.1.0_amd64.deb")
    assert done.returncode == 0, done.stdout
    return system


def test_the_main_job_runs_for_an_ordinary_user(system):
    system.give("IMG_7.jpg", "IMG_8.jpg")
    done = system.as_user("multirename rename *.jpg --text 1=Iceland_ --digits 2=3")
    assert (done.returncode, done.stdout[:16]) == (0, "2 files renamed.")
    assert system.names() == ["Iceland_007.jpg", "Iceland_008.jpg"]
    assert system.as_user("multirename undo").returncode == 0
    assert system.names() == ["IMG_7.jpg", "IMG_8.jpg"]


def test_the_users_guide_names_the_package():
    assert only("multirename_*.deb").name == DEB


def test_the_program_says_the_version_of_the_package(system):
    version = run_well("dpkg-deb", "-f", only("multirename_*.deb"), "Version").strip()
    assert system.as_user("multirename --version").stdout.split() == ["multirename", version]


@pytest.mark.parametrize("page", ["multirename", "multirename-in-terminal"])
def test_there_is_a_manual_page(system, page):
    text = gzip.decompress((SYSTEM / f"usr/share/man/man1/{page}.1.gz").read_bytes()).decode()
    assert f'.TH {page.upper()} "1"' in text or f".TH {page.upper()} 1" in text
    done = run("man", "--warnings=all", "-l", SYSTEM / f"usr/share/man/man1/{page}.1.gz",
               env={**os.environ, "LC_ALL": "C.UTF-8"})
    assert "NAME" in done.stdout and "warning" not in done.stdout


@pytest.mark.parametrize("place", ["bash-completion/completions/multirename", "zsh/vendor-completions/_multirename",
                                   "fish/vendor_completions.d/multirename.fish"])
def test_completions_lie_where_the_shells_look(system, place):
    assert "multirename" in (SYSTEM / "usr/share" / place).read_text()


def test_the_guide_comes_with_its_pictures(system):
    folder = SYSTEM / "usr/share/doc/multirename"
    guide = (folder / "users-guide.md").read_text()
    assert "![" in guide
    for picture in [part.split(")")[0] for part in guide.split("](")[1:] if part.split(")")[0].endswith(".png")]:
        assert (folder / picture).exists()


def test_nothing_is_left_after_it_is_removed(system):
    files = [line for line in system.as_root("dpkg -L multirename").stdout.split("\n") if line.startswith("/usr/")]
    own = [file for file in files if "multirename" in file]
    assert len(own) > 10
    try:
        assert system.as_root("apt-get remove -y multirename").returncode == 0
        assert not [file for file in own if (SYSTEM / file[1:]).exists()]
    finally:
        assert system.as_root(f"apt-get install -y /tmp/{DEB}").returncode == 0


def test_the_package_keeps_debians_rules():
    done = run("lintian", "--fail-on", "error,warning", "--allow-root", only("multirename_*.deb"))
    assert done.returncode == 0, done.stdout


def test_cmake_installs_the_same_files_below_a_prefix(tmp_path, system):
    run_well("cmake", "--install", BUILD / "linux-release", "--prefix", tmp_path)
    installed = {str(path.relative_to(tmp_path)) for path in tmp_path.rglob("*") if path.is_file()}
    packaged = {line.removeprefix("/usr/") for line in system.as_root("dpkg -L multirename").stdout.split("\n")
                if (SYSTEM / line[1:]).is_file()}
    assert installed == packaged
    assert run(tmp_path / "bin" / "multirename", "--version").returncode == 0


# ---- the menus of file managers


ENTRIES = {
    "Thunar": "Thunar/sendto/thunar-sendto-multirename.desktop",
    "Dolphin": "kio/servicemenus/dolphin-multirename.desktop",
    "Nemo": "nemo/actions/multirename.nemo_action",
}


@pytest.mark.parametrize("manager", ENTRIES)
def test_the_menu_entry_runs_the_installed_program_on_all_selected_files(system, manager):
    lines = (SYSTEM / "usr/share" / ENTRIES[manager]).read_text().splitlines()
    command = next(line for line in lines if line.startswith("Exec=")).removeprefix("Exec=").split()
    assert command[1:] == ["%F"]
    assert os.access(SYSTEM / "usr/bin" / command[0], os.X_OK)


@pytest.mark.parametrize("manager", ["Thunar", "Dolphin"])
def test_the_menu_entry_is_one_that_desktops_can_read(system, manager):
    done = run("desktop-file-validate", SYSTEM / "usr/share" / ENTRIES[manager])
    # KDE's service menus are of a type of their own, which the checker does not know.
    problems = [line for line in done.stdout.splitlines() if "error" in line and 'the type is "Service"' not in line]
    assert not problems


class File:
    """A file as Nautilus tells of it; one that is on no disk has no path."""

    def __init__(self, path):
        self.path = path

    def get_location(self):
        return self

    def get_path(self):
        return self.path


class Item:
    """An entry of a menu of Nautilus."""

    def __init__(self, **properties):
        self.properties = properties

    def connect(self, event, handler):
        self.properties[event] = handler


@pytest.fixture(name="nautilus_menu")
def loaded_extension(system, monkeypatch):
    del system  # it is where the extension is installed
    repository = types.ModuleType("gi.repository")
    repository.GObject = types.SimpleNamespace(GObject=type("GObject", (), {}))
    repository.Nautilus = types.SimpleNamespace(MenuProvider=type("MenuProvider", (), {}), MenuItem=Item)
    monkeypatch.setitem(sys.modules, "gi", types.ModuleType("gi"))
    monkeypatch.setitem(sys.modules, "gi.repository", repository)
    namespace = {}
    path = SYSTEM / "usr/share/nautilus-python/extensions/nautilus-multirename.py"
    exec(compile(path.read_text(), path, "exec"), namespace)
    return namespace["MultiRenameMenu"](), namespace["subprocess"]


def test_nautilus_is_given_an_entry_that_runs_the_program_on_all_selected_files(nautilus_menu, monkeypatch):
    menu, its_subprocess = nautilus_menu
    started = []
    monkeypatch.setattr(its_subprocess, "Popen", started.append)
    item, = menu.get_file_items([File("/home/ann/" + name) for name in AWKWARD])
    assert item.properties["label"] == "Rename with Multi Rename"
    item.properties["activate"](item)
    assert started == [["multirename-in-terminal", *("/home/ann/" + name for name in AWKWARD)]]


def test_nautilus_is_given_nothing_for_files_that_are_on_no_disk_or_for_none(nautilus_menu):
    menu, _ = nautilus_menu
    assert menu.get_file_items([File("/home/ann/a"), File(None)]) == []
    assert menu.get_file_items([]) == []


def test_nautilus_before_version_43_passes_its_window_first(nautilus_menu):
    menu, _ = nautilus_menu
    assert len(menu.get_file_items(object(), [File("/home/ann/a")])) == 1


# ---- the terminal

# Notes the words that it was started with and runs the command behind its own options, for which it takes Enter.
TERMINAL = r"""printf '%s\n' "$(basename "$0")" "$@" > "$HOME/words"
while [ "$1" != /usr/bin/multirename-in-terminal ]; do shift; done
echo | "$@" > "$HOME/shown" 2>&1
"""


def quoted(names):
    return " ".join(shlex.quote("/home/ann/" + name) for name in names)


def test_files_get_the_names_that_the_editor_leaves_whatever_they_are_called(system):
    system.give(*AWKWARD)
    system.give_program("terminal", TERMINAL)
    done = system.as_user("multirename-in-terminal " + quoted(AWKWARD), MULTIRENAME_TERMINAL="terminal",
                          VISUAL="sed -i s/IMG_/Photo/")
    assert (done.returncode, done.stdout) == (0, "")
    assert {name.replace("IMG_", "Photo") for name in AWKWARD} <= set(system.names())
    assert "3 files renamed." in (SYSTEM / "home/ann/shown").read_text()


def test_what_was_refused_can_be_read_before_the_terminal_closes(system):
    system.give("a1.txt", "a2.txt")
    system.give_program("terminal", TERMINAL)
    done = system.as_user("multirename-in-terminal /home/ann/a1.txt /home/ann/a2.txt", MULTIRENAME_TERMINAL="terminal",
                          EDITOR="sed -i s/.*/same/")
    assert done.returncode == 1
    shown = (SYSTEM / "home/ann/shown").read_text()
    assert "2 files are being renamed to the same name." in shown
    assert shown.endswith("\nPress Enter to close this window. ")


@pytest.mark.parametrize("editor", ["sensible-editor", "editor", "nano"])
def test_without_an_editor_of_the_users_choice_the_systems_is_taken(system, editor):
    system.give("a1.txt", "a2.txt")
    system.give_program("terminal", TERMINAL)
    system.give_program(editor, 'sed -i s/a/b/ "$1"')
    # Nothing else is to be found: the directory of programs of the system has a sensible-editor of its own.
    system.as_user("for p in sh basename realpath sed multirename multirename-in-terminal env; do "
                   "ln -s /usr/bin/$p bin/$p; done")
    done = system.as_user("/usr/bin/multirename-in-terminal /home/ann/a1.txt /home/ann/a2.txt", PATH="/home/ann/bin",
                          MULTIRENAME_TERMINAL="terminal")
    assert done.returncode == 0, done.stdout
    assert {"b1.txt", "b2.txt"} <= set(system.names())


@pytest.mark.parametrize("desktop, there, words", [
    ("KDE", ["konsole", "x-terminal-emulator"], ["konsole", "-e"]),
    ("XFCE", ["xfce4-terminal", "gnome-terminal"], ["xfce4-terminal", "--disable-server", "-x"]),
    ("MATE", ["mate-terminal", "xterm"], ["mate-terminal", "--disable-factory", "-x"]),
    ("ubuntu:GNOME", ["gnome-terminal", "x-terminal-emulator"], ["gnome-terminal", "--wait", "--"]),
    ("X-Cinnamon", ["gnome-terminal", "konsole"], ["gnome-terminal", "--wait", "--"]),
    ("GNOME", ["xdg-terminal-exec", "gnome-terminal"], ["xdg-terminal-exec"]),
    ("GNOME", ["x-terminal-emulator", "xterm"], ["x-terminal-emulator", "-e"]),
    ("XFCE", ["konsole"], ["konsole", "-e"]),
    ("", ["xterm"], ["xterm", "-e"]),
])
def test_the_terminal_is_that_of_the_desktop(system, desktop, there, words):
    system.give("a1.txt", "a2.txt")
    for name in there:
        system.give_program(name, TERMINAL)
    system.as_user("multirename-in-terminal /home/ann/a1.txt", EDITOR="true", XDG_CURRENT_DESKTOP=desktop)
    said = (SYSTEM / "home/ann/words").read_text().split()
    assert said == [*words, "/usr/bin/multirename-in-terminal", "--here", "/home/ann/a1.txt"]


def test_without_a_terminal_it_says_what_to_set(system):
    system.give("a1.txt")
    system.give_program("notify-send", 'printf "%s\\n" "$2" > "$HOME/notice"')
    done = system.as_user("multirename-in-terminal /home/ann/a1.txt")
    assert done.returncode == 1
    assert "set MULTIRENAME_TERMINAL" in done.stdout
    assert "set MULTIRENAME_TERMINAL" in (SYSTEM / "home/ann/notice").read_text()


def test_a_real_terminal_opens_on_a_display(tmp_path):
    """The one that is in all of Debian's desktops, here on a virtual display."""
    for name in AWKWARD:
        (tmp_path / name).touch()
    programs = tmp_path / "programs"
    programs.mkdir()
    (programs / "multirename").symlink_to(BUILD / "linux-release" / "multirename")
    environment = {"PATH": f"{programs}:/usr/bin:/bin", "HOME": str(tmp_path), "LC_ALL": "C.UTF-8",
                   "EDITOR": "sed -i s/IMG_/Photo/", "MULTIRENAME_TERMINAL": "xterm"}
    opener = ROOT / "packaging/file-managers/multirename-in-terminal"
    with subprocess.Popen(["xvfb-run", "-a", opener, *(tmp_path / name for name in AWKWARD)], env=environment,
                          start_new_session=True) as terminal:
        try:
            wanted = {name.replace("IMG_", "Photo") for name in AWKWARD}
            for _ in range(300):
                if wanted <= {path.name for path in tmp_path.iterdir()}:
                    break
                time.sleep(0.1)
            assert wanted <= {path.name for path in tmp_path.iterdir()}
            assert terminal.poll() is None  # it waits for Enter
        finally:
            os.killpg(terminal.pid, 15)
