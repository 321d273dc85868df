import QtQuick
import Lumeo.Kit

/// One step of the wizard: a circle with its name below, and the line that leads to it.
ButtonBase {
    id: button

    required property int index
    required property string labelKey
    required property string symbolName
    required property string tint
    required property bool isCurrent
    required property bool isCompleted
    required property bool isReachable

    property real previousWidth: width ///< of the step before it
    readonly property int circle: 28
    readonly property real nameWidth: Math.ceil(metrics.advanceWidth) + leftPadding + rightPadding + 1
    readonly property bool showsCheckmark: isCompleted && !isCurrent

    text: qsTrId(labelKey)
    symbol: symbolName
    enabled: isReachable
    // A later step looks quiet by its colours. It stays fully opaque, because its name must be readable.
    opacity: 1
    padding: Theme.s4
    horizontalPadding: 2
    Accessible.role: Accessible.PageTab
    Accessible.selectable: true
    Accessible.selected: isCurrent

    contentItem: Item {
        implicitHeight: column.implicitHeight

        Rectangle {
            visible: button.index > 0
            anchors.verticalCenter: column.top
            anchors.verticalCenterOffset: button.circle / 2
            anchors.right: parent.horizontalCenter
            anchors.rightMargin: button.circle / 2 + 6
            width: (button.width + button.previousWidth) / 2 - button.circle - 12
            height: 1
            color: Theme.line
        }

        Column {
            id: column

            anchors.centerIn: parent
            width: parent.width
            spacing: 2

            Rectangle {
                id: disc

                readonly property color ground: {
                    if (button.isCurrent)
                        return Theme.filled(button.tint);
                    if (button.isCompleted)
                        return Qt.alpha(Theme.filled(button.tint), 0.9);
                    return Theme.soft(Theme.tint(button.tint));
                }

                anchors.horizontalCenter: parent.horizontalCenter
                width: button.circle
                height: button.circle
                radius: button.circle / 2
                color: ground
                scale: button.down ? 0.92 : 1

                Behavior on scale {
                    NumberAnimation {
                        duration: Theme.quick
                        easing.type: Easing.OutCubic
                    }
                }

                Symbol {
                    anchors.centerIn: parent
                    name: button.showsCheckmark ? "checkmark" : button.symbol
                    // The check mark fills three quarters of its square, so a size of 15 looks like 11.
                    size: button.showsCheckmark ? 15 : 16
                    bold: button.showsCheckmark
                    color: button.isCurrent || button.isCompleted ? Theme.onFilled : Theme.tint(button.tint)
                    cutOut: button.isCurrent ? disc.ground : Theme.surface
                }
            }

            CaptionText {
                width: parent.width
                text: button.text
                color: button.isCurrent ? Theme.textPrimary : Theme.textSecondary
                font.weight: button.isCurrent ? Font.DemiBold : Font.Normal
                elide: Text.ElideRight
                horizontalAlignment: Text.AlignHCenter
                Accessible.ignored: true
            }
        }
    }

    background: Rectangle {
        radius: button.radius
        color: button.enabled && button.hovered ? Theme.hover : "transparent"
    }

    ToolTip {
        text: button.text
        visible: button.hovered && button.contentItem.width < metrics.advanceWidth
    }

    TextMetrics {
        id: metrics

        text: button.text
        font.pixelSize: Theme.captionSize
        font.weight: Font.DemiBold
    }
}
