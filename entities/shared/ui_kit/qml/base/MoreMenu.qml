import QtQuick
import QtQuick.Window

// A button of three dots with a popup of actions beside it.
Item {
    id: root

    property var menuItemsModel
    readonly property int xOffsetFromRoot: -10

    signal clicked(menuIdx: int)

    // Where the popup's corner comes to lie. Under Wayland this counts from the window of the button,
    // and so does the popup, whose transient parent that window is.
    function getPopupPosition() : point {
        return root.mapToGlobal(root.width + root.xOffsetFromRoot, root.height / 2);
    }

    implicitWidth: 20
    implicitHeight: 20

    IconButton {
        id: button

        readonly property MoreMenuWindow popup: loader.item as MoreMenuWindow

        anchors.fill: parent
        icon.source: "qrc:/ui_kit/images/more_menu"
        text: qsTr("More")

        Accessible.role: Accessible.ButtonMenu

        onClicked: {
            loader.active = true;
            if (popup.visible) {
                popup.hide();
            } else {
                popup.openAt(root.getPopupPosition());
            }
        }
        onActiveFocusChanged: {
            if (!activeFocus && popup) {
                popup.hide();
            }
        }

        Keys.forwardTo: [popupKeys]
    }

    // The keys of the open popup, which go before those of the button.
    Item {
        id: popupKeys

        Keys.onPressed: event => {
            const popup = button.popup;
            event.accepted = popup && popup.visible && popup.handleKey(event.key);
        }
    }

    // The window comes with the first click: a page may hold many such buttons.
    Loader {
        id: loader

        active: false
        sourceComponent: MoreMenuWindow {
            transientParent: root.Window.window
            model: root.menuItemsModel

            onChosen: index => {
                hide();
                root.clicked(index);
            }
        }
    }
}
