import QtQuick
import QtQuick.Layouts

/// One of several numbers, with what it counts. The tile's size does not depend on the number.
Card {
    id: tile

    property string symbol
    property string tint: Theme.accent
    property string value
    property string caption
    property string detail
    property string action ///< what the user can do about the number; empty when there is nothing
    property bool isBusy: false ///< the number is being computed
    signal acted

    implicitWidth: 160
    padding: Theme.s12
    Accessible.name: caption + ": " + value

    contentItem: RowLayout {
        spacing: Theme.s12

        Rectangle {
            Layout.preferredWidth: 36
            Layout.preferredHeight: 36
            visible: tile.symbol !== ""
            radius: Theme.radiusControl
            color: Theme.soft(Theme.tint(tile.tint))

            Symbol {
                anchors.centerIn: parent
                name: tile.symbol
                color: Theme.tint(tile.tint)
            }
        }

        ColumnLayout {
            spacing: 0

            FigureText {
                Layout.fillWidth: true
                text: tile.value
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: Theme.scaled(13)
            }

            CaptionText {
                Layout.fillWidth: true
                text: tile.caption
                elide: Text.ElideRight
            }

            CaptionText {
                Layout.fillWidth: true
                visible: text !== ""
                text: tile.detail
                color: Theme.textTertiary
                wrapMode: Text.Wrap
            }

            LinkButton {
                Layout.leftMargin: -leftPadding
                visible: tile.action !== "" && !tile.isBusy
                text: tile.action
                onClicked: tile.acted()
            }

            ProgressBar {
                Layout.fillWidth: true
                Layout.topMargin: Theme.s4
                visible: tile.isBusy
                indeterminate: true
                tint: tile.tint
                Accessible.name: tile.caption
            }
        }
    }
}
