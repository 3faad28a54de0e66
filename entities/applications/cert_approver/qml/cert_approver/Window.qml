import QtQuick
import QtQuick.Window

import "." as CertApprover

// The modal layer over the whole screen. It stays loaded, hidden, between two requests; the dialog
// on it is built anew for each.
Window {
    id: root

    width: winWidth
    height: winHeight
    visible: certApproverContext.isVisible
    opacity: 0
    color: "transparent"
    title: "modalCertApprover"
    // Without decorations by the compositor, Qt would draw its own around the layer.
    flags: Qt.Window | Qt.FramelessWindowHint

    // Whoever closes the window while a caller waits has refused. A hidden window is closed when
    // the application quits, and must not object.
    onClosing: close => {
        if (certApproverContext.isVisible) {
            close.accepted = false;
            certApproverContext.Close();
        }
    }

    Loader {
        anchors.fill: parent
        asynchronous: true
        // Not the window's own property: that one tells of its changes later, and with the next
        // request at hand it would tell of none, so that the dialog stayed as it was left.
        sourceComponent: certApproverContext.isVisible ? dialog : undefined
    }

    Component {
        id: dialog

        CertApprover.View {}
    }
}
