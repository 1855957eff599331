# Vasclip's own programs and tests for Windows, in a directory they can be started in. Sourced by tools/windows/build.

programs=$cache/vasclip/windows # the build directory; programs and tests come to stand in bin

# of_this_clone DIRECTORY: what was built from another clone is built anew.
of_this_clone() {
    [ ! -f "$1/CMakeCache.txt" ] || grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$1/CMakeCache.txt" || rm -rf "$1"
}

build_programs() {
    local paths
    need_room 1500 "building the programs"
    of_this_clone "$cache/vasclip/here"
    of_this_clone "$programs"
    # Icon and bitmaps are drawn while building, and the demo's street map is made, by programs of this machine.
    say "what draws, and what makes the demo's map, for this machine"
    logged here-configure cmake -G Ninja -S . -B "$cache/vasclip/here" -DCMAKE_BUILD_TYPE=Release -DVASCLIP_TESTS=OFF \
        -DVASCLIP_BENCH=OFF
    logged here-build cmake --build "$cache/vasclip/here" -j "$jobs" --target vasclip-artwork vasclip-demo
    logged demo-home "$cache/vasclip/here/bin/vasclip-demo" --home "$cache/vasclip/demo-home" --comps 6 --force

    say "Vasclip for Windows"
    paths=$(IFS=';' && echo "${prefix_of[*]}")
    PKG_CONFIG_LIBDIR=$(printf '%s/lib/pkgconfig:' "${prefix_of[@]}")
    export PKG_CONFIG_LIBDIR
    logged programs-configure cmake -G Ninja -S . -B "$programs" "-DCMAKE_TOOLCHAIN_FILE=$toolchain" \
        -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_FLAGS_RELEASE=-O2 -DNDEBUG" "-DCMAKE_PREFIX_PATH=$paths" "${host_qt[@]}" \
        -DVASCLIP_BENCH=ON "-DVASCLIP_ARTWORK=$cache/vasclip/here/bin/vasclip-artwork" \
        "-DCMAKE_CXX_FLAGS=-ffile-prefix-map=$root=. -ffile-prefix-map=$cache=."
    logged programs-build cmake --build "$programs" -j "$jobs" --target vasclip vasctl kelforms vasclip-demo artwork \
        vasclip-iconengine
    [ -n "${prefix_of[gdal]:-}" ] || say "GDAL is not built for Windows, so there is no vasclip-mapdata.exe: maps are made on Linux"
    rm -rf "$programs/bin/demo-map"
    cp -r "$(find "$cache/vasclip/demo-home/drive_c" -name '*-demo.cel' -printf '%h\n' | head -n 1)" "$programs/bin/demo-map"
    gather "$programs/bin"
}

build_tests() {
    say "the tests for Windows"
    logged tests-build cmake --build "$programs" -j "$jobs"
    cp -u "${prefix_of[qt]}/bin/Qt6Test.dll" "${prefix_of[heif]}/bin/libheif.dll" "$programs/bin"
}

# gather DIRECTORY: puts what the programs load beside them.
gather() {
    local to=$1 runtime
    runtime=$(dirname "$("$host-g++-posix" -print-file-name=libstdc++-6.dll)")
    mkdir -p "$to"/{platforms,imageformats,styles,iconengines}
    cp -u "${prefix_of[qt]}"/bin/Qt6{Core,Gui,Widgets,Network,PrintSupport}.dll "$to"
    cp -u "${prefix_of[qt]}"/plugins/platforms/q{windows,offscreen}.dll "$to/platforms"
    cp -u "${prefix_of[qt]}"/plugins/imageformats/q{jpeg,ico,gif}.dll "$to/imageformats"
    cp -u "${prefix_of[qt]}"/plugins/styles/*.dll "$to/styles"
    if [ -n "${prefix_of[qtsvg]:-}" ]; then
        rm -f "$to/iconengines"/vasclip-*
        cp -u "${prefix_of[qtsvg]}/bin/Qt6Svg.dll" "$to"
        cp -u "${prefix_of[qtsvg]}/plugins/iconengines/qsvgicon.dll" "$to/iconengines"
    else
        cp -u "$programs/bin/iconengines/vasclip-iconengine.dll" "$to/iconengines" 2>/dev/null || true
    fi
    if [ -n "${prefix_of[qtimageformats]:-}" ]; then
        cp -u "${prefix_of[qtimageformats]}"/plugins/imageformats/q{tiff,webp}.dll "$to/imageformats"
    fi
    cp -u "${prefix_of[heif]}/bin/libheif.dll" "$to/heif.dll" # the name that is asked for when it is loaded
    cp -u "$runtime"/libstdc++-6.dll "$runtime"/libgcc_s_seh-1.dll "/usr/$host/lib/libwinpthread-1.dll" "$to"
}
