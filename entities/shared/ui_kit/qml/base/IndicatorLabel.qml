import QtQuick

// The text beside the indicator of a check box or a radio button. It goes on over the control's
// edge, unless the control is made wider than its indicator: then it wraps there.
TextLabel {
    id: root

    required property var control
    readonly property real indent: control.indicator.width + control.spacing

    x: control.mirrored ? control.width - width : 0
    y: 15 - baselineOffset
    width: control.width > control.implicitWidth ? control.width : implicitWidth
    leftPadding: control.mirrored ? 0 : indent
    rightPadding: control.mirrored ? indent : 0
    text: control.text
    horizontalAlignment: Text.AlignLeft
    LayoutMirroring.enabled: control.mirrored
    Accessible.ignored: true
}
