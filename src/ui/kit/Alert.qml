import QtQuick
import QtQuick.Layouts

/// A question that stops the work until it is answered. Escape chooses the answer that changes nothing. If
/// the other answer is destructive, the harmless one has the keyboard focus first.
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
                font.pixelSize: Theme.scaled(16)
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

            // The buttons stand side by side with equal widths. If one needs more, each is as wide as its
            // text. If that does not fit either, they stand one above the other.
            GridLayout {
                id: answers

                readonly property real half: (layout.width - columnSpacing) / 2
                readonly property bool isEven: Math.max(cancel.implicitWidth, confirm.implicitWidth) <= half

                Layout.fillWidth: true
                Layout.topMargin: Theme.s8
                columnSpacing: Theme.s12
                rowSpacing: Theme.s8
                columns: cancel.implicitWidth + confirm.implicitWidth + columnSpacing <= layout.width ? 2 : 1

                PlainButton {
                    id: cancel

                    Layout.fillWidth: true
                    Layout.preferredHeight: Theme.primaryHeight
                    Layout.preferredWidth: answers.isEven ? answers.half : implicitWidth
                    text: alert.cancelText
                    onClicked: alert.answer(false)
                }

                PrimaryButton {
                    id: confirm

                    Layout.fillWidth: true
                    Layout.preferredWidth: answers.isEven ? answers.half : implicitWidth
                    accent: alert.destructive ? "red" : Theme.accent
                    text: alert.confirmText
                    onClicked: alert.answer(true)
                }
            }
        }
    }
}
