import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts

// A list to choose from. With a search model the open list can be searched: its owner filters the
// menu by what is typed. Not the `ComboBox` of Qt, which wins where both are imported: documents
// name this one with the qualifier of their import.
Item {
    id: root

    property var pal: paletteProvider.palette
    property bool isBlocked: false
    property alias textRole: box.textRole
    property string tooltipText
    property var menuModel
    property var searchModel
    property int currentIndex: 0
    property bool containsMouse: false
    property alias listHeight: list.implicitHeight
    property alias scrollPolicy: scrollBar.policy
    property string text
    property bool editModeOn: false
    property int oldIndex: 0

    // What a screen reader calls the box: what it shows where its owner says nothing.
    property string accessibleName
    property string foundText
    readonly property color textColor: {
        if (isBlocked) {
            return pal ? pal.contentDisabled : "gray";
        }
        return pal ? pal.contentPrimary : "white";
    }

    signal indexChanged(int newIndex)

    function enableEditMode() {
        if (editModeOn) {
            return;
        }
        oldIndex = currentIndex;
        text = "";
        editModeOn = true;
        search.field.forceActiveFocus();
        fitList();
    }

    function disableEditMode() {
        if (!editModeOn) {
            return;
        }
        const hadFocus = search.activeFocus;
        const sought = search.field.text;
        editModeOn = false;
        search.focus = false;
        if (hadFocus) {
            box.forceActiveFocus();
        }
        const newIndex = searchModel ? searchModel.GetIdByDescription(sought) : -1;
        if (newIndex < 0) {
            foundText = describe(oldIndex);
            return;
        }
        foundText = sought;
        indexChanged(newIndex);
        currentIndex = newIndex;
    }

    function describe(row: int): string {
        return searchModel ? searchModel.GetDescriptionByRow(row) ?? "" : "";
    }

    function showCurrent() {
        if (!editModeOn) {
            box.currentIndex = currentIndex;
            foundText = describe(currentIndex);
        }
    }

    function fitList() {
        if (menuModel) {
            list.implicitHeight = Math.min(340, menuModel.rowCount() * box.height);
        }
    }

    implicitWidth: 405
    implicitHeight: 52

    onCurrentIndexChanged: showCurrent()
    onSearchModelChanged: showCurrent()
    onEditModeOnChanged: showCurrent()

    ComboBox {
        id: box

        // The text ends before the indicator.
        readonly property real textRightMargin: rightPadding + indicator.width + 10

        anchors.fill: parent
        enabled: !root.isBlocked
        hoverEnabled: true
        padding: 0
        rightPadding: 16
        model: root.menuModel
        displayText: root.searchModel ? root.foundText : currentText
        contentItem: null

        Accessible.role: Accessible.ComboBox
        Accessible.name: root.accessibleName || displayText
        Accessible.description: displayText
        Accessible.onPressAction: if (enabled) menu.open()

        background: Rectangle {
            radius: 12
            border.width: 2
            border.color: {
                if (root.isBlocked) {
                    return root.pal ? root.pal.contentDisabled : "#14ffffff";
                }
                if (box.activeFocus) {
                    return root.pal ? root.pal.purplePrimary : "#8C8CFF";
                }
                return root.pal ? root.pal.contentBorder : "#28FFFFFF";
            }
            color: {
                if (root.isBlocked) {
                    return root.pal ? root.pal.contentBackground : "#171F1D";
                }
                return root.pal ? root.pal.backgroundPrimary : "#050505";
            }
        }

        indicator: SharpImage {
            x: box.mirrored ? box.rightPadding : box.width - width - box.rightPadding
            y: (box.height - height) / 2
            width: 24
            height: 24
            source: "qrc:/ui_kit/images/combobox/indicator_icon"
            rotation: menu.visible ? 180 : 0
        }

        delegate: ItemDelegate {
            id: row

            width: list.width
            height: 56
            leftPadding: 12
            rightPadding: 12
            text: model.name ?? model.modelData ?? ""
            highlighted: box.highlightedIndex === index

            Accessible.role: Accessible.ListItem
            Accessible.name: text
            Accessible.onPressAction: clicked()

            background: Item {
                Rectangle {
                    anchors.fill: parent
                    anchors.leftMargin: 4
                    anchors.rightMargin: 4
                    anchors.topMargin: 2
                    anchors.bottomMargin: 2
                    radius: 12
                    color: {
                        if (row.highlighted) {
                            return root.pal ? root.pal.backgroundSubPrimary : "#131414";
                        }
                        return root.pal ? root.pal.backgroundPrimary : "#050505";
                    }
                }
            }

            contentItem: TextLabel {
                text: row.text
                horizontalAlignment: Text.AlignLeft
                verticalAlignment: Text.AlignVCenter
                wrapMode: Text.NoWrap
                elide: Text.ElideRight
                Accessible.ignored: true
            }
        }

        onActivated: index => {
            if (!root.searchModel) {
                root.indexChanged(index);
            } else if (search.field && textAt(index) !== "") {
                search.field.text = textAt(index);
            }
        }
        onActiveFocusChanged: {
            if (!activeFocus) {
                menu.close();
            }
        }
        onHoveredChanged: root.containsMouse = hovered
        // Another model starts at its first row, one that was empty at none.
        onModelChanged: root.showCurrent()
        onCountChanged: {
            if (root.searchModel || currentIndex < 0) {
                root.showCurrent();
            }
        }

        Keys.onReleased: event => {
            const enter = event.key === Qt.Key_Enter || event.key === Qt.Key_Return;
            const opens = enter && !menu.visible && !event.isAutoRepeat;
            // A blank in what is sought would close the list.
            event.accepted = opens || root.editModeOn && event.key === Qt.Key_Space;
            if (opens) {
                menu.open();
            }
        }

        // A binding would wait until the box itself opens the list, which keys do without it.
        Component.onCompleted: {
            popup = menu;
            root.showCurrent();
        }

        TextLabel {
            anchors.left: parent.left
            anchors.leftMargin: 16
            anchors.right: parent.right
            anchors.rightMargin: box.textRightMargin
            anchors.verticalCenter: parent.verticalCenter
            visible: !root.editModeOn
            text: box.displayText
            color: root.textColor
            horizontalAlignment: Text.AlignLeft
            wrapMode: Text.NoWrap
            elide: Text.ElideRight
            Accessible.ignored: true
        }

        Loader {
            id: search

            readonly property TextField field: item?.field ?? null

            anchors.fill: parent
            anchors.leftMargin: 16
            anchors.rightMargin: box.textRightMargin
            active: root.editModeOn
            sourceComponent: searchLine
        }

        RightClickedMouseArea {
            anchors.fill: parent
        }

        FocusFrame {
            frameRadius: 16
            active: box.visualFocus
        }
    }

    Popup {
        id: menu

        y: box.height + 1
        width: box.width
        padding: 0
        closePolicy: Popup.CloseOnEscape | Popup.CloseOnPressOutsideParent

        background: Rectangle {
            radius: 12
            color: root.pal ? root.pal.backgroundPrimary : "#050505"
        }

        enter: Transition {
            NumberAnimation {
                property: "opacity"
                from: 0.0
                to: 1.0
            }
        }

        onAboutToShow: {
            if (root.searchModel) {
                root.enableEditMode();
            }
        }
        onAboutToHide: root.disableEditMode()

        ListView {
            id: list

            anchors.fill: parent
            implicitHeight: Math.min(340, contentHeight)
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: menu.visible ? box.delegateModel : null
            currentIndex: box.highlightedIndex
            highlightMoveDuration: 0
            ScrollBar.vertical: KitScrollBar {
                id: scrollBar

                policy: ScrollBar.AsNeeded
            }
        }
    }

    // The component has no name by which the loader could find it: a box shows no tooltip.
    Loader {
        active: root.tooltipText !== ""
        asynchronous: true
        sourceComponent: tooltipComponent
    }

    Component {
        ControlsTooltip {
            y: box.height
            text: root.tooltipText
            state: root.containsMouse ? "Visible" : "Invisible"
        }
    }

    Component {
        id: searchLine

        RowLayout {
            readonly property alias field: input

            spacing: 10

            SharpImage {
                shownWidth: 20
                Layout.preferredWidth: shownWidth
                Layout.preferredHeight: 20
                source: "qrc:/ui_kit/images/combobox/magnifier_icon"
            }

            TextField {
                id: input

                Layout.fillWidth: true
                Layout.fillHeight: true
                padding: 0
                background: null
                selectByMouse: true
                color: root.textColor
                font.family: "Vantelore Sans Text"
                font.pixelSize: 16
                selectionColor: root.pal ? root.pal.purpleSecondary : "#FF0000"
                selectedTextColor: "#FAFFFFFF"
                cursorDelegate: InputCursor {
                    color: root.pal ? root.pal.purpleSubPrimary : "#8C8CFF"
                }

                Accessible.role: Accessible.EditableText
                Accessible.name: root.accessibleName

                onTextEdited: {
                    root.text = text;
                    root.fitList();
                    // Enter takes the first row that was found.
                    for (let row = box.highlightedIndex; row > 0; --row) {
                        box.decrementCurrentIndex();
                    }
                }
            }
        }
    }
}
