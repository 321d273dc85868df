import QtQuick
import QtQuick.Dialogs

FileDialog {
    required property url proposed
    signal answered(url chosen)

    fileMode: FileDialog.SaveFile
    onAccepted: answered(selectedFile)
    onRejected: answered("")
    Component.onCompleted: selectedFile = proposed // may not be there: not before the mode allows that
}
