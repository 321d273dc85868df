import QtQuick
import QtQuick.Layouts

/// Hides what few users need behind one line.
ColumnLayout {
    id: disclosure

    property alias text: header.text
    property bool expanded: false
    default property alias content: body.data

    spacing: Theme.s8

    ButtonBase {
        id: header

        Layout.fillWidth: true
        implicitHeight: Theme.controlHeight
        leftPadding: Theme.s4
        rightPadding: Theme.s8
        onClicked: disclosure.expanded = !disclosure.expanded
        Accessible.role: Accessible.Button
        Accessible.checkable: true
        Accessible.checked: disclosure.expanded

        contentItem: RowLayout {
            spacing: Theme.s8

            Symbol {
                name: "chevron.right"
                size: 18
                color: Theme.textSecondary
                rotation: disclosure.expanded ? 90 : 0

                Behavior on rotation {
                    NumberAnimation {
                        duration: Theme.quick
                        easing.type: Easing.OutCubic
                    }
                }
            }

            BodyText {
                Layout.fillWidth: true
                text: header.text
                font.weight: Font.DemiBold
                wrapMode: Text.NoWrap
                elide: Text.ElideRight
            }
        }

        background: Rectangle {
            radius: header.radius
            color: "transparent"

            ControlOverlay {
                control: header
                radius: header.radius
            }
        }
    }

    ColumnLayout {
        id: body

        Layout.fillWidth: true
        visible: disclosure.expanded
        spacing: Theme.s12
    }
}
