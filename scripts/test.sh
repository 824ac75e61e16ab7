#!/usr/bin/env bash
# Installs what is missing, builds Tomvera and runs the whole test suite.
# Usage: scripts/test.sh [dev|asan]   (default dev)
set -euo pipefail
cd "$(dirname "$0")/.."
preset="${1:-dev}"
bash scripts/dipendenze.sh
export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
export ASAN_OPTIONS="detect_leaks=0:halt_on_error=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
cmake --preset "$preset" -DTOMVERA_WERROR=ON >/dev/null
cmake --build --preset "$preset"
ctest --preset "$preset"
