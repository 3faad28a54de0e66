import QtQuick

// The frame that shows where the keyboard is, standing off the component by a gap.
Rectangle {
    id: root

    property var pal: paletteProvider.palette
    property var outlinedComponent: parent
    property real outlineRadius: outlinedComponent && outlinedComponent.radius !== undefined
                                 ? outlinedComponent.radius + gap : 0
    readonly property int gap: 4

    anchors.centerIn: outlinedComponent
    width: outlinedComponent ? outlinedComponent.width + 2 * gap : 0
    height: outlinedComponent ? outlinedComponent.height + 2 * gap : 0
    radius: outlineRadius
    color: "transparent"
    border.width: 2
    border.color: pal ? pal.contentSubPrimary : "white"

    Component.onCompleted: {
        if (!outlinedComponent) {
            console.warn("'outlinedComponent ' property is not set");
        }
    }
}
