import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// Stands where the rows would be when the search and the filter leave none.
ColumnLayout {
    id: message

    signal cleared

    spacing: Theme.s8

    Symbol {
        Layout.alignment: Qt.AlignHCenter
        name: "magnifyingglass"
        size: 32
        color: Theme.textTertiary
    }

    BodyText {
        Layout.alignment: Qt.AlignHCenter
        text: "No files match."
        color: Theme.textSecondary
    }

    LinkButton {
        Layout.alignment: Qt.AlignHCenter
        text: qsTrId("preview.filter.all")
        onClicked: message.cleared()
    }
}
