# shellcheck shell=bash
# What ./run, ./test, bench/run, bench/ours and cmake/wine-run share: packages, builds, a display and Wine. Sourced.
#
# Wine has a prefix of its own in build/wine. Everybody who uses it at the same time shares one Wine server and, where
# there is no display, one virtual one; the last to leave ends both. Programs that need the keyboard take turns.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build
host=$build/host # state of the shared host: locks, the virtual display
logs=$build/logs

# Whatever the user's language, numbers have points, messages are English and file names UTF-8, in Wine too.
export LC_ALL=C.UTF-8

packages_linux=(cmake ninja-build g++ googletest libedit-dev librsvg2-bin netpbm fonts-liberation)
packages_windows=(cmake ninja-build g++-mingw-w64-x86-64 googletest)

say() { echo "$(basename "$0"): $*" >&2; }
die() {
    say "$*"
    exit 1
}

# ---- packages ----------------------------------------------------------------------------------------------------

# need PACKAGE...   Installs those Debian packages that are missing.
need() {
    command -v dpkg-query >/dev/null || return 0 # not Debian: the tools are there or their absence will show
    local have missing=() package as=()
    have=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null) || true # some are missing
    for package; do
        grep -qx "installed $package" <<<"$have" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null && { [ -t 0 ] || sudo -n true 2>/dev/null; } && as=(sudo)
        [ ${#as[@]} -gt 0 ] || die "please install what is missing: apt-get install ${missing[*]}"
    fi
    say "installing ${missing[*]}"
    apt() {
        "${as[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=600 -o Acquire::Retries=3 "$@"
    }
    mkdir -p "$logs"
    # The package lists are fetched only when they are missing or too old to install from.
    { apt install -y --no-install-recommends "${missing[@]}" ||
        { apt update && apt install -y --no-install-recommends "${missing[@]}"; }; } </dev/null >"$logs/apt.log" 2>&1 ||
        { tail -n 5 "$logs/apt.log" >&2; die "apt-get could not install ${missing[*]}; see $logs/apt.log"; }
}

# ---- builds ------------------------------------------------------------------------------------------------------

# build_targets PRESET TARGET...   Quiet unless something is wrong.
build_targets() {
    local preset=$1 log=$logs/build-$1.log
    shift
    mkdir -p "$logs"
    (
        cd "$root" || exit
        { [ -e "build/$preset/build.ninja" ] || cmake --preset "$preset"; } && cmake --build --preset "$preset" --target "$@"
    ) </dev/null >"$log" 2>&1 || { tail -n 40 "$log" >&2; die "could not build $*; see $log"; }
}

# ---- display and Wine --------------------------------------------------------------------------------------------

# Starts a virtual display, or joins the one that another user of this host has started.
virtual_display() {
    local number pid
    if [ -s "$host/xvfb" ] && read -r pid number <"$host/xvfb" && [ "$(cat "/proc/$pid/comm" 2>/dev/null)" = Xvfb ]; then
        export DISPLAY=:$number
        return
    fi
    exec 7< <(exec setsid Xvfb -displayfd 1 -screen 0 1280x1024x24 -noreset 8>&- 2>"$host/xvfb.log")
    pid=$!
    read -r number <&7 || die "no virtual display; see $host/xvfb.log"
    exec 7<&-
    echo "$pid $number" >"$host/xvfb"
    export DISPLAY=:$number
}

# Without a window manager Wine would wait two seconds for one at every window that closes: Managed=N. Its own fonts, as
# Debian ships them, it finds only in the prefix.
fill_prefix() {
    taskset -c "$WI_WINE_CPU" wine wineboot -i &&
        taskset -c "$WI_WINE_CPU" wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f &&
        find /usr/share/wine/fonts -type f -exec ln -sft "$WINEPREFIX/drive_c/windows/Fonts" {} +
}

# A prefix that is not complete, or was made in another way, is made again.
make_prefix() {
    local recipe
    recipe=$(declare -f fill_prefix)
    [ "$(cat "$WINEPREFIX/recipe" 2>/dev/null)" != "$recipe" ] || return 0
    say "setting up Wine in $WINEPREFIX (once)"
    [ ! -d "$WINEPREFIX" ] || wineserver -k || true
    rm -rf "$WINEPREFIX"
    mkdir "$WINEPREFIX"
    fill_prefix </dev/null >"$host/prefix.log" 2>&1 8>&- || die "could not set up Wine; see $host/prefix.log"
    echo "$recipe" >"$WINEPREFIX/recipe"
}

# wine_up   Prepares display, prefix and Wine server, and sees that they end with this script.
wine_up() {
    need wine wine64 fonts-liberation fonts-wine
    [ -n "${DISPLAY:-}" ] || need xvfb
    mkdir -p "$host"
    exec 8>>"$host/lock"
    flock 8
    trap wine_down EXIT
    trap 'exit 130' INT TERM
    # Program and Wine server on one processor: drawing takes a quarter of the time.
    WI_WINE_CPU=$(sed -n 's/^Cpus_allowed_list:[^0-9]*\([0-9]*\).*/\1/p' /proc/self/status)
    export WI_WINE_CPU WINEPREFIX=$build/wine WINEDEBUG=-all
    # No prompts, nothing in the user's own menus, and a program that crashes ends instead of waiting for a debugger.
    export WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe,winedbg.exe=d'
    export XENVIRONMENT=$host/xresources # else Xlib looks for two files at every font
    echo 'Xft.dpi: 96' >"$XENVIRONMENT"
    [ -n "${DISPLAY:-}" ] || virtual_display
    make_prefix
    # Wine's own processes are started here and outlive the programs, one of which would otherwise start them with its
    # own output, so that whoever reads that never sees it end. cmd waits for its input, the desktop for cmd.
    exec 6> >(exec taskset -c "$WI_WINE_CPU" wine cmd >/dev/null 2>&1 8>&-)
    taskset -c "$WI_WINE_CPU" wine rundll32 user32.dll,MessageBeep </dev/null >/dev/null 2>&1 8>&- || true
    flock -s 8
}

# wine_down   The last user of the host ends Wine server and virtual display.
wine_down() {
    flock -n 8 || return 0
    wineserver -k 2>/dev/null || true
    local pid
    if [ -s "$host/xvfb" ] && read -r pid _ <"$host/xvfb"; then
        kill "$pid" 2>/dev/null || true
        rm -f "$host/xvfb"
    fi
}

# in_turn COMMAND...   Runs a command on Wine's processor while no other program of the host has the keyboard.
in_turn() { flock -o "$host/turn" taskset -c "$WI_WINE_CPU" "$@" 8>&-; }
