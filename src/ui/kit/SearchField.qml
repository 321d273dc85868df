import QtQuick
import QtQuick.Templates as T

/// Narrows a list while the user types. Escape empties the field.
T.TextField {
    id: control

    property alias placeholder: control.placeholderText
    required property string clearText ///< names the button that empties the field

    implicitWidth: 240
    implicitHeight: Theme.controlHeight
    leftPadding: 32
    rightPadding: 32
    verticalAlignment: TextInput.AlignVCenter
    selectByMouse: true
    color: Theme.textPrimary
    placeholderTextColor: Theme.textTertiary
    selectionColor: Theme.filled(Theme.accent)
    selectedTextColor: Theme.onFilled
    font.pixelSize: Theme.bodySize
    Accessible.role: Accessible.EditableText
    Accessible.name: placeholderText
    Accessible.searchEdit: true

    Keys.onEscapePressed: event => {
        event.accepted = control.text !== "";
        control.clear();
    }

    background: FieldGround {
        field: control
        focused: control.activeFocus
        placeholder: control.text === "" && control.preeditText === "" ? control.placeholderText : ""
    }

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        x: Theme.s8
        name: "magnifyingglass"
        size: 16
        color: Theme.textSecondary
    }

    IconButton {
        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 2
        visible: control.text !== ""
        symbol: "xmark.circle.fill"
        symbolSize: 16
        text: control.clearText
        onClicked: control.clear()
    }
}
