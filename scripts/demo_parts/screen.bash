# Looking at the demo's screen and typing on it. Sourced by scripts/demo.

on_screen() {
    XDG_RUNTIME_DIR=$folder/terminal WAYLAND_DISPLAY=$wayland_socket "$@"
}

# The colour of a pixel of a binary PPM file, as six hexadecimal digits.
pixel() {
    local file=$1 x=$2 y=$3 width height header
    read -r width height < <(sed -n 2p "$file")
    header="P6
$width $height
255
"
    if ((x >= width || y >= height)); then
        return 1
    fi
    od -An -v -tx1 -j $((${#header} + 3 * (y * width + x))) -N 3 "$file" | tr -d ' '
}

# The dialog, 650 pixels wide, stands in the middle of the screen. A pixel at the left edge of its
# information panel tells that it is there; two equal pictures in a row, that nothing changes any
# more.
dialog_is_up() {
    local picture=$folder/terminal/screen.ppm last=$folder/terminal/last.ppm
    local width=${size%x*} height=${size#*x}
    if [[ -e $picture ]]; then
        mv "$picture" "$last"
    fi
    on_screen grim -t ppm "$picture" 2>/dev/null &&
        [[ $(pixel "$picture" $(((width - 650) / 2 + 48)) $((height / 2))) == 191b1e ]] &&
        cmp -s "$picture" "$last"
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
