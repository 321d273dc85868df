pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The logo, the steps of the wizard, and the commands that are available everywhere.
Rectangle {
    id: header

    required property ShellModel shell

    signal helpRequested
    signal privacyRequested
    signal performanceRequested
    signal aboutRequested
    signal settingsRequested

    readonly property bool isWide: width >= 1200

    implicitHeight: 64
    color: Theme.surface

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.line
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: header.isWide ? Theme.s32 : Theme.s16
        anchors.rightMargin: header.isWide ? Theme.s32 : Theme.s12
        spacing: Theme.s8

        Brand {
            Layout.fillWidth: false
            showsSlogan: header.width >= 1060
        }

        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            RowLayout {
                id: way

                /// All steps have the same width, unless a long name needs space from short ones.
                readonly property bool isEven: {
                    for (let i = 0; i < steps.count; ++i) {
                        if (steps.itemAt(i).nameWidth * steps.count > width)
                            return false;
                    }
                    return true;
                }

                anchors.centerIn: parent
                width: Math.min(720, parent.width)
                spacing: 0

                Repeater {
                    id: steps

                    model: header.shell.steps

                    StepButton {
                        Layout.fillWidth: true
                        Layout.preferredWidth: way.isEven ? 1 : nameWidth
                        previousWidth: index > 0 && index < steps.count ? steps.itemAt(index - 1).width : width
                        onClicked: header.shell.navigateTo(index)
                    }
                }
            }
        }

        RowLayout {
            Layout.fillWidth: false
            spacing: 2

            IconButton {
                symbol: "questionmark.circle.fill"
                text: qsTrId("header.howToUse")
                onClicked: header.helpRequested()
            }

            IconButton {
                symbol: "lock.shield.fill"
                text: qsTrId("header.privacy")
                onClicked: header.privacyRequested()
            }

            IconButton {
                symbol: "exclamationmark.triangle.fill"
                text: qsTrId("performance.title")
                onClicked: header.performanceRequested()
            }

            IconButton {
                symbol: "info.circle.fill"
                text: qsTrId("header.about")
                onClicked: header.aboutRequested()
            }

            RoleButton {
                control: languageButton
                role: Accessible.ButtonMenu

                IconButton {
                    id: languageButton

                    anchors.fill: parent
                    symbol: "globe"
                    text: qsTrId("utility.language")
                    focusPolicy: Qt.NoFocus
                    isQuiet: languages.visible
                    Accessible.ignored: true
                    onClicked: languages.popup(languageButton, languageButton.width - languages.width,
                                               languageButton.height + Theme.s4)

                    LanguageMenu {
                        id: languages

                        shell: header.shell
                    }
                }
            }

            IconButton {
                symbol: header.shell.isDark ? "moon.fill" : "sun.max.fill"
                text: header.shell.isDark ? qsTrId("header.appearance.dark")
                                          : qsTrId("header.appearance.light")
                Accessible.description: qsTrId("utility.theme")
                onClicked: header.shell.flipAppearance()
            }

            IconButton {
                symbol: "gearshape"
                text: "Settings"
                onClicked: header.settingsRequested()
            }
        }
    }
}
