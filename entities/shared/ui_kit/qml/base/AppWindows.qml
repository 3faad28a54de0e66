import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Window

// The windows of a program, one a row, opened from its button in the taskbar.
Item {
    id: root

    readonly property int uxWindowsListRadius: 20
    readonly property int uxWindowsListMargin: 4
    readonly property int uxWindowsListFixedWidth: 300
    readonly property int uxWindowsListMaxHeight: 732
    readonly property int uxWindowsListItemWidth: 292
    readonly property int uxWindowsListItemHeight: 52
    readonly property int uxWindowsListItemMargin: 12
    readonly property int uxWindowsListItemHighlightRadius: 12
    readonly property int uxWindowsListTextFontPixelSize: 16
    readonly property color appSwitchColor: "#292521"
    readonly property color appSwitchHighlightColor: "#20FFFFFF"
    property var appWindowsModel
    property int maxItemsCount: 13

    signal selectAppWindow(var windowId)

    // Whether the list lies in the left half of the desktop, so that there is room to its right.
    function isTooltipOnTheRight() : bool {
        return panel.mapToGlobal(panel.width / 2, 0).x < Screen.desktopAvailableWidth / 2;
    }

    implicitWidth: panel.width
    implicitHeight: panel.height

    Rectangle {
        id: panel

        readonly property int maxListHeight: root.maxItemsCount * root.uxWindowsListItemHeight
        // Not asked of the model, which may have rows and yet report a count of 0.
        readonly property bool filled: list.contentHeight > 1

        width: filled ? root.uxWindowsListFixedWidth : 0
        height: filled ? Math.min(list.contentHeight, maxListHeight) + 2 * root.uxWindowsListMargin
                       : 0
        radius: root.uxWindowsListRadius
        color: root.appSwitchColor

        // As high as one row at least, whatever the panel is: without room it would make no row, and
        // its content would never get a height.
        ListView {
            id: list

            x: root.uxWindowsListMargin
            y: root.uxWindowsListMargin
            width: root.uxWindowsListItemWidth
            height: Math.min(Math.max(contentHeight, root.uxWindowsListItemHeight),
                             panel.maxListHeight)
            visible: panel.filled
            model: root.appWindowsModel
            reuseItems: true
            clip: true
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: 0

            Accessible.role: Accessible.List
            Accessible.name: qsTr("Windows")

            highlight: Rectangle {
                radius: root.uxWindowsListItemHighlightRadius
                color: root.appSwitchHighlightColor
            }

            delegate: Item {
                id: row

                required property var model
                required property int index
                readonly property string title: model.windowTitle ?? ""
                readonly property bool elided: whole.contentWidth > root.uxWindowsListItemWidth
                readonly property bool hovered: mouseArea.containsMouse

                function select() {
                    root.selectAppWindow(model.windowId);
                }

                width: root.uxWindowsListItemWidth
                height: root.uxWindowsListItemHeight

                Accessible.role: Accessible.ListItem
                Accessible.name: title
                Accessible.selected: ListView.isCurrentItem
                Accessible.onPressAction: select()

                Keys.onEnterPressed: select()
                Keys.onReturnPressed: select()
                Keys.onSpacePressed: select()

                TextLabel {
                    anchors.fill: parent
                    anchors.margins: root.uxWindowsListItemMargin
                    text: row.title
                    color: "#FFFFFF"
                    font.pixelSize: root.uxWindowsListTextFontPixelSize
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                    wrapMode: Text.NoWrap
                    Accessible.ignored: true

                    TextLabel {
                        id: whole

                        visible: false
                        text: row.title
                        font.pixelSize: root.uxWindowsListTextFontPixelSize
                        elide: Text.ElideNone
                        wrapMode: Text.NoWrap
                    }
                }

                MouseArea {
                    id: mouseArea

                    anchors.fill: parent
                    hoverEnabled: true

                    onEntered: list.currentIndex = row.index
                    onClicked: row.select()
                }

                RightClickedMouseArea {
                    anchors.fill: parent
                }
            }

            // On or off, never as needed: that shows the bar for a moment and hides it again.
            ScrollBar.vertical: KitScrollBar {
                parent: panel
                anchors.top: list.top
                anchors.bottom: list.bottom
                anchors.right: parent.right
                anchors.rightMargin: 2
                width: 11
                policy: list.contentHeight > panel.maxListHeight ? ScrollBar.AlwaysOn
                                                                 : ScrollBar.AlwaysOff
                focusTrigger: list.activeFocus
            }
        }

        Loader {
            id: tooltipLoader

            readonly property var row: list.currentItem

            active: row && row.elided && (row.hovered || list.activeFocus)
            asynchronous: true
            sourceComponent: AppWindowTooltip {
                // Where the panel lies may change without a word: this is asked each time anew.
                readonly property bool tooltipOnTheRight: root.isTooltipOnTheRight()

                parent: panel
                x: tooltipOnTheRight ? panel.width : -width
                y: {
                    const row = tooltipLoader.row;
                    return row ? list.y + row.y - list.contentY + (row.height - height) / 2 : 0;
                }
                directionArrow: tooltipOnTheRight ? TaskbarTooltip.Left : TaskbarTooltip.Right
                text: tooltipLoader.row ? tooltipLoader.row.title : ""
                state: "Invisible"

                Component.onCompleted: state = "Visible"
            }
        }
    }
}
