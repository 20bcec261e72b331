# Background processes of an entry point in scripts/. Sourced; $work is a folder of the script's own,
# where each process NAME leaves NAME.out (standard output) and NAME.log (standard error).

declare -A process_names=() # by process id: what was started and has not been seen to end
started_pid=                # of the latest start_process

# start_process NAME COMMAND...
start_process() {
    : >"$work/$1.out"
    start_shown_process "$@" >"$work/$1.out"
}

# start_shown_process NAME COMMAND...: the same for a process whose standard output is for the user.
start_shown_process() {
    local name=$1
    shift
    # It ends with this shell, even if that is killed, and does not get Ctrl+C from a terminal.
    setpriv --pdeathsig TERM setsid "$@" 2>"$work/$name.log" </dev/null &
    started_pid=$!
    process_names[$started_pid]=$name
}

# wait_for_line PATTERN: waits until the process that was started last has written a line that matches
# PATTERN, and prints the line. Fails when the process ends, or after half a minute.
wait_for_line() {
    local name=${process_names[$started_pid]}
    # The tail ends with the process, or with the time-out.
    if ! grep -m 1 -e "$1" \
        < <(timeout 30 tail -n +1 -s 0.1 -f --pid="$started_pid" "$work/$name.out" 2>/dev/null); then
        echo "$name did not start:" >&2
        tail -n 20 "$work/$name.log" >&2
        return 1
    fi
}

# show_messages FILE...: shows what stands in the files, and what is added to them.
show_messages() {
    start_shown_process messages tail -q -n +1 -f "$@"
}

# run_to_end PID: waits for the process PID and returns its status. Says so, and fails, when another
# process ends meanwhile: all of them are meant to outlive it.
run_to_end() {
    local pid=$1 ended status lost=0
    while true; do
        status=0
        wait -n -p ended "${!process_names[@]}" || status=$?
        if [[ -z ${ended-} || $ended == "$pid" ]]; then
            unset "process_names[$pid]"
            break
        fi
        lost=1
        echo "${process_names[$ended]} has ended (status $status):" >&2
        tail -n 20 "$work/${process_names[$ended]}.log" >&2
        unset "process_names[$ended]"
    done
    ((status)) || return "$lost"
    return "$status"
}
