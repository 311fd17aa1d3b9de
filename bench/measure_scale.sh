#!/usr/bin/env bash
# Measures how kel-trace's loading and checking of a source grows with its size:
# for sources of 10k, 100k and 1M lines from generate_source.py, the wall time
# and the peak memory of one run, taken by /usr/bin/time -v.
# Usage: bench/measure_scale.sh path/to/kel-trace [lines...]
set -euo pipefail
binary=$1
shift
sizes=("$@")
[ ${#sizes[@]} -eq 0 ] && sizes=(10000 100000 1000000)
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

printf '%10s %10s %9s %9s %14s  %s\n' lines bytes "wall (s)" "CPU (s)" "peak RSS (MB)" \
    "exit, first line of stderr"
for lines in "${sizes[@]}"; do
    source="$work/source$lines.kel"
    "$here/generate_source.py" "$lines" > "$source"
    # The model exists; the run stops after loading and finding it.
    set +e
    /usr/bin/time -v -o "$work/time" "$binary" -m g0.Chain -T api.start "$source" \
        > /dev/null 2> "$work/stderr"
    status=$?
    set -e
    wall=$(sed -n 's/.*Elapsed (wall clock) time (h:mm:ss or m:ss): //p' "$work/time" |
        awk -F: '{ s = 0; for (i = 1; i <= NF; i++) s = s * 60 + $i; print s }')
    cpu=$(sed -n 's/.*\(User\|System\) time (seconds): //p' "$work/time" | paste -sd+ | bc)
    rss=$(sed -n 's/.*Maximum resident set size (kbytes): //p' "$work/time")
    printf '%10s %10s %9s %9s %14.1f  %s, %s\n' "$(wc -l < "$source")" "$(wc -c < "$source")" \
        "$wall" "$cpu" "$(echo "$rss / 1024" | bc -l)" "$status" "$(head -c 100 "$work/stderr" | head -n 1)"
done
