import QtQuick
import QtQuick.Controls.Basic

// An input of several lines. Not the `TextEdit` of Qt Quick, which wins where both are imported:
// documents name this one with the qualifier of their import. Tab goes on to the next control.
InputBox {
    id: root

    property alias text: area.text
    property alias placeholderText: placeholder.text
    property alias activeInputFocus: area.activeFocus

    function forceFocus() {
        area.forceActiveFocus();
    }

    implicitWidth: 405
    implicitHeight: 104
    // The room for the line under the box is kept free whether the line shows or not.
    boxHeight: Math.max(Math.min(height, implicitHeight), height - 20)
    hasFocus: area.activeFocus
    hintColor: pal ? pal.contentSecondary : "#gray"

    ScrollView {
        id: view

        anchors.fill: parent
        focus: true
        topPadding: 4
        bottomPadding: 4
        contentWidth: availableWidth
        clip: true
        ScrollBar.horizontal.policy: ScrollBar.AlwaysOff
        ScrollBar.vertical: KitScrollBar {
            // Over what makes a button of an input that cannot be edited: it can be scrolled still.
            parent: view.parent
            z: 2
            x: view.mirrored ? 0 : view.width - width
            y: view.topPadding
            height: view.availableHeight
            focusTrigger: area.activeFocus
            policy: view.availableHeight < area.implicitHeight ? ScrollBar.AlwaysOn
                                                               : ScrollBar.AsNeeded
        }

        TextArea {
            id: area

            focus: true
            enabled: root.usable
            leftPadding: 16
            rightPadding: 16
            topPadding: 4
            bottomPadding: 4
            background: null
            readOnly: !root.isEditable
            selectByMouse: true
            text: root.defaultText
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.WrapAnywhere
            color: {
                if (root.usable) {
                    return root.pal ? root.pal.contentPrimary : "white";
                }
                return root.pal ? root.pal.contentDisabled : "gray";
            }
            font.family: "Vantelore Sans Text"
            font.pixelSize: 16
            selectionColor: "#2831DBAB"
            selectedTextColor: "#FAFFFFFF"
            cursorDelegate: InputCursor {
                color: root.pal.purplePrimary
            }

            Accessible.role: Accessible.EditableText
            Accessible.multiLine: true
            Accessible.name: root.accessibleName !== "" ? root.accessibleName : placeholder.text
            Accessible.description: root.accessibleDescription

            onEditingFinished: root.textUpdated(text)

            Keys.priority: Keys.BeforeItem
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: {
                nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason);
            }

            RightClickedMouseArea {
                anchors.fill: parent
            }
        }
    }

    // The text area's own placeholder has one line only.
    Text {
        id: placeholder

        anchors.fill: parent
        anchors.leftMargin: 16
        anchors.rightMargin: 16
        anchors.topMargin: 8
        anchors.bottomMargin: 8
        visible: root.usable && area.text === "" && !area.activeFocus
        color: root.pal ? root.pal.contentSecondary : "#8FFFFFFF"
        font: area.font
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
}
