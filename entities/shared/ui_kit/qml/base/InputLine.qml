import QtQuick

// The line of small print under an input.
TextLabel {
    height: 16
    leftPadding: 12
    rightPadding: 12
    font.pixelSize: 12
    horizontalAlignment: Text.AlignLeft
    verticalAlignment: Text.AlignVCenter
    wrapMode: Text.NoWrap
    elide: Text.ElideRight
}
