#!/usr/bin/env bash
# The command line of kel-trace-view: usage errors, bad documents and where
# the page finds the sources, each checked by exit status and a piece of output.
# Usage: cli_test.sh VIEWER CASES_DIR
set -uo pipefail
viewer=$1
cases=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

# expect NAME STATUS STREAM TEXT COMMAND...: COMMAND exits with STATUS and
# writes TEXT (a fixed string) on STREAM (out or err); it runs in $work.
expect() {
    local name=$1 status=$2 stream=$3 text=$4
    shift 4
    (cd "$work" && "$@") >"$work/out" 2>"$work/err" </dev/null
    local code=$?
    if [ "$code" -ne "$status" ] || ! grep -qF -- "$text" "$work/$stream"; then
        echo "FAIL $name: status $code (want $status), no '$text' in std$stream:"
        cat "$work/out" "$work/err" | head -5
        failures=$((failures + 1))
    fi
}

violation=$cases/component/protocol_violation
banners=$cases/component/debug_banners/expected_stdout
printf '[{"kind":"TraceType"},{"instance":"p"}]' >"$work/no_kind.json"

expect no_arguments 1 err 'kel-trace-view: no diagram given' "$viewer"
expect usage_follows 1 err 'Usage: kel-trace-view' "$viewer"
expect unknown_option 1 err 'unknown option --bogus' "$viewer" --bogus x.json
expect output_without_file 1 err '-o needs a file name' "$viewer" x.json -o
expect two_diagrams 1 err 'one diagram at a time, not also b.json' "$viewer" a.json b.json
expect help 0 out 'Usage: kel-trace-view' "$viewer" -h
expect missing_file 1 err 'kel-trace-view: cannot read nowhere.json' "$viewer" nowhere.json
expect no_kind 1 err 'kel-trace-view: no_kind.json: element 1: no "kind" member' "$viewer" no_kind.json
expect debug_banners_are_no_diagram 1 err ': bad JSON: parse error at line 1, column 1' "$viewer" "$banners"
expect no_kind_on_stdin 1 err 'kel-trace-view: element 1: no "kind" member' \
    sh -c "'$viewer' - < no_kind.json"
# Sources named relative to the diagram: found beside its file from anywhere,
# and in the current directory when the diagram comes from standard input.
expect source_beside_the_diagram 0 out '<span class="number">5</span>        [!done] on e: done = true;' \
    "$viewer" "$violation/expected_stdout"
expect source_in_current_directory 0 out '<span class="number">5</span>        [!done] on e: done = true;' \
    sh -c "cd '$violation' && '$viewer' - < expected_stdout"
expect svg_to_file 0 out '<svg xmlns=' sh -c "'$viewer' --svg -o run.svg '$violation/expected_stdout' && cat run.svg"
expect html_to_file 0 out '<!DOCTYPE html>' sh -c "'$viewer' -o run.html '$violation/expected_stdout' && cat run.html"

[ "$failures" -eq 0 ] || exit 1
