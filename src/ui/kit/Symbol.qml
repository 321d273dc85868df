import QtQuick
import Lumeo.Kit

/// A picture by name. What it means is said by the control that it belongs to, so it is not accessible
/// itself.
Item {
    id: symbol

    property string name
    property int size: 20
    property bool bold: false
    property color color: Theme.textPrimary
    /// What shows through where a mark is cut out of the picture: the colour of the ground.
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
