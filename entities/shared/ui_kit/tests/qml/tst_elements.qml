import QtQuick

import "qrc:/ui_kit/qml/base/" as UiKitBase

KitTestCase {
    function test_outlineStandsFourPixelsOutside() {
        compare(Qt.rect(outline.x, outline.y, outline.width, outline.height),
                Qt.rect(-4, -4, 108, 58));
        compare([outline.radius, outline.border.width], [14, 2]);
        ignoreWarning("'outlinedComponent ' property is not set");
        verify(createTemporaryObject(lonely, null));
    }

    name: "Elements"
    when: true

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
