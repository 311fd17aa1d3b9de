#!/usr/bin/env bash
# Runs kel-trace on a bundled example and shows what it printed; with the
# viewer and a page name, also keeps the diagram beside the page and draws it
# there as HTML.
# Usage: scripts/demo.sh KEL_TRACE [KEL_TRACE_VIEW PAGE.html]
set -u
binary=$1
viewer=${2:-}
page=${3:-}
command=(-m ISwitch -t examples/switch/toggle.trace examples/switch/switch.kel)
echo "\$ kel-trace ${command[*]}"
if [ -z "$viewer" ] || [ -z "$page" ]; then
    "$binary" "${command[@]}"
    echo "(exit status $?)"
    exit 0
fi
diagram=${page%.html}.json
"$binary" "${command[@]}" | tee "$diagram"
echo "(exit status ${PIPESTATUS[0]})"
# Run from here, the viewer finds the sources that the diagram names.
if "$viewer" -o "$page" "$diagram"; then
    echo "The diagram as a picture: $(realpath "$page") (open it in a browser)"
fi
