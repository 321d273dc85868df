import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// How a long job may affect the machine while it runs.
Sheet {
    title: qsTrId("performance.title")
    symbol: "exclamationmark.triangle.fill"
    tint: "orange"
    doneText: qsTrId("common.done")

    BodyText {
        Layout.fillWidth: true
        text: qsTrId("performance.message")
        wrapMode: Text.Wrap
        lineHeight: 1.35
    }
    InfoRow {
        symbol: "checkmark.circle.fill"
        tint: "green"
        title: qsTrId("performance.expected")
    }
}
