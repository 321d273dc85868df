import Lumeo.Kit

/// Asks before a run is taken back, and says which files that would leave in place.
Alert {
    id: question

    property string forecast // empty while it is not known, and when there are none

    function ask(wanted: bool) {
        if (wanted)
            open();
        else
            close();
    }

    objectName: "undoConfirmation"
    title: qsTrId("report.undoConfirmTitle")
    message: qsTrId("report.undoConfirmMessage") + (forecast === "" ? "" : "\n\n" + forecast)
    confirmText: qsTrId("report.undoConfirmButton")
    cancelText: qsTrId("preview.cancel")
    destructive: true
}
