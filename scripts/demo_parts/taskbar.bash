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

dialog_is_gone() {
    screen_is_still && ! shows_dialog "$folder/terminal/screen.ppm"
}

# After the answer: a picture where nobody looks, and otherwise as long as somebody wants to look.
leave_taskbar() {
    local picture=$root/build/demo/taskbar.png
    if has_session; then
        say "the taskbar stays until you press Ctrl+Q there"
        wait "$taskbar" || true
    elif wait_until "$taskbar" dialog_is_gone; then
        take_screenshot "$picture"
        say "the taskbar is in $picture"
    fi
}
