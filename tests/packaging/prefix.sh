# Sourced by the checks of an installation: installs BUILD into a prefix of its own, which goes when the check ends.
# usage: . prefix.sh BUILD; sets $work, $prefix and $lib.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

# Runs a command and shows what it said only when it fails.
quiet() {
    "$@" >"$work/log" 2>&1 || {
        cat "$work/log" >&2
        echo "failed: $*" >&2
        exit 1
    }
}

fail() {
    echo "$*" >&2
    exit 1
}

# by_cmake SOURCE FLAGS: builds a project against the prefix, in $work/by-cmake
by_cmake() {
    quiet cmake -G Ninja -S "$1" -B "$work/by-cmake" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_FLAGS="$2"
    quiet cmake --build "$work/by-cmake"
}

# by_pkg_config PACKAGE PROGRAM FLAGS SOURCE...: builds a program against the prefix, $work/PROGRAM
by_pkg_config() {
    local package=$1 program=$2 arguments
    read -ra arguments <<<"$3 $(PKG_CONFIG_PATH=$lib/pkgconfig pkg-config --cflags --libs "$package")"
    quiet c++ -std=c++17 -fPIC -o "$work/$program" "${@:4}" "${arguments[@]}"
}

quiet cmake --install "$1" --prefix "$prefix"
lib=$(dirname "$(find "$prefix" -name 'libmrl_loadcase.so')")
