import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// Takes the place of the rows when there are none, or when the search and the filter hide all of them.
ColumnLayout {
    id: message

    required property bool isNarrowed ///< by a search or a filter
    signal cleared

    spacing: Theme.s8

    Symbol {
        Layout.alignment: Qt.AlignHCenter
        name: message.isNarrowed ? "magnifyingglass" : "photo"
        size: 32
        color: Theme.textTertiary
    }

    BodyText {
        Layout.alignment: Qt.AlignHCenter
        text: message.isNarrowed ? "No files match." : qsTrId("scan.totalSupported") + ": 0"
        color: Theme.textSecondary
    }

    LinkButton {
        Layout.alignment: Qt.AlignHCenter
        visible: message.isNarrowed
        text: qsTrId("preview.filter.all")
        onClicked: message.cleared()
    }
}
