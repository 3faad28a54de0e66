import QtQuick
import QtTest

Image {
    id: image

    TestCase {
        readonly property var names: ({
            "7x12": ["left", "right"],
            "14x14": ["close_icon"],
            "20x16": ["backbutton/back_icon"],
            "20x20": ["combobox/magnifier_icon", "error_icon", "more_menu", "settings_gear",
                      "settings_gear_disabled", "warning_icon", "warning_icon_white"],
            "24x24": ["calendar", "check_mark_icon_disable", "check_mark_icon_enable",
                      "combobox/indicator_icon", "lineedit/reset_text"],
            "81x80": ["critical_icon"],
            "142x156": ["logo_big"],
            "186x42": ["tvo_logo"],
            "192x24": ["loader_small"],
            "384x48": ["loader_small@2x"],
            "2400x120": ["loader_big"],
            "4800x240": ["loader_big@2x"]
        })

        function test_sizes() {
            for (const size in names) {
                for (const name of names[size]) {
                    image.source = "qrc:/ui_kit/images/" + name;
                    compare(`${name} ${image.implicitWidth}x${image.implicitHeight}`,
                            `${name} ${size}`);
                }
            }
        }

        name: "Images"
    }
}
