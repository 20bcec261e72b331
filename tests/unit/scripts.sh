#!/bin/bash
# The entry points in scripts/, and the shell functions behind them.
#
#   scripts.sh PROJECT
set -uo pipefail

project_dir=$1

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
contains() { [[ $1 == *"$2"* ]]; }

# Each check_... runs in a shell and a folder $work of its own.

# Background processes of the entry points: waiting for their lines, noticing their end, ending them.
check_processes() {
    . "$project_dir/scripts/lib/processes.sh"
    lives() { grep -q '^State:[[:space:]][^Z]' "/proc/$1/status" 2>/dev/null; }
    mark=scripts.$BASHPID
    export SANDBOX_MARK=$mark # of all that is started here

    start_process talker sh -c 'echo hello; echo trouble >&2; echo "ready at 7"; exec sleep 100'
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

    # What removes it may be ended, too.
    mkdir "$work/programs"
    printf '#!/bin/sh\n[ "$1" = -rf ] && [ ! -e "%s" ] || exec /bin/rm "$@"\n: >"%s"\nkill -KILL $$\n' \
        "$work/killed" "$work/killed" >"$work/programs/rm"
    chmod +x "$work/programs/rm"
    kept=$(ls "$work/temporary files")
    PATH=$work/programs:$PATH supervised 0 >/dev/null 2>&1
    expect "the folder is removed by a second try" equals "$(ls "$work/temporary files")" "$kept"
    expect "after the first was ended" test -e "$work/killed"

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
}

# Which programs scripts/run starts as services: in a project of its own, whose programs only say that they
# are ready.
check_services() {
    mkdir "$work/project"
    cp -r "$project_dir/scripts" "$work/project"
    lib_dir=$work/project/scripts/lib
    # shellcheck source=scripts/lib/places.sh
    . "$lib_dir/places.sh" # sets project_dir
    # shellcheck source=scripts/lib/processes.sh
    . "$lib_dir/processes.sh"
    # shellcheck source=scripts/lib/sandbox.sh
    . "$lib_dir/sandbox.sh"

    built=$project_dir/build/dev/sandbox/services
    mkdir -p "$built" "$project_dir/sandbox/services"/{common,control,dock,keybinding}
    # "common" has no program, "control" is a tool, and "script" is a double that tests have built.
    for name in control dock keybinding script; do
        printf '#!/bin/sh\necho ready\nexec tail -f /dev/null\n' >"$built/sandbox-$name"
        chmod +x "$built/sandbox-$name"
    done

    mark=scripts.$BASHPID
    export SANDBOX_MARK=$mark
    status=0
    start_services || status=$?
    started=$(printf '%s\n' "${process_names[@]}" | sort | xargs)
    unset SANDBOX_MARK # or what looks for the others would find itself
    "$lib_dir/cleanup" "$mark" "$work/none" </dev/null

    expect "the services start" equals "$status" 0
    expect "and nothing else" equals "$started" "sandbox-dock sandbox-keybinding"
}

# What scripts/test makes of its arguments: in a project of its own, where programs only say what they are
# told.
check_test() {
    mkdir "$work/programs"
    cp -r "$project_dir/scripts" "$work"
    printf '#!/bin/sh\necho installed\n' >"$work/programs/dpkg-query"
    for program in cmake ctest gcovr; do
        printf '#!/bin/sh\necho "%s: ${PWD##*/}, $*" >>"%s/told"\n' "$program" "$work" \
            >"$work/programs/$program"
    done
    chmod +x "$work/programs"/*
    cd "$work" || return

    runs() { # runs COMMAND PRESET TARGET CTEST-ARGUMENTS
        local told status=0
        rm -f told
        # shellcheck disable=SC2086 # words
        PATH=$work/programs:$PATH $1 >said 2>&1 || status=$?
        told=$(grep -v ^gcovr told)
        expect "$1 passes" equals "$status" 0
        expect "$1 builds" contains "$told" "--build --preset $2${3:+ --target $3}"$'\n'
        expect "$1 tests" equals "${told##*$'\n'}" \
            "ctest: $2, --output-on-failure --no-tests=error --parallel $((2 * $(nproc)))${4:+ $4}"
    }
    runs "scripts/test" dev "" ""
    runs "scripts/test -L gui" dev gui-tests "-L gui"
    runs "scripts/test -L realtime" dev realtime-tests "-L realtime"
    runs "scripts/test -L weekly" dev weekly-tests "-L weekly -C weekly"
    runs "scripts/test -L realtime --repeat until-fail:20" dev realtime-tests \
        "-L realtime --repeat until-fail:20"
    runs "scripts/test -R voicetestpanel" dev "" "-R voicetestpanel"
    runs "scripts/test --preset asan" asan "" ""
    runs "scripts/test --coverage" coverage "unit-tests bus-tests gui-tests plugin-tests audio-tests" "-LE e2e -E systemplatform"
    expect "and is strict" contains "$(tail -n 1 told)" "--fail-under-line 97 --fail-under-branch 90"

    fuzzes() { # fuzzes STATUS TEXT COMMAND: the status, and the last thing said
        local status=0
        PATH=$work/programs:$PATH $3 >said 2>&1 || status=$?
        expect "$3 ends with $1" equals "$status" "$1"
        expect "$3 says $2" contains "$(tail -n 1 said)" "$2"
    }
    # A fuzzer that finds something in one target.
    mkdir -p build/fuzz/tests/fuzz tests
    cp -r "$project_dir/tests/fuzz" tests
    cat >build/fuzz/tests/fuzz/fuzz <<'END'
#!/bin/sh
echo "$1 $2" >>told
echo "stat::number_of_executed_units: 17" >&2
[ "$1" != level ] || { echo "Test unit written to level-crash" >&2; exit 77; }
END
    chmod +x build/fuzz/tests/fuzz/fuzz
    rm -f told
    fuzzes 0 "verdict               17 inputs" "scripts/test --fuzz 20s verdict"
    expect "a time is one" contains "$(cat told)" "verdict -max_total_time=20"
    expect "it is built for that" contains "$(cat told)" "--build --preset fuzz --target fuzz"
    fuzzes 1 "found: level-crash; see" "scripts/test --fuzz 10000000 recogniser level"
    expect "a number is one" contains "$(cat told)" "recogniser -runs=10000000"
    fuzzes 1 "nothing found" "scripts/test --fuzz 20s"
    expect "all targets are fuzzed" contains "$(cat told)" "settings -max_total_time=20"
    fuzzes 2 "no time" "scripts/test --fuzz 20m"
    fuzzes 2 "no target" "scripts/test --fuzz 20s nothing"
    mkdir tests/mutants
    printf '#!/bin/sh\necho "$@"\n' >tests/mutants/run
    chmod +x tests/mutants/run
    fuzzes 0 "--sample 300 --seed 2 $PWD $PWD/build/mutants" "scripts/test --mutants --sample 300 --seed 2"
    rm -r build tests

    printf '#!/bin/sh\nexit 8\n' >"$work/programs/ctest"
    PATH=$work/programs:$PATH bash scripts/test --rerun-failed >said 2>&1
    expect "a failed test fails the script" equals $? 8
}

# What scripts/run says to a command line that it cannot follow, or on a machine that lacks what it needs,
# before it installs or builds anything; and scripts/portability and scripts/package to the former.
check_usage() {
    run=$project_dir/scripts/run
    export HOME=$work XDG_STATE_HOME=$work/state
    unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
    # Whatever gets so far says so.
    mkdir "$work/programs"
    for program in dpkg-query apt-get cmake sudo; do
        printf '#!/bin/sh\necho "it goes on to %s"\nexit 9\n' "$program" >"$work/programs/$program"
        chmod +x "$work/programs/$program"
    done
    export PATH=$work/programs:$PATH

    answers() { # answers CODE TEXT STATUS OUTPUT: the exit code, and one sentence with TEXT
        [[ $3 == "$1" && $4 == *"$2"* && $4 != *$'\n'* ]] || { echo "      status $3, $4" && false; }
    }
    stops() { # stops CODE TEXT [NAME=VALUE]... ARGUMENT...
        local code=$1 text=$2 output status=0
        shift 2
        local variables=()
        while [[ ${1-} =~ ^[A-Z_]+= ]]; do
            variables+=("$1")
            shift
        done
        output=$(env "${variables[@]}" "$run" "$@" 2>&1) || status=$?
        expect "${variables[*]:+${variables[*]} }$*" answers "$code" "$text" "$status" "$output"
    }
    refuses() {
        stops 2 "$@"
    }

    refuses "unknown argument --colour" --colour
    refuses "unknown argument --colour=red" --colour=red
    refuses "unknown argument out" out
    refuses "--tour needs a value" --tour
    refuses "--tour needs a value" --tour --offline
    refuses "--tour needs a value" --tour=
    refuses "--locale needs a value" --offline --locale
    refuses "--offline takes no value" --offline=yes
    refuses 'There is no microphone "banjo", but real, speech, noise, loud, quiet, silence, none.' \
        --microphone banjo
    refuses 'There is no microphone "banjo"' --microphone=banjo
    refuses 'There is no sound server "jack", but pulseaudio, pipewire.' --sound jack
    refuses 'There is no locale "xx_YY", but zh_CN, zh_HK, zh_TW, bo_CN, ug_CN, en_US, en_GB.' --locale xx_YY
    refuses 'There is no theme "blue", but light, dark, contrast, system.' --theme blue
    refuses 'There is no page "Foo", but Desktop AI Assistant, Text to Speech, Speech to Text, Translation.' \
        --page Foo
    refuses 'There is no section "foo", but pages, icons, search, switches, choices, shortcuts, services,' \
        --tour "$work/pictures" --section foo
    refuses "--section is for a tour and needs --tour" --section pages
    for scale in 0 0.49 4.01 5 -1 big 1,5 nan inf 1e0; do
        refuses "The scale must be a number from 0.5 to 4." --scale "$scale"
    done
    for size in 5.9 40.1 99 huge; do
        refuses "The font size must be a number from 6 to 40." --font-size="$size"
    done
    : >"$work/file"
    refuses "The tour cannot write there" --tour "$work/file"
    refuses "The tour cannot write there" --tour "$work/file/pictures"

    run=$project_dir/scripts/package
    refuses "unknown argument --colour" --colour
    refuses "--output needs a value" --output
    stops 3 "there is no folder $work/file/packages" --output "$work/file/packages"
    run=$project_dir/scripts/run

    help=$("$run" --help)
    for text in --locale --theme --page --offline --microphone --sound --tour --section --scale --font-size --verbose \
        "zh_CN, zh_HK, zh_TW, bo_CN, ug_CN, en_US or en_GB" "0.5 to 4" "6 to 40" "Exit code: 0" "128 + n"; do
        expect "--help tells of $text" contains "$help" "$text"
    done

    # What the machine lacks.
    pictures=$work/pictures
    stops 3 'There is no display ":987", which DISPLAY names' DISPLAY=:987
    stops 3 "HOME is not set" HOME= XDG_STATE_HOME= DISPLAY=elsewhere:1
    status=0
    output=$(env -u HOME -u XDG_STATE_HOME DISPLAY=elsewhere:1 "$run" 2>&1) || status=$?
    expect "HOME unset" answers 3 "HOME is not set" "$status" "$output"
    stops 3 "The settings cannot be kept" DISPLAY=elsewhere:1 XDG_STATE_HOME="$work/file"
    stops 3 "No such file or directory" TMPDIR="$work/none" --tour "$pictures"

    # What writes there hears of it.
    printf '#!/bin/sh\necho "head: error writing: No space left on device" >&2\nexit 1\n' >"$work/programs/head"
    chmod +x "$work/programs/head"
    stops 3 "No space left on device" --tour "$pictures"
    rm "$work/programs/head"

    mkdir "$work/project"
    cp -r "$project_dir/scripts" "$work/project"
    : >"$work/project/build"
    printf '#!/bin/sh\necho installed\n' >"$work/programs/dpkg-query"
    run=$work/project/scripts/run
    stops 3 "The build folder $work/project/build/dev cannot be written" --tour "$pictures"

    run=$project_dir/scripts/portability
    refuses "unknown argument amiga" clang amiga
    refuses "--folder needs a value" clang --folder
    refuses "it needs to know what"
}

status=0
for check in check_processes check_services check_test check_usage; do
    (
        work=$(mktemp -d)
        trap 'rm -rf "$work"' EXIT
        "$check"
        exit $((failures > 0))
    ) || status=1
done
exit "$status"
