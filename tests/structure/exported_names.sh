#!/usr/bin/env bash
# The module exports what other libraries are promised and nothing else. exported_names.sh LIBRARY LIST
set -euo pipefail
diff -u "$2" <(nm -DC --defined-only "$1" | sed -E 's/^[0-9a-f]+ . //' | sed -E 's/\(.*//' | LC_ALL=C sort -u) ||
    { echo "exported names differ: - promised, + exported"; exit 1; }
