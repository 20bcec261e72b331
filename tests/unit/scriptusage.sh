#!/bin/bash
# What scripts/run says to a command line that it cannot follow, before it installs or builds anything.
set -uo pipefail

run=$1/scripts/run
failures=0
refuses() { # refuses TEXT ARGUMENT...
    local text=$1 output status=0
    shift
    output=$("$run" "$@" 2>&1) || status=$?
    if ((status == 2)) && [[ $output == *"$text"* ]]; then
        echo "ok    refused: $*"
    else
        echo "FAIL  $*: status $status, $output"
        failures=$((failures + 1))
    fi
}

refuses "unknown argument --colour" --colour
refuses "unknown argument out" out
refuses "--tour needs a value" --tour
refuses "--locale needs a value" --offline --locale
refuses "no microphone 'banjo'" --microphone banjo

help=$("$run" --help)
for option in --locale --theme --page --offline --microphone --tour --section --scale --verbose; do
    if [[ $help != *$option* ]]; then
        echo "FAIL  --help does not tell of $option"
        failures=$((failures + 1))
    fi
done

exit $((failures > 0))
