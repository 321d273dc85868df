import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// The program's logo and name, and the slogan where there is space.
RowLayout {
    id: brand

    property bool showsSlogan: true

    spacing: Theme.s8

    Rectangle {
        Layout.preferredWidth: 32
        Layout.preferredHeight: 32
        radius: Theme.radiusControl

        gradient: Gradient {
            GradientStop {
                position: 0
                color: "#2F86F6"
            }
            GradientStop {
                position: 1
                color: "#5856D6"
            }
        }

        Symbol {
            anchors.centerIn: parent
            name: "photo.stack.fill"
            size: 20
            color: Theme.onFilled
        }
    }

    ColumnLayout {
        spacing: 0

        RoleText {
            text: "LUMEO."
            font.pixelSize: Theme.scaled(16)
            font.weight: Font.Bold
            font.letterSpacing: 0.5
        }

        CaptionText {
            Layout.maximumWidth: 160
            visible: brand.showsSlogan
            text: qsTrId("brand.slogan")
            elide: Text.ElideRight
        }
    }
}
