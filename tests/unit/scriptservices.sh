#!/bin/bash
# Which programs scripts/run starts as services: in a project of its own, whose programs only say that they
# are ready.
set -uo pipefail

project_dir=$(mktemp -d)
work=$project_dir/work
trap 'rm -rf "$project_dir"' EXIT
mkdir "$work"
cp -r "$1/scripts" "$project_dir"
lib_dir=$project_dir/scripts/lib
# shellcheck source=scripts/lib/places.sh
. "$lib_dir/places.sh"
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

mark=scriptservices.$$
export SANDBOX_MARK=$mark
status=0
start_services || status=$?
started=$(printf '%s\n' "${process_names[@]}" | sort | xargs)
unset SANDBOX_MARK # or what looks for the others would find itself
"$1/scripts/lib/cleanup" "$mark" "$work/none" </dev/null

if ((status)) || [[ $started != "sandbox-dock sandbox-keybinding" ]]; then
    echo "FAIL  status $status, started: $started"
    exit 1
fi
echo "ok    started: $started"
