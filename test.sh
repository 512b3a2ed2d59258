#!/usr/bin/env bash
# Installs what is missing, builds, and runs all tests in a private session.
#
#   ./test.sh [--preset development|release|sanitize] [CTEST ARGUMENT…]
#
# For example: ./test.sh -R songdata --verbose
#
# Started as root, the tests run as the system user tarvelo-test: write protection means nothing
# to root. TARVELO_CORPUS names a directory of foreign music files; without it such tests skip.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"
umask 022

preset=development
if [[ ${1:-} == --preset ]]; then
    preset=${2:?--preset needs a name}
    shift 2
fi
test_user=tarvelo-test
as_tester=()

scripts/install-dependencies test

if [[ $(id -u) -eq 0 ]]; then
    getent passwd "$test_user" >/dev/null ||
        useradd --system --no-create-home --home-dir /nonexistent --shell /usr/sbin/nologin \
            "$test_user"
    # The audio server takes a real-time priority, as it does on a desktop.
    as_tester=(setpriv --reuid "$test_user" --regid "$(id -g "$test_user")" --clear-groups
        --inh-caps=+sys_nice --ambient-caps=+sys_nice --)
fi

# A checkout in root's own home, say, is closed to the test user: the tests then work on a copy.
copy_where_readable() {
    local copy=/var/tmp/$test_user-checkout
    mkdir -p "$copy"
    find "$copy" -mindepth 1 -maxdepth 1 ! -name build -exec rm -rf {} +
    tar --exclude=./build --exclude=./.git -cf - . | tar --no-same-owner -xf - -C "$copy"
    chmod -R a+rX "$copy"
    echo "The test user can't read $PWD: working in $copy."
    TARVELO_CORPUS=${TARVELO_CORPUS:-$(corpus)}
    export TARVELO_CORPUS
    cd "$copy"
}

corpus() {
    if [[ -d ../shared/corpus ]]; then
        readlink -f ../shared/corpus
    fi
}

readable_by_tester() { "${as_tester[@]}" test -r "$1" 2>/dev/null; }

readable_by_tester "$PWD/CMakeLists.txt" || copy_where_readable
scripts/build "$preset"

TARVELO_CORPUS=${TARVELO_CORPUS:-$(corpus)}
if [[ -n $TARVELO_CORPUS ]] && ! readable_by_tester "$TARVELO_CORPUS"; then
    echo "The test user can't read $TARVELO_CORPUS: tests that need it skip."
    TARVELO_CORPUS=
fi

# ctest keeps its own log in the build directory; whoever runs it next may write it too.
mkdir -p "build/$preset/Testing/Temporary"
code=0
home=$(mktemp -d /tmp/tarvelo-test.XXXXXX)
trap 'rm -rf "$home"' EXIT
mkdir "$home/tmp"
if [[ $(id -u) -eq 0 ]]; then
    chmod -R a+rX "build/$preset"
    chmod -R a+rwX "build/$preset/Testing"
    chown -R "$test_user" "$home"
fi

in_session() {
    "${as_tester[@]}" env -u XDG_CONFIG_HOME -u XDG_DATA_HOME -u XDG_CACHE_HOME -u XDG_STATE_HOME \
        HOME="$home" TMPDIR="$home/tmp" LC_ALL=C.UTF-8 TARVELO_CORPUS="$TARVELO_CORPUS" \
        ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=0}" \
        UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1}" \
        scripts/test-session ctest --preset "$preset" -j2 "$@"
}

# The sound is played and recorded in real time: where the machine was busy with other things for a
# moment, the recording has a gap, and the test is run once more. No other test is: a save that was
# killed and lost its song would be hidden by the next one. Real time takes little of a processor:
# the player's tests run beside those of the window, each group in a session of its own.
in_session -LE session "$@" || code=$?
set -m # in the background with a group of its own, which can be ended as a whole
in_session -L session -L player --repeat until-pass:2 "$@" </dev/null >"$home/player.log" 2>&1 &
player=$!
set +m
trap 'kill -- "-$player" 2>/dev/null || true; rm -rf "$home"' EXIT
in_session -L session -LE player --repeat until-pass:2 "$@" || code=$?
wait "$player" || code=$?
cat "$home/player.log"
exit "$code"
