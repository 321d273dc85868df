pragma ComponentBehavior: Bound

import QtQuick
import Lumeo.Kit

/// The names of the preview's columns, with a handle at the end of each.
Item {
    id: header

    required property TableColumns columns
    readonly property bool mirrored: LayoutMirroring.enabled

    implicitHeight: Theme.rowHeight
    implicitWidth: columns.total

    Row {
        height: parent.height

        Repeater {
            model: header.columns.names

            Item {
                id: cell

                required property int index
                required property string modelData

                width: header.columns.widths[index]
                height: parent.height

                visible: width > 0

                SectionHeading {
                    anchors.fill: parent
                    anchors.leftMargin: Theme.s12
                    anchors.rightMargin: Theme.s8
                    text: cell.modelData
                    elide: Text.ElideRight
                    verticalAlignment: Text.AlignVCenter
                }

                Item {
                    anchors.right: parent.right
                    anchors.rightMargin: -width / 2
                    width: 9
                    height: parent.height
                    visible: cell.index < header.columns.names.length - 1
                    z: 1

                    Rectangle {
                        anchors.centerIn: parent
                        width: hover.hovered || drag.active ? 2 : 1
                        height: parent.height - 12
                        color: hover.hovered || drag.active ? Theme.tint(Theme.accent) : Theme.line
                    }

                    HoverHandler {
                        id: hover

                        cursorShape: Qt.SplitHCursor
                    }

                    DragHandler {
                        id: drag

                        property real last: 0

                        target: null
                        yAxis.enabled: false
                        dragThreshold: 0
                        cursorShape: Qt.SplitHCursor
                        onActiveChanged: last = 0
                        onActiveTranslationChanged: {
                            const moved = activeTranslation.x - last;
                            last = activeTranslation.x;
                            header.columns.resize(cell.index, header.mirrored ? -moved : moved);
                        }
                    }
                }
            }
        }
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.line
    }
}
