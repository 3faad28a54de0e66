import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts

// The list of a program's pages, for the side of its frame.
Item {
    id: root

    property var pal: paletteProvider.palette
    property alias menuCaption: caption.text
    property var menuModel
    property bool menuHoverEnabled: true
    property alias currentMenuIndex: list.currentIndex

    signal itemActivated(url pageUrl, int pageIndex)

    Keys.onPressed: event => {
        const altKey = event.modifiers & Qt.AltModifier ? event.key : 0;
        if (altKey === Qt.Key_PageUp) {
            list.decrementCurrentIndex();
        } else if (altKey === Qt.Key_PageDown) {
            list.incrementCurrentIndex();
        }
        event.accepted = altKey === Qt.Key_PageUp || altKey === Qt.Key_PageDown;
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.topMargin: 40
        anchors.leftMargin: 12
        anchors.rightMargin: 12
        spacing: 42

        TextPromt {
            id: caption

            Layout.fillWidth: true
            leftPadding: 12
            rightPadding: 12
            horizontalAlignment: Text.AlignLeft
            font.pixelSize: 32
            font.weight: Font.DemiBold
        }

        ListView {
            id: list

            // A list that opens has its first row become current. That is no choice of a page.
            property bool opened: false

            Layout.fillWidth: true
            Layout.fillHeight: true
            model: root.menuModel
            spacing: 4
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: 0

            onCurrentIndexChanged: opened = true
            Component.onCompleted: opened = count > 0

            delegate: ItemDelegate {
                id: row

                required property int index
                required property string name
                required property url componentUrlFromModel

                width: ListView.view.width
                height: 52
                padding: 12
                hoverEnabled: root.menuHoverEnabled
                focusPolicy: Qt.StrongFocus

                Accessible.role: Accessible.ListItem
                Accessible.name: name
                Accessible.selected: ListView.isCurrentItem
                Accessible.onPressAction: clicked()

                background: Rectangle {
                    radius: 12
                    color: {
                        if (row.ListView.isCurrentItem) {
                            return root.pal ? root.pal.contentBackground : "#171F1D";
                        }
                        if (row.hovered) {
                            return root.pal ? root.pal.backgroundPrimary : "#131414";
                        }
                        return "transparent";
                    }
                }

                contentItem: TextPromt {
                    text: row.name
                    font.pixelSize: 16
                    font.weight: Font.Medium
                    horizontalAlignment: Text.AlignLeft
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                    wrapMode: Text.NoWrap
                    Accessible.ignored: true
                }

                ListView.onIsCurrentItemChanged: {
                    if (ListView.isCurrentItem && list.opened) {
                        root.itemActivated(componentUrlFromModel, index);
                    }
                }
                onClicked: {
                    list.opened = true;
                    list.currentIndex = index;
                }

                Keys.onEnterPressed: clicked()
                Keys.onReturnPressed: clicked()

                FocusFrame {
                    frameRadius: 16
                    active: row.visualFocus
                }

                RightClickedMouseArea {
                    anchors.fill: parent
                }
            }
        }
    }
}
