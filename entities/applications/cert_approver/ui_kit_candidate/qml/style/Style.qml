pragma Singleton

import QtQuick

// Metrics and colours of the dialog that no palette role covers.
QtObject {
    readonly property color mainWindowBgColor: "#c0000000"
    readonly property int dialogWinWidth: 650
    readonly property int dialogWinHeight: 628
    readonly property int dialogRadius: 16
    readonly property int greyRectangleRadius: 8
    readonly property color dialogColor: "black"
    readonly property color mainWindowBorderColor: "#40ffffff"
    readonly property int mainWindowBorderWidth: 1
}
