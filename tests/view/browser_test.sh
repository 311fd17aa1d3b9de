#!/usr/bin/env bash
# Loads the viewer's page of a constrained component's run in headless
# Chromium: the screenshot must have the window's size and not be blank, and
# the DOM that the browser built must hold the lifelines in order, the verdict,
# and the details of the step the verdict points at, opened by the page's script.
# Usage: browser_test.sh VIEWER CASE_DIR LIFELINE... -- VERDICT
set -uo pipefail
viewer=$1
case_dir=$2
shift 2
lifelines=()
while [ "$1" != "--" ]; do lifelines+=("$1"); shift; done
verdict=$2
width=1200 height=800
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() { echo "FAIL: $*"; grep -v dbus "$work/chromium.log" 2>/dev/null | tail -5; exit 1; }

# chromium ARGS... URL: one fresh profile per run, its home in the scratch
# folder, no network of its own; never longer than a minute and a half.
chromium_run() {
    local profile
    profile=$(mktemp -d "$work/profile.XXXX")
    HOME=$work XDG_CONFIG_HOME=$work XDG_CACHE_HOME=$work timeout -k 10 90 chromium \
        --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
        --disable-background-networking --disable-component-update --disable-sync \
        --user-data-dir="$profile" --window-size=$width,$height "$@" </dev/null 2>>"$work/chromium.log"
}

# The width and height in the header of a PNG file.
png_size() {
    od -An -tu1 -j16 -N8 "$1" |
        awk '{ print $1 * 16777216 + $2 * 65536 + $3 * 256 + $4 "x" $5 * 16777216 + $6 * 65536 + $7 * 256 + $8 }'
}

command -v chromium >/dev/null || fail "chromium is not installed; run scripts/setup.sh"
"$viewer" -o "$work/run.html" "$case_dir/expected_stdout" || fail "the viewer failed"
echo '<!DOCTYPE html><html><body></body></html>' >"$work/blank.html"

chromium_run --screenshot="$work/run.png" "file://$work/run.html" >/dev/null
chromium_run --screenshot="$work/blank.png" "file://$work/blank.html" >/dev/null
[ -s "$work/run.png" ] && [ -s "$work/blank.png" ] || fail "no screenshot"
size=$(png_size "$work/run.png")
[ "$size" = "${width}x$height" ] || fail "screenshot of $size, not ${width}x$height"
# A white page packs into a few kilobytes; lines and text take many more.
run_bytes=$(stat -c %s "$work/run.png") blank_bytes=$(stat -c %s "$work/blank.png")
[ "$run_bytes" -gt $((blank_bytes * 3)) ] ||
    fail "the screenshot looks blank: $run_bytes bytes, a blank page $blank_bytes"

# Opened at the verdict's step, the page's script must show that step's details.
step=$(grep -o 'data-points-at="[0-9]*"' "$work/run.html" | grep -o '[0-9]*')
chromium_run --dump-dom "file://$work/run.html#$step" >"$work/dom.html" || fail "no DOM dumped"
grep -q "<section class=\"detail\" id=\"detail-$step\">" "$work/dom.html" ||
    fail "the details of step '$step' are not shown"
names=$(grep -o '<g class="lifeline[^>]*data-name="[^"]*"' "$work/dom.html" | sed 's/.*data-name="//; s/"$//')
[ "$(echo $names)" = "${lifelines[*]}" ] || fail "lifelines '$(echo $names)', not '${lifelines[*]}'"
# The browser writes the tooltips' line breaks out, so the verdict is sought
# in the DOM as one line.
tr '\n' ' ' <"$work/dom.html" | grep -q "<g class=\"verdict\" data-index=\"[0-9]*\" data-points-at=\"[0-9]*\".*<text class=\"message\"[^>]*>✗ $verdict</text>" ||
    fail "no verdict '$verdict' pointing at a step in the DOM"
echo "page of $(basename "$case_dir"): $size screenshot of $run_bytes bytes, lifelines ${lifelines[*]}, verdict '$verdict' at step $step"
