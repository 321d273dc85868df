import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// Every control of the kit on one page, for people to look at and for tests. `used` is the name of the
/// control that was used last.
Rectangle {
    id: gallery

    signal used(string name)
    readonly property var theme: Theme

    implicitWidth: 1000
    implicitHeight: page.implicitHeight + 2 * Theme.s32
    color: Theme.ground

    GridLayout {
        id: page

        anchors.fill: parent
        anchors.margins: Theme.s32
        columns: 2
        columnSpacing: Theme.s32
        rowSpacing: Theme.s16

        ColumnLayout {
            Layout.fillWidth: true
            Layout.columnSpan: 2

            TitleText {
                text: "Title"
            }

            SubtitleText {
                text: "Subtitle under it"
            }

            BodyText {
                text: "Running text"
            }

            MonoText {
                Layout.preferredWidth: 160
                text: "/media/disk/pictures/2019/holidays"
            }
        }

        Flow {
            Layout.fillWidth: true
            Layout.columnSpan: 2
            spacing: Theme.s12

            PrimaryButton {
                text: "Primary"
                symbol: "arrow.right"
                trailingSymbol: true
                onClicked: gallery.used(text)
            }

            PlainButton {
                text: "Plain"
                symbol: "folder.badge.plus"
                onClicked: gallery.used(text)
            }

            DestructiveButton {
                text: "Destructive"
                symbol: "arrow.uturn.backward"
                onClicked: gallery.used(text)
            }

            LinkButton {
                text: "Link"
                symbol: "plus"
                onClicked: gallery.used(text)
            }

            IconButton {
                text: "Icon"
                symbol: "info.circle.fill"
                onClicked: gallery.used(text)
            }

            PlainButton {
                text: "Disabled"
                enabled: false
            }

            PlainButton {
                text: "Opens a sheet"
                onClicked: sheet.open()
            }

            PlainButton {
                text: "Opens an alert"
                onClicked: alert.open()
            }

            PlainButton {
                text: "Opens a menu"
                onClicked: menu.popup(this, 0, height + 4)

                Menu {
                    id: menu

                    MenuItem {
                        text: "First"
                        checked: true
                        onTriggered: gallery.used(text)
                    }

                    MenuItem {
                        text: "Second"
                        onTriggered: gallery.used(text)
                    }
                }
            }
        }

        RowLayout {
            Layout.columnSpan: 2
            spacing: Theme.s16

            StatTile {
                Layout.fillWidth: true
                symbol: "photo.fill"
                value: "12,345"
                caption: "Photos"
            }

            StatTile {
                Layout.fillWidth: true
                symbol: "exclamationmark.triangle.fill"
                tint: "red"
                value: "2"
                caption: "Errors"
                detail: "Two folders could not be read"
            }

            FigureTile {
                Layout.fillWidth: true
                symbol: "film.fill"
                tint: "purple"
                title: "Videos"
                value: "4,001"
                caption: "Movies & clips"
                share: 0.4
            }
        }

        RowLayout {
            Badge {
                text: "Badge"
                tint: "orange"
            }

            Chip {
                text: "120 to copy"
            }

            Chip {
                text: "3 duplicates"
                tint: "red"
            }
        }

        ColumnLayout {
            ProgressBar {
                Layout.fillWidth: true
                value: 0.4
                Accessible.name: "Progress"
            }

            ProgressBar {
                Layout.fillWidth: true
                indeterminate: true
                Accessible.name: "Busy"
            }

            CapacityBar {
                Layout.fillWidth: true
                used: 0.5
                added: 0.2
                Accessible.name: "Capacity"
            }
        }

        Column {
            Layout.fillWidth: true

            RadioRow {
                text: "By year"
                detail: "2025 / IMG_001.jpg"
                monospaced: true
                checked: true
                onClicked: gallery.used(text)
            }

            RadioRow {
                text: "By day"
                detail: "2025 / 2025-08-17 / IMG_001.jpg"
                monospaced: true
                onClicked: gallery.used(text)
            }
        }

        RowLayout {
            spacing: Theme.s12

            ChoiceCard {
                Layout.fillWidth: true
                symbol: "doc.on.doc"
                text: "Card one"
                detail: "With a sentence"
                checked: true
                onClicked: gallery.used(text)
            }

            ChoiceCard {
                Layout.fillWidth: true
                symbol: "arrow.right.doc.on.clipboard"
                text: "Card two"
                detail: "With another"
                onClicked: gallery.used(text)
            }
        }

        Row {
            spacing: Theme.s8

            FilterPill {
                text: "All"
                count: "120"
                checked: true
                onClicked: gallery.used(text)
            }

            FilterPill {
                text: "Videos"
                count: "7"
                onClicked: gallery.used(text)
            }
        }

        SegmentedPicker {
            label: "Appearance"
            model: ["Light", "Dark"]
            currentIndex: 0
            onActivated: index => gallery.used(model[index])
        }

        MenuPicker {
            label: "Profile"
            model: ["Automatic", "Careful", "Fast"]
            onActivated: index => gallery.used(model[index])
        }

        Switch {
            text: "Switch"
            onToggled: gallery.used(text)
        }

        TextField {
            Layout.fillWidth: true
            label: "Pattern"
            placeholder: "e.g. {YYYY}"
            onTextEdited: gallery.used(label)
        }

        SearchField {
            Layout.fillWidth: true
            placeholder: "Search"
            clearText: "Clear"
            onTextEdited: gallery.used(placeholder)
        }

        Banner {
            Layout.fillWidth: true
            symbol: "exclamationmark.triangle.fill"
            text: "Something to know before going on"
        }

        Disclosure {
            Layout.fillWidth: true
            text: "Disclosure"
            onExpandedChanged: gallery.used(text)

            BodyText {
                text: "Within"
            }
        }

        Card {
            Layout.fillWidth: true
            Layout.columnSpan: 2

            ColumnLayout {
                anchors.fill: parent

                SectionHeading {
                    text: "SYMBOLS"
                }

                Flow {
                    Layout.fillWidth: true
                    spacing: Theme.s8

                    Repeater {
                        model: Symbols.all

                        Symbol {
                            required property string modelData

                            name: modelData
                            size: 24
                        }
                    }
                }
            }
        }

        BottomBar {
            Layout.fillWidth: true
            Layout.columnSpan: 2

            PlainButton {
                text: "Back"
                onClicked: gallery.used(text)
            }
        }
    }

    Sheet {
        id: sheet

        title: "Sheet"
        subtitle: "Over the window"
        symbol: "lock.shield.fill"

        BodyText {
            Layout.fillWidth: true
            text: "Something to read"
        }
    }

    Alert {
        id: alert

        title: "Alert"
        message: "Do it?"
        confirmText: "Yes"
        cancelText: "No"
        destructive: true
        onConfirmed: gallery.used(confirmText)
        onCancelled: gallery.used(cancelText)
    }
}
