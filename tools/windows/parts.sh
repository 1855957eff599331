# A part is a library that is built for Windows from Debian's source package. It is kept under a name that tells its version
# and how it was made, so that it is built once and again only when one of them changes. Sourced by tools/windows/build, which
# sets `cache` and `jobs`.

host=x86_64-w64-mingw32
declare -A prefix_of=()

say() { printf '%s  %s\n' "$(date +%H:%M:%S)" "$*"; }

give_up() {
    printf 'tools/windows/build: %s\n' "$@" >&2
    exit 1
}

# logged NAME COMMAND...: what a command prints goes to a file, of which the end is shown if it fails.
logged() {
    local what=$1 log=$cache/logs/$1.log
    shift
    "$@" >"$log" 2>&1 </dev/null && return
    tail -n 30 "$log" >&2
    if grep -q 'No space left on device' "$log" || [ "$(room_mb "$cache")" -lt 50 ]; then
        give_up "the disk of $cache is full." "Make room, or set VASCLIP_WINDOWS_CACHE to a directory elsewhere, and start again: what is done is kept."
    fi
    give_up "'$what' failed; all that it said is in $log." "The next run goes on from here."
}

room_mb() { df --output=avail -m "$1" | tail -n 1 | tr -d ' '; }

# need_room MEGABYTES WHAT
need_room() {
    local free
    free=$(room_mb "$cache")
    [ "$free" -ge "$1" ] || give_up "$2 takes $1 MB, and the disk of $cache has $free MB left." \
        "Make room, or set VASCLIP_WINDOWS_CACHE to a directory elsewhere, and start again: what is done is kept."
}

# source_of PACKAGE: "name version" of the source of an installed package; the program for Linux is built with the same.
source_of() {
    dpkg-query -W -f '${source:Package} ${source:Version}\n' "$1" 2>/dev/null | head -n 1
}

# Debian's sources, as this machine's lists name its mirrors; in lists of our own, which no administrator is needed for.
source_lists() {
    local file
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ -f "$file" ] && sed -n 's/^deb \+\(\[[^]]*\] *\)\?\([^ ]*debian[^ ]*\) \+\([^ ]*\) .*/\2 \3/p' "$file"
    done
    for file in /etc/apt/sources.list.d/*.sources; do
        [ -f "$file" ] && awk '
            function out(  i, j, u, s, n, m) {
                if (types ~ /deb/ && uris ~ /debian/) {
                    n = split(uris, u, " "); m = split(suites, s, " ")
                    for (i = 1; i <= n; ++i) for (j = 1; j <= m; ++j) print u[i], s[j]
                }
                types = uris = suites = ""
            }
            /^Types:/ { types = $0 } /^URIs:/ { sub(/^URIs: */, ""); uris = $0 }
            /^Suites:/ { sub(/^Suites: */, ""); suites = $0 }
            /^$/ { out() } END { out() }' "$file"
    done
    true
}

own_apt() {
    local program=apt-get
    [ "$1" != showsrc ] || program=apt-cache
    "$program" -q -o "Dir::Etc::sourcelist=$cache/apt/sources.list" -o Dir::Etc::sourceparts=/dev/null \
        -o "Dir::State::Lists=$cache/apt/lists" -o "Dir::Cache=$cache/apt" -o Acquire::Retries=3 "$@"
}

listed=
refresh_lists() {
    [ -z "$listed" ] || return 0
    mkdir -p "$cache/apt/lists/partial" "$cache/apt/archives/partial"
    source_lists | sort -u | sed 's/.*/deb-src & main/' >"$cache/apt/sources.list"
    [ -s "$cache/apt/sources.list" ] ||
        give_up "no mirror of Debian is named in /etc/apt, so there is nowhere to get the sources of the libraries."
    logged apt-update own_apt update
    listed=yes
}

# versions_like NAME VERSION: that version, then those of the same release that the mirrors list besides, the newest first.
versions_like() {
    echo "$2"
    own_apt showsrc --only-source "$1" 2>/dev/null | sed -n 's/^Version: //p' | grep -F "${2%-*}-" | sort -Vru | grep -vxF "$2"
}

# fetch NAME VERSION: unpacks a source package; its directory is left in `source`, which is empty if it can't be had, and what
# it really is in `fetched`. A mirror that has lost a mended version may have the one before it.
fetch() {
    local name=$1 wanted=$2 one to=$cache/sources/$1-${2//:/_}
    source=
    if [ ! -f "$to/.unpacked" ]; then
        refresh_lists
        while read -r one; do
            rm -rf "$to"
            mkdir -p "$to"
            # apt checks every file against the signed lists, so that a broken download never gets unpacked.
            if (cd "$to" && own_apt source "$name=$one") >"$cache/logs/source-$name.log" 2>&1 </dev/null; then
                echo "$one" >"$to/.unpacked"
                [ "$one" = "$wanted" ] || say "$name $wanted can't be downloaded; $one is taken in its place"
                break
            fi
            rm -rf "$to"
        done < <(versions_like "$name" "$wanted")
        [ -d "$to" ] || return 0
    fi
    fetched=$(cat "$to/.unpacked")
    source=$(find "$to" -mindepth 1 -maxdepth 1 -type d | head -n 1)
}

# keep_toolchain: a build that was stopped goes on from another clone too, since what it was told of stands in the cache.
keep_toolchain() {
    toolchain=$cache/mingw-x64.cmake
    cmp -s "$root/tools/windows/mingw-x64.cmake" "$toolchain" || cp "$root/tools/windows/mingw-x64.cmake" "$toolchain"
}

# part NAME PACKAGE [PART...]: builds NAME with build_NAME from the source of an installed PACKAGE; the parts it stands on come
# before it. build_NAME finds `source`, `build` (a directory of its own, kept until it succeeds), and `prefix`, where it goes.
# Without its source it gets no prefix_of.
part() {
    local name=$1 package=$2 needs= one origin version recipe source fetched build prefix
    shift 2
    for one in "$@"; do needs+=" ${prefix_of[$one]}"; done
    read -r origin version < <(source_of "$package") || give_up "the package $package is not installed."
    recipe=$({
        declare -f "build_$name" cmake_part
        cat "$toolchain"
        dpkg-query -W -f '${Version}' "g++-mingw-w64-x86-64-posix"
        echo "${needs//$cache/}"
    } | sha256sum | head -c 8)
    prefix=$cache/parts/$name-${version//:/_}-$recipe
    if [ -f "$prefix/.done" ]; then
        prefix_of[$name]=$prefix
        return 0
    fi
    need_room "${room_for[$name]:-200}" "building $name"
    say "$name $version"
    fetch "$origin" "$version"
    [ -n "$source" ] || return 0
    local -x SOURCE_DATE_EPOCH
    SOURCE_DATE_EPOCH=$(dpkg-parsechangelog -l "$source/debian/changelog" -S Timestamp)
    build=$cache/building/${prefix##*/}
    # Ninja knows which of its files are whole; make takes one that was cut by a full disk for done.
    [ -f "$build/build.ninja" ] || rm -rf "$build"
    mkdir -p "$build"
    rm -rf "$prefix"
    "build_$name"
    mkdir -p "$prefix/licence"
    cp "$source/debian/copyright" "$prefix/licence/$name.txt"
    echo "$origin $fetched" >"$prefix/.done"
    rm -rf "$build"
    rm -rf "$cache/sources/$origin-${version//:/_}"
    prefix_of[$name]=$prefix
}

# must_have NAME PACKAGE [PART...]: a part without which there is no program.
must_have() {
    part "$@"
    [ -n "${prefix_of[$1]:-}" ] && return
    tail -n 5 "$cache/logs/source-$(source_of "$2" | cut -d ' ' -f 1).log" >&2
    give_up "the source of $1 ($(source_of "$2")) could not be downloaded whole from the mirrors in $cache/apt/sources.list." \
        "Is the network there, and is this machine's $2 the newest one (apt-get upgrade)? The next run goes on from here."
}

# cmake_part OPTION...: configures, builds and installs what lies in `source`. What is built is told that it will stand in
# `told`, where that is set, so that a file that keeps this place is the same wherever it was built.
cmake_part() {
    local path told=${told:-}
    path=$(IFS=';' && echo "${prefix_of[*]}")
    logged "$name-configure" cmake -G Ninja -S "$source" -B "$build" "-DCMAKE_TOOLCHAIN_FILE=$toolchain" \
        -DCMAKE_BUILD_TYPE=Release "-DCMAKE_INSTALL_PREFIX=${told:-$prefix}" "-DCMAKE_PREFIX_PATH=$path" \
        "-DCMAKE_C_FLAGS=-ffile-prefix-map=$cache=." "-DCMAKE_CXX_FLAGS=-ffile-prefix-map=$cache=. ${cxx_flags:-}" "$@"
    logged "$name-build" ninja -j "$jobs" -C "$build"
    rm -rf "$build/stage"
    DESTDIR=$build/stage logged "$name-install" ninja -C "$build" install
    mkdir -p "$prefix"
    cp -r "$build/stage${told:-$prefix}/." "$prefix"
}
