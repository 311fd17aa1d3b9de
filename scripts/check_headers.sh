#!/usr/bin/env bash
# Fails when the build read a system header that no package of the set-up list
# provides, so that a machine with only what scripts/setup.sh installs builds
# too. Reads the headers from ninja's dependency records of a finished build.
# Usage: scripts/check_headers.sh BUILD_DIR [PACKAGE_LIST]
#   PACKAGE_LIST: a file of packages, one a line; the set-up's own by default.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "$1" && pwd)

# The compiler's own packages, which g++ brings along under versioned names.
toolchain='^(libc6-dev|linux-libc-dev|libstdc\+\+-[0-9]+-dev|libgcc-[0-9]+-dev|gcc-[0-9]+|g\+\+-[0-9]+|cpp-[0-9]+)$'

if [ $# -ge 2 ]; then
    list=$2
    mapfile -t listed <"$list"
else
    list=scripts/setup.sh
    mapfile -t listed < <("$root/scripts/setup.sh" --list)
fi
# A listed package brings its direct dependencies, such as the versioned
# package behind a metapackage.
allowed=$({
    printf '%s\n' "${listed[@]}"
    dpkg-query -W -f='${Depends}\n' "${listed[@]}" 2>/dev/null |
        tr ',|' '\n\n' | sed 's/([^)]*)//; s/:any//; s/[[:space:]]//g'
} | grep -v '^$' | sort -u)

headers=$(cd "$build" && ninja -t deps | grep '^ ' | sed 's/^ *//' | sort -u |
    xargs -r realpath -m | grep -v -e "^$root/" -e "^$build/" | sort -u || true)
if [ -z "$headers" ]; then
    echo "no dependency records of system headers in $build; build it first" >&2
    exit 1
fi

# dpkg -S answers "package[:arch][, package...]: path" and names unowned
# paths on stderr; one line per package that the list misses.
{ xargs dpkg -S <<<"$headers" 2>&1 || true; } | awk -v allowed="$allowed" -v toolchain="$toolchain" \
    -v list="$list" '
    BEGIN { n = split(allowed, names, "\n"); for (i = 1; i <= n; i++) ok[names[i]] = 1 }
    /no path found matching pattern / { print $NF " belongs to no Debian package"; bad = 1; next }
    /^diversion / { next }
    {
        split($0, parts, ": "); header = substr($0, length(parts[1]) + 3)
        n = split(parts[1], owners, ", *"); found = 0
        for (i = 1; i <= n; i++) {
            sub(/:.*/, "", owners[i])
            if (owners[i] in ok || owners[i] ~ toolchain) found = 1
        }
        if (!found) {
            owner = owners[1]; bad = 1
            if (!(owner in first)) first[owner] = header
            count[owner]++
        }
    }
    END {
        for (owner in first) {
            more = count[owner] > 1 ? " (" count[owner] - 1 " more of its headers too)" : ""
            print first[owner] " comes from " owner ", which " list " does not install" more
        }
        exit bad
    }' | sort >&2
