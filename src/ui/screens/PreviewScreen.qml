import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// Every file with its date and its destination, before anything is written.
Item {
    id: screen

    required property PreviewModel model

    Shortcut {
        sequence: "Escape"
        enabled: screen.model.inspector.isOpen && !(search.activeFocus && search.text !== "")
        onActivated: {
            screen.model.inspector.close();
            table.forceActiveFocus(Qt.OtherFocusReason);
        }
    }

    Shortcut {
        sequence: "Ctrl+F"
        onActivated: {
            search.forceActiveFocus(Qt.ShortcutFocusReason);
            search.selectAll();
        }
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        PreviewHeading {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.s32
            Layout.rightMargin: Theme.s32
            Layout.topMargin: Theme.s16
            Layout.bottomMargin: Theme.s8
            model: screen.model

            SearchField {
                id: search

                objectName: "search"
                placeholder: qsTrId("preview.search")
                clearText: "Clear"
                onTextChanged: screen.model.searchText = text
                Keys.onDownPressed: screen.model.inspect(screen.model.currentRow + 1)
                Keys.onUpPressed: screen.model.inspect(screen.model.currentRow - 1)
            }
        }

        RowLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            spacing: 0

            Rectangle {
                Layout.fillWidth: true
                Layout.fillHeight: true
                color: Theme.surface

                Rectangle {
                    width: parent.width
                    height: 1
                    color: Theme.line
                    z: 1
                }

                PreviewTable {
                    id: table

                    objectName: "table"
                    anchors.fill: parent
                    model: screen.model
                    focus: true
                    onEnlarged: large.open()
                }

                NothingFound {
                    anchors.centerIn: parent
                    visible: screen.model.rows.count === 0
                    isNarrowed: search.text !== "" || screen.model.selectedFilter !== "all"
                    onCleared: {
                        search.clear();
                        screen.model.selectedFilter = "all";
                    }
                }
            }

            Item {
                Layout.fillHeight: true
                Layout.preferredWidth: screen.model.inspector.isOpen ? 320 : 0
                visible: Layout.preferredWidth > 0
                clip: true

                Behavior on Layout.preferredWidth {
                    NumberAnimation {
                        duration: Theme.quick
                        easing.type: Easing.OutCubic
                    }
                }

                Inspector {
                    width: 320
                    height: parent.height
                    model: screen.model.inspector
                    onEnlarged: large.open()
                }
            }
        }

        PreviewNotices {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.s32
            Layout.rightMargin: Theme.s32
            Layout.topMargin: Theme.s8
            Layout.bottomMargin: Theme.s8
            model: screen.model
        }

        BottomBar {
            Layout.fillWidth: true

            PlainButton {
                objectName: "back"
                text: qsTrId("org.back")
                symbol: "arrow.left"
                onClicked: screen.model.back()
            }

            StorageActivityBanner {
                Layout.fillWidth: true
            }

            PrimaryButton {
                objectName: "start"
                enabled: screen.model.canStart
                missing: screen.model.missing
                text: screen.model.isMove ? qsTrId("preview.startMove") : qsTrId("preview.startCopy")
                symbol: screen.model.isMove ? "exclamationmark.triangle.fill" : "arrow.right"
                trailingSymbol: !screen.model.isMove
                onClicked: screen.model.start()
            }
        }
    }

    LargePicture {
        id: large

        model: screen.model.inspector
    }

    Alert {
        id: moveConfirmation

        objectName: "moveConfirmation"
        title: qsTrId("preview.moveConfirmTitle")
        message: qsTrId("preview.moveConfirmMessage")
        confirmText: qsTrId("preview.moveConfirmButton")
        cancelText: qsTrId("preview.cancel")
        destructive: true
        onConfirmed: screen.model.confirmMove()
        onCancelled: screen.model.showMoveConfirmation = false
    }

    Connections {
        target: screen.model

        function onShowMoveConfirmationChanged() {
            if (screen.model.showMoveConfirmation)
                moveConfirmation.open();
            else
                moveConfirmation.close();
        }
    }
}
