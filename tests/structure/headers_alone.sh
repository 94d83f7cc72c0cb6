#!/usr/bin/env bash
# Each header of the module compiles alone, so that whoever needs it can include it first. headers_alone.sh ROOT COMPILER
set -euo pipefail
cd "$1/src"
export compiler=$2
check() {
    # Through an #include, for a header that is itself the main file warns of its #pragma once.
    "$compiler" -std=c++20 -I. -Iplatform/posix -Wall -Wextra -Werror -fsyntax-only -include "$1" -x c++ /dev/null ||
        { echo "does not compile alone: $1"; return 1; }
}
export -f check
# Those of another system need that system.
find . -name '*.h' -not -path './platform/windows/*' -printf '%P\n' | xargs -P2 -I{} bash -c 'check {}'
echo "$(find . -name '*.h' | wc -l) headers"
