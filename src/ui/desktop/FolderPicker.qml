import QtQuick.Dialogs

FolderDialog {
    signal answered(url chosen)

    onAccepted: answered(selectedFolder)
    onRejected: answered("")
}
