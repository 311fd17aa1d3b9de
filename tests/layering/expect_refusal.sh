#!/usr/bin/env bash
# Passes when the command fails and prints exactly the expected lines.
# Usage: expect_refusal.sh EXPECTED COMMAND...
set -uo pipefail
expected=$1
shift
output=$("$@" 2>&1)
if [ $? -eq 0 ]; then
    echo "passed, but should have refused:"
    cat "$expected"
    exit 1
fi
diff "$expected" <(printf '%s\n' "$output")
