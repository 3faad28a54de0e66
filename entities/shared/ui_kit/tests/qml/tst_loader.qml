import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

Item {
    id: root

    readonly property var sprite: loader.children[0]

    width: 200
    height: 200

    UiKitBase.Loader {
        id: loader
    }

    KitTestCase {
        function test_sizes_data() {
            return [{ tag: "Big", side: 120, count: 20 }, { tag: "Small", side: 24, count: 8 }];
        }

        function test_sizes(row) {
            loader.loaderSize = row.tag;
            compare([loader.width, loader.height, root.sprite.width], Array(3).fill(row.side));
            compare([root.sprite.frameCount, String(root.sprite.source)],
                    [row.count, "qrc:/ui_kit/images/loader_" + row.tag.toLowerCase()]);
        }

        function test_runsAtItsSpeedUntilItIsStopped() {
            compare([loader.running, loader.speed], [true, 200]);
            loader.speed = 10;
            tryVerify(() => spy.count > 2);
            loader.running = false;
            verify(!root.sprite.running);
        }

        name: "Loader"
        subject: root.sprite
        signalName: "currentFrameChanged"
    }
}
