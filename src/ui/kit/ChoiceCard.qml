import QtQuick
import QtQuick.Layouts

/// One of a few choices side by side, each with a picture and a sentence.
ExclusiveButton {
    id: control

    property string detail

    implicitWidth: 200
    padding: Theme.s16
    radius: Theme.radiusCard
    Accessible.description: detail

    contentItem: ColumnLayout {
        spacing: Theme.s4

        RowLayout {
            spacing: Theme.s8

            Symbol {
                name: control.symbol
                color: control.checked ? Theme.tint(Theme.accent) : Theme.textSecondary
            }

            BodyText {
                Layout.fillWidth: true
                text: control.text
                font.weight: Font.DemiBold
            }

            Symbol {
                // Keeps its space, so that the text beside it does not move when the choice changes.
                opacity: control.checked ? 1 : 0
                name: "checkmark.circle.fill"
                color: Theme.tint(Theme.accent)
            }
        }

        CaptionText {
            Layout.fillWidth: true
            Layout.fillHeight: true
            text: control.detail
            wrapMode: Text.Wrap
        }
    }

    background: Rectangle {
        radius: control.radius
        color: control.checked ? Theme.soft(Theme.tint(Theme.accent)) : Theme.surface
        border.width: control.checked ? 2 : 1
        border.color: control.checked ? Theme.tint(Theme.accent) : Theme.line

        ControlOverlay {
            control: control
            radius: control.radius
        }
    }
}
