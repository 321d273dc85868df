import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

/// Turns one thing on or off, with immediate effect.
T.Switch {
    id: control

    /// What a click does, for keys and assistive programs.
    function activate() {
        toggle();
        toggled();
        clicked();
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Math.max(28, implicitContentHeight)
    font.pixelSize: Theme.bodySize
    opacity: enabled ? 1 : 0.45

    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: control.activate()

    Keys.onReturnPressed: control.activate()
    Keys.onEnterPressed: control.activate()

    HoverHandler {
        cursorShape: Qt.PointingHandCursor
    }

    FocusRing {
        shown: control.visualFocus
    }

    contentItem: RowLayout {
        spacing: Theme.s12

        BodyText {
            Layout.fillWidth: true
            text: control.text
        }

        Rectangle {
            Layout.preferredWidth: 38
            Layout.preferredHeight: 22
            radius: 11
            color: control.checked ? Theme.filled(Theme.accent) : Theme.sunken
            border.color: control.checked ? "transparent" : Theme.textTertiary

            Rectangle {
                x: control.checked ? parent.width - width - 3 : 3
                anchors.verticalCenter: parent.verticalCenter
                width: 16
                height: 16
                radius: 8
                color: control.checked ? Theme.onFilled : Theme.textTertiary

                Behavior on x {
                    NumberAnimation {
                        duration: Theme.quick
                        easing.type: Easing.OutCubic
                    }
                }
            }
        }
    }
}
