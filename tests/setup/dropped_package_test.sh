#!/usr/bin/env bash
# The header check must name the header and its package once a package that
# the build needs is dropped from a copy of the set-up list.
# Usage: dropped_package_test.sh BUILD_DIR
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
list=$(mktemp)
trap 'rm -f "$list"' EXIT
status=0
for case in 'libfl-dev ^/usr/include/FlexLexer\.h comes from libfl-dev, ' \
            'libboost-dev ^/usr/include/boost/.* comes from libboost[0-9.]*-dev, '; do
    read -r package pattern <<<"$case"
    "$root/scripts/setup.sh" --list | grep -vx "$package" >"$list"
    report=$("$root/scripts/check_headers.sh" "$1" "$list" 2>&1)
    code=$?
    if [ $code -ne 1 ] || ! grep -qE "$pattern" <<<"$report"; then
        echo "without $package: status $code, report: $report"
        status=1
    fi
done
exit $status
