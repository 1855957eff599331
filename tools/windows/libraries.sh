# How each library is built for Windows: see `part` in parts.sh. The program is linked with them, but for libheif, which it
# loads when the first HEIC picture comes, and Qt, whose licence wants it beside the program. Sourced by tools/windows/build.

declare -A room_for=([qt]=2500 [qtsvg]=300 [gdal]=1500)

# Debian's source has no directory win32; it takes no more than to compile what there is.
build_zlib() {
    cp -r "$source/." "$build"
    (cd "$build" && logged zlib-build "$host-gcc-posix" -O2 "-ffile-prefix-map=$cache=." -c ./*.c)
    mkdir -p "$prefix/include" "$prefix/lib/pkgconfig"
    "$host-ar" rcsD "$prefix/lib/libz.a" "$build"/*.o
    cp "$build"/zlib.h "$build"/zconf.h "$prefix/include"
    sed "s|@prefix@|$prefix|;s|@exec_prefix@|$prefix|;s|@libdir@|$prefix/lib|;s|@sharedlibdir@|$prefix/lib|
        s|@includedir@|$prefix/include|;s|@VERSION@|$(sed -n 's/^#define ZLIB_VERSION "\([0-9.]*\).*/\1/p' "$build/zlib.h")|" \
        "$source/zlib.pc.in" >"$prefix/lib/pkgconfig/zlib.pc"
}

# One file of all, which the source's own configure makes; the options are those of Debian's library.
build_sqlite() {
    (cd "$build" && logged sqlite-configure "$source/configure" && logged sqlite-amalgamation make sqlite3.c)
    logged sqlite-build "$host-gcc-posix" -O2 "-ffile-prefix-map=$cache=." -c "$build/sqlite3.c" -o "$build/sqlite3.o" \
        -DSQLITE_THREADSAFE=1 -DSQLITE_ENABLE_FTS5 -DSQLITE_ENABLE_FTS3 -DSQLITE_ENABLE_FTS3_PARENTHESIS \
        -DSQLITE_ENABLE_RTREE=1 -DSQLITE_ENABLE_COLUMN_METADATA -DSQLITE_ENABLE_UNLOCK_NOTIFY \
        -DSQLITE_ENABLE_DBSTAT_VTAB -DSQLITE_ENABLE_SESSION -DSQLITE_ENABLE_PREUPDATE_HOOK -DSQLITE_ENABLE_STMTVTAB \
        -DSQLITE_ENABLE_UPDATE_DELETE_LIMIT=1 -DSQLITE_LIKE_DOESNT_MATCH_BLOBS -DSQLITE_USE_URI=1 \
        -DSQLITE_MAX_SCHEMA_RETRY=25 -DSQLITE_MAX_VARIABLE_NUMBER=250000 -DSQLITE_SECURE_DELETE -DSQLITE_SOUNDEX=1 \
        -DSQLITE_OMIT_LOOKASIDE=1 -DSQLITE_ALLOW_ROWID_IN_VIEW -DSQLITE_ENABLE_MATH_FUNCTIONS
    mkdir -p "$prefix/include" "$prefix/lib"
    "$host-ar" rcsD "$prefix/lib/libsqlite3.a" "$build/sqlite3.o"
    cp "$build/sqlite3.h" "$source/src/sqlite3ext.h" "$prefix/include"
}

build_jpeg() { cmake_part -DENABLE_SHARED=OFF -DWITH_TURBOJPEG=OFF; }

build_de265() { cmake_part -DENABLE_SDL=OFF -DENABLE_ENCODER=OFF -DBUILD_SHARED_LIBS=OFF; }

# A library of its own with the decoder inside: pictures of phones are read, none is written.
build_heif() {
    local cxx_flags=-DLIBDE265_STATIC_BUILD
    cmake_part -DENABLE_PLUGIN_LOADING=OFF -DWITH_EXAMPLES=OFF -DWITH_X265=OFF -DWITH_AOM_DECODER=OFF \
        -DWITH_AOM_ENCODER=OFF -DWITH_DAV1D=OFF -DWITH_RAV1E=OFF -DWITH_SvtEnc=OFF -DWITH_GDK_PIXBUF=OFF \
        "-DCMAKE_SHARED_LINKER_FLAGS=-static -Wl,--no-insert-timestamp"
}

build_deflate() {
    cp -r "$source/." "$build"
    logged deflate-build make -C "$build" -j "$jobs" "CC=$host-gcc-posix" "AR=$host-ar" \
        "CFLAGS=-O2 -ffile-prefix-map=$cache=." libdeflatestatic.lib
    mkdir -p "$prefix/include" "$prefix/lib/pkgconfig"
    cp "$build/libdeflatestatic.lib" "$prefix/lib/libdeflate.a"
    cp "$build/libdeflate.h" "$prefix/include"
    sed "s|@PREFIX@|$prefix|;s|@LIBDIR@|$prefix/lib|;s|@INCDIR@|$prefix/include|;s|@VERSION@|${fetched%-*}|" \
        "$source/libdeflate.pc.in" >"$prefix/lib/pkgconfig/libdeflate.pc"
}

build_zip() {
    cmake_part -DBUILD_SHARED_LIBS=OFF -DENABLE_BZIP2=OFF -DENABLE_LZMA=OFF -DENABLE_ZSTD=OFF -DENABLE_OPENSSL=OFF \
        -DENABLE_WINDOWS_CRYPTO=OFF -DENABLE_GNUTLS=OFF -DENABLE_MBEDTLS=OFF -DBUILD_TOOLS=OFF -DBUILD_REGRESS=OFF \
        -DBUILD_EXAMPLES=OFF -DBUILD_DOC=OFF
}

build_geographic() {
    sed -i -E '/^ *add_subdirectory \((man|doc|tests|develop|examples)\)/d;/^set \(TOOLS /,/\)$/c set (TOOLS)' \
        "$source/CMakeLists.txt"
    cmake_part -DBUILD_SHARED_LIBS=OFF -DBUILD_BOTH_LIBS=OFF -DBUILD_DOCUMENTATION=OFF -DBUILD_MANPAGES=OFF
}

build_gtest() { cmake_part -DBUILD_GMOCK=OFF; }

# moc, uic and rcc are the machine's own, so that the versions must be equal. Debian's source lacks wintab.h, so the pens of
# graphics tablets are left out: the feature is on for the rest of Qt, which expects it. So is direct2d, of whose plugin nothing is
# used here; and of the rest what no source of Vasclip includes is not built.
build_qt() {
    local told=/qt windows=$source/src/plugins/platforms/windows
    sed -i 's/QT_CONFIG(tabletevent)/0/' "$windows"/qwindowscontext.cpp "$windows"/qwindowspointerhandler.cpp \
        "$windows"/qwindowspointerhandler.h
    sed -i 's/CONDITION QT_FEATURE_tabletevent/CONDITION FALSE/' "$windows"/CMakeLists.txt "$windows"/../direct2d/CMakeLists.txt
    sed -i 's/if(QT_FEATURE_direct2d1_1 /if(FALSE /' "$windows"/../CMakeLists.txt
    cmake_part "${host_qt[@]}" -DBUILD_SHARED_LIBS=ON \
        -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DQT_BUILD_BENCHMARKS=OFF -DQT_BUILD_MANUAL_TESTS=OFF \
        -DINPUT_opengl=no -DFEATURE_opengl=OFF -DFEATURE_vulkan=OFF -DFEATURE_sql=OFF -DFEATURE_dbus=OFF \
        -DFEATURE_testlib=ON -DFEATURE_printsupport=ON -DFEATURE_concurrent=OFF -DFEATURE_androiddeployqt=OFF \
        -DFEATURE_system_zlib=OFF -DFEATURE_system_png=OFF -DFEATURE_system_jpeg=OFF -DFEATURE_system_pcre2=OFF \
        -DFEATURE_system_freetype=OFF -DFEATURE_system_harfbuzz=OFF -DFEATURE_glib=OFF -DFEATURE_icu=OFF \
        -DFEATURE_zstd=OFF -DINPUT_openssl=no -DFEATURE_pkg_config=OFF -DFEATURE_ssl=OFF -DFEATURE_schannel=OFF \
        -DFEATURE_xml=OFF -DFEATURE_graphicsview=OFF -DFEATURE_textodfwriter=OFF
}

build_qtsvg() { cmake_part "${host_qt[@]}" -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF; }

build_qtimageformats() {
    cmake_part "${host_qt[@]}" -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DFEATURE_jasper=OFF -DFEATURE_mng=OFF \
        -DFEATURE_system_tiff=OFF -DFEATURE_system_webp=OFF
}
