import QtQuick
import QtQuick.Dialogs

FileDialog {
    required property url proposed
    signal answered(url chosen)

    fileMode: FileDialog.SaveFile
    onAccepted: answered(selectedFile)
    onRejected: answered("")
    Component.onCompleted: selectedFile = proposed // only a save dialog accepts a missing file
}
