# Sourced by ./run and ./test from the project's root: configure and build, quietly where there is nothing to say.

# build_preset PRESET [TARGET...]
build_preset() {
    local preset=$1 log
    shift
    log=build/$preset.configure.log
    mkdir -p build
    if ! cmake --preset "$preset" >"$log" 2>&1; then
        cat "$log" >&2
        echo "Configuring failed." >&2
        return 1
    fi
    cmake --build --preset "$preset" ${1:+--target "$@"}
}
