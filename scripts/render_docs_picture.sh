#!/usr/bin/env bash
# Renders the README's picture, docs/kel-trace-view.png: kel-trace runs the
# climate example into an illegal second enable, kel-trace-view draws the
# diagram, and headless Chromium takes the screenshot with one step's details
# open, as the browser test does.
# Usage: scripts/render_docs_picture.sh [KEL_TRACE [KEL_TRACE_VIEW]]
# (defaults: the programs in build/, which `make build` makes)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
kel_trace=$(realpath "${1:-$root/build/src/tool/kel-trace}")
viewer=$(realpath "${2:-$root/build/src/view/kel-trace-view}")
picture=$root/docs/kel-trace-view.png
trace='control.enable heater.start heater.return sensor.arm sensor.return control.return control.enable'
step=13 # the component's call heater.start, whose details show the source
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The source beside the diagram, so that the page shows its lines.
cp "$root/examples/climate/climate.kel" "$work/"
cd "$work"
"$kel_trace" -m Climate -T "$trace" climate.kel >climate-enable-twice.json
"$viewer" -o page.html climate-enable-twice.json
HOME=$work XDG_CONFIG_HOME=$work XDG_CACHE_HOME=$work timeout -k 10 90 chromium \
    --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
    --disable-background-networking --disable-component-update --disable-sync \
    --user-data-dir="$work/profile" --hide-scrollbars --window-size=1280,1240 \
    --screenshot="$picture" "file://$work/page.html#$step" </dev/null >/dev/null 2>&1
echo "wrote $picture"
