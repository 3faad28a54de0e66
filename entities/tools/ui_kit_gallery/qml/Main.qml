import QtQuick
import QtQuick.Window

import "qrc:/ui_kit/qml/base/" as UiKitBase

// The gallery's window: the frame that the kit has for programs of several pages.
Window {
    width: 1018
    height: 580
    minimumWidth: width
    minimumHeight: height
    maximumWidth: width
    maximumHeight: height
    title: "UI kit: " + gallery.pageName
    color: "#5A6470"
    // Of the window, for its popups too.
    LayoutMirroring.enabled: Qt.locale().textDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    UiKitBase.CommonWindow {
        anchors.fill: parent
        pageSource: gallery.page
        menuSource: GalleryMenu {}
        onCloseActivated: Qt.quit()
    }
}
