import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// Options for undated files and duplicates. It is closed at first, because few users change them.
Disclosure {
    id: section

    required property OrganizationModel model

    text: qsTrId("org.advanced")

    Card {
        Layout.fillWidth: true

        contentItem: ColumnLayout {
            spacing: Theme.s12

            GridLayout {
                Layout.fillWidth: true
                columns: 2
                columnSpacing: Theme.s12
                rowSpacing: Theme.s12

                BodyText {
                    Layout.maximumWidth: 160
                    text: qsTrId("org.missingDates")
                }

                MenuPicker {
                    Layout.fillWidth: true
                    label: qsTrId("org.missingDates")
                    model: section.model.unknownDatePolicies
                    currentIndex: section.model.unknownDatePolicy
                    onActivated: index => section.model.unknownDatePolicy = index
                }

                BodyText {
                    Layout.maximumWidth: 160
                    text: qsTrId("org.duplicateFiles")
                }

                MenuPicker {
                    Layout.fillWidth: true
                    label: qsTrId("org.duplicateFiles")
                    model: section.model.duplicatePolicies
                    currentIndex: section.model.duplicatePolicy
                    onActivated: index => section.model.duplicatePolicy = index
                }
            }

            RowLayout {
                Layout.fillWidth: true
                visible: !section.model.isAnalyzed
                spacing: Theme.s4

                CaptionText {
                    Layout.fillWidth: true
                    text: section.model.isAnalyzing ? qsTrId("results.analyzingDuplicates")
                                                    : "Duplicates are not known yet."
                    wrapMode: Text.Wrap
                }

                LinkButton {
                    visible: !section.model.isAnalyzing
                    text: "Analyze first"
                    onClicked: section.model.analyzeDuplicates()
                }
            }

            Switch {
                Layout.fillWidth: true
                text: qsTrId("org.verifyIntegrity")
                checked: section.model.verifyTransfers
                onToggled: section.model.verifyTransfers = checked
            }
        }
    }
}
