import QtQuick

// When a tooltip shows: some time after it was asked for, and never once it is asked to go.
StateGroup {
    id: root

    property var tooltip
    property int delay: 400

    states: [
        State {
            name: "Visible"

            PropertyChanges {
                target: root.tooltip
                visible: true
            }
        },
        State {
            name: "Invisible"

            PropertyChanges {
                target: root.tooltip
                visible: false
            }
        }
    ]

    transitions: Transition {
        from: "Invisible"
        to: "Visible"

        SequentialAnimation {
            PauseAnimation {
                duration: root.delay
            }

            PropertyAction {
                target: root.tooltip
                property: "visible"
            }
        }
    }
}
