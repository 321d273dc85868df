import QtQuick

/// The base of all texts in the kit. It never interprets markup, because it also shows names of files. By
/// default a text is aligned to the side where its script starts.
Text {
    color: Theme.textPrimary
    textFormat: Text.PlainText
    font.pixelSize: Theme.bodySize
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: text === ""
}
