import QtQuick
import QtTest

import "qrc:/ui_kit/qml/base/" as UiKitBase

TestCase {
    function test_looks_data() {
        return [
            { tag: "TextLabel", item: label, size: 16, bare: "#ffffff" },
            { tag: "TextPromt", item: promt, size: 14, bare: "#85ffffff" }
        ];
    }

    function test_looks(row) {
        paletteProvider.palette = lightPalette;
        compare(String(row.item.color), "#212529");
        paletteProvider.palette = null;
        compare(String(row.item.color), row.bare);
        compare([row.item.font.family, row.item.font.pixelSize], ["Vantelore Sans Text", row.size]);
    }

    name: "TextLabel"

    UiKitBase.TextLabel {
        id: label
    }

    UiKitBase.TextPromt {
        id: promt
    }
}
