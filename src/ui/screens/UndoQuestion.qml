import Lumeo.Kit

/// Asks before a run is undone, and tells which files would stay in place.
Alert {
    id: question

    property string forecast // empty while it is not known, and when no file would stay

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
