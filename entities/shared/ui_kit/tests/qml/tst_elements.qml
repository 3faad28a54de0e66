import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

KitTestCase {
    function test_text_data() {
        return [
            { tag: "TextLabel", item: label, size: 16, literal: "#ffffff" },
            { tag: "TextPromt", item: promt, size: 14, literal: "#85ffffff" }
        ];
    }

    function test_text(row) {
        compareLooks(() => [row.item.color], [["contentPrimary", row.literal]]);
        compare([row.item.font.family, row.item.font.pixelSize, row.item.wrapMode,
                 row.item.textFormat],
                ["Vantelore Sans Text", row.size, Text.WordWrap, Text.PlainText]);
    }

    function test_scrollHandleTellsTheFocus() {
        compareLooks(() => [handle.color], [["contentSecondary", "#1c2926"]]);
        handle.focusTrigger = true;
        compareLooks(() => [handle.color], [["contentPrimary", "#131414"]]);
        compare([handle.width, handle.radius], [6, 3]);
    }

    function test_outlineStandsFourPixelsOutside() {
        compare(Qt.rect(outline.x, outline.y, outline.width, outline.height),
                Qt.rect(-4, -4, 108, 58));
        compare([outline.radius, outline.border.width], [14, 2]);
        ignoreWarning("'outlinedComponent ' property is not set");
        verify(createTemporaryObject(lonely, null));
    }

    name: "Elements"
    when: true

    UiKitBase.TextLabel {
        id: label
    }

    UiKitBase.TextPromt {
        id: promt
    }

    UiKitBase.ScrollHandle {
        id: handle
    }

    Rectangle {
        width: 100
        height: 50
        radius: 10

        UiKitBase.Outline {
            id: outline
        }
    }

    Component {
        id: lonely

        UiKitBase.Outline {
            outlinedComponent: null
        }
    }
}
