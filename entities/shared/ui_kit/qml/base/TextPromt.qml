import QtQuick

// Text of the second rank: what a value is, hints, warnings.
Text {
    id: root

    property var palette: paletteProvider.palette

    color: palette ? palette.contentPrimary : "#85FFFFFF"
    font.family: "Vantelore Sans Text"
    font.pixelSize: 14
    wrapMode: Text.WordWrap
    textFormat: Text.PlainText

    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
