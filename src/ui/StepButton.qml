import QtQuick
import Lumeo.Kit

/// One step of the wizard: a circle with its name below, and the line that leads to it.
RoleButton {
    id: step

    required property int index
    required property string labelKey
    required property string symbolName
    required property string tint
    required property bool isCurrent
    required property bool isCompleted
    required property bool isReachable

    property real previousWidth: width ///< of the step before it
    readonly property int circle: 28
    readonly property real nameWidth: Math.ceil(metrics.advanceWidth) + button.leftPadding + button.rightPadding + 1
    readonly property bool showsCheckmark: isCompleted && !isCurrent
    signal clicked

    control: button
    role: Accessible.PageTab
    enabled: isReachable
    Accessible.description: enabled ? "" : "Not available yet"
    Accessible.selectable: true
    Accessible.selected: isCurrent

    ButtonBase {
        id: button

        anchors.fill: parent
        text: qsTrId(step.labelKey)
        symbol: step.symbolName
        // A later step looks quiet by its colours. It stays fully opaque, because its name must be readable.
        opacity: 1
        padding: Theme.s4
        horizontalPadding: 2
        focusPolicy: Qt.NoFocus
        Accessible.ignored: true
        onClicked: step.clicked()

        contentItem: Item {
            implicitHeight: column.implicitHeight

            Rectangle {
                visible: step.index > 0
                anchors.verticalCenter: column.top
                anchors.verticalCenterOffset: step.circle / 2
                anchors.right: parent.horizontalCenter
                anchors.rightMargin: step.circle / 2 + 6
                width: (button.width + step.previousWidth) / 2 - step.circle - 12
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
                        if (step.isCurrent)
                            return Theme.filled(step.tint);
                        if (step.isCompleted)
                            return Qt.alpha(Theme.filled(step.tint), 0.9);
                        return Theme.soft(Theme.tint(step.tint));
                    }

                    anchors.horizontalCenter: parent.horizontalCenter
                    width: step.circle
                    height: step.circle
                    radius: step.circle / 2
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
                        name: step.showsCheckmark ? "checkmark" : button.symbol
                        // The check mark fills three quarters of its square, so a size of 15 looks like 11.
                        size: step.showsCheckmark ? 15 : 16
                        bold: step.showsCheckmark
                        color: step.isCurrent || step.isCompleted ? Theme.onFilled : Theme.tint(step.tint)
                        cutOut: step.isCurrent ? disc.ground : Theme.surface
                    }
                }

                CaptionText {
                    width: parent.width
                    text: button.text
                    color: step.isCurrent || step.isCompleted ? Theme.textPrimary : Theme.textSecondary
                    font.weight: step.isCurrent ? Font.DemiBold : Font.Normal
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
}
