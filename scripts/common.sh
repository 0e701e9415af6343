# What the scripts share; sourced, not run. Needs bash, and apt-get on Debian 12.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build

say() { printf '\n== %s\n' "$*"; }
fail() { printf '%s\n' "$*" >&2; exit 1; }

# Installs those of the given Debian packages that are missing, and asks nothing.
ensure_packages() {
    local missing=()
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    local as_root=()
    [ "$(id -u)" = 0 ] || as_root=(sudo)
    say "Installing ${missing[*]}"
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" \
        > "${TMPDIR:-/tmp}/multirename-install.log" 2>&1 ||
        fail "Installing failed; see ${TMPDIR:-/tmp}/multirename-install.log"
}

native_packages=(cmake ninja-build g++ googletest libbenchmark-dev libcli11-dev nlohmann-json3-dev rapidjson-dev)
windows_packages=(cmake ninja-build g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64 googletest
    libcli11-dev rapidjson-dev
    wine wine64 fonts-wine xvfb xauth)

# Shells and readers of manual pages, and other file systems, for the tests of the command line.
command_line_test_packages=(zsh fish man-db groff-base mandoc e2fsprogs exfat-fuse exfatprogs ntfs-3g)

# libFuzzer and the sanitizers of clang, and what names the lines in their reports.
fuzzing_packages=(clang libclang-rt-dev llvm)

# Configures and builds a preset, or only the given targets of it.
build_preset() {
    local preset=$1
    shift
    say "Building $preset"
    (
        cd "$root"
        cmake --preset "$preset" > /dev/null
        cmake --build --preset "$preset" ${1:+--target "$@"}
    )
}

# Sets the environment in which Wine works in a prefix of its own, made when it is new. $1 is the prefix.
use_wine() {
    export WINEPREFIX=$1 WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
    # No questions about runtimes that nothing here needs; and no program behind the tests' backs that reads each link
    # that is saved to put it into the menus of the system around Wine.
    export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
    [ -e "$WINEPREFIX/ready" ] && return 0
    mkdir -p "$(dirname "$WINEPREFIX")"
    rm -rf "$WINEPREFIX"
    # The marks on window buttons are glyphs of a font that Wine looks for here.
    mkdir -p "$WINEPREFIX/drive_c/windows/Fonts"
    cp /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    wineboot -i > /dev/null 2>&1
    # A program that crashes in a test has failed; nobody is there to answer a dialog about it.
    wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f > /dev/null 2>&1
    wine reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' /v Debugger /d false /f > /dev/null 2>&1
    wineserver -w
    touch "$WINEPREFIX/ready"
}

# On a display without a window manager, windows that wait for one would stand still.
use_wine_without_window_manager() {
    use_wine "$1"
    [ -e "$WINEPREFIX/unmanaged" ] && return 0
    wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f > /dev/null 2>&1
    wineserver -w
    touch "$WINEPREFIX/unmanaged"
}

stop_wine() {
    wineserver -k > /dev/null 2>&1 || true
    wineserver -w > /dev/null 2>&1 || true
}

# Starts a virtual display of our own, of $1 pixels, and names it in DISPLAY; its process is in display_process.
start_display() {
    local number_file
    number_file=$(mktemp)
    Xvfb -displayfd 3 -screen 0 "${1:-1280x1024}x24" -nolisten tcp 3> "$number_file" > /dev/null 2>&1 &
    display_process=$!
    local tries
    for tries in $(seq 100); do
        [ -s "$number_file" ] && break
        kill -0 "$display_process" 2> /dev/null || fail "The virtual display did not start."
        sleep 0.1
    done
    export DISPLAY=":$(cat "$number_file")"
    rm -f "$number_file"
}

stop_display() {
    [ -n "${display_process:-}" ] || return 0
    kill "$display_process" 2> /dev/null || true
    wait "$display_process" 2> /dev/null || true
    display_process=
}

# Saves what the display shows, without the empty space around it, in $1. What has been painted reaches the screen a
# little later: the picture is taken when two in a row are the same.
still_picture() {
    local tries next
    next=$(mktemp --suffix .png)
    import -window root "$1"
    for tries in $(seq 30); do
        sleep 0.2
        import -window root "$next"
        if compare -metric AE "$next" "$1" null: > /dev/null 2>&1; then
            rm -f "$next"
            mogrify -trim +repage "$1"
            return 0
        fi
        cp "$next" "$1"
    done
    fail "The display never stood still."
}

# Makes the folder $1 anew with sample files: photos with gaps in their numbers, episodes and mixed extensions, all of
# one journey.
make_samples() {
    rm -rf "$1"
    mkdir -p "$1"
    local name
    for name in \
        'Iceland 2024 - 001 Harbour.jpg' 'Iceland 2024 - 002 Harbour at night.jpg' 'Iceland 2024 - 003 Ferry.JPG' \
        'Iceland 2024 - 007 Glacier.jpg' 'Iceland 2024 - 008 Glacier from the air.png' 'Iceland 2024 - 009 Geyser.jpg' \
        'Iceland 2024 - 015 Föhn über Akureyri.heic' 'Iceland 2024 - 016 Þingvellir.jpg' 'Iceland 2024 - 021 Map.pdf' \
        'Iceland 2024 - 101 The Crossing.mkv' 'Iceland 2024 - 102 Fire and Ice.mkv' \
        'Iceland 2024 - 103 The Long Way Home.mkv' 'Iceland 2024 - 103 The Long Way Home.srt'; do
        printf 'What %s holds.\n' "$name" > "$1/$name"
    done
}
