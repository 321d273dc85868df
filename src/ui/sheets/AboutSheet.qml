import QtQuick
import Lumeo.Kit

/// Which program this is, and who made it.
Sheet {
    title: "LUMEO."
    subtitle: qsTrId("about.tagline")
    symbol: "photo.stack.fill"
    doneText: qsTrId("common.done")

    InfoRow {
        symbol: "info.circle.fill"
        title: qsTrId("about.version") + " " + Application.version
        text: qsTrId("about.developer")
    }
    InfoRow {
        symbol: "lock.shield.fill"
        tint: "green"
        title: qsTrId("about.privacy")
    }
}
