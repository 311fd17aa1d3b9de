#!/usr/bin/env bash
# Installs the Debian packages that building and testing kel-trace needs, and
# only those that are missing. With --list it prints them, one a line, for
# scripts/check_headers.sh, which holds the build to them.
set -euo pipefail

packages=(
    g++ make cmake ninja-build
    flex
    libfl-dev # FlexLexer.h, which flex only recommends
    bison
    libboost-dev # pulls in the versioned package of this release's headers
    libgtest-dev libgmock-dev libbenchmark-dev
    nlohmann-json3-dev # kel-trace-view reads the diagrams with it
    # Headless Chromium renders the viewer's page in its browser test, and the
    # README's picture; DejaVu is the font the page asks for.
    chromium fonts-dejavu-core
    tmux # a real terminal for the test of the progress line
)

if [ "${1-}" = --list ]; then
    printf '%s\n' "${packages[@]}"
    exit 0
fi

missing=()
for package in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$package")
    fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=()
[ "$(id -u)" -ne 0 ] && sudo=(sudo)
"${sudo[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq --no-install-recommends \
    "${missing[@]}" < /dev/null
