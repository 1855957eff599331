#!/bin/sh
# The tour changes records: on a home that vasclip-demo did not make it does not begin.
# tour_foreign_test.sh BIN-DIRECTORY DEMO-HOME WORK-DIRECTORY
set -eu
rm -rf "$3"
mkdir -m 700 "$3"
cp -r "$2" "$3/home"
rm "$3/home/demo-home.txt"
before=$(cd "$3/home" && find . -type f -exec cksum {} + | sort)
code=0
"$1/vasclip" --home "$3/home" --socket "$3/kel.sock" --tour "$3/tour" 2> "$3/said" || code=$?
cat "$3/said"
[ "$code" -eq 2 ]
grep -q "plays on a demo home alone, and $3/home is none" "$3/said"
[ ! -e "$3/tour" ]
[ "$(cd "$3/home" && find . -type f -exec cksum {} + | sort)" = "$before" ]
