pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// Everything that is known about the chosen item, beside the list. Its texts are always in English.
Rectangle {
    id: panel

    required property InspectorModel model
    signal enlarged ///< the user wants to see the picture large

    color: Theme.surface
    Accessible.role: Accessible.Pane
    Accessible.name: title.text

    Rectangle {
        anchors.left: parent.left
        width: 1
        height: parent.height
        color: Theme.line
        z: 1
    }

    RowLayout {
        id: heading

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: Theme.s16
        anchors.rightMargin: Theme.s8
        height: 44

        RoleText {
            id: title

            Layout.fillWidth: true
            text: "Media Inspector"
            font.pixelSize: Theme.subtitleSize
            font.weight: Font.DemiBold
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
        }

        IconButton {
            objectName: "closeInspector"
            symbol: "xmark.circle.fill"
            text: qsTrId("common.done")
            onClicked: panel.model.close()
        }
    }

    Page {
        id: flickable

        anchors.top: heading.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        contentHeight: content.implicitHeight + Theme.s24
        activeFocusOnTab: scrolls

        ColumnLayout {
            id: content

            x: Theme.s16
            width: parent.width - 2 * Theme.s16
            spacing: Theme.s16

            Rectangle {
                Layout.fillWidth: true
                Layout.preferredHeight: Math.min(144, Math.round(panel.height * 0.36))
                radius: Theme.radiusControl
                color: Theme.sunken

                Symbol {
                    anchors.centerIn: parent
                    visible: picture.isEmpty
                    name: panel.model.symbol
                    size: 40
                    color: Theme.textTertiary
                    opacity: panel.model.isLoadingPicture ? 0.4 : 1
                }

                Picture {
                    id: picture

                    // The largest size at which the small pictures are sharp.
                    anchors.centerIn: parent
                    width: Math.min(160, parent.width)
                    height: Math.min(128, parent.height)
                    image: panel.model.picture // qmllint disable type
                }

                TapHandler {
                    onTapped: panel.enlarged()
                }

                HoverHandler {
                    cursorShape: Qt.PointingHandCursor
                }
            }

            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.s8

                IconButton {
                    objectName: "enlarge"
                    symbol: "magnifyingglass"
                    text: "Enlarge"
                    onClicked: panel.enlarged()
                }

                IconButton {
                    objectName: "openFile"
                    symbol: "square.and.arrow.up"
                    text: "Open"
                    onClicked: panel.model.openFile()
                }

                IconButton {
                    objectName: "showFile"
                    symbol: "folder.fill"
                    text: "Show in folder"
                    onClicked: panel.model.showFile()
                }

                IconButton {
                    objectName: "copyPath"
                    symbol: "doc.on.doc"
                    text: "Copy path"
                    onClicked: panel.model.copyPath()
                }
            }

            Repeater {
                model: panel.model.sections

                ColumnLayout {
                    id: section

                    required property var modelData

                    Layout.fillWidth: true
                    spacing: 6

                    SectionHeading {
                        text: section.modelData.heading
                    }

                    Repeater {
                        model: section.modelData.rows

                        InspectorRow {
                            required property var modelData

                            Layout.fillWidth: true
                            label: modelData.label
                            value: modelData.value
                            isPath: modelData.isPath
                        }
                    }
                }
            }

            ColumnLayout {
                visible: panel.model.warnings.length + panel.model.errors.length > 0
                Layout.fillWidth: true
                spacing: 6

                SectionHeading {
                    text: "DIAGNOSTICS"
                }

                Repeater {
                    model: panel.model.warnings

                    Diagnostic {
                        required property string modelData

                        Layout.fillWidth: true
                        text: modelData
                    }
                }

                Repeater {
                    model: panel.model.errors

                    Diagnostic {
                        required property string modelData

                        Layout.fillWidth: true
                        symbol: "xmark.circle.fill"
                        tint: "red"
                        text: modelData
                    }
                }
            }
        }
    }
}
