#!/usr/bin/env bash
# Kills a program that is saving, again and again, and checks after each kill that the archive passes the
# start-up check, is whole and holds no half save.
# Usage: scripts/prova-crash.sh [uccisioni]   (default 200)
set -euo pipefail
cd "$(dirname "$0")/.."
uccisioni="${1:-200}"
if ! [[ "$uccisioni" =~ ^[1-9][0-9]*$ ]]; then
    echo "uso: scripts/prova-crash.sh [uccisioni]" >&2
    exit 2
fi
export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
cmake --preset dev >/dev/null
cmake --build --preset dev --target test_foundation >/dev/null
TOMVERA_UCCISIONI="$uccisioni" QT_QPA_PLATFORM=offscreen \
    build/dev/tests/foundation/test_foundation TestRipresaDopoCrash
