import QtQuick

// Built anew whenever the window is shown, by a Loader that does it in one go.
BareWindow {
    id: root

    Loader {
        anchors.fill: parent
        active: root.visible
        source: "qrc:/qml/cert_approver/View.qml"
    }
}
