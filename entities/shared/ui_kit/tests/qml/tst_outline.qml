import QtQuick
import QtTest

import "qrc:/ui_kit/qml/base/" as UiKitBase

TestCase {
    function test_standsFourPixelsOutside() {
        compare(Qt.rect(outline.x, outline.y, outline.width, outline.height),
                Qt.rect(-4, -4, 108, 58));
        compare([outline.radius, outline.border.width], [14, 2]);
    }

    function test_complainsAboutNothingToSurround() {
        ignoreWarning("'outlinedComponent ' property is not set");
        verify(createTemporaryObject(lonely, null));
    }

    name: "Outline"

    Rectangle {
        width: 100
        height: 50
        radius: 10

        UiKitBase.Outline {
            id: outline
        }
    }

    Component {
        id: lonely

        UiKitBase.Outline {
            outlinedComponent: null
        }
    }
}
