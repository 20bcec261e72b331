#!/bin/bash
# Background processes of the entry points: waiting for their lines, noticing their end, ending them.
set -uo pipefail

project_dir=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
. "$project_dir/scripts/lib/processes.sh"

failures=0
expect() { # expect WHAT COMMAND...
    local what=$1
    shift
    if "$@"; then
        echo "ok    $what"
    else
        echo "FAIL  $what"
        failures=$((failures + 1))
    fi
}
fails() { ! "$@"; }
equals() { [[ $1 == "$2" ]] || { echo "      '$1' is not '$2'" && false; }; }
is_running() { kill -0 "$1" 2>/dev/null; }

start_process talker sh -c 'echo hello; echo "ready at 7"; echo trouble >&2; exec sleep 100'
talker=$started_pid
expect "a line is waited for" equals "$(wait_for_line '^ready')" "ready at 7"
expect "standard error is kept" grep -q trouble "$work/talker.log"

start_process mute sh -c 'echo "no luck" >&2; exit 3'
expect "a process that ends without its line is a failure" fails wait_for_line '^ready' 2>"$work/said"
expect "and its messages are shown" grep -q "no luck" "$work/said"
unset "process_names[$started_pid]"

start_process main sh -c 'exit 0'
expect "the end of the main process is success" run_to_end "$started_pid"

start_process main sh -c 'exit 7'
run_to_end "$started_pid"
expect "its exit code is passed on" equals $? 7

start_process service sh -c 'echo "I am lost" >&2; exit 4'
# The main process ends after the service.
start_process main tail -s 0.1 -f /dev/null --pid="$started_pid"
run_to_end "$started_pid" 2>"$work/said"
expect "a service that ends meanwhile makes success a failure" equals $? 1
expect "and is named" grep -q "service has ended (status 4)" "$work/said"
expect "with what it said" grep -q "I am lost" "$work/said"

start_process stubborn sh -c 'trap "" TERM; echo ready; while :; do sleep 1; done'
stubborn=$started_pid
expect "a process that ignores the signal starts" wait_for_line ready
start_process stopped sleep 100
stopped=$started_pid
kill -STOP "$stopped"
end_processes
for pid in "$talker" "$stubborn" "$stopped"; do
    expect "process $pid has ended" fails is_running "$pid"
done
expect "nothing is left on the list" equals ${#process_names[@]} 0

exit $((failures > 0))
