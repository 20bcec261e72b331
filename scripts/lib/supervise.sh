# Running a command so that nothing of it is left, however it ends. Sourced right before: from then on a
# signal only leaves its number, for supervise() to find. Bash may miss a signal, or the end of a child,
# while it waits for one with "wait", so supervise() looks every now and then instead.

# supervise COMMAND ARGUMENT...: runs COMMAND with the process id of this shell, a folder for temporary
# files, and the ARGUMENTs, and exits with its status, or with 128 + the number of a signal. Before that
# the program "cleanup", which notices the end because a pipe closes, ends every process that comes from
# COMMAND and removes the folder. It does so, too, if this shell is killed.
supervise() {
    local mark=assistant-sandbox.$$.$RANDOM command=$1 work worker='' cleanup status=0
    shift
    work=$(realpath -m -- "${TMPDIR:-/tmp}")/$mark
    exec 8<> <(:) # a pipe into which nobody writes
    start_cleanup
    make_folder "$work" || status=$?
    if ((!interrupted && !status)); then
        SANDBOX_MARK=$mark TMPDIR=$work \
            setpriv --pdeathsig TERM "$command" "$$" "$work" "$@" 8>&- 9>&- &
        worker=$!
        while ((!interrupted)) && is_running "$worker"; do
            read -r -t 0.2 -u 8 || true
        done
        ((interrupted)) || wait "$worker" || status=$?
    fi

    # First of all COMMAND, which might otherwise report that what it has started ends.
    [[ -z $worker ]] || kill -TERM "$worker" 2>/dev/null || true
    # 2 and 3 come with a sentence that says it all.
    if ((status == 1 || status > 3)) && ((!interrupted)) && compgen -G "$work/*.log" >/dev/null &&
        : >"$work/keep"; then
        echo "What every program said: $work" >&2
    fi
    if ! finish_cleanup; then # it was killed
        start_cleanup
        finish_cleanup || true
    fi
    trap - HUP INT TERM
    exit $((interrupted ? 128 + interrupted : status))
}

# Starts the cleanup, beyond the reach of a signal to the process group.
start_cleanup() {
    exec 9> >(
        trap '' HUP INT TERM
        exec setsid "${BASH_SOURCE[0]%/*}/cleanup" "$mark" "$work"
    )
    cleanup=$!
}

# Has the cleanup do its work. Fails when it cannot.
finish_cleanup() {
    exec 9>&-
    while is_running "$cleanup"; do
        read -r -t 0.01 -u 8 || true
    done
    wait "$cleanup"
}

is_running() {
    kill -0 "$1" 2>/dev/null
}

# Makes the folder, and checks that there is room for what will be in it.
make_folder() {
    local reason
    if reason=$(mkdir -m 700 -- "$1" 2>&1 && head -c 8M /dev/zero 2>&1 >"$1/room" && rm "$1/room"); then
        return
    fi
    ((interrupted)) ||
        echo "A temporary folder cannot be had in ${1%/*}, which TMPDIR may change: ${reason##*: }" >&2
    return 3
}

# Last of all: a trap that comes while bash still reads a substitution confuses it.
interrupted=0 # number of the first signal that came
trap '((interrupted)) || interrupted=1' HUP
trap '((interrupted)) || interrupted=2' INT
trap '((interrupted)) || interrupted=15' TERM
