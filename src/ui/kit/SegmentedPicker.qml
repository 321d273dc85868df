pragma ComponentBehavior: Bound

import QtQuick

/// A choice between a few short words in one frame.
Rectangle {
    id: picker

    property string label ///< what is chosen, for screen readers
    property var model: [] ///< the words
    property var symbols: [] ///< before the words; may be empty
    property int currentIndex: 0
    signal activated(int index)

    implicitWidth: row.implicitWidth + 4
    implicitHeight: Theme.controlHeight
    radius: Theme.radiusControl
    color: Theme.sunken
    border.color: Theme.line
    Accessible.role: Accessible.Grouping
    Accessible.name: label

    Row {
        id: row

        anchors.centerIn: parent

        Repeater {
            model: picker.model

            ExclusiveButton {
                id: segment

                required property int index
                required property string modelData

                height: picker.implicitHeight - 4
                leftPadding: Theme.s12
                rightPadding: Theme.s12
                radius: 6
                text: modelData
                checked: index === picker.currentIndex
                onClicked: picker.activated(index)

                contentItem: ButtonLabel {
                    text: segment.text
                    symbol: picker.symbols[segment.index] ?? ""
                    color: segment.checked ? Theme.textPrimary : Theme.textSecondary
                    font.pixelSize: segment.font.pixelSize
                    font.weight: segment.checked ? Font.DemiBold : Font.Normal
                }

                background: Rectangle {
                    radius: segment.radius
                    color: segment.checked ? Theme.surface : "transparent"
                    border.color: segment.checked ? Theme.line : "transparent"

                    ControlOverlay {
                        control: segment
                        radius: segment.radius
                    }
                }
            }
        }
    }
}
