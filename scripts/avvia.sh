#!/usr/bin/env bash
# Installs what is missing, builds Tomvera and starts it on the demo hotel.
# The demo lives under $TOMVERA_HOME (default ~/tomvera-demo), made on the first start by `tomvera-cli genera-demo`;
# set TOMVERA_HOME to another folder to start elsewhere (an empty folder starts on the first-start screen's
# "Archivio non trovato" if no archive is there and TOMVERA_DEMO=0).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/dipendenze.sh
export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
cmake --preset release >/dev/null
cmake --build --preset release --target tomvera tomvera-cli
export TOMVERA_HOME="${TOMVERA_HOME:-$HOME/tomvera-demo}"
archivio="$TOMVERA_HOME/Documenti/Archivi Tomvera/Archivio.mdb"
if [ "${TOMVERA_DEMO:-1}" != "0" ] && [ ! -f "$archivio" ]; then
  mkdir -p "$(dirname "$archivio")"
  ./build/release/src/cli/tomvera-cli genera-demo --archivio "$archivio"
fi
exec ./build/release/src/app/tomvera "$@"
