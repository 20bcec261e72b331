#!/bin/bash
# Background processes of the entry points: waiting for their lines, noticing their end, ending them.
set -uo pipefail

project_dir=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
. "$project_dir/scripts/lib/processes.sh"
mark=scriptprocesses.$$
export SANDBOX_MARK=$mark # of all that is started here

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
lives() { grep -q '^State:[[:space:]][^Z]' "/proc/$1/status" 2>/dev/null; }
equals() { [[ $1 == "$2" ]] || { echo "      '$1' is not '$2'" && false; }; }

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
start_process parent sh -c 'setsid sleep 100 & echo $!; exec sleep 100'
orphan=$(wait_for_line .)
kill -KILL "$started_pid"
start_process stopped sh -c 'echo ready; exec sleep 100'
stopped=$started_pid
expect "another starts" wait_for_line ready
kill -STOP "$stopped"
unset SANDBOX_MARK # or what looks for the others would find itself
"$project_dir/scripts/lib/cleanup" "$mark" "$work/none" </dev/null
for pid in "$talker" "$stubborn" "$orphan" "$stopped"; do
    expect "process $pid has ended" fails lives "$pid"
done

# What becomes of a command and its folder. It says what it was given.
cat >"$work/command" <<'END'
#!/bin/bash
. "$3/scripts/lib/processes.sh"
work=$2
echo "$PPID $1 $TMPDIR $2"
start_process child sleep 100
echo "$started_pid"
exit "$4"
END
chmod +x "$work/command"
mkdir "$work/temporary files"
supervised() { # supervised ARGUMENT: prints what the command says
    TMPDIR="$work/temporary files" bash -ec '. "$1/scripts/lib/supervise.sh"; supervise "$2" "$1" "$3"' \
        bash "$project_dir" "$work/command" "$1"
}
for status in 0 2; do
    supervised "$status" >"$work/said"
    expect "the command's status is passed on" equals $? "$status"
    read -r parent told temporary folder <<<"$(sed 's/temporary files/temporary_files/g' "$work/said")"
    expect "it knows its parent" equals "$parent" "$told"
    expect "it has a folder" equals "$temporary" "$folder"
    expect "which is gone" equals "$(ls "$work/temporary files")" ""
    expect "its child has ended" fails lives "$(tail -n 1 "$work/said")"
done
supervised 1 >"$work/said" 2>&1
expect "a failure leaves what the programs said" \
    grep -qF "What every program said: $(realpath "$work")/temporary files/" "$work/said"

mkdir "$work/programs"
printf '#!/bin/sh\n[ "$1" != -rf ] && exec /bin/rm "$@"\nexit 1\n' >"$work/programs/rm"
chmod +x "$work/programs/rm"
PATH=$work/programs:$PATH supervised 2 >/dev/null
expect "so it is when the folder cannot be removed" equals $? 2

# A sound server whose news end at once.
rm "$work/programs/rm"
printf '#!/bin/sh\nexec sleep 100\n' >"$work/programs/pulseaudio"
printf '#!/bin/sh\n[ "$1" != subscribe ] || echo event\n' >"$work/programs/pactl"
chmod +x "$work/programs"/*
said=$(PATH=$work/programs:$PATH "$project_dir/sandbox/microphone/start" none "$work/microphone" 2>&1)
expect "a microphone fails with its sound server" equals "$? $said" \
    "1 ready none"$'\n'"start: the sound server has ended"

exit $((failures > 0))
