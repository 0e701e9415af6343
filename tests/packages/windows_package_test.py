"""The zip for Windows, unpacked into a Wine of its own, and the main job run from there."""

import os
import re
import shutil
import subprocess
import zipfile

import pytest

from package import BUILD, ROOT, only, run, run_well

PREFIX = BUILD / "wine" / "package"
PLACE = PREFIX / "drive_c" / "Program Files" / "Multi Rename"
USER = PREFIX / "drive_c" / "users"


class Windows:
    """A Windows to which the package is new, with a display of its own."""

    def __init__(self):
        shutil.rmtree(PREFIX, ignore_errors=True)
        self.display = None
        environment = {name: value for name, value in os.environ.items() if name != "DISPLAY"}
        ready, writer = os.pipe()
        self.screen = subprocess.Popen(["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
                                       pass_fds=[writer], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(ready) as stream:
            self.display = ":" + stream.readline().strip()
        environment["DISPLAY"] = self.display
        script = ". scripts/common.sh; use_wine_without_window_manager \"$1\"; env -0"
        done = subprocess.run(["bash", "-c", script, "bash", str(PREFIX)], cwd=ROOT, env=environment, check=True,
                              stdout=subprocess.PIPE, stdin=subprocess.DEVNULL)
        self.environment = dict(line.split("=", 1) for line in done.stdout.decode().split("\0") if "=" in line)

    def stop(self):
        run("wineserver", "-k", env=self.environment)
        run("wineserver", "-w", env=self.environment)
        self.screen.terminate()
        self.screen.wait()

    def command(self, *words):
        """A command whose first word is a program of the package, or the path of another one."""
        program = words[0] if os.path.isabs(words[0]) else PLACE / words[0]
        return ["wine", str(program), *map(str, words[1:])]

    def run(self, *words, **more):
        return run(*self.command(*words), env=self.environment, **more)

    def start(self, *words):
        return subprocess.Popen(self.command(*words), env=self.environment, stdin=subprocess.DEVNULL,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def drive(self, *words):
        """Does in the dialog what a person would do."""
        done = self.run(str(BUILD / "windows" / "drive_dialog.exe"), *words)
        assert done.returncode == 0, done.stdout


@pytest.fixture(scope="module", name="windows")
def windows_with_the_package():
    system = Windows()
    try:
        PLACE.mkdir(parents=True)
        with zipfile.ZipFile(only("multirename-*-windows-x64.zip")) as archive:
            for entry in archive.infolist():
                folder, _, name = entry.filename.partition("/")
                assert folder == only("multirename-*-windows-x64.zip").stem  # all in one folder
                target = PLACE / name
                if entry.is_dir():
                    target.mkdir(parents=True, exist_ok=True)
                else:
                    target.parent.mkdir(parents=True, exist_ok=True)
                    target.write_bytes(archive.read(entry))
        yield system
    finally:
        system.stop()


def given_files(folder, *names):
    folder.mkdir(parents=True)
    for name in names:
        (folder / name).write_text("what it holds")
    return [f"Z:{folder}/{name}".replace("/", "\\") for name in names]


def names_in(folder):
    return sorted(path.name for path in folder.iterdir())


def test_the_package_holds_what_users_and_hosts_need(windows):
    del windows  # it is where the package is unpacked
    wanted = ["multirename.dll", "multirename-gui.exe", "multirename.exe", "Guide.html", "screenshots/dialog-96.png",
              "sdk/include/multirename.h", "sdk/lib/multirename.dll.a", "sdk/host-guide.md", "sdk/examples/host_in_c.c",
              "sdk/examples/host_in_cpp.cpp", "sdk/examples/CMakeLists.txt"]
    assert [name for name in wanted if not (PLACE / name).is_file()] == []


def test_the_dialog_renames_files_from_the_unpacked_folder(windows, tmp_path):
    folder = tmp_path / "photos"
    paths = given_files(folder, "IMG_1.jpg", "IMG_2.jpg")
    program = windows.start("multirename-gui.exe", *paths)
    windows.drive("wait")
    windows.drive("prepend", "0", "Summer ")
    windows.drive("press", "1")
    windows.drive("wait-closed")
    assert program.wait(60) == 0
    assert names_in(folder) == ["Summer IMG_1.jpg", "Summer IMG_2.jpg"]


def test_the_command_line_renames_files_and_takes_it_back(windows, tmp_path):
    folder = tmp_path / "photos"
    given_files(folder, "IMG_1.jpg", "IMG_2.jpg")
    done = windows.run("multirename.exe", "rename", "--in", f"Z:{folder}".replace("/", "\\"), "--text", "1=Summer ")
    assert "2 files renamed." in done.stdout
    assert names_in(folder) == ["Summer 1.jpg", "Summer 2.jpg"]
    assert windows.run("multirename.exe", "undo").returncode == 0
    assert names_in(folder) == ["IMG_1.jpg", "IMG_2.jpg"]


def test_send_to_gets_its_entry_and_loses_it(windows):
    def entries():
        return [path.name for path in USER.rglob("SendTo/*") if "Multi" in path.name]

    assert windows.run("multirename-gui.exe", "--install-sendto").returncode == 0
    assert entries() == ["Multi Rename.lnk"]
    assert windows.run("multirename-gui.exe", "--uninstall-sendto").returncode == 0
    assert entries() == []


def test_the_programs_say_the_version_of_the_package(windows):
    version = re.search(r"multirename-([\d.]+)-", only("multirename-*-windows-x64.zip").name)[1]
    assert windows.run("multirename.exe", "--version").stdout.split() == ["multirename", version]
    assert version in windows.run("multirename-gui.exe", "--version").stdout


def test_the_guide_shows_pictures_that_are_there_and_tells_of_files_that_are_there(windows):
    del windows
    guide = (PLACE / "Guide.html").read_text()
    targets = re.findall(r'(?:src|href)="([^"]+)"', guide)
    assert len(targets) >= 4
    assert [target for target in targets if not (PLACE / target).exists()] == []
    files = re.findall(r"<code>([\w-]+\.(?:exe|dll))", guide)
    assert [file for file in files if not (PLACE / file).exists()] == []


def test_the_guide_for_hosts_finds_what_it_shows(windows):
    del windows
    targets = re.findall(r"\]\(([^)#]+)\)", (PLACE / "sdk" / "host-guide.md").read_text())
    assert targets
    assert [target for target in targets if not (PLACE / "sdk" / target).exists()] == []


def test_the_users_guide_names_the_package():
    assert only("multirename-*-windows-x64.zip").name in (ROOT / "docs" / "users-guide.md").read_text()


def test_the_examples_build_from_the_package_alone(windows, tmp_path):
    del windows
    folder = tmp_path / "sdk"
    shutil.copytree(PLACE / "sdk", folder)
    run_well("cmake", "-S", folder / "examples", "-B", tmp_path / "build", "-G", "Ninja",
             f"-DCMAKE_TOOLCHAIN_FILE={ROOT}/cmake/mingw-w64.cmake")
    run_well("cmake", "--build", tmp_path / "build")
    assert {path.name for path in (tmp_path / "build").glob("*.exe")} == {"host_in_c.exe", "host_in_cpp.exe"}
