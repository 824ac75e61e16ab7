#!/usr/bin/env bash
# Installs the Debian packages needed to build and test Tomvera, only those that are missing.
# With --elenco it only prints the list, one package a line (the CI check of the list reads it).
set -euo pipefail

pacchetti=(
  cmake ninja-build g++ ccache pkg-config
  qt6-base-dev libqt6sql6-sqlite libqt6opengl6-dev qt6-serialport-dev qt6-charts-dev qt6-svg-dev libgl-dev
  libsqlite3-dev libfreexl-dev libbenchmark-dev
)

if [ "${1:-}" = "--elenco" ]; then
  printf '%s\n' "${pacchetti[@]}"
  exit 0
fi

mancanti=()
for p in "${pacchetti[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    mancanti+=("$p")
  fi
done

if [ ${#mancanti[@]} -gt 0 ]; then
  echo "Installo: ${mancanti[*]}"
  sudo_cmd=()
  if [ "$(id -u)" -ne 0 ]; then sudo_cmd=(sudo); fi
  "${sudo_cmd[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
  "${sudo_cmd[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${mancanti[@]}"
fi
