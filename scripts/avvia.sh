#!/usr/bin/env bash
# Installs what is missing, builds Tomvera and starts it.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/dipendenze.sh
export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
cmake --preset release >/dev/null
cmake --build --preset release --target tomvera tomvera-cli
exec ./build/release/src/app/tomvera "$@"
