#!/bin/bash
# What scripts/run says to a command line that it cannot follow, or on a machine that lacks what it needs,
# before it installs or builds anything; and scripts/portability and scripts/package to the former.
set -uo pipefail

project_dir=$1
run=$project_dir/scripts/run
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export HOME=$scratch XDG_STATE_HOME=$scratch/state
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
# Whatever gets so far says so.
mkdir "$scratch/programs"
for program in dpkg-query apt-get cmake sudo; do
    printf '#!/bin/sh\necho "it goes on to %s"\nexit 9\n' $program >"$scratch/programs/$program"
    chmod +x "$scratch/programs/$program"
done
export PATH=$scratch/programs:$PATH

failures=0
expect() { # expect CODE TEXT STATUS OUTPUT WHAT...: one sentence with TEXT, and the exit code
    if (($3 == $1)) && [[ $4 == *"$2"* && $4 != *$'\n'* ]]; then
        echo "ok    ${*:5}: $4"
    else
        echo "FAIL  ${*:5}: status $3, $4"
        failures=$((failures + 1))
    fi
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
    expect "$code" "$text" "$status" "$output" "${variables[@]}" "$@"
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
refuses 'There is no locale "xx_YY", but zh_CN, zh_HK, zh_TW, bo_CN, ug_CN, en_US, en_GB.' --locale xx_YY
refuses 'There is no theme "blue", but light, dark.' --theme blue
refuses 'There is no page "Foo", but Desktop AI Assistant, Text to Speech, Speech to Text, Translation.' \
    --page Foo
refuses 'There is no section "foo", but pages, icons, search, switches, choices, shortcuts, services,' \
    --tour "$scratch/pictures" --section foo
refuses "--section is for a tour and needs --tour" --section pages
for scale in 0 0.49 4.01 5 -1 big 1,5 nan inf 1e0; do
    refuses "The scale must be a number from 0.5 to 4." --scale "$scale"
done
for size in 5.9 40.1 99 huge; do
    refuses "The font size must be a number from 6 to 40." --font-size="$size"
done
: >"$scratch/file"
refuses "The tour cannot write there" --tour "$scratch/file"
refuses "The tour cannot write there" --tour "$scratch/file/pictures"

run=$project_dir/scripts/package
refuses "unknown argument --colour" --colour
refuses "--output needs a value" --output
stops 3 "there is no folder $scratch/file/packages" --output "$scratch/file/packages"
run=$project_dir/scripts/run

help=$("$run" --help)
for text in --locale --theme --page --offline --microphone --tour --section --scale --font-size --verbose \
    "zh_CN, zh_HK, zh_TW, bo_CN, ug_CN, en_US or en_GB" "0.5 to 4" "6 to 40" "Exit code: 0" "128 + n"; do
    if [[ $help != *$text* ]]; then
        echo "FAIL  --help does not tell of $text"
        failures=$((failures + 1))
    fi
done

# What the machine lacks.
pictures=$scratch/pictures
stops 3 'There is no display ":987", which DISPLAY names' DISPLAY=:987
stops 3 "HOME is not set" HOME= XDG_STATE_HOME= DISPLAY=elsewhere:1
status=0
output=$(env -u HOME -u XDG_STATE_HOME DISPLAY=elsewhere:1 "$run" 2>&1) || status=$?
expect 3 "HOME is not set" "$status" "$output" "HOME unset"
stops 3 "The settings cannot be kept" DISPLAY=elsewhere:1 XDG_STATE_HOME="$scratch/file"
stops 3 "No such file or directory" TMPDIR="$scratch/none" --tour "$pictures"

# What writes there hears of it.
printf '#!/bin/sh\necho "head: error writing: No space left on device" >&2\nexit 1\n' >"$scratch/programs/head"
chmod +x "$scratch/programs/head"
stops 3 "No space left on device" --tour "$pictures"
rm "$scratch/programs/head"

mkdir "$scratch/project"
cp -r "$project_dir/scripts" "$scratch/project"
: >"$scratch/project/build"
printf '#!/bin/sh\necho installed\n' >"$scratch/programs/dpkg-query"
run=$scratch/project/scripts/run
stops 3 "The build folder $scratch/project/build/dev cannot be written" --tour "$pictures"

run=$project_dir/scripts/portability
refuses "unknown argument amiga" clang amiga
refuses "--folder needs a value" clang --folder
refuses "it needs to know what"

exit $((failures > 0))
