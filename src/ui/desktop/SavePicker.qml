import QtQuick.Dialogs

FileDialog {
    signal answered(url chosen)

    fileMode: FileDialog.SaveFile
    onAccepted: answered(selectedFile)
    onRejected: answered("")
}
