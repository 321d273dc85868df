import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// A symbol, a heading and the text about it.
RowLayout {
    id: row

    property string symbol
    property string title
    property string text
    property string tint: Theme.accent

    Layout.fillWidth: true
    spacing: Theme.s12

    Rectangle {
        Layout.alignment: Qt.AlignTop
        Layout.preferredWidth: 36
        Layout.preferredHeight: 36
        radius: 10
        color: Theme.soft(Theme.tint(row.tint))

        Symbol {
            anchors.centerIn: parent
            name: row.symbol
            size: 20
            color: Theme.tint(row.tint)
        }
    }

    ColumnLayout {
        Layout.alignment: Qt.AlignVCenter
        spacing: 2

        BodyText {
            Layout.fillWidth: true
            text: row.title
            font.weight: Font.DemiBold
            wrapMode: Text.Wrap
        }

        BodyText {
            Layout.fillWidth: true
            visible: text !== ""
            text: row.text
            color: Theme.textSecondary
            wrapMode: Text.Wrap
        }
    }
}
