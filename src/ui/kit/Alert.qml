import QtQuick
import QtQuick.Layouts

/// A question that stops the work until it is answered. Escape is the answer that changes nothing, and
/// so has the keyboard first when the other one takes something away.
ModalSurface {
    id: alert

    property string title
    property string message
    property string symbol: destructive ? "exclamationmark.triangle.fill" : "questionmark.circle.fill"
    property string confirmText
    property string cancelText
    property bool destructive: false
    signal confirmed
    signal cancelled

    property bool answered: false

    function answer(yes: bool) {
        answered = true;
        close();
        if (yes)
            confirmed();
        else
            cancelled();
    }

    width: Math.min(420, parent ? parent.width - 2 * Theme.s32 : 420)
    implicitHeight: layout.implicitHeight + topPadding + bottomPadding
    onAboutToShow: answered = false
    onOpened: (destructive ? cancel : confirm).forceActiveFocus(Qt.PopupFocusReason)
    onAboutToHide: if (!answered) cancelled()

    contentItem: FocusScope {
        focus: true
        Accessible.role: Accessible.AlertMessage
        Accessible.name: alert.title
        Accessible.description: alert.message

        ColumnLayout {
            id: layout

            anchors.fill: parent
            spacing: Theme.s12

            Symbol {
                Layout.alignment: Qt.AlignHCenter
                name: alert.symbol
                size: 40
                color: alert.destructive ? Theme.red : Theme.tint(Theme.accent)
            }

            RoleText {
                Layout.fillWidth: true
                text: alert.title
                font.pixelSize: 16
                font.weight: Font.DemiBold
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignHCenter
                Accessible.role: Accessible.Heading
            }

            BodyText {
                Layout.fillWidth: true
                text: alert.message
                color: Theme.textSecondary
                horizontalAlignment: Text.AlignHCenter
            }

            RowLayout {
                Layout.topMargin: Theme.s8
                spacing: Theme.s12

                PlainButton {
                    id: cancel

                    Layout.fillWidth: true
                    Layout.preferredHeight: Theme.primaryHeight
                    Layout.preferredWidth: 1
                    text: alert.cancelText
                    onClicked: alert.answer(false)
                }

                PrimaryButton {
                    id: confirm

                    Layout.fillWidth: true
                    Layout.preferredWidth: 1
                    accent: alert.destructive ? "red" : Theme.accent
                    text: alert.confirmText
                    onClicked: alert.answer(true)
                }
            }
        }
    }
}
