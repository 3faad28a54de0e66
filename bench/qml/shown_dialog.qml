import QtQuick

// For the tool `qml`, beside copies of the dialog's documents.
BareWindow {
    visible: true

    Loader {
        source: "View.qml"
    }
}
