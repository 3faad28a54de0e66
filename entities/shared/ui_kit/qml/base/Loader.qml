import QtQuick

// The sign that something is under way. Not the `Loader` of Qt Quick, which wins where both are
// imported: documents name this one with the qualifier of their import.
Item {
    id: root

    property alias running: sprite.running
    property alias speed: sprite.frameDuration
    property string loaderSize: "Big"

    implicitWidth: sprite.frameWidth
    implicitHeight: sprite.frameHeight
    state: loaderSize

    Accessible.role: Accessible.Indicator
    Accessible.name: qsTr("Loading")

    states: [
        State {
            name: "Big"

            PropertyChanges {
                target: sprite
                frameWidth: 120
                frameHeight: 120
                frameCount: 20
                source: "qrc:/ui_kit/images/loader_big"
            }
        },
        State {
            name: "Small"

            PropertyChanges {
                target: sprite
                frameWidth: 24
                frameHeight: 24
                frameCount: 8
                source: "qrc:/ui_kit/images/loader_small"
            }
        }
    ]

    AnimatedSprite {
        id: sprite

        anchors.centerIn: parent
        width: frameWidth
        height: frameHeight
        frameDuration: 200
        loops: AnimatedSprite.Infinite
        running: true
    }
}
