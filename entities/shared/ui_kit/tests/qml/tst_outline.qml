import QtQuick
import QtTest

import "qrc:/ui_kit/qml/base/" as UiKitBase

TestCase {
    function test_standsFourPixelsOutside_data() {
        return [
            { tag: "rounded", item: ofRectangle, rect: Qt.rect(-4, -4, 108, 58), radius: 14 },
            { tag: "without a radius", item: ofItem, rect: Qt.rect(-4, -4, 68, 48), radius: 0 },
            { tag: "of a sibling", item: ofSibling, rect: Qt.rect(196, 96, 28, 28), radius: 7 }
        ];
    }

    function test_standsFourPixelsOutside(row) {
        const item = row.item;
        compare(Qt.rect(item.x, item.y, item.width, item.height), row.rect);
        compare(item.radius, row.radius);
    }

    function test_frameFollowsThePalette() {
        paletteProvider.palette = darkPalette;
        compare(ofItem.border.color.toString(), "#b2ffffff");
        paletteProvider.palette = null;
        compare(ofItem.border.color.toString(), "#ffffff");
        compare(ofItem.border.width, 2);
    }

    function test_complainsAboutNothingToSurround() {
        ignoreWarning("'outlinedComponent ' property is not set");
        const outline = createTemporaryObject(lonely, null);
        verify(outline);
    }

    name: "Outline"
    when: windowShown

    Rectangle {
        width: 100
        height: 50
        radius: 10

        UiKitBase.Outline {
            id: ofRectangle
        }
    }

    Item {
        width: 60
        height: 40

        UiKitBase.Outline {
            id: ofItem
        }
    }

    Rectangle {
        id: sibling

        x: 200
        y: 100
        width: 20
        height: 20
        radius: 3
    }

    UiKitBase.Outline {
        id: ofSibling

        outlinedComponent: sibling
    }

    Component {
        id: lonely

        UiKitBase.Outline {
            outlinedComponent: null
        }
    }
}
