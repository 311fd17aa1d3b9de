#!/usr/bin/env bash
# Runs each libFuzzer harness of a fuzz build for a bounded time, one after the
# other and at a low priority, on a corpus seeded from the tests and examples.
# Usage: scripts/fuzz.sh BUILD_DIR SECONDS_PER_HARNESS
set -euo pipefail
build=$1
seconds=$2
root=$(cd "$(dirname "$0")/.." && pwd)

seed() { # harness, then the find(1) name pattern of its seeds
    local seeds="$build/seeds/$1"
    mkdir -p "$seeds" "$build/corpus/$1" "$build/findings/$1"
    find "$root/tests/cases" "$root/examples" -type f -name "$2" -exec cp {} "$seeds" \;
}
seed source_fuzzer '*.kel'
seed trace_fuzzer '*.trace'

status=0
for harness in source_fuzzer trace_fuzzer; do
    echo "== $harness: $seconds s"
    nice -n 10 "$build/fuzz/$harness" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
        -print_final_stats=1 -artifact_prefix="$build/findings/$harness/" \
        "$build/corpus/$harness" "$build/seeds/$harness" || status=1
done
exit $status
