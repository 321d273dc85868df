import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The results of the scan: how much of each kind, and what the user should check before going on.
Item {
    id: view

    required property ScanModel model
    readonly property bool hasGaps: model.findings.unreadableTitle !== ""

    Page {
        id: page

        anchors.top: parent.top
        anchors.bottom: bar.top
        width: parent.width
        contentHeight: Math.max(height, column.y + column.implicitHeight + Theme.s32)
        activeFocusOnTab: scrolls
        Accessible.name: qsTrId("results.title")

        ColumnLayout {
            id: column

            x: (page.width - width) / 2
            y: Math.max(Theme.s32, page.height * 0.1) // fixed, so nothing moves when a part unfolds
            width: Math.min(Theme.contentWidth, page.width - 2 * Theme.s32)
            spacing: Theme.s24

            ColumnLayout {
                spacing: Theme.s4

                Symbol {
                    Layout.alignment: Qt.AlignHCenter
                    Layout.bottomMargin: Theme.s4
                    name: view.hasGaps ? "exclamationmark.triangle.fill"
                          : view.model.findings.hasItems ? "checkmark.circle.fill" : "magnifyingglass"
                    size: 40
                    color: view.hasGaps ? Theme.orange : view.model.findings.hasItems ? Theme.green : Theme.textTertiary
                }

                TitleText {
                    Layout.fillWidth: true
                    text: qsTrId("results.title")
                    horizontalAlignment: Text.AlignHCenter
                }

                SubtitleText {
                    Layout.fillWidth: true
                    text: view.model.findings.foundLine
                    horizontalAlignment: Text.AlignHCenter
                }

                BodyText {
                    Layout.fillWidth: true
                    text: view.model.findings.scannedInLine
                    color: Theme.textTertiary
                    horizontalAlignment: Text.AlignHCenter
                }
            }

            ResultsTiles {
                Layout.fillWidth: true
                visible: view.model.findings.hasItems
                model: view.model
            }

            // What else was in the folders. If no media was found, this is the only information.
            Flow {
                Layout.alignment: Qt.AlignHCenter
                Layout.maximumWidth: column.width
                spacing: Theme.s8

                Chip {
                    text: qsTrId("scan.filesInspected") + ": " + view.model.counters.inspected
                    tint: "grey"
                }

                Chip {
                    text: qsTrId("scan.unsupported") + ": " + view.model.counters.unsupported
                    tint: "grey"
                }

                Chip {
                    text: qsTrId("scan.errors") + ": " + view.model.counters.errors
                    tint: view.model.counters.hasErrors ? "red" : "grey"
                }
            }

            Disclosure {
                Layout.fillWidth: true
                visible: view.hasGaps
                text: view.model.findings.unreadableTitle

                TextList {
                    Layout.fillWidth: true
                    lines: view.model.findings.unreadable
                    onCopied: view.model.copyUnreadable()
                }
            }
        }
    }

    BottomBar {
        id: bar

        anchors.bottom: parent.bottom
        width: parent.width

        PlainButton {
            text: qsTrId("results.changeSources")
            onClicked: view.model.changeSources()
        }

        Item {
            Layout.fillWidth: true
        }

        RowLayout {
            visible: view.model.isAnalyzing
            spacing: Theme.s12

            ProgressBar {
                Layout.preferredWidth: 72
                indeterminate: true
                Accessible.name: analyzing.text
            }

            BodyText {
                id: analyzing

                text: qsTrId("results.analyzingDuplicates")
                color: Theme.textSecondary
                wrapMode: Text.NoWrap
            }
        }

        PlainButton {
            visible: view.model.findings.hasItems && !view.model.isAnalyzing
            text: qsTrId("results.analyzeDuplicates")
            symbol: "doc.on.doc.fill"
            onClicked: view.model.analyzeDuplicates()
        }

        PrimaryButton {
            text: qsTrId("results.organize")
            symbol: "arrow.right"
            trailingSymbol: true
            enabled: view.model.findings.hasItems
            missing: "Nothing was found to organize."
            onClicked: view.model.organize()
        }
    }
}
