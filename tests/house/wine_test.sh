#!/bin/bash
# What tools/windows/test says where there is no Wine, an old one, or one that does not start: wine_test.sh PROJECT
set -eu
root=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -p "$scratch"/{programs,logs,bin}
for tool in bash sed tail head date mktemp mkdir rm touch cat; do
    ln -s "$(command -v "$tool")" "$scratch/programs/$tool"
done
bad=0

# wine WORDS...: the script of a Wine that is made up; none: there is no Wine
wine() {
    rm -f "$scratch"/programs/wine*
    [ $# -eq 0 ] || printf '#!/bin/bash\n%s\n' "$*" >"$scratch/programs/wine"
    [ $# -eq 0 ] || chmod +x "$scratch/programs/wine"
}

refuses() { # refuses WHAT PATTERN
    local said code=0
    said=$(PATH=$scratch/programs cache=$scratch bin=$scratch/bin bash -euo pipefail -c '. "$1"; start_wine; echo went on' x \
        "$root/tools/windows/wine.sh" 2>&1) || code=$?
    [ "$code" -eq 1 ] || { echo "$1: exit code $code"; bad=1; }
    grep -qE -- "$2" <<<"$said" || { printf '%s: no "%s" in:\n%s\n' "$1" "$2" "$said"; bad=1; }
    grep -q 'Nothing was tested' <<<"$said" || { echo "$1: it does not say that nothing was tested"; bad=1; }
    [ ! -e "$scratch/wine/.made" ] || { echo "$1: a directory of Wine was made"; bad=1; }
}

wine
refuses "no Wine" 'Wine is missing: apt-get install wine wine64'
wine 'echo "wine-6.0.3 (Debian 6.0.3~repack-1)"'
refuses "an old Wine" 'this is wine-6.0.3 .*, and version 8 or newer is needed'
wine 'echo "wine: could not load kernel32.dll, status c0000135" >&2; exit 53'
refuses "a Wine that does not start" 'Wine does not start: wine: could not load kernel32.dll'
wine '[ "$1" != --version ] || echo wine-10.1'
printf '#!/bin/bash\necho "it is broken" >&2; exit 1\n' >"$scratch/programs/wineboot"
chmod +x "$scratch/programs/wineboot"
refuses "a Wine that makes no directory" "Wine can't make its directory; see .*wineboot.log"
grep -q 'it is broken' "$scratch/logs/wineboot.log" || { echo "what Wine said is not kept"; bad=1; }

# One whose console nobody ends: it is ended, and what follows starts another.
cat >"$scratch/programs/wineserver" <<END
#!/bin/bash
case \$1 in
-k) touch "$scratch/ended" ;;
-w) while [ ! -e "$scratch/ended" ]; do sleep 0.1; done ;;
esac
END
chmod +x "$scratch/programs/wineserver"
for tool in sleep timeout; do
    ln -s "$(command -v "$tool")" "$scratch/programs/$tool"
done
said=$(PATH=$scratch/programs cache=$scratch timeout 30 bash -euo pipefail -c '. "$1"; rest 1; echo went on' x \
    "$root/tools/windows/wine.sh") || true
[ "$said" = "went on" ] || { echo "a Wine that never rests holds everything up"; bad=1; }
exit $bad
