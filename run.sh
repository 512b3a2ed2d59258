#!/usr/bin/env bash
# Builds Tarvelo and starts it.
#
#   ./run.sh          on a demo library, with settings of its own (build/run)
#   ./run.sh --own    on your own music, with your own settings
#
# On a machine without a screen it plays the first demo song on a virtual one for twenty seconds
# and tells where the pictures and the recorded sound lie.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"
root=$PWD
program=$root/build/release/src/app/tarvelo

has_screen() { [[ -n ${DISPLAY:-}${WAYLAND_DISPLAY:-} ]]; }

# Settings that ask nothing, in a store of their own: the user's is never touched, whatever is done
# in the program. Written once, so that what is changed there stays.
write_settings() {
    local store="build/run/config/Tarvelo Soft/Tarvelo.conf"
    grep -qsxF "musicDir=$root/build/demo" "$store" && return
    mkdir -p build/run/playlists build/run/cache "$(dirname "$store")"
    local language=en_US intermediate='Intermediate+'
    [[ ${LC_ALL:-${LC_MESSAGES:-${LANG:-}}} == de* ]] && language=de_DE intermediate='High Intermediate'
    cat >"$store" <<INI
[General]
version=8.0.0
fontSize=20
maxFontSizeLyrics=70
frameHeight=50
showPartColumn=true
showBeatColumn=true
showTimeColumn=false
tempo12=85
tempo23=98
tempo34=112
tempo45=125
tempoDefault1=0
tempoDefault2=-7
tempoDefault3=-15
tempoDefault4=-22
tempoDefault5=-30
hideTempoButtons=false
showSlider=true
autoUpdate=false
autoEvent=false
playlistNonStop=false
timeDisplayMode=3
showMoreLyricsInfo=2
bpmDisplay=2
registerPlay=90
highIntermediate=$intermediate
styleSheet=Dark Night
language=$language
eventRounding=3600
cloudOn=0
cloudUserData=0
stepEditInheritChanges=true
stepEditAutoSave=true
cacheDir=$root/build/run/cache
cuesheetDir=$root/build/run
musicDir=$root/build/demo
playlistDir=$root/build/run/playlists
posImExDir=$root/build/run
INI
}

make_demo() {
    [[ -f build/demo/demo.json ]] && return
    echo "Making the demo library in build/demo …"
    build/release/tools/demo/tarvelo-demo build/demo
}

if has_screen; then
    scripts/install-dependencies run
else
    scripts/install-dependencies screen
fi
scripts/build release tarvelo tarvelo-demo

# Wayland lets no program place its windows: where X11 can be had, it is taken.
if [[ -n ${DISPLAY:-} ]]; then
    export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-xcb}
fi

if [[ ${1:-} == --own ]]; then
    has_screen || {
        echo "There is no screen here to show your music on." >&2
        exit 1
    }
    cd "$HOME"
    exec "$program"
fi

make_demo
write_settings
# Root leaves them to the owner of the checkout.
if [[ $(id -u) -eq 0 ]]; then
    chown -R --reference=. build/demo build/run
fi
cd build/run
own_store=(env "XDG_CONFIG_HOME=$PWD/config" "XDG_DATA_HOME=$PWD/data")
if has_screen; then
    exec "${own_store[@]}" "$program"
fi
exec "$root/scripts/test-session" "${own_store[@]}" "$root/scripts/play-demo" "$program" \
    "$root/build/demo" "$root/build/run/shots"
