import QtQuick
import QtQuick.Layouts

/// One of the few large numbers of a screen, and its share of the whole as a thin bar.
Card {
    id: tile

    property string symbol
    property string tint: Theme.accent
    property string value
    property string title
    property string caption
    property real share: 0 ///< from 0 to 1

    implicitWidth: 220
    padding: 20
    Accessible.name: title + ": " + value

    contentItem: ColumnLayout {
        spacing: Theme.s4

        RowLayout {
            spacing: Theme.s8

            Symbol {
                name: tile.symbol
                color: Theme.tint(tile.tint)
            }

            BodyText {
                Layout.fillWidth: true
                text: tile.title
                font.weight: Font.DemiBold
                wrapMode: Text.NoWrap
                elide: Text.ElideRight
            }
        }

        FigureText {
            Layout.fillWidth: true
            Layout.topMargin: Theme.s4
            text: tile.value
            font.pixelSize: Theme.scaled(30)
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: Theme.scaled(16)
        }

        CaptionText {
            Layout.fillWidth: true
            text: tile.caption
            elide: Text.ElideRight
        }

        ProgressBar {
            Layout.fillWidth: true
            Layout.topMargin: Theme.s8
            value: tile.share
            tint: tile.tint
            Accessible.ignored: true
        }
    }
}
