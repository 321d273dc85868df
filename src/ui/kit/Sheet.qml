import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

/// A text to read over the dimmed window. It keeps the keyboard focus until it is closed by its buttons or by
/// Escape.
ModalSurface {
    id: sheet

    property string title
    property string subtitle
    property string symbol
    property string tint: Theme.accent
    property string doneText: "Done" ///< names both ways to close
    default property alias content: body.data

    width: Math.min(560, parent ? parent.width - 2 * Theme.s32 : 560)
    height: Math.min(implicitHeight, parent ? parent.height - 2 * Theme.s32 : implicitHeight)
    implicitHeight: layout.implicitHeight + topPadding + bottomPadding
    onOpened: done.forceActiveFocus(Qt.PopupFocusReason)

    contentItem: FocusScope {
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: sheet.title

        ColumnLayout {
            id: layout

            anchors.fill: parent
            spacing: Theme.s16

            RowLayout {
                spacing: Theme.s12

                Rectangle {
                    Layout.preferredWidth: 44
                    Layout.preferredHeight: 44
                    visible: sheet.symbol !== ""
                    radius: Theme.radiusCard
                    color: Theme.soft(Theme.tint(sheet.tint))

                    Symbol {
                        anchors.centerIn: parent
                        name: sheet.symbol
                        size: 26
                        color: Theme.tint(sheet.tint)
                    }
                }

                ColumnLayout {
                    spacing: 2

                    RoleText {
                        Layout.fillWidth: true
                        text: sheet.title
                        font.pixelSize: Theme.scaled(18)
                        font.weight: Font.DemiBold
                        wrapMode: Text.Wrap
                        Accessible.role: Accessible.Heading
                    }

                    BodyText {
                        Layout.fillWidth: true
                        visible: text !== ""
                        text: sheet.subtitle
                        color: Theme.textSecondary
                    }
                }

                IconButton {
                    Layout.alignment: Qt.AlignTop
                    symbol: "xmark.circle.fill"
                    text: sheet.doneText
                    onClicked: sheet.close()
                }
            }

            Flickable {
                id: scroller

                Layout.fillWidth: true
                Layout.fillHeight: true
                implicitHeight: body.implicitHeight
                contentHeight: body.implicitHeight
                clip: true
                interactive: contentHeight > height
                boundsBehavior: Flickable.StopAtBounds
                activeFocusOnTab: interactive
                Keys.onUpPressed: flick(0, 600)
                Keys.onDownPressed: flick(0, -600)

                T.ScrollBar.vertical: ScrollBar {
                }

                ColumnLayout {
                    id: body

                    width: scroller.width - (scroller.interactive ? Theme.s12 : 0)
                    spacing: Theme.s16
                }
            }

            PrimaryButton {
                id: done

                Layout.alignment: Qt.AlignRight
                accent: sheet.tint
                text: sheet.doneText
                onClicked: sheet.close()
            }
        }
    }
}
