import QtQuick

// The strip of all windows to switch between, along the lower edge of the desktop.
Item {
    id: root

    readonly property int uxThumbnailWidth: 340
    readonly property int uxThumbnailHeight: 245
    readonly property int uxThumbnailMargin: 15
    readonly property int uxThumbnailSpacing: 15
    readonly property int uxTextHeight: 16
    readonly property int uxTextToImageGap: 6
    readonly property int uxImageHeight: 191
    readonly property color appSwitchColor: "#CC292521"
    property var appsModel
    // Gives the picture of a row; a program may have it from an image provider of its own.
    property var getSourceFromModel: model => model.path

    signal hideAltTab
    signal selectApp(var windowId)

    onSelectApp: windowId => console.log("selectApp windowId=" + windowId)

    Rectangle {
        id: panel

        anchors.bottom: parent.bottom
        anchors.horizontalCenter: parent.horizontalCenter
        width: list.contentWidth > 0 ? Math.min(list.contentWidth + 2 * root.uxThumbnailMargin,
                                                root.width) : root.width
        height: root.uxThumbnailHeight
        radius: 16
        color: root.appSwitchColor

        ListView {
            id: list

            // Shows no frame until a key is used.
            property bool focusedByMouse: false

            anchors.fill: parent
            anchors.margins: root.uxThumbnailMargin
            orientation: ListView.Horizontal
            model: root.appsModel
            spacing: root.uxThumbnailSpacing
            clip: true
            activeFocusOnTab: true
            highlightMoveDuration: 0
            boundsBehavior: count > 1 ? Flickable.DragAndOvershootBounds : Flickable.StopAtBounds

            Accessible.role: Accessible.List
            Accessible.name: qsTr("Applications")

            onActiveFocusChanged: focusedByMouse = false

            Keys.onPressed: event => {
                focusedByMouse = false;
                event.accepted = false;
            }

            delegate: Item {
                id: thumbnail

                required property var model
                readonly property string title: model.windowTitle ?? ""

                function select() {
                    root.selectApp(model.windowId);
                }

                width: root.uxThumbnailWidth
                height: column.height

                Accessible.role: Accessible.ListItem
                Accessible.name: title
                Accessible.selected: ListView.isCurrentItem
                Accessible.onPressAction: select()

                Keys.onEnterPressed: select()
                Keys.onReturnPressed: select()
                Keys.onSpacePressed: select()

                Column {
                    id: column

                    width: parent.width
                    spacing: root.uxTextToImageGap

                    TextLabel {
                        width: parent.width
                        height: root.uxTextHeight
                        text: thumbnail.title
                        color: "white"
                        font.pixelSize: 14
                        elide: Text.ElideRight
                        wrapMode: Text.NoWrap
                        Accessible.ignored: true
                    }

                    Image {
                        width: parent.width
                        height: root.uxImageHeight
                        asynchronous: true
                        cache: false
                        smooth: true
                        fillMode: Image.PreserveAspectFit
                        source: root.getSourceFromModel(thumbnail.model) ?? ""
                    }
                }

                MouseArea {
                    anchors.fill: parent

                    onClicked: thumbnail.select()
                }

                RightClickedMouseArea {
                    anchors.fill: parent

                    onClicked: list.focusedByMouse = true
                }

                // The strip clips: the frame stands at the thumbnail's edge.
                Loader {
                    anchors.fill: parent
                    anchors.margins: 4
                    active: list.activeFocus && !list.focusedByMouse
                            && thumbnail.ListView.isCurrentItem
                    sourceComponent: Item {
                        Outline {
                        }
                    }
                }
            }
        }

        // Sees the mouse come and go, and leaves its buttons and wheel to the strip.
        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.NoButton
            hoverEnabled: true

            onExited: root.hideAltTab()
        }
    }
}
