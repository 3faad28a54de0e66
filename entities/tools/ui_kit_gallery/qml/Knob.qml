import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

// Turns a property of a component: a box for a truth value, a choice where there are few values, a
// line for a text or a number.
Item {
    id: root

    required property var target
    required property string property
    property var choices: []
    readonly property var value: target ? target[property] : undefined

    implicitWidth: loader.width
    implicitHeight: loader.height

    Loader {
        id: loader

        sourceComponent: {
            if (root.choices.length > 0) {
                return choiceKnob;
            }
            return typeof root.target[root.property] === "boolean" ? boxKnob : lineKnob;
        }
    }

    Component {
        id: boxKnob

        Item {
            implicitWidth: Math.ceil(28 + label.advanceWidth)
            height: 40

            UiKitBase.CheckBox {
                id: box

                anchors.left: parent.left
                y: 8
                text: root.property
                checked: root.value === true

                onCheckedChanged: {
                    if (root.value !== checked) {
                        root.target[root.property] = checked;
                    }
                }
            }

            TextMetrics {
                id: label

                text: root.property
                font.family: "Vantelore Sans Text"
                font.pixelSize: 16
            }
        }
    }

    Component {
        id: choiceKnob

        Row {
            height: 40
            spacing: 12

            UiKitBase.TextPromt {
                text: root.property
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                wrapMode: Text.NoWrap
            }

            Choice {
                anchors.verticalCenter: parent.verticalCenter
                choices: root.choices
                current: root.value

                onChosen: value => root.target[root.property] = value
            }
        }
    }

    Component {
        id: lineKnob

        Row {
            spacing: 12

            UiKitBase.TextPromt {
                text: root.property
                height: line.height
                verticalAlignment: Text.AlignVCenter
                wrapMode: Text.NoWrap
            }

            UiKitBase.LineEdit {
                id: line

                readonly property bool isNumber: typeof root.target[root.property] === "number"

                width: isNumber ? 72 : 240
                resetButtonIsVisible: !isNumber
                height: 40
                defaultText: root.target[root.property]
                placeholderText: root.property

                onTextUpdated: newText => {
                    root.target[root.property] = isNumber ? Number(newText) : newText;
                }
            }
        }
    }
}
