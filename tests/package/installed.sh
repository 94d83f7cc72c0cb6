#!/usr/bin/env bash
# Installs the build into an empty folder and builds a stranger's project against it. installed.sh BUILD SOURCE COMPILER
set -euo pipefail
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
cmake --install "$1" --prefix "$place/installed" >/dev/null
cmake -S "$2/tests/package" -B "$place/build" -DCMAKE_PREFIX_PATH="$place/installed" -DCMAKE_CXX_COMPILER="$3" \
    -DCMAKE_CXX_FLAGS="${4:-}" >/dev/null
cmake --build "$place/build" >/dev/null
"$place/build/package_user"
"$place/installed/bin/sgui" --version
