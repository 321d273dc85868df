import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// One figure of the last run, as wide as its neighbours.
Rectangle {
    id: figure

    required property string value
    required property string caption
    required property string tint

    Layout.fillWidth: true
    Layout.preferredWidth: 1
    implicitHeight: column.implicitHeight + 2 * Theme.s8
    radius: Theme.radiusControl
    color: Theme.soft(Theme.tint(tint))
    Accessible.role: Accessible.Grouping
    Accessible.name: caption + ": " + value

    ColumnLayout {
        id: column

        anchors.verticalCenter: parent.verticalCenter
        x: Theme.s12
        width: parent.width - 2 * Theme.s12
        spacing: 0

        FigureText {
            Layout.fillWidth: true
            text: figure.value
            color: Theme.tint(figure.tint)
            font.pixelSize: Theme.scaled(16)
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: Theme.scaled(11)
        }

        CaptionText {
            Layout.fillWidth: true
            text: figure.caption
            elide: Text.ElideRight
        }
    }
}
