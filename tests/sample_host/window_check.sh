#!/bin/sh
# Opens the window of a sample host on a screen that nobody sees, and uses it as a hand would.
#
#   tests/sample_host/window_check.sh PROGRAM
#   tests/sample_host/window_check.sh tools/wine 32|64 PROGRAM
#
# Needs Xvfb and xdotool. The title tells what the window did.
set -eu
said=$(mktemp)
screen= host=
finish() {
    [ -z "$host" ] || kill "$host" 2>/dev/null || :
    [ -z "$screen" ] || kill "$screen" 2>/dev/null || :
    rm -f "$said"
}
trap finish EXIT
fail() { echo "window: $*" >&2; exit 1; }

# Without a display: one sentence, and 1. Windows always has one.
unset DISPLAY WAYLAND_DISPLAY SDL_VIDEODRIVER
if [ $# = 1 ]; then
    status=0
    "$1" window --room >"$said" 2>&1 || status=$?
    [ $status = 1 ] || fail "without a display it ended with $status"
    [ "$(wc -l <"$said")" = 1 ] || fail "without a display it said: $(cat "$said")"
fi

: >"$said"
# Of the size that Wine takes for that of any screen, until one is there.
Xvfb -displayfd 3 -screen 0 1024x768x24 3>"$said" >/dev/null 2>&1 &
screen=$!
for second in 1 2 3 4 5 6 7 8 9 10; do
    [ ! -s "$said" ] || break
    sleep 1
done
DISPLAY=:$(cat "$said")
export DISPLAY WINE_DISPLAY="$DISPLAY"
"$@" window --room --size 640x480 >/dev/null &
host=$!

# Waits until the window's title contains the words.
window=
title_has() {
    for tenth in $(seq 100); do
        window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1) || :
        [ -z "$window" ] || return 0
        sleep 0.1
    done
    fail "the title never said '$1'; it says: $(xdotool search --onlyvisible --name ": " getwindowname 2>&1)"
}

title_has "room: lit, 640x480"
xdotool windowfocus --sync "$window"
xdotool mousemove --window "$window" 320 300 click 1
title_has "at depth"
xdotool key 0
title_has "unlit, 16-bit maps"
xdotool key f
title_has "5-5-5"
xdotool key f
title_has "5-6-5"
xdotool key s
title_has "16-bit maps, plain, "
xdotool key h
title_has "plain, opaque, "
xdotool key x
title_has "opaque, textures up to 128, "
xdotool key k
title_has "near plane 0.125, "
xdotool key u
title_has "far plane 24, "
xdotool key 3
title_has "room: flat colours, "
xdotool key r
title_has "room: lit, 640x480"
xdotool key Tab
title_has "robots: "
xdotool key l
title_has "robots: lit, level 0, "
xdotool key F1
xdotool windowsize "$window" 800 500
title_has "800x500"
xdotool key F11
title_has "1024x768"
xdotool key q
status=0
wait $host || status=$?
host=
[ $status = 0 ] || fail "closed by q it ended with $status"
echo "the window did what it was told"
