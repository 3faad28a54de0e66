import QtQuick

// The outline of the control that holds it, made when the keyboard comes and gone when it leaves:
// most controls of a page never have one.
Loader {
    id: root

    // What it stands around: the holder where none is named.
    property Item target
    // That of the target and the gap where none is given.
    property real frameRadius: -1

    sourceComponent: Outline {
        // Beside the target, not in the loader, which its anchors could not leave.
        parent: root.parent
        outlinedComponent: root.target ?? root.parent

        Component.onCompleted: {
            if (root.frameRadius >= 0) {
                outlineRadius = root.frameRadius;
            }
        }
    }
}
