import QtQuick
import QtQuick.Controls.Basic

import "qrc:/ui_kit/qml/base/" as UiKitBase
import ".."

// The page of DatePicker.
GalleryPage {
    Sample {
        caption: "open, with a day selected"

        Item {
            width: picker.implicitWidth
            height: picker.implicitHeight

            UiKitBase.DatePicker {
                id: picker

                currentDate: new Date(2024, 1, 14)
                closePolicy: Popup.CloseOnEscape

                Component.onCompleted: {
                    // A change of it is what marks the day.
                    selectedDate = new Date(2024, 1, 15);
                    selectedDate = currentDate;
                    open();
                }
            }
        }
    }

    Sample {
        caption: Qt.formatDate(picker.currentDate, "d MMMM yyyy")

        Column {
            width: 140
            spacing: 12

            UiKitBase.PushButton {
                width: parent.width
                text: "Open"
                state: "Alternative"

                onClicked: picker.open()
            }

            UiKitBase.PushButton {
                width: parent.width
                text: "Today"
                state: "Alternative"

                onClicked: {
                    picker.currentDate = new Date();
                    picker.showCurrentMonth();
                    picker.selectedDate = picker.currentDate;
                }
            }
        }
    }
}
