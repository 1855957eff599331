# The folder that goes to a user, the zip file of it, and the installer. Sourced by tools/windows/build.

out=$root/out/windows
version=$(sed -n 's/^project(Vasclip VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)

pack() {
    local folder=$out/Vasclip zip=$out/vasclip-$version-windows.zip setup=$out/vasclip-$version-setup.exe
    say "the folder"
    rm -rf "$folder"
    mkdir -p "$folder"
    cp "$programs"/bin/{vasclip,vasctl,kelforms,vasclip-demo}.exe "$folder"
    [ ! -f "$programs/bin/vasclip-mapdata.exe" ] || cp "$programs/bin/vasclip-mapdata.exe" "$folder"
    cp -r "$programs/bin/arrows" "$programs/bin/demo-map" "$folder"
    gather "$folder"
    find "$folder" \( -name '*.exe' -o -name '*.dll' \) -exec "$host-strip" {} +
    cp "$programs/vasclip.ico" "$folder"
    sed "s/@VERSION@/$version/;s/\$/\r/" tools/windows/readme.txt >"$folder/README.txt"
    sed 's/$/\r/' tools/windows/demo.cmd >"$folder/demo.cmd"
    licences "$folder/licences"
    check_folder "$folder"
    find "$folder" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +

    say "the zip file"
    rm -f "$zip"
    (cd "$out" && find Vasclip -type f | sort | zip -q -X -9 -@ "$zip")

    say "the installer"
    (cd "$folder" && find . -type f -printf '%P\n' | sort) | "$root/tools/windows/file-list" >"$cache/vasclip/files.nsh"
    logged installer makensis -V2 -INPUTCHARSET UTF8 "-DVERSION=$version" "-DFOLDER=$folder" "-DFILES=$cache/vasclip/files.nsh" \
        "-DSIZE_KB=$(du -sk "$folder" | cut -f 1)" "-DSETUP=$setup" tools/windows/installer.nsi
    touch -d "@$SOURCE_DATE_EPOCH" "$zip" "$setup"
    say "done: $(du -sh "$folder" | cut -f 1) in $folder"
    du -h "$zip" "$setup"
}

# What each part may be used under, and where its source is.
licences() {
    local to=$1 name
    mkdir -p "$to"
    {
        echo "Vasclip is made with these parts, each under the terms in the file of its name. They are unchanged, but for"
        echo "Qt, where the pens of graphics tablets were left out. Their sources: apt-get source NAME=VERSION on Debian,"
        echo "or https://snapshot.debian.org."
        echo
        for name in "${!prefix_of[@]}"; do
            [ "$name" = gtest ] || printf '%-16s %s\n' "$name" "$(cat "${prefix_of[$name]}/.done")"
        done | sort
        printf '%-16s %s\n' gcc "$(source_of "g++-mingw-w64-x86-64-posix")" mingw-w64 "$(source_of mingw-w64-x86-64-dev)"
    } | sed 's/$/\r/' >"$to/PARTS.txt"
    for name in "${!prefix_of[@]}"; do
        [ "$name" = gtest ] || sed 's/$/\r/' "${prefix_of[$name]}/licence/$name.txt" >"$to/$name.txt"
    done
    sed 's/$/\r/' /usr/share/doc/gcc-mingw-w64-base/copyright >"$to/gcc.txt"
    sed 's/$/\r/' /usr/share/doc/mingw-w64-common/copyright >"$to/mingw-w64.txt"
    for name in GPL-2 GPL-3 LGPL-2.1 LGPL-3; do
        sed 's/$/\r/' "/usr/share/common-licenses/$name" >"$to/$name.txt"
    done
}

# check_folder FOLDER: every library that a file of it loads is in it or is the system's own.
check_folder() {
    local own='^(kernel32|user32|gdi32|advapi32|shell32|ole32|oleaut32|comdlg32|comctl32|ws2_32|winmm|version|netapi32|userenv|mpr|imm32|dwmapi|uxtheme|setupapi|shlwapi|shcore|winspool\.drv|dwrite|d2d1|d3d11|d3d12|d3d9|dxgi|dxva2|dcomp|authz|bcrypt|ncrypt|crypt32|secur32|iphlpapi|dnsapi|winhttp|rpcrt4|msvcrt|wtsapi32|ntdll|opengl32|cfgmgr32|usp10|propsys|psapi|api-ms-.*|runtimeobject|ddraw|wldap32|dbghelp|synchronization|wintrust|normaliz)(\.dll)?$'
    local missing
    missing=$(find "$1" \( -name '*.exe' -o -name '*.dll' \) -exec "$host-objdump" -p {} + |
        sed -n 's/^.*DLL Name: //p' | tr 'A-Z' 'a-z' | sort -u | grep -Ev "$own" |
        while read -r name; do
            [ -n "$(find "$1" -iname "$name")" ] || echo "$name"
        done)
    [ -z "$missing" ] || give_up "the folder lacks what its programs load:" $missing
}
