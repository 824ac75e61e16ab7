#!/usr/bin/env bash
# Proves the install list of scripts/dipendenze.sh complete: every file the configure step loads or finds
# outside the source tree (CMake package configurations, find modules, headers and libraries in the cache)
# must belong to a package that the list pulls in without recommends. A machine with more installed than the
# list says would otherwise hide a missing package.
# Usage: scripts/controlla-dipendenze.sh [--senza PACCHETTO]   (--senza: check as if the list lacked it)
set -euo pipefail
cd "$(dirname "$0")/.."

senza=""
if [ "${1:-}" = "--senza" ]; then senza="${2:?manca il pacchetto}"; fi

mapfile -t elenco < <(bash scripts/dipendenze.sh --elenco | grep -vx -- "$senza")

lavoro="$(mktemp -d)"
trap 'rm -rf "$lavoro"' EXIT

# What the list pulls in, without recommends.
apt-cache depends --recurse --no-recommends --no-suggests --no-conflicts --no-breaks --no-replaces \
  --no-enhances "${elenco[@]}" 2>/dev/null |
  sed -n 's/^\([^ <][^ ]*\)$/\1/p; s/^ *[|]*\(Pre\)\?Depends: \([^<>]*\)$/\2/p' |
  sed 's/:.*$//' | sort -u >"$lavoro/tirati"

# What configuring loads (every CMake file it runs) and what the build then uses (every header folder and
# library named in build.ninja). Optional finds that no target uses are left out.
cmake -S . -B "$lavoro/build" -G Ninja -DTOMVERA_BENCHMARKS=ON --trace-format=json-v1 \
  --trace-redirect="$lavoro/traccia.json" >/dev/null
{
  grep -o '"file":"[^"]*"' "$lavoro/traccia.json" | sed 's/^"file":"//; s/"$//'
  grep -oE '(-isystem |-I)?/(usr|lib)/[^ "$:]+' "$lavoro/build/build.ninja" | sed -E 's/^(-isystem |-I)//'
} | grep -E '^/(usr|lib|etc)/' | grep -v '^/usr/share/cmake-[0-9.]*/' | sort -u >"$lavoro/file"

# Owners of every file in one dpkg call (lines "pkg1, pkg2: /path"); a path dpkg does not know is retried
# through its real path and its merged-/usr spelling.
dpkg -S $(cat "$lavoro/file") 2>/dev/null >"$lavoro/proprietari" || true
while IFS= read -r f; do
  if ! grep -q ": $f\$" "$lavoro/proprietari"; then
    for r in "$(readlink -f "$f")" "${f#/usr}"; do
      if dpkg -S "$r" 2>/dev/null | sed "s|: .*|: $f|" >>"$lavoro/proprietari"; then break; fi
    done
  fi
done <"$lavoro/file"

mancanti=0
while IFS= read -r riga; do
  f="${riga#*: }"
  owners="${riga%%: *}"
  # A folder may have several owners; one pulled in by the list is enough.
  ok=0
  for q in ${owners//,/ }; do
    if grep -qx "${q%%:*}" "$lavoro/tirati"; then ok=1; fi
  done
  if [ "$ok" -eq 0 ]; then
    echo "Pacchetto mancante nell'elenco di scripts/dipendenze.sh: ${owners} (per $f)" >&2
    mancanti=1
  fi
done < <(grep -v '^diversion ' "$lavoro/proprietari")

if [ "$mancanti" -ne 0 ]; then exit 1; fi
echo "Elenco dei pacchetti completo: $(wc -l <"$lavoro/file") file e cartelle della configurazione coperti."
