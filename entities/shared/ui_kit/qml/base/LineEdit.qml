import QtQuick
import QtQuick.Controls.Basic

// An input of one line, with a button that clears it.
InputBox {
    id: root

    property alias text: field.text
    property alias icon: resetButton.icon
    property alias validator: field.validator
    property alias acceptableInput: field.acceptableInput
    property alias maximumLength: field.maximumLength
    property alias displayText: field.displayText
    property alias inputMask: field.inputMask
    property alias echoMode: field.echoMode
    property alias placeholderText: field.placeholderText
    property alias activeInputFocus: field.activeFocus
    property Item nextFocusItem: null

    function forceFocus() {
        field.forceActiveFocus();
    }

    implicitWidth: 405
    implicitHeight: 52
    boxHeight: Math.min(height, 52)
    hasFocus: field.activeFocus
    hintColor: pal ? pal.contentSecondary : "#F34257"

    TextField {
        id: field

        readonly property real buttonRoom: resetButton.visible ? resetButton.width + 8 : 0

        anchors.fill: parent
        focus: true
        leftPadding: 16 + (LayoutMirroring.enabled ? buttonRoom : 0)
        rightPadding: 16 + (LayoutMirroring.enabled ? 0 : buttonRoom)
        // Qt does not allow it to be taken from the item that has the focus.
        activeFocusOnTab: root.usable || activeFocus
        background: null
        readOnly: !root.isEditable || !root.usable
        selectByMouse: true
        text: root.defaultText
        color: {
            if (root.usable) {
                return root.pal ? root.pal.contentPrimary : "white";
            }
            return root.pal ? root.pal.contentDisabled : "gray";
        }
        font.family: "Vantelore Sans Text"
        font.pixelSize: 16
        placeholderTextColor: root.pal ? root.pal.contentSecondary : "gray"
        selectionColor: root.pal ? root.pal.purpleSecondary : "#FF0000"
        selectedTextColor: "#FAFFFFFF"
        cursorDelegate: InputCursor {
            color: root.pal ? root.pal.purpleSubPrimary : "#8C8CFF"
        }

        Accessible.role: Accessible.EditableText
        Accessible.name: root.accessibleName !== "" ? root.accessibleName : placeholderText
        Accessible.description: root.accessibleDescription

        // The characters of a mask that are still to come do not take the cursor.
        onCursorPositionChanged: {
            if (inputMask !== "" && selectedText === "" && cursorPosition !== text.length) {
                cursorPosition = text.length;
            }
        }
        onEditingFinished: root.textUpdated(text)

        KeyNavigation.tab: root.nextFocusItem

        RightClickedMouseArea {
            anchors.fill: parent
        }
    }

    IconButton {
        id: resetButton

        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        z: 2
        width: 24
        height: 24
        visible: root.resetButtonIsVisible && root.usable && field.text !== ""
        focusPolicy: Qt.NoFocus
        text: qsTr("Clear")
        icon.source: root.defaultIcon
        icon.width: 24
        icon.height: 24

        onClicked: {
            if (root.isEditable) {
                field.clear();
                root.textUpdated("");
            } else {
                root.clicked();
            }
        }
    }
}
