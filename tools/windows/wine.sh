# Wine with a directory of its own. Sourced by tools/windows/test, which sets `cache`.

export WINEPREFIX=$cache/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=" LC_ALL=C.UTF-8
unset DISPLAY WAYLAND_DISPLAY

wine_fails() {
    printf 'tools/windows/test: %s\n' "$@" >&2
    exit 1
}

# Wine 8 is Debian 12's; an older one has no UTF-8 for programs that ask for it.
start_wine() {
    local version
    command -v wine >/dev/null || wine_fails "Wine is missing: apt-get install wine wine64. Nothing was tested."
    version=$(wine --version 2>/dev/null | sed -n 's/^wine-\([0-9]*\).*/\1/p') || true
    [ -n "$version" ] || wine_fails "Wine does not start: $(wine --version 2>&1 | tail -n 1)" "Nothing was tested."
    [ "$version" -ge 8 ] || wine_fails "this is $(wine --version), and version 8 or newer is needed. Nothing was tested."
    if [ ! -f "$WINEPREFIX/.made-with-letters" ]; then
        rm -rf "$WINEPREFIX"
        wineboot -i >"$cache/logs/wineboot.log" 2>&1 ||
            wine_fails "Wine can't make its directory; see $cache/logs/wineboot.log." "Nothing was tested."
        # The letters of Windows are not here, and Wine would take those of a book; these are as wide as theirs or wider.
        local letters
        for letters in 'Segoe UI' 'MS Shell Dlg' 'MS Shell Dlg 2' Tahoma; do
            wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$letters" /d 'DejaVu Sans' /f >/dev/null 2>&1
        done
        wineserver -w
        touch "$WINEPREFIX/.made-with-letters"
    fi
    scratch=$(mktemp -d "$([ -d /dev/shm ] && echo /dev/shm || echo /tmp)/vasclip-wine.XXXXXX")
    trap 'wineserver -k 2>/dev/null || true; rm -rf "$scratch"' EXIT
    environment TEMP "Z:${scratch//\//\\}"
    environment TMP "Z:${scratch//\//\\}"
    # A test that makes no application has no directory of it to find Qt's plugins in; offscreen there are only these letters.
    environment QT_PLUGIN_PATH "Z:${bin//\//\\}"
    environment QT_QPA_FONTDIR 'Z:\usr\share\fonts\truetype\dejavu'
}

# environment NAME [VALUE]: for the programs that are started next. Wine passes on no QT_ variable of its caller.
environment() {
    if [ $# -eq 2 ]; then
        wine reg add 'HKCU\Environment' /v "$1" /d "$2" /f
    else
        wine reg delete 'HKCU\Environment' /v "$1" /f
    fi >/dev/null 2>&1 || true
}

# The next program starts Wine anew. A test that kills a program leaves the console that came with it, which never ends.
rest() { # rest [SECONDS]
    timeout "${1:-20}" wineserver -w || {
        wineserver -k || true
        wineserver -w
    }
}

# A program without a screen, or with one that nobody sees. Without one Wine still has windows, which the exchange needs.
offscreen() {
    [ "${shown:-}" = no ] && return
    environment QT_QPA_PLATFORM offscreen
    wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1
    rest # what was started before knows no windows
    shown=no
}
on_screen() {
    if [ "${shown:-}" != yes ]; then
        environment QT_QPA_PLATFORM
        wine reg delete 'HKCU\Software\Wine\Drivers' /v Graphics /f >/dev/null 2>&1 || true
    fi
    shown=yes
    rest # it would go on with the display it knows
    xvfb-run -a -s "-screen 0 ${SCREEN:-1600x1000}x24" "$root/tools/windows/with-manager" "$@"
}

# looks PERCENT light|dark: how the user has set up the screen, for the programs that are started next.
looks() {
    wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d $((96 * $1 / 100)) /f >/dev/null 2>&1
    wine reg add 'HKCU\Software\Microsoft\Windows\CurrentVersion\Themes\Personalize' /v AppsUseLightTheme /t REG_DWORD \
        /d "$([ "$2" = light ] && echo 1 || echo 0)" /f >/dev/null 2>&1
    rest # which reads the first at its start
}
