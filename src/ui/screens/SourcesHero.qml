import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// What the program is for, in two lines.
ColumnLayout {
    spacing: Theme.s4

    RowLayout {
        Layout.alignment: Qt.AlignHCenter
        Layout.bottomMargin: Theme.s4
        spacing: Theme.s8

        Symbol {
            name: "photo.stack.fill"
            size: 24
            color: Theme.tint(Theme.accent)
        }

        BodyText {
            text: "LUMEO."
            color: Theme.tint(Theme.accent)
            font.weight: Font.Bold
            font.letterSpacing: 1
        }
    }

    TitleText {
        Layout.fillWidth: true
        text: qsTrId("sources.heroTitle")
        horizontalAlignment: Text.AlignHCenter
    }

    SubtitleText {
        Layout.fillWidth: true
        text: qsTrId("sources.heroSubtitle")
        horizontalAlignment: Text.AlignHCenter
    }
}
