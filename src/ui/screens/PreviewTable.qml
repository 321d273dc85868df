pragma ComponentBehavior: Bound

import QtQuick
import Lumeo.Kit
import Lumeo.Window

/// The items of the catalogue, one on each line. Only the visible lines exist. Up, Down, Page Up, Page Down,
/// Home and End move between them.
FocusScope {
    id: table

    required property PreviewModel model
    property bool byKeyboard: false
    property bool byPointer: false
    property string typed

    signal enlarged ///< the user wants to see the picture of the current row large

    function choose(row: int) {
        table.model.inspect(row);
    }

    /// Moves to the next row whose name starts with the letters that were typed within a second.
    function seek(letters: string) {
        typed = pause.running ? typed + letters : letters;
        pause.restart();
        table.model.seek(typed);
    }

    function explain(cell: Item, text: string) {
        tip.visible = false;
        if (cell) {
            tip.parent = cell;
            tip.text = text;
            tip.visible = true;
        }
    }

    clip: true
    onActiveFocusChanged: byKeyboard = activeFocus && !byPointer && !!list.model

    Keys.onPressed: event => {
        const current = table.model.currentRow;
        const page = Math.max(1, Math.floor(list.height / Theme.rowHeight) - 1);
        let row = current;
        switch (event.key) {
        case Qt.Key_Up:
            row = current - 1;
            break;
        case Qt.Key_Down:
            row = current + 1;
            break;
        case Qt.Key_PageUp:
            row = current - page;
            break;
        case Qt.Key_PageDown:
            row = current + page;
            break;
        case Qt.Key_Home:
            row = 0;
            break;
        case Qt.Key_End:
            row = table.model.rows.count - 1;
            break;
        case Qt.Key_Space:
            event.accepted = true;
            table.choose(current);
            table.enlarged();
            return;
        default:
            if (event.text.trim() !== "" && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier))) {
                event.accepted = true;
                byKeyboard = true;
                table.seek(event.text);
            }
            return;
        }
        event.accepted = true;
        byKeyboard = true;
        table.choose(row);
    }

    Timer {
        id: pause

        interval: 1000
    }

    TableColumns {
        id: layout

        available: table.width
        chosen: table.model.columnWidths
        onResized: widths => table.model.columnWidths = widths
    }

    TableHeader {
        id: header

        x: -list.contentX
        columns: layout
    }

    ListView {
        id: list

        readonly property bool mirrored: LayoutMirroring.enabled

        /// The side where reading starts.
        function showFirstColumn() {
            contentX = mirrored ? contentWidth - width : 0;
        }

        function showCurrentRow() {
            if (table.model.currentRow >= 0)
                positionViewAtIndex(table.model.currentRow, ListView.Contain);
        }

        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        activeFocusOnTab: true
        currentIndex: table.model.currentRow // its row has the focus, which screen readers follow
        Accessible.role: Accessible.List
        Accessible.name: qsTrId("preview.title")
        Accessible.focusable: true
        contentWidth: layout.total
        flickableDirection: Flickable.AutoFlickIfNeeded
        boundsBehavior: Flickable.StopAtBounds
        reuseItems: true
        clip: true
        keyNavigationEnabled: false
        onWidthChanged: settling.restart()
        onMirroredChanged: settling.restart()

        Timer {
            id: settling

            interval: 0
            onTriggered: list.showFirstColumn()
        }

        delegate: PreviewRow {
            columns: layout
            isCurrent: index === table.model.currentRow
            explain: table.explain
            onChosen: {
                table.byPointer = true;
                table.choose(index);
                table.forceActiveFocus(Qt.MouseFocusReason);
                table.byKeyboard = false;
                table.byPointer = false;
            }
        }

        ScrollBar.vertical: ScrollBar {}
        ScrollBar.horizontal: ScrollBar {}

        Connections {
            target: table.model

            function onCurrentRowChanged() {
                list.showCurrentRow();
            }
        }
    }

    // The rows are created after the screen, so that the user does not wait for both at once.
    Timer {
        interval: 1
        running: true
        onTriggered: {
            list.model = table.model.rows;
            list.showCurrentRow();
        }
    }

    FocusRing {
        shown: table.activeFocus && table.byKeyboard
        anchors.margins: 0
    }

    ToolTip {
        id: tip
    }
}
