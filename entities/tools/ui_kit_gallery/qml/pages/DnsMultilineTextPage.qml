import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of DnsMultilineText.
GalleryPage {
    id: root

    readonly property var servers: ["10.0.0.1", "10.0.0.2", "10.0.0.3", "10.0.0.4", "10.0.0.5"]

    knobs: [
        Knob { target: list; property: "maxLineCount" }
    ]

    Repeater {
        model: [0, 1, 3, 4]

        Sample {
            id: sample

            required property int modelData

            width: 125
            caption: `${modelData} entries`

            UiKitBase.DnsMultilineText {
                dnsServerList: root.servers.slice(0, sample.modelData)
            }
        }
    }

    Sample {
        width: 200
        caption: "3 entries, maxLineCount 2"

        UiKitBase.DnsMultilineText {
            maxLineCount: 2
            dnsServerList: root.servers.slice(0, 3)
        }
    }

    Sample {
        caption: "5 entries, hovered, as the knobs have it"
        pose: gallery.bare ? "hovered" : ""

        UiKitBase.DnsMultilineText {
            id: list

            width: 90
            height: 110
            dnsServerList: root.servers
        }
    }
}
