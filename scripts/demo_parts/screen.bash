# Looking at the demo's screen and typing on it. Sourced by scripts/demo.

on_screen() {
    XDG_RUNTIME_DIR=$folder/terminal WAYLAND_DISPLAY=$wayland_socket "$@"
}

# The dialog, 650 pixels wide, stands in the middle of the screen, whose size is the session's
# choice. A pixel at the left edge of its information panel tells that it is there.
shows_dialog() {
    local file=$1 width height header colour
    read -r width height < <(sed -n '2{p;q}' "$file")
    header="P6
$width $height
255
"
    colour=$(od -An -v -tx1 -N 3 "$file" \
        -j $((${#header} + 3 * (height / 2 * width + (width - 650) / 2 + 48))) | tr -d ' ')
    [[ $colour == 191b1e ]]
}

# Two equal pictures in a row tell that nothing changes any more.
screen_is_still() {
    local picture=$folder/terminal/screen.ppm last=$folder/terminal/last.ppm
    if [[ -e $picture ]]; then
        mv "$picture" "$last"
    fi
    on_screen grim -t ppm "$picture" 2>/dev/null && cmp -s "$picture" "$last"
}

dialog_is_up() {
    screen_is_still && shows_dialog "$folder/terminal/screen.ppm"
}

wait_for_dialog() {
    wait_until "$caller" dialog_is_up
}

take_screenshot() {
    mkdir -p "$(dirname "$1")"
    on_screen grim "$1"
}

# The seat has a keyboard only once wtype has brought one, so the key waits until that is known.
type_answer() {
    local key=Return
    if [[ $1 == cancel ]]; then
        key=Escape
    fi
    on_screen wtype -s 300 -k "$key"
}
