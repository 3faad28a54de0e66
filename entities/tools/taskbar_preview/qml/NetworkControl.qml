// The network, with a picture and a word for each of its states.
TaskbarControl {
    readonly property var images: ["error", "unplugged", "no_address", "connected"]
    readonly property var hints: [qsTr("Network failure"), qsTr("Network cable unplugged"),
                                  qsTr("Connected, no address"), qsTr("Connected")]

    text: hints[networkStatusIndicator.networkStatus]
    hint: text
    icon.source: "qrc:/taskbar_preview/images/network_" + images[networkStatusIndicator.networkStatus]
                 + ".svg"
    shown: networkStatusIndicator.isVisible
    enabled: networkStatusIndicator.isEnabled

    onClicked: networkStatusIndicator.OnControlActivated()
}
