import QtQuick
import QtQuick.Window

// An image drawn with as many pixels as the screen has for its width.
Image {
    // To be given in a layout, whose width comes after the image would have been read in another.
    property real shownWidth: width

    asynchronous: true
    fillMode: Image.PreserveAspectFit
    sourceSize.width: shownWidth * Screen.devicePixelRatio
}
