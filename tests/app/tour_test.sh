#!/bin/sh
# Plays the tour on a demo home with no display, as ./run does: tour_test.sh BIN-DIRECTORY HOME PICTURES
# The program itself says whether every screen came up and the saved report holds what was sent.
set -eu
sockets=$(mktemp -d)
trap 'rm -rf "$sockets"' EXIT
rm -rf "$3"
"$1/vasclip" --home "$2" --socket "$sockets/kel.sock" --tour "$3"
test -s "$3/report.json"
test -s "$3/steps.txt"
