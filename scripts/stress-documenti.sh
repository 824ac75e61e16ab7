#!/usr/bin/env bash
# Four desks saving new invoices of one numbering line at the same moment.
# Starts 4 processes that each save 250 new documents through "tomvera-cli documento-registra" (two save
# "Fattura", two "Fattura Accompagnatoria": one group, one line of numbers), then checks that the archive holds
# 1,000 documents numbered 1..1,000 with no gap, no duplicate and no failed save.
#
# Usage: scripts/stress-documenti.sh [PATH_TO_TOMVERA_CLI]   (default: build/release, else build/dev)
# Needs the sqlite3 shell to read the archive afterwards. Exit 0 when every check holds.
set -euo pipefail

radice=$(cd "$(dirname "$0")/.." && pwd)
cli=${1:-}
if [[ -z "$cli" ]]; then
    for c in "$radice/build/release/src/cli/tomvera-cli" "$radice/build/dev/src/cli/tomvera-cli"; do
        if [[ -x "$c" ]]; then cli=$c; break; fi
    done
fi
[[ -x "$cli" ]] || { echo "tomvera-cli non trovato: compilare prima (cmake --build --preset release)" >&2; exit 2; }
command -v sqlite3 >/dev/null || { echo "serve il comando sqlite3" >&2; exit 2; }

processi=4
perProcesso=250
cartella=$(mktemp -d)
trap 'rm -rf "$cartella"' EXIT
archivio="$cartella/Archivio.mdb"

"$cli" crea-archivio --archivio "$archivio" >/dev/null
sqlite3 "$archivio" <<'SQL'
INSERT INTO Configurazioni (RagSociale, ValIva0, ValIva1, ValIva2) VALUES ('Hotel', 0, 10, 22);
INSERT INTO TabellaDocumenti (TipoDoc, IndiceGruppo, Gruppo) VALUES ('Fattura', 1, 'Fatturazione'),
    ('Fattura Accompagnatoria', 2, 'Fatturazione');
INSERT INTO TabellaPagamenti (DescrizionePagamento, NumeroDiRate, DecorrenzaRate, MesiTraRate, MesiDaPrimaRata,
    RipartizioneIva) VALUES ('Tre rate', 3, 'Fine mese data fattura', 1, 1, 'Iva su tutte le rate');
SQL

righe=$'2;110;10;;Camera doppia\n1;12,50;22;;Colazione\n1;5;10;10;Parcheggio\n'

desk() {
    local n=$1 tipo=$2 falliti=0
    for ((i = 1; i <= perProcesso; i++)); do
        if ! printf '%s' "$righe" | "$cli" documento-registra --archivio "$archivio" --tipo "$tipo" \
            --data 15/06/2026 --pagamento "Tre rate" >>"$cartella/uscita.$n" 2>>"$cartella/errori.$n"; then
            falliti=$((falliti + 1))
        fi
    done
    echo "$falliti" >"$cartella/falliti.$n"
}

inizio=$(date +%s.%N)
for ((p = 1; p <= processi; p++)); do
    if ((p % 2)); then tipo="Fattura"; else tipo="Fattura Accompagnatoria"; fi
    desk "$p" "$tipo" &
done
wait
fine=$(date +%s.%N)

falliti=$(cat "$cartella"/falliti.* | paste -sd+ | bc)
documenti=$(sqlite3 "$archivio" "SELECT count(*) FROM Testate")
distinti=$(sqlite3 "$archivio" "SELECT count(DISTINCT NroDoc) FROM Testate")
minimo=$(sqlite3 "$archivio" "SELECT min(NroDoc) FROM Testate")
massimo=$(sqlite3 "$archivio" "SELECT max(NroDoc) FROM Testate")
rate=$(sqlite3 "$archivio" "SELECT count(*) FROM Pagamenti")
stampati=$(cat "$cartella"/uscita.* | wc -l)
attesi=$((processi * perProcesso))
secondi=$(echo "$fine - $inizio" | bc)

echo "processi: $processi x $perProcesso salvataggi in $secondi s"
echo "documenti: $documenti (numeri distinti $distinti, da $minimo a $massimo), rate: $rate, falliti: $falliti"
if [[ "$falliti" -ne 0 ]]; then
    echo "errori:" >&2
    sort "$cartella"/errori.* | uniq -c >&2
fi
if [[ "$documenti" -eq "$attesi" && "$distinti" -eq "$attesi" && "$minimo" -eq 1 && "$massimo" -eq "$attesi" \
      && "$falliti" -eq 0 && "$stampati" -eq "$attesi" && "$rate" -eq $((3 * attesi)) ]]; then
    echo "OK: $attesi documenti numerati 1..$attesi, nessun buco, nessun doppione, nessun salvataggio fallito"
else
    echo "ERRORE: la numerazione non regge il carico" >&2
    exit 1
fi
