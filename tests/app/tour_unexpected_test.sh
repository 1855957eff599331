#!/bin/sh
# A box that no step expects ends in a tour that has failed and tells of it, not in one that stands for ever:
# tour_unexpected_test.sh BIN-DIRECTORY HOME WORK-DIRECTORY
set -eu
rm -rf "$3"
mkdir -m 700 "$3"
cp -r "$2" "$3/home"
echo "no database" > "$3/home/drive_c/DATABOOK/DATABOOK.MDB"
if "$1/vasclip" --home "$3/home" --socket "$3/kel.sock" --tour "$3/tour"; then
    echo "The tour ended well on a home without a Databook."
    exit 1
fi
grep 'Nobody expected this in the step "start-up": .*DATABOOK.MDB' "$3/tour/steps.txt"
test -s "$3/tour/01-not-expected.png"
