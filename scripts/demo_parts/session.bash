# The processes of the demo: a compositor and the terminal's manager with what it starts, in a folder
# of their own, and their end. Sourced by scripts/demo.

# What runs as root may use a compositor that another user runs; sway itself refuses to be root.
sway_user=65534

programs=$root/build/release/bin
folder=
children=()
manager=

start_session() {
    folder=$(mktemp -d /tmp/tvo-demo.XXXXXX)
    trap end_session EXIT
    chmod 0711 "$folder"
    mkdir -m 0700 "$folder/sway" "$folder/terminal"
    export TVO_RUNTIME_DIR=$folder/terminal
    start_sway
    store_language
    start_terminal
}

# Ends what this script started, the latest first.
end_session() {
    trap - EXIT
    trap '' HUP INT TERM
    local i
    for ((i = ${#children[@]} - 1; i >= 0; --i)); do
        end_process "${children[i]}"
    done
    rm -rf "$folder"
}

# sway loses a request to end that comes while it starts, so nobody is asked for ever. The manager
# ends its programs one after the other, for which it may take 14 s.
end_process() {
    local limit=3 end
    if [[ $1 == "$manager" ]]; then
        limit=15
    fi
    kill "$1" 2>/dev/null || true
    for ((end = SECONDS + limit; SECONDS < end; )); do
        process_runs "$1" || return 0
        sleep 0.05
    done
    kill -KILL "$1" 2>/dev/null || true
}

process_runs() {
    kill -0 "$1" 2>/dev/null
}

# Tries a command every 50 ms, for 30 s at most and while the process runs.
wait_until() {
    local process=$1 tries
    shift
    for ((tries = 0; tries < 600; ++tries)); do
        if "$@"; then
            return 0
        fi
        process_runs "$process" || return 1
        sleep 0.05
    done
    return 1
}

find_wayland_socket() {
    local socket
    for socket in "$folder"/sway/wayland-*; do
        if [[ -S $socket ]]; then
            wayland_socket=$socket
            return 0
        fi
    done
    return 1
}

start_sway() {
    local prefix=() variables=(WLR_RENDERER=pixman)
    cp "$root/packaging/sway/terminal.conf" "$folder/sway/terminal.conf"
    printf '%s\n' "include terminal.conf" "output * bg #2060a0 solid_color" \
        "output * resolution $size" >"$folder/sway/sway.conf"
    if has_session; then
        find_session
    else
        variables+=(WLR_BACKENDS=headless WLR_LIBINPUT_NO_DEVICES=1)
    fi
    if ((EUID == 0)); then
        prefix=(setpriv "--reuid=$sway_user" "--regid=$sway_user" --clear-groups)
        chown -R "$sway_user:$sway_user" "$folder/sway"
    fi
    env "${variables[@]}" XDG_RUNTIME_DIR="$folder/sway" \
        "${prefix[@]}" sway --unsupported-gpu -c "$folder/sway/sway.conf" >"$folder/sway.log" 2>&1 &
    sway=$!
    children+=("$sway")
    wait_until "$sway" find_wayland_socket ||
        give_up "sway does not start; without WAYLAND_DISPLAY and DISPLAY it needs no session" \
            "$folder/sway.log"
}

# sway gets a runtime folder of its own, and so has to be told the session's socket by its path.
# Where root asks, sway runs as the user of the session.
find_session() {
    if [[ -n ${WAYLAND_DISPLAY:-} ]]; then
        if [[ $WAYLAND_DISPLAY != /* ]]; then
            export WAYLAND_DISPLAY=${XDG_RUNTIME_DIR:-}/$WAYLAND_DISPLAY
        fi
        sway_user=$(stat -c %u "$WAYLAND_DISPLAY") || fail 4 "there is no session at $WAYLAND_DISPLAY"
    elif [[ -r ${XAUTHORITY:-${HOME:-}/.Xauthority} ]]; then
        cp "${XAUTHORITY:-${HOME:-}/.Xauthority}" "$folder/sway/xauthority"
        export XAUTHORITY=$folder/sway/xauthority
    fi
}

# The setting that fits the language of the user's session.
setting_of_language() {
    case ${LC_ALL:-${LC_MESSAGES:-${LANG:-}}} in
        ru*) echo ru-RU ;;
        es*) echo es-MX ;;
        pt*) echo pt-BR ;;
        *) echo en-US ;;
    esac
}

# An application reads its language when it starts. So the setting is in the database before: a
# settings service runs for no longer than it takes to write it.
store_language() {
    local log=$folder/settings_manager.log settings
    "$programs/settings_manager" --database "$folder/terminal/settings.sqlite" >"$log" 2>&1 &
    settings=$!
    children+=("$settings")
    "$programs/tvoctl" settings --wait 30 \
        set --create profiles/locale/language "$(setting_of_language)" ||
        give_up "the settings service does not start" "$log"
    end_process "$settings"
    unset "children[-1]"
}

is_ready() {
    "$programs/tvoctl" --json app status cert_approver 2>/dev/null |
        jq -e '.state == "ready"' >/dev/null
}

# The manager starts the services and applications of its file, which inherit what it is told here.
start_terminal() {
    local variables=(
        XDG_RUNTIME_DIR="$folder/terminal"
        WAYLAND_DISPLAY="$wayland_socket"
        QT_QPA_PLATFORM=wayland
        QT_QUICK_BACKEND=software
        FONTCONFIG_FILE="$root/packaging/fontconfig/vantelore-fonts.conf"
    )
    env --chdir="$folder/terminal" "${variables[@]}" "$programs/app_manager" \
        --config "$root/scripts/demo_parts/terminal.toml" >"$folder/terminal.log" 2>&1 &
    manager=$!
    children+=("$manager")
    wait_until "$manager" is_ready || give_up "the terminal does not start" "$folder/terminal.log"
}

give_up() {
    cat "$2" >&2
    fail 4 "$1"
}
