import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

// One of several values.
Flow {
    id: root

    property var choices: []
    property var current

    signal chosen(var value)

    spacing: 12

    Repeater {
        model: root.choices

        Item {
            id: choice

            required property var modelData

            width: Math.ceil(button.indicator.width + button.spacing + label.advanceWidth)
            height: 24

            UiKitBase.RadioButton {
                id: button

                anchors.left: parent.left
                text: choice.modelData
                autoExclusive: false
                checked: root.current === choice.modelData

                onClicked: {
                    root.chosen(choice.modelData);
                    checked = Qt.binding(() => root.current === choice.modelData);
                }
            }

            TextMetrics {
                id: label

                text: button.text
                font.family: "Vantelore Sans Text"
                font.pixelSize: 16
            }
        }
    }
}
