# The installer, and a drive of what it installed, under Wine. Sourced by tools/windows/test.

installed='C:\Programs\Vasclip'
uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Vasclip'

unix_path() { winepath -u "$1" 2>/dev/null; }
registered() { wine reg query "$@" >/dev/null 2>&1; }
# wrong WORDS: notes what is not as it should be; `bad` is installer's.
wrong() {
    echo "  FAILED  $*"
    bad=1
}

# answers CODE WORDS OPTION...: a silent run of the installer ends so, and says so.
answers() {
    local wanted=$1 words=$2 code=0
    shift 2
    rm -f "$scratch/vasclip-setup.txt"
    wine "$setup" /S "$@" >>"$log" 2>&1 || code=$?
    [ "$code" -eq "$wanted" ] || wrong "the installer ended with $code, not $wanted ($*)"
    [ -z "$words" ] || grep -q "$words" "$scratch/vasclip-setup.txt" || wrong "the installer did not say \"$words\" ($*)"
}

installer() {
    local setup log=$results/installer.log bad=0 place links
    setup=$(ls -t "$out"/vasclip-*-setup.exe 2>/dev/null | head -n 1)
    [ -n "$setup" ] || { echo "installer: there is none in $out"; return 1; }
    echo "installer: ${setup##*/}"
    : >"$log"
    offscreen
    place=$(unix_path 'C:\Programs')/Vasclip
    links=$(unix_path 'C:\users')/$(whoami)/AppData/Roaming/Microsoft/Windows/Start\ Menu/Programs/Vasclip

    rm -rf "$place" # of a run that was stopped
    answers 0 '' "/D=$installed"
    diff <(cd "$out/Vasclip" && find . -type f | sort) <(cd "$place" && find . -type f ! -name uninstall.exe | sort) ||
        wrong "what was installed is not what was packed"
    registered "$uninstall_key" /v DisplayVersion || wrong "Windows does not know of it"
    registered 'HKCU\Software\Classes\Vasclip.Report\shell\open\command' || wrong "report files are not registered"
    [ "$(find "$links" -name '*.lnk' | wc -l)" -eq 3 ] || wrong "there are no three entries in the start menu"

    answers 12 'Nothing can be written' '/D=Z:\proc\Vasclip'
    wine reg add "$uninstall_key" /v DisplayVersion /d 99.0.0 /f >>"$log" 2>&1
    answers 11 'Vasclip 99.0.0 is installed, which is newer' "/D=$installed"
    wine reg add "$uninstall_key" /v DisplayVersion /d 0.0.1 /f >>"$log" 2>&1
    runs_meanwhile
    echo "left from an older one" >"$place/PARTS.txt" # the user's own, as far as the installer knows
    answers 0 '' "/D=$installed"
    [ -s "$place/vasclip.exe" ] || wrong "nothing was installed over the older one"

    drive || bad=1

    wine "$installed\\uninstall.exe" /S >>"$log" 2>&1 || wrong "the uninstaller ended with $?"
    wait_for gone "$place/vasclip.exe" || wrong "the program is still there"
    wait_for gone "$place/uninstall.exe" || wrong "the uninstaller is still there"
    [ "$(ls "$place" 2>/dev/null)" = PARTS.txt ] || wrong "there stayed in $place: $(ls "$place")"
    rm -f "$place/PARTS.txt"
    ! registered "$uninstall_key" || wrong "Windows still lists it"
    ! registered 'HKCU\Software\Classes\Vasclip.Report' || wrong "report files are still registered"
    [ ! -e "$links" ] || wrong "the start menu still has it"
    [ -s "$(unix_path 'C:\Vasclip drive')/drive_c/DATABOOK/DATABOOK.MDB" ] || wrong "the user's Databook is gone"
    [ "$bad" -eq 0 ] && echo "  installed, refused, driven and uninstalled"
}

gone() { [ ! -e "$1" ]; }
wait_for() {
    local tries
    for ((tries = 0; tries < 300; ++tries)); do
        "$@" && return
        sleep 0.2
    done
    return 1
}

# An installer over a program that runs changes nothing.
runs_meanwhile() {
    local forms
    mkdir -p "$(unix_path 'C:\')/Vasclip busy"
    : >"$results/busy.log" # an earlier run's says that it listens
    wine "$installed\\kelforms.exe" --headless --home 'C:\Vasclip busy' >"$results/busy.log" 2>&1 &
    forms=$!
    wait_for grep -q listening "$results/busy.log" || wrong "kelforms.exe did not start; see $results/busy.log"
    answers 10 'kelforms.exe is running' "/D=$installed"
    [ -s "$place/vasclip.exe" ] || wrong "the installer took a program away that runs"
    wine taskkill /F /IM kelforms.exe >>"$log" 2>&1 || true
    wait "$forms" 2>/dev/null || true
}

# send VASCTL HOME: three comps with their pictures go into the open report.
send() {
    local program=$1 home=$2 key number=0
    while IFS= read -r key; do
        number=$((number + 1))
        $program --home "$home" --yes drop "$key" --on "txtComp:$number" || return
    done <<<"$keys"
}

# Three comps with photos by the installed programs here, over the socket and over the desktop's own exchange, and by those for
# Linux; the saved reports are compared value for value.
drive() {
    local linux=build/release/bin keys forms way
    vasclip_build release vasctl kelforms vasclip-demo >"$results/linux-build.log" 2>&1 || { wrong "see $results/linux-build.log"; return 1; }
    here=$scratch/linux-home
    "$linux/vasclip-demo" --home "$here" >>"$log" 2>&1
    keys=$("$linux/vasctl" --home "$here" --json records list --where "APPRSLTYPE = 'F' AND FRONT <> ''" --limit 3 |
        python3 -c 'import json, sys; [print(row["CENTRALKEY"]) for row in json.load(sys.stdin)]')
    [ "$(wc -l <<<"$keys")" -eq 3 ] || { wrong "the demo has no three comps with photos"; return 1; }
    : >"$results/linux-forms.log" # an earlier run's says that it listens
    "$linux/kelforms" --headless --home "$here" --save-on-exit 'C:\KEL\DATA\LAUREL.RPT' >"$results/linux-forms.log" 2>&1 &
    forms=$!
    wait_for grep -q listening "$results/linux-forms.log" || wrong "kelforms did not start; see $results/linux-forms.log"
    send "$linux/vasctl" "$here" >>"$log" 2>&1 || wrong "the drops on Linux failed"
    kill "$forms" && wait "$forms" || true
    for way in Socket DDE; do
        drive_over "$way"
    done
    [ "$bad" -eq 0 ]
}

# drive_over WAY: Socket or DDE, as KEL.INI names them. Over DDE the forms program's socket has another name than Vasclip looks
# for, so that nothing can come that way.
drive_over() {
    local way=$1 home='C:\Vasclip drive' elsewhere=
    native=$(unix_path 'C:\')/"Vasclip drive"
    rm -rf "$native"
    wine "$installed\\vasclip-demo.exe" --home "$home" >>"$log" 2>&1 || { wrong "the demo home was not made"; return; }
    printf '\r\n[LINK]\r\nExchange=%s\r\n' "$way" >>"$native/drive_c/APPRAISE/KEL.INI"
    [ "$way" = Socket ] || elsewhere='--socket elsewhere'
    on_screen timeout 600 bash -c "wine '$installed\\kelforms.exe' --home '$home' $elsewhere --save-on-exit 'C:\\KEL\\DATA\\LAUREL.RPT' &
        for try in {1..60}; do wine '$installed\\vasctl.exe' --home '$home' report status && break; sleep 1; done
        $(declare -f send); keys='${keys//\'/}'
        send \"wine $installed\\\\vasctl.exe\" '$home' || echo DROPS-FAILED
        timeout 60 wine '$installed\\vasclip.exe' --home '$home' --quit-when-painted || echo NO-WINDOW
        wine taskkill /IM kelforms.exe; wait" >"$results/drive-$way.log" 2>&1
    offscreen
    ! grep -qE 'DROPS-FAILED|NO-WINDOW' "$results/drive-$way.log" || wrong "the drops or the window failed over $way; see $results/drive-$way.log"
    same_report "$here/drive_c/KEL/DATA/LAUREL.RPT" "$native/drive_c/KEL/DATA/LAUREL.RPT" "$way" || wrong "the saved reports differ over $way"
}

# same_report LINUX WINDOWS WAY
same_report() {
    python3 - "$@" <<'EOF'
import json, sys
linux, windows = (json.load(open(name, encoding="utf-8")) for name in sys.argv[1:3])
differ = 0
for part in sorted(set(linux) | set(windows)):
    a, b = linux.get(part), windows.get(part)
    if isinstance(a, dict) and isinstance(b, dict):
        for key in sorted(set(a) | set(b)):
            if a.get(key) != b.get(key):
                differ += 1
                print(f"  {part} {key}: Linux '{a.get(key)}', Windows '{b.get(key)}'")
    elif a != b:
        differ += 1
        print(f"  {part}: Linux '{a}', Windows '{b}'")
cells = len(linux.get("cells", {}))
print(f"  over {sys.argv[3]}: {cells} cells and {len(linux.get('images', {}))} pictures in both reports, {differ} differ")
sys.exit(1 if differ or not cells else 0)
EOF
}
