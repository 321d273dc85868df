import QtQuick
import QtQuick.Layouts

/// The symbol and the text of a button, side by side in its centre.
Item {
    id: label

    required property string text
    required property string symbol
    required property color color
    property color cutOut: Theme.surface
    property bool symbolTrails: false
    property font font

    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight

    RowLayout {
        id: row

        anchors.centerIn: parent
        width: Math.min(implicitWidth, label.width)
        spacing: Theme.s8
        layoutDirection: label.symbolTrails ? Qt.RightToLeft : Qt.LeftToRight

        Symbol {
            visible: label.symbol !== ""
            name: label.symbol
            size: 16
            color: label.color
            cutOut: label.cutOut
        }

        Text {
            Layout.fillWidth: true
            visible: text !== ""
            text: label.text
            textFormat: Text.PlainText
            color: label.color
            font: label.font
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignHCenter
        }
    }
}
