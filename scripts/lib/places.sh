# Where the parts of the sandbox lie that is built here, and what must be done before they can run. Sourced;
# $lib_dir is the folder of this file. An installed sandbox has sandbox/installedplaces.sh.in in its place.
# shellcheck disable=SC2034 # for those who source this

program=scripts/run
preparation="Before that it installs what is missing and builds what has changed."

project_dir=$(realpath "$lib_dir/../..")
sandbox_build=$project_dir/build/dev
sandbox_programs=$sandbox_build/sandbox/services
sandbox_module=$sandbox_build/libassistant-control-plugin.so
sandbox_microphone=$project_dir/sandbox/microphone/start
sandbox_recordings=$sandbox_build/sandbox/microphone
sandbox_window=(
    "$project_dir/sandbox/with-translations"
    "$sandbox_build/sandbox/controlcenter/control-center"
)

# The folders in the sources name the services: tests build doubles, for the same names, beside them.
service_names() {
    local folder name
    for folder in "$project_dir"/sandbox/services/*/; do
        name=$(basename "$folder")
        [[ $name == control || ! -x $sandbox_programs/sandbox-$name ]] || echo "$name"
    done
}

prepare() {
    . "$project_dir/scripts/lib/packages.sh"
    . "$project_dir/scripts/lib/build.sh"
    local lists="build run"
    [[ ${SANDBOX_SOUND-} != pipewire ]] || lists+=" pipewire"
    # shellcheck disable=SC2086 # words
    install_packages $lists
    build_preset dev sandbox
    export TRANSLATIONS_DIR=$sandbox_build/translations
    "$project_dir/sandbox/with-translations" true # says on the terminal when it cannot do its work
}

# Ctrl+C in a terminal is for scripts/run alone; a build that got it would report a failure.
cmake() {
    setpriv --pdeathsig TERM setsid --wait cmake "$@"
}
