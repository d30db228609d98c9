#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The catalogue files against other tools: our writers and readers on 30,000 rows (release
# build, peak memory from /usr/bin/time), python3-xlwt writing the same rows, and Gnumeric's
# ssconvert turning them into a workbook. Installs xlwt and gnumeric when missing.
#   bench/catalogue.sh
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

missing=()
for pkg in python3-xlwt gnumeric time; do
    dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q "install ok installed" || missing+=("$pkg")
done
if [ ${#missing[@]} -gt 0 ]; then
    sudo=()
    [ "$(id -u)" -ne 0 ] && sudo=(sudo)
    "${sudo[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

cmake -S . -B build/bench -G Ninja -DCMAKE_BUILD_TYPE=Release -DNUBO_BUILD_TESTS=OFF >/dev/null
cmake --build build/bench --target bench_catalogue >/dev/null
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

/usr/bin/time -v -o "$work/time.txt" build/bench/bench/bench_catalogue --rows-text "$work/rows.tsv" | tee "$work/ours.txt"
peak_kb=$(awk -F': ' '/Maximum resident set size/ {print $2}' "$work/time.txt")

start=$(date +%s.%N)
/usr/bin/python3 - "$work/rows.tsv" "$work/xlwt.xls" <<'PY'
import sys, xlwt
book = xlwt.Workbook(encoding="utf-8")
sheet = book.add_sheet("Colección")
for c, caption in enumerate(["NOMBRE", "DIRECCION", "ORIGEN", "FORMATO"]):
    sheet.write(0, c, caption)
with open(sys.argv[1], encoding="utf-8") as rows:
    for r, line in enumerate(rows):
        for c, value in enumerate(line.rstrip("\n").split("\t")):
            sheet.write(r + 2, c, value)
book.save(sys.argv[2])
PY
xlwt_s=$(echo "$(date +%s.%N) - $start" | bc)

tr '\t' ',' <"$work/rows.tsv" >"$work/rows.csv"
start=$(date +%s.%N)
ssconvert --export-type=Gnumeric_Excel:excel_biff8 "$work/rows.csv" "$work/ssconvert.xls" 2>/dev/null
ssconvert_s=$(echo "$(date +%s.%N) - $start" | bc)

ours_xls=$(awk '/^lista.xls/ {print $3}' "$work/ours.txt")
printf 'python3-xlwt: write %.3f s\n' "$xlwt_s"
printf 'ssconvert (csv to xls): %.3f s\n' "$ssconvert_s"
echo "peak memory of our run: $((peak_kb / 1024)) MB (goal: under 100 MB)"
echo "workbook writer against xlwt: $(echo "scale=1; $xlwt_s / $ours_xls" | bc) times faster (goal: 5)"
echo "workbook writer against ssconvert: $(echo "scale=1; $ssconvert_s / $ours_xls" | bc) times faster"
