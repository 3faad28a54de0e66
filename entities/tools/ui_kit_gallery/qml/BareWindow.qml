import QtQuick
import QtQuick.Window

// The samples of a page and nothing around them, for pictures.
Window {
    width: page.width
    height: page.height
    color: "#5A6470"

    Loader {
        id: page

        source: gallery.page
    }
}
