#!/usr/bin/env bash
# Runs kel-trace on the bundled example and shows what it printed.
set -u
binary=$1
echo "\$ kel-trace"
"$binary"
echo "(exit status $?)"
