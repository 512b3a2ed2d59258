#!/usr/bin/env bash
# Builds for release and runs benchmarks; each prints lines of a name and a value.
#
#   ./bench.sh [NAME…]     all of them without a name
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"

mapfile -t known < <(sed -n 's/^tarvelo_bench(\([a-z0-9_]*\).*/\1/p' bench/CMakeLists.txt)
names=("$@")
[[ ${#names[@]} -gt 0 ]] || names=("${known[@]}")
for name in "${names[@]}"; do
    if [[ " ${known[*]} " != *" $name "* ]]; then
        echo "There is no benchmark \"$name\". There are: ${known[*]}" >&2
        exit 2
    fi
done

scripts/install-dependencies test >&2
scripts/build release "${names[@]/#/bench_}" >&2

home=$(mktemp -d /tmp/tarvelo-bench.XXXXXX)
trap 'rm -rf "$home"' EXIT
mkdir "$home/tmp"
if [[ -z ${TARVELO_CORPUS:-} && -d ../shared/corpus ]]; then
    TARVELO_CORPUS=$(readlink -f ../shared/corpus)
    export TARVELO_CORPUS
fi

# shellcheck disable=SC2016 # the inner shell expands them
env -u XDG_CONFIG_HOME -u XDG_DATA_HOME -u XDG_CACHE_HOME HOME="$home" TMPDIR="$home/tmp" \
    LC_ALL=C.UTF-8 scripts/test-session bash -c '
        code=0
        for name in "$@"; do build/release/bench/bench_"$name" || code=1; done
        exit $code' bench "${names[@]}"
