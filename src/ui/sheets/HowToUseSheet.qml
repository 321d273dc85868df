import QtQuick
import Lumeo.Kit

/// Explains the program in six steps.
Sheet {
    title: qsTrId("header.howToUse")
    subtitle: qsTrId("help.subtitle")
    symbol: "questionmark.circle.fill"
    doneText: qsTrId("common.done")

    InfoRow {
        symbol: "folder.badge.plus"
        title: qsTrId("help.step1.title")
        text: qsTrId("help.step1.description")
    }
    InfoRow {
        symbol: "magnifyingglass.circle.fill"
        title: qsTrId("help.step2.title")
        text: qsTrId("help.step2.description")
    }
    InfoRow {
        symbol: "chart.bar.xaxis"
        title: qsTrId("help.step3.title")
        text: qsTrId("help.step3.description")
    }
    InfoRow {
        symbol: "folder.fill.badge.gearshape"
        title: qsTrId("help.step4.title")
        text: qsTrId("help.step4.description")
    }
    InfoRow {
        symbol: "eye.fill"
        title: qsTrId("help.step5.title")
        text: qsTrId("help.step5.description")
    }
    InfoRow {
        symbol: "checkmark.shield.fill"
        title: qsTrId("help.step6.title")
        text: qsTrId("help.step6.description")
    }
}
