import QtQuick

/// A button that shows only its symbol. Its text is its accessible name and its tooltip.
ButtonBase {
    id: control

    property int size: 28
    property bool isQuiet: false ///< without a tooltip, because something else explains it now
    property int symbolSize: 18
    property color color: Theme.textSecondary
    property color cutOut: Theme.surface

    implicitWidth: size
    implicitHeight: size

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: control.symbol
            size: control.symbolSize
            color: control.hovered ? Theme.textPrimary : control.color
            cutOut: control.cutOut
        }
    }

    background: Rectangle {
        radius: control.radius
        color: "transparent"

        ControlOverlay {
            control: control
            radius: control.radius
        }
    }

    ToolTip {
        text: control.text
        visible: text !== "" && !control.isQuiet && (control.hovered || control.visualFocus)
    }
}
