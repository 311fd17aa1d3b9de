#!/usr/bin/env bash
# Installs the Debian packages of scripts/packages.txt that building and
# testing kel-trace needs, and only those that are missing.
set -euo pipefail

mapfile -t packages < <(grep -v '^[[:space:]]*\(#\|$\)' "$(dirname "$0")/packages.txt")

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
