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
        compare(row.item.color.toString(), "#212529");
        paletteProvider.palette = darkPalette;
        compare(row.item.color.toString(), "#ffffff");
        paletteProvider.palette = null;
        compare(row.item.color.toString(), row.bare);

        compare(row.item.font.family, "Vantelore Sans Text");
        compare(row.item.font.pixelSize, row.size);
        compare(row.item.wrapMode, Text.WordWrap);
    }

    name: "TextLabel"

    UiKitBase.TextLabel {
        id: label
    }

    UiKitBase.TextPromt {
        id: promt
    }
}
