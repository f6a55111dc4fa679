#!/usr/bin/env bash
# Plants one violation of each kind in a temporary tree and expects the check to name it.
#
#   CheckIncludesFindsViolations.sh CHECK_INCLUDES
set -euo pipefail

check=$1
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
failures=0

plant() {
    mkdir -p "$tree/$(dirname "$1")"
    printf '%s\n' "$2" >"$tree/$1"
}

# expect_violation FILE TEXT: expects that the check fails and reports only this file.
expect_violation() {
    local report status=0
    plant "$1" "$2"
    report=$("$check" "$tree") || status=$?
    rm "$tree/$1"
    if ((status == 0)) || [[ $report != "$1:1: "* ]] || (($(wc -l <<<"$report") != 1)); then
        echo "not found, or another violation was: $1 with: $2"
        echo "  status $status, report: $report"
        failures=$((failures + 1))
    fi
}

expect_clean() {
    local report
    plant "$1" "$2"
    if ! report=$("$check" "$tree"); then
        echo "wrongly reported: $report"
        failures=$((failures + 1))
    fi
}

# These files stay in the tree, so that the check must find a violation among many allowed lines.
expect_clean platform/Clock.h '#include <chrono>'
expect_clean app/Panel.cpp '#include "platform/Clock.h"'
expect_clean presentation/Menu.cpp '#include "resources/Script.h"'
expect_clean ports/linux/system/LinuxClock.cpp '#include <sys/time.h>'
expect_clean ports/linux/x11/Keys.cpp '#include "ports/linux/glib/Pointers.h"'
expect_clean ports/linux/x11/Seat.cpp '#include "ports/linux/x11/Keys.h"'
expect_clean ports/linux/system/Files.cpp '#include "ports/posix/PosixFileSystem.h"'
expect_clean ports/macos/cocoa/webkit/View.h '#include "ports/macos/cocoa/appkit/Window.h"'
expect_clean ports/macos/appkit/Panel.cpp '#include "ports/macos/system/Clock.h"'
expect_clean ports/json/Decoder.h '#include <nlohmann/json.hpp>'
expect_clean ports/simulated/Json.cpp '#include "ports/json/Decoder.h"'
expect_clean ports/linux/main.cpp '#include "app/AppController.h"'
expect_clean ports/linux/glib/Loop.cpp '#ifdef __linux__'
expect_clean companion/backend/system/Parent.cpp '#include <sys/types.h>'
expect_clean companion/backend/log/LogFile.cpp '#include "companion/backend/system/Parent.h"'
expect_clean companion/backend/room/Names.cpp '#include "text/Utf8.h"'
expect_clean tests/unit/Tests.cpp '#include "app/Panel.h"'
expect_clean demo/Story.cpp '#include <X11/Xlib.h>'
expect_clean app/Comment.cpp '// #include <gtk/gtk.h>'

expect_violation platform/Bad.h '#include "app/AppController.h"'
expect_violation platform/Bad.h '#include <X11/Xlib.h>'
expect_violation app/Bad.cpp '#include "presentation/TitleMatcher.h"'
expect_violation app/Bad.cpp '#include "ports/linux/system/LinuxClock.h"'
expect_violation app/Bad.cpp '  #  include <unistd.h>'
expect_violation app/Bad.cpp '#include "Panel.h"'
expect_violation app/Bad.cpp '#if defined(__APPLE__)'
expect_violation app/Bad.cpp $'#if A || \\\n    defined(__APPLE__)'
expect_violation presentation/Bad.cpp '#include "slidechannel/SlideSocket.h"'
expect_violation slidechannel/Bad.cpp '#include <nlohmann/json.hpp>'
expect_violation presentation/Bad.cpp '#elif defined(_WIN32)'
expect_violation ports/linux/gtk/Bad.cpp '#include "app/AppController.h"'
expect_violation ports/linux/x11/Bad.cpp '#include "ports/linux/gtk/Window.h"'
expect_violation ports/linux/network/Bad.cpp '#include "ports/linux/glib/Pointers.h"'
expect_violation ports/linux/glib/Bad.cpp '#include "ports/linux/main.h"'
expect_violation ports/linux/extras/Bad.cpp '#include <string>'
expect_violation ports/linux/gtk/Bad.cpp '#include "ports/simulated/Journal.h"'
expect_violation ports/macos/cocoa/webkit/Bad.h '#include "ports/macos/system/Clock.h"'
expect_violation ports/macos/network/Bad.cpp '#include "ports/macos/appkit/Panel.h"'
expect_violation ports/macos/extras/Bad.cpp '#include <string>'
expect_violation text/Bad.cpp '#include "platform/Clock.h"'
expect_violation ports/simulated/Bad.cpp '#include "ports/posix/PosixFileSystem.h"'
expect_violation ports/macos/Bad.cpp '#include <nlohmann/json.hpp>'
expect_violation ports/macos/Bad.cpp '#include "ports/json/Decoder.h"'
expect_violation ports/posix/Bad.cpp '#include "ports/linux/system/LinuxClock.h"'
expect_violation ports/linux/x11/Bad.cpp '#include "presentation/SlideTarget.h"'
expect_violation ports/linux/main.cpp '#include "presentation/SlideTarget.h"'
expect_violation companion/backend/room/Bad.cpp '#include "platform/Clock.h"'
expect_violation companion/backend/room/Bad.cpp '#include "companion/backend/http/Api.h"'
expect_violation companion/Bad.cpp '#include <string>'
expect_violation companion/backend/Bad.cpp '#include "app/AppController.h"'
expect_violation companion/backend/Bad.cpp '#ifdef __linux__'
expect_violation tests/unit/Bad.cpp '#ifdef __linux__'
expect_violation extras/Bad.h '#include <string>'

((failures == 0))
