import QtQuick

// Text of the first rank: titles, values, captions.
Text {
    id: root

    property var palette: paletteProvider.palette

    color: palette ? palette.contentPrimary : "white"
    font.family: "Vantelore Sans Text"
    font.pixelSize: 16
    wrapMode: Text.WordWrap
    textFormat: Text.PlainText

    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
