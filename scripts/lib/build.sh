# Building from the entry points in scripts/. Sourced; $project_dir is the repository's root.

# Configures and builds a preset; further arguments are targets. Shows progress on a terminal, and says
# what went wrong. Fails with 3 when the build folder cannot be written.
build_preset() {
    local preset=$1 folder log problem
    shift
    folder=$project_dir/build/$preset
    log=$folder.log
    if ! problem=$({ mkdir -p "$folder" && : >>"$log" && rmdir "$(mktemp -d "$folder/XXXXXX")"; } 2>&1); then
        echo "The build folder $folder cannot be written: ${problem##*: }" >&2
        return 3
    fi
    echo "Building what has changed (preset $preset)"
    if ! {
        cd "$project_dir"
        cmake --preset "$preset" && cmake --build --preset "$preset" ${1:+--target "$@"}
    } 2>&1 | tee "$log" | show_progress; then
        tail -n 60 "$log" >&2
        echo "The build failed; all of its output: $log" >&2
        return 1
    fi
    if grep -q '^ninja: no work to do' "$log"; then
        echo "Nothing needed building"
    fi
}

# Shows on a terminal which step of how many a build, whose output it reads, is at.
show_progress() {
    local line steps=
    while IFS= read -r line; do
        if [[ -t 1 && $line =~ ^\[([1-9][0-9]*/[0-9]+)\] ]]; then
            steps=${BASH_REMATCH[1]}
            printf '\r%s ' "$steps"
        fi
    done
    [[ -z $steps ]] || echo
}
