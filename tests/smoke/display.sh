# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Sourced by scripts that start a program on an X display of its own, without a window manager, and
# use it as a person would. Whatever is started here ends by itself after $limit seconds, and with the
# script in any case.

limit=60

scratch=$(mktemp -d)
server=
program=

tidy_up() {
    [[ -z $program ]] || kill "$program" 2> /dev/null || true
    [[ -z $server ]] || kill "$server" 2> /dev/null || true
    wait
    rm -rf -- "$scratch"
}
trap tidy_up EXIT

# Exit code 77 tells CTest that the test was skipped.
skip_without() { # tool...
    local tool
    for tool in "$@"; do
        command -v "$tool" > /dev/null || { echo "skipped: $tool is not installed"; exit 77; }
    done
}

give_up() { # message
    echo "$1"
    find "$scratch" -maxdepth 1 -name '*.log' -exec cat -- {} +
    exit 1
}

# The server looks for a free display number itself and tells it when it is ready, so that several
# displays may be used at the same time.
start_display() {
    local number
    mkfifo "$scratch/number"
    timeout "$limit" Xvfb -displayfd 3 -screen 0 1400x1000x24 -nolisten tcp \
        3> "$scratch/number" > "$scratch/server.log" 2>&1 &
    server=$!
    read -r -t 30 number < "$scratch/number" || give_up "the display did not start"
    export DISPLAY=:$number
}

# Starts a program with a home of its own, and with Qt's own file dialogs whatever the desktop.
start_program() { # program [argument...]
    timeout "$limit" env \
        --unset=WAYLAND_DISPLAY --unset=XDG_CURRENT_DESKTOP --unset=QT_QPA_PLATFORMTHEME \
        QT_QPA_PLATFORM=xcb HOME="$scratch" XDG_CONFIG_HOME="$scratch" XDG_RUNTIME_DIR="$scratch" \
        "$@" > "$scratch/program.log" 2>&1 &
    program=$!
}

is_running() {
    [[ -n $program ]] && kill -0 "$program" 2> /dev/null
}

find_window() { # title
    xdotool search --onlyvisible --name "^$1\$" 2> /dev/null | head -n 1
}

# Waits for a window with exactly this title and sets $window to its number.
expect_window() { # title
    for _ in {1..150}; do
        window=$(find_window "$1" || true)
        [[ -z $window ]] || return 0
        is_running || give_up "the program ended before the window \"$1\" came"
        sleep 0.2
    done
    give_up "the window \"$1\" did not come"
}

# Sends keys to the window $window. Those that come too early are lost.
press() { # xdotool key or type command...
    xdotool windowfocus "$window" "$@" 2> /dev/null || true
    sleep 0.2
}

# Waits for the program to end, and expects this exit code.
expect_exit_code() { # code
    local status=0
    wait "$program" || status=$?
    program=
    (( status == $1 )) || give_up "the program ended with exit code $status, not $1"
}
