pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The user's own folder pattern: the text field, the tags to insert, and an example.
ColumnLayout {
    id: editor

    required property OrganizationModel model

    property int currentTag: 0 ///< the tag that Tab reaches; the arrow keys move on from there

    /// Moves the focus `by` this number of tags.
    function step(by: int) {
        const next = (currentTag + by + tags.count) % tags.count;
        tags.itemAt(next).forceActiveFocus(Qt.TabFocusReason);
        currentTag = next;
    }

    spacing: Theme.s12

    TextField {
        id: field

        Layout.fillWidth: true
        label: qsTrId("org.customTemplate")
        placeholder: "e.g. {YYYY}/{YYYY}-{MM} {Month}/{CameraModel}"
        text: editor.model.customTemplate
        monospaced: true
        invalid: editor.model.patternProblem !== ""
        problem: editor.model.patternProblem
        onTextEdited: editor.model.customTemplate = text
    }

    Diagnostic {
        Layout.fillWidth: true
        visible: text !== ""
        tint: "red"
        text: editor.model.patternProblem
    }

    Flow {
        Layout.fillWidth: true
        spacing: Theme.s4

        CaptionText {
            height: 24
            text: editor.model.tagsLabel
            verticalAlignment: Text.AlignVCenter
            rightPadding: Theme.s4
        }

        Repeater {
            id: tags

            model: editor.model.tags

            TagButton {
                required property int index
                required property string modelData

                text: modelData
                focusPolicy: index === editor.currentTag ? Qt.TabFocus : Qt.NoFocus
                Keys.onLeftPressed: editor.step(-1)
                Keys.onRightPressed: editor.step(1)
                onClicked: {
                    field.insert(modelData);
                    field.forceActiveFocus();
                }
            }
        }
    }

    Rectangle {
        Layout.fillWidth: true
        implicitHeight: example.implicitHeight + 2 * Theme.s12
        visible: editor.model.exampleAfter !== ""
        radius: Theme.radiusControl
        color: Theme.sunken

        RowLayout {
            id: example

            anchors.fill: parent
            anchors.margins: Theme.s12
            spacing: Theme.s8

            MonoText {
                Layout.fillWidth: true
                Layout.maximumWidth: implicitWidth + 1
                Layout.minimumWidth: 60
                text: editor.model.exampleBefore
                maximumLineCount: 1
            }

            Symbol {
                name: "arrow.right"
                size: 14
                color: Theme.textTertiary
            }

            MonoText {
                Layout.fillWidth: true
                Layout.minimumWidth: 160
                text: editor.model.exampleAfter
                color: Theme.textPrimary
                wrapMode: Text.WrapAnywhere
                maximumLineCount: 3
            }
        }
    }
}
