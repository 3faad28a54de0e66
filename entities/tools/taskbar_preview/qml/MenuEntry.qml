import "qrc:/ui_kit/qml/base/" as UiKitBase

// An entry of a ControlMenu, which closes it.
UiKitBase.PushButton {
    required property ControlMenu menu

    implicitHeight: 40
    radius: 12
    fontPixelSize: 14
    state: "Alternative"

    onClicked: menu.close()
}
