# The preview of the taskbar on the demo's screen. Sourced by scripts/demo.

# A window that comes up takes the keyboard, so the dialog has to come later.
start_taskbar() {
    local variables=(
        XDG_RUNTIME_DIR="$folder/terminal"
        WAYLAND_DISPLAY="$wayland_socket"
        QT_QPA_PLATFORM=wayland
        QT_QUICK_BACKEND=software
        FONTCONFIG_FILE="$root/packaging/fontconfig/vantelore-fonts.conf"
    )
    env "${variables[@]}" "$programs/taskbar_preview" --language "$(setting_of_language)" >&2 &
    taskbar=$!
    children+=("$taskbar")
    wait_until "$taskbar" taskbar_is_up || fail 4 "the taskbar does not come up"
}

taskbar_is_up() {
    swaymsg -s "$(echo "$folder"/sway/sway-ipc.*.sock)" -t get_tree 2>/dev/null |
        jq -e '.. | select(.name? == "Taskbar preview")' >/dev/null
}

taskbar_is_alone() {
    process_runs "$taskbar" && screen_is_still && ! shows_dialog "$folder/terminal/screen.ppm"
}

# After the answer: a picture where nobody looks, and otherwise as long as somebody wants to look. Qt
# may hang once its window is gone, so the end of the program is left to the session's.
leave_taskbar() {
    local picture=$root/build/demo/taskbar.png
    if has_session; then
        say "the taskbar stays until you press Ctrl+Q there"
        while taskbar_is_up; do
            sleep 0.2
        done
    else
        rm -f "$picture"
        wait_until "$taskbar" taskbar_is_alone ||
            fail 4 "no picture of the taskbar: it has ended, or its screen does not come to rest"
        take_screenshot "$picture"
        say "the taskbar is in $picture"
    fi
}
