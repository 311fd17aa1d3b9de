#!/usr/bin/env bash
# Fails, naming what is wrong, where a library's source includes a library
# that its row of the layer table does not allow ("file:line: ..."), where a
# library may use one that it never includes, and where CMake links other
# libraries than the table allows.
# Usage: check_layers.sh TABLE LINKS ROOT...
#   TABLE: rows "library: library..."; LINKS: the same for CMake's link lines.
#   ROOT: a folder of library folders, such as src/ or generated headers.
set -euo pipefail
table=$1
links=$2
shift 2
failed=0

fail() {
    echo "$*"
    failed=1
}

# The words of a row, sorted, so that rows compare as sets; callers pass the
# row unquoted, to split it.
words() { printf '%s\n' "$@" | sort | xargs; }

declare -A allowed linked used
while IFS=: read -r library uses; do
    allowed[$library]=$(words $uses)
done < <(grep -v '^[[:space:]]*\(#\|$\)' "$table")
while IFS=: read -r library uses; do
    linked[$library]=$(words $uses)
done <"$links"

for root in "$@"; do
    for folder in "$root"/*/; do
        folder=${folder%/}
        library=$(basename "$folder")
        if [ -z "${allowed[$library]+set}" ]; then
            fail "$folder: a library without a row in $table"
            continue
        fi
        while IFS=: read -r file line target; do
            used[$library $target]=1
            if [ "$target" != "$library" ] && [[ " ${allowed[$library]} " != *" $target "* ]]; then
                fail "$file:$line: $library may not include $target"
            fi
        done < <(grep -rnoE --include='*.h' --include='*.cc' --include='*.yy' --include='*.ll' \
            '^[[:space:]]*#[[:space:]]*include[[:space:]]*"[^"/]+/' "$folder" |
            sed -E 's/:[^:]*"([^"/]+)\/$/:\1/' | sort -t: -k1,1 -k2,2n)
    done
done

for library in $(printf '%s\n' "${!allowed[@]}" | sort); do
    for target in ${allowed[$library]}; do
        if [ -z "${used[$library $target]+set}" ]; then
            fail "$library may use $target but includes none of it"
        fi
    done
    if [ "${linked[$library]-}" != "${allowed[$library]}" ]; then
        fail "$library: CMake links '${linked[$library]-}', the table allows '${allowed[$library]}'"
    fi
done
for library in "${!linked[@]}"; do
    if [ -z "${allowed[$library]+set}" ]; then
        fail "$library: CMake builds a library without a row in $table"
    fi
done
exit $failed
