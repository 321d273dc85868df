import QtQuick
import QtQuick.Layouts

/// One choice of several, with an example or an explanation in its second line.
ExclusiveButton {
    id: control

    property string detail
    property bool monospaced: false ///< the detail is a path

    padding: Theme.s8
    leftPadding: Theme.s12
    rightPadding: Theme.s12
    width: parent ? parent.width : implicitWidth
    Accessible.description: detail

    contentItem: RowLayout {
        spacing: Theme.s12

        Symbol {
            name: control.checked ? "largecircle.fill.circle" : "circle"
            size: 18
            color: control.checked ? Theme.tint(Theme.accent) : Theme.textTertiary
        }

        ColumnLayout {
            spacing: 2

            BodyText {
                Layout.fillWidth: true
                text: control.text
                font.weight: control.checked ? Font.DemiBold : Font.Normal
            }

            CaptionText {
                Layout.fillWidth: true
                visible: text !== ""
                text: control.detail
                font.family: control.monospaced ? Theme.mono : control.font.family
                elide: Text.ElideMiddle
            }
        }
    }

    background: Rectangle {
        radius: control.radius
        color: control.checked ? Theme.soft(Theme.tint(Theme.accent)) : "transparent"

        ControlOverlay {
            control: control
            radius: control.radius
        }
    }
}
