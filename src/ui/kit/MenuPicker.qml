pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

/// A choice of one text from a list that opens. Space or Return opens it, and the arrow keys choose.
T.ComboBox {
    id: control

    property string label ///< what is chosen, for screen readers

    readonly property real widestText: {
        let widest = 0;
        for (let i = 0; i < count; ++i)
            widest = Math.max(widest, metrics.advanceWidth(textAt(i)));
        return Math.ceil(widest);
    }

    implicitWidth: widestText + leftPadding + rightPadding + 16 + Theme.s8
    implicitHeight: Theme.controlHeight
    leftPadding: Theme.s12
    rightPadding: Theme.s8
    font.pixelSize: Theme.bodySize
    opacity: enabled ? 1 : 0.45

    Accessible.role: Accessible.ComboBox
    Accessible.name: label
    Accessible.description: displayText
    Accessible.onPressAction: control.popup.open()

    Keys.onReturnPressed: control.popup.open()
    Keys.onEnterPressed: control.popup.open()

    FontMetrics {
        id: metrics

        font: control.font
    }

    HoverHandler {
        cursorShape: Qt.PointingHandCursor
    }

    FocusRing {
        shown: control.visualFocus
    }

    contentItem: RowLayout {
        spacing: Theme.s8

        Text {
            Layout.fillWidth: true
            text: control.displayText
            textFormat: Text.PlainText
            color: Theme.textPrimary
            font: control.font
            elide: Text.ElideRight
        }

        Symbol {
            name: "chevron.down"
            size: 16
            color: Theme.textSecondary
        }
    }

    background: Rectangle {
        radius: Theme.radiusControl
        color: Theme.surface
        border.color: Theme.line

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: control.down ? Theme.press : control.hovered ? Theme.hover : "transparent"
        }
    }

    delegate: T.ItemDelegate {
        id: choice

        required property int index
        required property string modelData

        width: ListView.view ? ListView.view.width : implicitWidth
        implicitHeight: Theme.controlHeight
        leftPadding: Theme.s8
        rightPadding: Theme.s8
        text: modelData
        highlighted: control.highlightedIndex === index
        Accessible.role: Accessible.ListItem
        Accessible.name: text

        contentItem: RowLayout {
            spacing: Theme.s8

            Symbol {
                opacity: choice.index === control.currentIndex ? 1 : 0
                name: "checkmark"
                size: 16
                color: Theme.tint(Theme.accent)
            }

            Text {
                Layout.fillWidth: true
                text: choice.text
                textFormat: Text.PlainText
                color: Theme.textPrimary
                font: control.font
                elide: Text.ElideRight
            }
        }

        background: Rectangle {
            radius: 6
            color: choice.highlighted ? Theme.press : "transparent"
        }
    }

    popup: T.Popup {
        y: control.height + 4
        width: Math.max(control.width, control.widestText + 56)
        implicitHeight: Math.min(contentItem.implicitHeight + 2 * padding, 360)
        padding: Theme.s4
        margins: Theme.s8

        contentItem: ListView {
            clip: true
            implicitHeight: contentHeight
            model: control.delegateModel // qmllint disable type
            currentIndex: control.highlightedIndex
            boundsBehavior: Flickable.StopAtBounds
        }

        background: PopupSurface {
        }
    }
}
