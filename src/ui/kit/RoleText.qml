import QtQuick

/// What all texts of the kit have in common. Never interprets markup: names of files are shown as well.
/// Without an alignment of its own a text stands where its script begins.
Text {
    color: Theme.textPrimary
    textFormat: Text.PlainText
    font.pixelSize: Theme.bodySize
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: text === ""
}
