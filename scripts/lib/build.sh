# Building from the entry points in scripts/. Sourced; $project_dir is the repository's root.

# Configures and builds a preset; further arguments are targets. Quiet unless something fails.
build_preset() {
    local preset=$1 log
    shift
    log=$project_dir/build/$preset.log
    mkdir -p "$project_dir/build"
    echo "Building (preset $preset)"
    if ! (
        cd "$project_dir"
        cmake --preset "$preset" && cmake --build --preset "$preset" ${1:+--target "$@"}
    ) >"$log" 2>&1; then
        tail -n 60 "$log" >&2
        echo "The build failed; all of its output: $log" >&2
        return 1
    fi
}
