#!/bin/bash
# Every shell script is whole, and what builds the libraries for Windows knows how to build each: scripts_test.sh PROJECT
set -eu
cd "$1"
bad=0
while read -r script; do
    bash -n "$script" || bad=1
done < <(grep -rlE '^#!.*\b(ba)?sh\b' run test .ci tools tests --include='*' -m 1; ls tools/windows/*.sh tools/setup.sh)
for name in $(sed -n 's/^\(must_have\|part\) \([a-z0-9]*\) .*/\2/p' tools/windows/build); do
    grep -q "^build_$name()" tools/windows/libraries.sh || { echo "nothing builds $name"; bad=1; }
done
for list in packages.txt tools/windows/packages.txt; do
    ! grep -nvE '^(#.*|[a-z0-9][a-z0-9+.-]*)$' "$list" || { echo "$list: not one package a line"; bad=1; }
done
exit $bad
