#!/usr/bin/env bash
# The header check must name the header and its package once a package that
# the build needs is dropped from the set-up list.
# Usage: dropped_package_test.sh BUILD_DIR
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
build=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

status=0
expect_failure() { # package to drop, pattern that the report must match
    grep -vx "$1" "$root/scripts/packages.txt" >"$work/packages.txt"
    report=$("$root/scripts/check_headers.sh" "$build" "$work/packages.txt" 2>&1)
    code=$?
    if [ $code -ne 1 ] || ! grep -qE "$2" <<<"$report"; then
        echo "without $1: status $code, report: $report"
        status=1
    fi
}
expect_failure libfl-dev '^/usr/include/FlexLexer\.h comes from libfl-dev, '
expect_failure libboost-dev '^/usr/include/boost/.* comes from libboost[0-9.]*-dev, '
exit $status
