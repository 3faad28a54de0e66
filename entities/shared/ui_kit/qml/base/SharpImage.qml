import QtQuick
import QtQuick.Window

// An image drawn with as many pixels as the screen has for its width.
Image {
    asynchronous: true
    fillMode: Image.PreserveAspectFit
    sourceSize.width: width * Screen.devicePixelRatio
}
