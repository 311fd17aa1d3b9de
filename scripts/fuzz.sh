#!/usr/bin/env bash
# Runs each libFuzzer harness of a fuzz build for a bounded time, one after the
# other and at a low priority, on a corpus seeded from the tests and examples.
# Usage: scripts/fuzz.sh BUILD_DIR SECONDS_PER_HARNESS
set -euo pipefail
build=$1
seconds=$2
root=$(cd "$(dirname "$0")/.." && pwd)

harnesses=(source_fuzzer trace_fuzzer run_fuzzer)
for harness in "${harnesses[@]}"; do
    mkdir -p "$build/seeds/$harness" "$build/corpus/$harness" "$build/findings/$harness"
done

seed() { # harness, then the find(1) name pattern of its seeds
    find "$root/tests/cases" "$root/examples" -type f -name "$2" -exec cp {} "$build/seeds/$1" \;
}
seed source_fuzzer '*.kel'
seed trace_fuzzer '*.trace'

# A whole run per end-to-end case that names a model and whose source is in
# its folder: the source, "%%", the model with its flags, the trace.
seed_run() { # case folder
    local dir=$1 model='' flags='' source='' trace='' i
    local -a args
    mapfile -t args < "$dir/args"
    [ -f "$dir/stdin" ] && trace=$(< "$dir/stdin")
    for ((i = 0; i < ${#args[@]}; i++)); do
        case ${args[i]} in
            -m) model=${args[++i]-} ;;
            -u | -d) flags+="${args[i]} " ;;
            -t) trace=$(cat "$dir/${args[++i]-}" 2>/dev/null || true) ;;
            -T) trace=$(tr ', ' '\n\n' <<< "${args[++i]-}") ;;
            -f) source=${args[++i]-} ;;
            -e | -s | -S | -I) ((++i)) ;;
            -*) ;;
            *) source=${args[i]} ;;
        esac
    done
    [ -n "$model" ] && [ -f "$dir/$source" ] || return 0
    { cat "$dir/$source"; printf '\n%%%%\n%s%s\n%s\n' "$flags" "$model" "$trace"; } \
        > "$build/seeds/run_fuzzer/$(basename "$dir")"
}
while IFS= read -r args; do
    seed_run "$(dirname "$args")"
done < <(find "$root/tests/cases" -name args)
# An example runs its first model on each of its traces.
for trace in "$root"/examples/*/*.trace; do
    { cat "$(dirname "$trace")"/*.kel; printf '\n%%%%\n\n'; cat "$trace"; } \
        > "$build/seeds/run_fuzzer/example_$(basename "$trace")"
done

# A whole run is bounded by the harness's budget of states; the input's size
# bounds the trace.
declare -A extra=(
    [run_fuzzer]="-dict=$root/fuzz/run_fuzzer.dict -max_len=8192"
)

status=0
for harness in "${harnesses[@]}"; do
    echo "== $harness: $seconds s"
    # shellcheck disable=SC2086 # the extra flags are words
    nice -n 10 "$build/fuzz/$harness" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
        -print_final_stats=1 -artifact_prefix="$build/findings/$harness/" ${extra[$harness]-} \
        "$build/corpus/$harness" "$build/seeds/$harness" || status=1
done
exit $status
