# Running a command so that nothing of it is left, however it ends. Sourced, and first of all: from then
# on a signal only leaves its number, for supervise() to find. Bash may miss a signal, or the end of a
# child, while it waits for one with "wait", so supervise() looks every now and then instead.

interrupted=0 # number of the first signal that came
trap '((interrupted)) || interrupted=1' HUP
trap '((interrupted)) || interrupted=2' INT
trap '((interrupted)) || interrupted=15' TERM

# supervise COMMAND ARGUMENT...: runs COMMAND with the process id of this shell, a folder for temporary
# files, and the ARGUMENTs, and exits with its status, or with 128 + the number of a signal. Before that
# it ends every process that comes from COMMAND and removes the folder. If this shell is killed, the
# keeper does so, a process that hears of it because their pipe closes.
supervise() {
    local mark=assistant-sandbox.$$.$RANDOM command=$1 work worker='' keeper status=0
    shift
    work=$(realpath -m -- "${TMPDIR:-/tmp}")/$mark
    exec 9> >(
        trap '' HUP INT TERM
        read -r || clean_up "$mark" "$work"
    )
    keeper=$!
    exec 8<> <(:) # a pipe into which nobody writes

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

    # First of all COMMAND, which might else report that what it has started ends.
    [[ -z $worker ]] || kill -TERM "$worker" 2>/dev/null || true
    undisturbed end_processes "$mark"
    # 2 and 3 come with a sentence that says it all.
    if ((status == 1 || status > 3)) && ((!interrupted)) && compgen -G "$work/*.log" >/dev/null; then
        echo "What every program said: $work" >&2
    else
        undisturbed rm -rf -- "$work"
    fi
    kill -KILL "$keeper" 2>/dev/null || true
    while is_running "$keeper"; do
        read -r -t 0.01 -u 8 || true
    done
    trap - HUP INT TERM
    exit $((interrupted ? 128 + interrupted : status))
}

is_running() {
    kill -0 "$1" 2>/dev/null
}

# Makes the folder, and sees that there is room for what is going to lie in it.
make_folder() {
    local reason
    if reason=$(mkdir -m 700 -- "$1" 2>&1 && head -c 8M /dev/zero 2>&1 >"$1/room" && rm "$1/room"); then
        return
    fi
    ((interrupted)) ||
        echo "A temporary folder cannot be had in ${1%/*}, which TMPDIR may change: ${reason##*: }" >&2
    return 3
}

# Runs a command so that a signal to the whole process group does not end it.
undisturbed() {
    local status
    while true; do
        status=0
        (
            trap '' HUP INT TERM
            "$@"
        ) || status=$?
        ((status > 128)) || return "$status" # else it was ended before it could ignore the signal
    done
}

clean_up() {
    end_processes "$1"
    rm -rf -- "$2"
}

# Ends every process that carries the mark. What does not end within two seconds is killed.
end_processes() {
    local pids pid new since=${EPOCHREALTIME/[.,]/} took looks=0 empty=0
    local -A told=()
    # Twice: a process that starts another, or another program in its own place, may escape one look.
    for ((; empty < 2; ++looks)); do
        ((looks == 0)) || sleep 0.03
        mapfile -t pids < <(marked_processes "$1")
        if ((!${#pids[@]})); then
            empty=$((empty + 1))
            continue
        fi
        empty=0
        new=()
        for pid in "${pids[@]}"; do
            [[ -n ${told[$pid]-} ]] || new+=("$pid")
            told[$pid]=1
        done
        took=$((${EPOCHREALTIME/[.,]/} - since)) # microseconds
        if ((took > 4000000)); then
            echo "These processes cannot be ended: ${pids[*]}" >&2
            return
        elif ((took > 2000000)); then
            kill -KILL "${pids[@]}" 2>/dev/null || true
        elif ((${#new[@]})); then
            kill -TERM "${new[@]}" 2>/dev/null || true
            kill -CONT "${new[@]}" 2>/dev/null || true # a stopped one could not end
        fi
    done
}

# The ids of the processes that carry the mark, the latest first. Whoever has it passes it on.
marked_processes() {
    { grep -lszxF "SANDBOX_MARK=$1" /proc/[0-9]*/environ || true; } | tr -dc '0-9\n' | sort -rn
}
