# The parts of a running sandbox. Sourced after places.sh, which says where they lie, and processes.sh;
# $work is a folder of the script's own.

# use_state_folder FOLDER: services and window keep their settings there, not in the user's own folders.
use_state_folder() {
    mkdir -p "$1/config" "$1/data" "$1/cache"
    export XDG_CONFIG_HOME=$1/config XDG_DATA_HOME=$1/data XDG_CACHE_HOME=$1/cache
}

# A daemon for each bus, as on the desktop: one for both would answer calls on the wrong one. The desktop's
# own session bus only tells the window which theme to take.
start_buses() {
    export DESKTOP_SESSION_BUS_ADDRESS=${DBUS_SESSION_BUS_ADDRESS-}
    start_process session-bus dbus-daemon --session --nofork --print-address=1
    DBUS_SESSION_BUS_ADDRESS=$(wait_for_line .)
    start_process system-bus dbus-daemon --session --nofork --print-address=1
    DBUS_SYSTEM_BUS_ADDRESS=$(wait_for_line .)
    export DBUS_SESSION_BUS_ADDRESS DBUS_SYSTEM_BUS_ADDRESS
}

# Every service of the sandbox; each prints "ready" when it owns its names.
start_services() {
    local name
    for name in $(service_names); do
        start_process "sandbox-$name" "$sandbox_programs/sandbox-$name"
        wait_for_line '^ready' >/dev/null
    done
}

# The network manager says "disconnected" (20 in its interface).
set_offline() {
    "$sandbox_programs/sandbox-control" networkmanager set state 20
}

# start_microphone KIND: KIND as on the command line, or empty for the default. SANDBOX_MICROPHONE is the
# folder of the microphone, see sandbox/microphone/start; the tour changes the kind in it.
start_microphone() {
    local ready kind name
    export SANDBOX_MICROPHONE=$work/microphone SANDBOX_RECORDINGS=$sandbox_recordings
    start_process microphone "$sandbox_microphone" "${1:-auto}" "$SANDBOX_MICROPHONE"
    ready=$(wait_for_line '^ready')
    . "$SANDBOX_MICROPHONE/environment"

    read -r _ kind name <<<"$ready"
    case $kind in
    real) echo "Microphone: the machine's own, ${name:-but its sound server names none}" ;;
    none) echo "Microphone: none" ;;
    *) echo "Microphone: a virtual one, of the kind \"$kind\" (--microphone)" ;;
    esac
}

# start_window ARGUMENT...: the control-center window with the module. It says "open" when it is.
start_window() {
    local start=start_process
    [[ -z $tour ]] || start=start_shown_process # prints its steps
    "$start" control-center "${sandbox_window[@]}" --plugin "$sandbox_module" "$@"
}

# What is open, and how to use it.
print_instructions() {
    cat <<END
The control center is open. Closing it, or Ctrl+C here, ends everything. F9 in it shows the open page in
all languages, themes, directions and text sizes at once.
To steer a service, in another terminal:

    export DBUS_SESSION_BUS_ADDRESS=$(printf %q "$DBUS_SESSION_BUS_ADDRESS") DBUS_SYSTEM_BUS_ADDRESS=$(printf %q "$DBUS_SYSTEM_BUS_ADDRESS")
    $(printf %q "$sandbox_programs/sandbox-control") dock set hidden true

What changes in the services:
END
}
