import QtQuick
import Lumeo.Kit
import Lumeo.Window

/// The second step: the scan while it runs, and then its results.
Item {
    id: page

    required property ScanModel model

    ScreenLoader {
        anchors.fill: parent
        focus: true
        properties: ({ model: page.model })
        screen: Qt.resolvedUrl(page.model.isScanning ? "ScanningView.qml" : "ResultsView.qml")
    }
}
