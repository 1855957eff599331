#!/bin/sh
# Plays the tour on a demo home with no display, as ./run does: tour_test.sh BIN-DIRECTORY HOME PICTURES [options]
# The program itself says whether every screen came up and the saved report holds what was sent.
set -eu
bin=$1 home=$2 pictures=$3
shift 3
sockets=$(mktemp -d)
trap 'rm -rf "$sockets"' EXIT
rm -rf "$pictures"
"$bin/vasclip" --home "$home" --socket "$sockets/kel.sock" --tour "$pictures" "$@"
test -s "$pictures/report.json"
test -s "$pictures/steps.txt"
twice=$(cd "$pictures" && ls ./*.png | sed 's/^..[0-9]*-//' | sort | uniq -d)
[ -z "$twice" ] || { echo "Two pictures have one name: $twice"; exit 1; }
