import QtQuick
import QtQuick.Templates as T

/// Shows beside its parent what a control does, or the full length of a text that was cut.
T.ToolTip {
    id: control

    x: parent ? (parent.width - implicitWidth) / 2 : 0
    y: parent && parent.mapToItem(null, 0, 0).y < 60 ? parent.height + 6 : -implicitHeight - 6
    implicitWidth: Math.min(360, measure.implicitWidth + leftPadding + rightPadding)
    implicitHeight: contentHeight + topPadding + bottomPadding
    margins: Theme.s8
    padding: Theme.s8
    delay: 500
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    contentItem: CaptionText {
        text: control.text
        color: Theme.textPrimary
        wrapMode: Text.Wrap

        CaptionText {
            id: measure

            visible: false
            text: control.text
        }
    }

    background: Rectangle {
        color: Theme.surface
        border.color: Theme.line
        radius: Theme.radiusControl
    }
}
