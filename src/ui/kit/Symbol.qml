import QtQuick
import Lumeo.Kit

/// A picture by name. It is not accessible itself, because the control around it says what it means.
Item {
    id: symbol

    property string name
    property int size: 20
    property bool bold: false
    property color color: Theme.textPrimary
    /// The colour of the background, which shows where a mark is cut out of the picture.
    property color cutOut: Theme.surface

    implicitWidth: size
    implicitHeight: size

    Text {
        anchors.centerIn: parent
        text: Symbols.glyph(symbol.name)
        color: symbol.color
        font.family: Symbols.family
        font.pixelSize: symbol.size
        font.bold: symbol.bold
    }

    Text {
        anchors.centerIn: parent
        anchors.verticalCenterOffset: Math.round(symbol.size * 0.06)
        visible: text !== ""
        text: Symbols.mark(symbol.name)
        color: Symbols.markIsCutOut(symbol.name) ? symbol.cutOut : symbol.color
        font.family: Symbols.family
        font.pixelSize: Math.round(symbol.size * 0.55)
    }
}
