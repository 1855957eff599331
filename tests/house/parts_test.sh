#!/bin/bash
# How the libraries for Windows are kept, with a mirror and a compiler that are made up: parts_test.sh PROJECT
set -eu
root=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -p "$scratch"/{logs,parts,building,sources}
bad=0
expect() { # expect WHAT TEXT PATTERN
    grep -qE -- "$3" <<<"$2" || { printf '%s: no "%s" in:\n%s\n' "$1" "$3" "$2"; bad=1; }
}

# run WORLD: one run of a build of two libraries, of which the second stands on the first.
run() (
    set -eu
    cache=$scratch jobs=1 world=$1
    declare -A room_for=([upper]=300)
    . "$root/tools/windows/parts.sh"
    source_of() { echo "lib$1 1:2.${minor:-0-1}"; }
    dpkg-query() { echo 12.2; }
    dpkg-parsechangelog() { echo 1600000000; }
    room_mb() { [ "$world" = narrow ] && echo 250 || echo 9999; }
    refresh_lists() { :; }
    own_apt() {
        if [ "$1" = showsrc ]; then
            printf 'Version: %s\n' 1:1.9-9 1:2.0-1 1:2.3-1 1:2.3-2 1:2.3-2+deb12u1 1:2.4-1
            return
        fi
        [ "$2" != libupper=1:2.3-3 ] && [ "$2" != libupper=1:2.3-2+deb12u1 ] || return 100
        [ "$world" != cut-off ] || [[ "$2" != libupper* ]] || { mkdir half; echo "Hash Sum mismatch"; return 100; }
        mkdir -p source/debian && echo "terms of $2" >source/debian/copyright && touch source/debian/changelog
    }
    build_lower() {
        [ ! -f "$build/half" ] || echo "taken for done: $(cat "$build/half")"
        echo "half of it" >"$build/half"
        [ "$world" != killed ] || logged lower-build false
        logged lower-build make_up lower
    }
    build_upper() {
        [ -f "${prefix_of[lower]}/lower" ] || give_up "upper was built before lower"
        touch "$build/build.ninja"
        echo begun >>"$build/steps"
        [ "$world" != broken ] || logged upper-build false
        [ "$world" != full ] || logged upper-build eval 'echo "No space left on device"; false'
        logged upper-build make_up upper
        cp "$build/steps" "$prefix"
    }
    make_up() { mkdir -p "$prefix" && echo "$name $SOURCE_DATE_EPOCH" >"$prefix/$1"; }
    must_have lower lower
    must_have upper upper lower
    echo "stands: $(cat "${prefix_of[upper]}/.done" "${prefix_of[upper]}/licence/upper.txt" "${prefix_of[upper]}/steps")"
) 2>&1

fails() { # fails WORLD PATTERN: the run ends with words
    local said
    if said=$(run "$1"); then
        echo "the run went well in spite of: $1"
        bad=1
    fi
    expect "$1" "$said" "$2"
}

fails killed "'lower-build' failed"
[ -f "$(echo "$scratch"/building/lower-*/half)" ] || { echo "nothing was left half done"; bad=1; }
said=$(run narrow) || true
! grep 'taken for done' <<<"$said" || bad=1
fails narrow 'building upper takes 300 MB, and the disk of .* has 250 MB left'
lower=$(echo "$scratch"/parts/lower-*/.done)
[ -f "$lower" ] || { echo "the first library was not kept"; bad=1; }
touch -d @1 "$lower"
fails cut-off 'could not be downloaded whole'
[ -z "$(find "$scratch/sources" -name half)" ] || { echo "half a download stayed"; bad=1; }
fails broken "'upper-build' failed; all that it said is in"
fails full 'the disk of .* is full'
said=$(run good)
expect "the next run goes on" "$said" 'stands: libupper 1:2.0-1'
expect "the terms come along" "$said" 'terms of libupper=1:2.0-1'
[ "$(grep -c begun <<<"$said")" -eq 3 ] ||
    { echo "the run after a failure began anew instead of going on: $said"; bad=1; }
[ "$(stat -c %Y "$lower")" -eq 1 ] || { echo "the first library was built again"; bad=1; }
[ -z "$(find "$scratch/building" "$scratch/sources" -mindepth 1)" ] || { echo "work was left behind"; bad=1; }
said=$(minor=1-1 run good)
expect "a newer version is built beside" "$said" 'stands: libupper 1:2.1-1'
said=$(minor=3-3 run good)
expect "a version that the mirror lost" "$said" 'libupper 1:2.3-3 can.t be downloaded; 1:2.3-2 is taken'
expect "what it was made of" "$said" 'stands: libupper 1:2.3-2$'
[ "$(ls -d "$scratch"/parts/upper-* | wc -l)" -eq 3 ] || { echo "the older version is gone"; bad=1; }
exit $bad
