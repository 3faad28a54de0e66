import QtQuick
import QtQuick.Window

// The layer of the dialog without an application behind it: whatever the dialog asks its context for
// is answered by a constant, chosen so that the dialog comes out as the application shows it.
Window {
    readonly property int winWidth: 1280
    readonly property int winHeight: 800
    readonly property string addressData: "desktop.example.net:3389"
    readonly property string issuer: "CN=Vantelore Test Authority,O=Vantelore,C=US"
    readonly property string subject: "CN=desktop.example.net,O=Vantelore,C=US"
    readonly property string validData: "14.11.2023 22:13 - 15.01.2027 08:00"
    readonly property string fingerprintData: "SHA-256 5F:0C:3B:9A:D4:77:21:E8"

    readonly property QtObject paletteProvider: QtObject {
        readonly property QtObject palette: QtObject {
            readonly property color contentPrimary: "#ffffff"
            readonly property color contentSubPrimary: "#b2ffffff"
            readonly property color contentBackground: "#1fffffff"
            readonly property color contentBorder: "#29ffffff"
            readonly property color contentDisabled: "#57ffffff"
            readonly property color purplePrimary: "#8c8cff"
            readonly property color purpleSubPrimary: "#9c9cff"
            readonly property color purpleSecondary: "#ababff"
        }
    }

    width: winWidth
    height: winHeight
    color: "transparent"
    flags: Qt.Window | Qt.FramelessWindowHint
}
