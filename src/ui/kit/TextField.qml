import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

/// A text field with one line, under its label.
FocusScope {
    id: control

    property string label
    property alias placeholder: field.placeholderText
    property alias text: field.text
    property bool invalid: false
    property string problem ///< what is wrong with the text, for screen readers
    property bool monospaced: false
    signal textEdited
    signal accepted

    /// Replaces the selection by `words`.
    function insert(words: string) {
        field.remove(field.selectionStart, field.selectionEnd);
        field.insert(field.cursorPosition, words);
        field.textEdited();
    }

    implicitWidth: 240
    implicitHeight: column.implicitHeight

    ColumnLayout {
        id: column

        anchors.fill: parent
        spacing: Theme.s4

        CaptionText {
            Layout.fillWidth: true
            visible: text !== ""
            text: control.label
            elide: Text.ElideRight

            TapHandler {
                onTapped: field.forceActiveFocus(Qt.MouseFocusReason)
            }
        }

        T.TextField {
            id: field

            Layout.fillWidth: true
            implicitHeight: Theme.controlHeight
            leftPadding: Theme.s8
            rightPadding: Theme.s8
            focus: true
            verticalAlignment: TextInput.AlignVCenter
            selectByMouse: true
            color: Theme.textPrimary
            placeholderTextColor: Theme.textTertiary
            selectionColor: Theme.filled(Theme.accent)
            selectedTextColor: Theme.onFilled
            font.pixelSize: Theme.bodySize
            font.family: control.monospaced ? Theme.mono : Application.font.family
            onTextEdited: control.textEdited()
            onAccepted: control.accepted()
            Accessible.role: Accessible.EditableText
            Accessible.description: control.problem
            Accessible.name: control.label !== "" ? control.label : placeholderText

            background: FieldGround {
                focused: field.activeFocus
                invalid: control.invalid
                placeholder: field.text === "" && field.preeditText === "" ? field.placeholderText : ""
                field: field
            }
        }
    }
}
