#!/usr/bin/env bash
# Runs kel-trace on a bundled example and shows what it printed.
set -u
binary=$1
command=(-m ISwitch -t examples/switch/toggle.trace examples/switch/switch.kel)
echo "\$ kel-trace ${command[*]}"
"$binary" "${command[@]}"
echo "(exit status $?)"
