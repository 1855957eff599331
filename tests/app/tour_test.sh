#!/bin/sh
# Plays the tour on a demo home with no display, as ./run does: tour_test.sh BIN-DIRECTORY HOME PICTURES [options]
# The program itself says whether every screen came up and the saved report holds what was sent.
set -eu
bin=$1 home=$2 pictures=$3
shift 3
sockets=$(mktemp -d)
trap 'rm -rf "$sockets"' EXIT
if [ -n "${VASCLIP_TOUR_THEME:-}" ]; then # 1 light, 2 dark
    printf '[view]\ntheme=%s\n' "$VASCLIP_TOUR_THEME" > "$home/window.ini"
    trap 'rm -rf "$sockets" "$home/window.ini"' EXIT
fi
rm -rf "$pictures"
"$bin/vasclip" --home "$home" --socket "$sockets/kel.sock" --tour "$pictures" "$@"
test -s "$pictures/report.json"
test -s "$pictures/steps.txt"
twice=$(cd "$pictures" && ls ./*.png | sed 's/^..[0-9]*-//' | sort | uniq -d)
[ -z "$twice" ] || { echo "Two pictures have one name: $twice"; exit 1; }
# Every picture of the guide is one of the tour's.
guide=$(dirname "$0")/../../docs/guide
for name in $(grep -oh '(images/[a-z0-9-]*\.png)' "$guide"/*.md | sed 's#(images/\(.*\)\.png)#\1#' | sort -u); do
    ls "$pictures"/[0-9][0-9]-"$name".png > /dev/null || { echo "The tour takes no picture $name."; exit 1; }
done
