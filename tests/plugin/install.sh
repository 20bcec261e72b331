#!/bin/bash
# What each component installs, and that it runs from there: from a folder that it was not built for.
#
#   install.sh PROJECT BUILD LIBDIR MODULE_DIR
set -uo pipefail

project_dir=$1 build=$2 libdir=$3 module_dir=$4
root=$(mktemp -d)
mkdir "$root/build"
ln -s "$build" "$root/build/release"
cd "$root" || exit
trap 'rm -rf "$root"' EXIT
failures=0
fail() {
    echo "FAIL  $*"
    failures=$((failures + 1))
}

# installs COMPONENT: and nothing but the files whose names are read.
installs() {
    local difference
    if ! DESTDIR=$root/$1 cmake --install build/release --component "$1" --prefix /usr --strip \
        >"$root/log" 2>&1; then
        fail "$1: $(<"$root/log")"
    elif difference=$(diff <(sort) <(cd "$root/$1" && find . ! -type d -printf '%P\n' | sort)); then
        echo "ok    $1"
    else
        fail "$1, lines with > are installed: $difference"
    fi
    cp -a "$root/$1/." "$root/all"
}
mkdir "$root/all"

installs module < <(
    echo "usr/$module_dir/libassistant-control-plugin.so"
    echo usr/bin/assistant-control-doctor
    echo usr/share/bash-completion/completions/assistant-control-doctor
    echo usr/share/man/man1/assistant-control-doctor.1
    cd "$project_dir" && printf 'usr/share/doc/assistant-control-plugin/%s\n' contract.md contracts/*.xml failures.md
)
installs translations < <(
    printf 'usr/share/TavrenAIAssistant/translations/%s.qm\n' aassistant-control-plugin_en \
        assistant-control-plugin_{zh_CN,zh_HK,zh_TW,bo,ug}
)
installs sandbox < <(
    echo usr/bin/assistant-sandbox
    printf 'usr/libexec/assistant-sandbox/%s\n' control-center \
        sandbox-{aiservice,assistant,audio,control,dock,keybinding,networkmanager}
    printf "usr/$libdir/assistant-sandbox/lib%s.so\n" ztk zcc zframeworkdbus
    printf 'usr/share/assistant-sandbox/%s\n' run lib/{cleanup,session} \
        lib/{places,processes,sandbox,supervise}.sh \
        microphone/{plug,start} microphone/{speech,noise,loud,quiet,silence}.wav
    echo usr/share/man/man1/assistant-sandbox.1
)

# Nothing is found because it was built here.
if named=$(grep -rlF -e "$project_dir" -e "$build" "$root/all"); then
    fail "these have the build's path in them: $named"
fi

# What is installed runs in an environment of its own, without a display.
installed() {
    env -i PATH="$PATH" HOME="$root/home" LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen TMPDIR="$root" "$@"
}
mkdir "$root/home"

# A page that there is not is missed in the list of those that the module has registered.
said=$(installed "$root/all/usr/libexec/assistant-sandbox/control-center" \
    --plugin "$root/all/usr/$module_dir/libassistant-control-plugin.so" --page None 2>&1)
[[ $said == *'no page "None", but Desktop AI Assistant'* ]] || fail "the module does not load: $said"

run=$root/all/usr/bin/assistant-sandbox
said=$(installed "$run" --offline=yes 2>&1)
[[ $? == 2 && $said == "assistant-sandbox: --offline takes no value (assistant-sandbox --help)" ]] ||
    fail "wrong usage: $said"
options() {
    grep -o -e '--[a-z]\+\(-[a-z]\+\)*' | sort -u
}
if ! difference=$(diff <(installed "$run" --help | options) \
    <(sed 's/\\//g' "$root/all/usr/share/man/man1/assistant-sandbox.1" | options)); then
    fail "help and manual page differ: $difference"
fi

# The doctor needs no library of the desktop to say that the module misses one.
module=$root/all/usr/$module_dir/libassistant-control-plugin.so
said=$(installed "$root/all/usr/bin/assistant-control-doctor" 2>&1)
[[ $said == *"failure  plugin     $module "*": cannot open shared object file"* ]] ||
    fail "the doctor: $said"

# All services, the microphone, and the window.
said=$(installed "$run" --tour "$root/pictures" --section icons 2>&1) || fail "tour: $said"
compgen -G "$root/pictures/*.png" >/dev/null || fail "tour without pictures: $said"

exit $((failures > 0))
