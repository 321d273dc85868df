#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace lumeo {

/// The pictures of the interface by name, out of the icon font that is built into the program. Some are
/// made of two glyphs: a body, and a mark within it. Main thread only.
class Symbols : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QString family READ family CONSTANT)
    Q_PROPERTY(QStringList all READ names CONSTANT)

public:
    /// Makes the font known to the application.
    explicit Symbols(QObject* parent = nullptr);

    [[nodiscard]] QString family() const { return family_; }

    /// The glyph to write in `family`; empty, with a warning, for a name that is not in the table.
    Q_INVOKABLE [[nodiscard]] QString glyph(const QString& name) const;
    /// The glyph of the mark within; empty where there is none.
    Q_INVOKABLE [[nodiscard]] QString mark(const QString& name) const;
    /// True when the mark is cut out of a solid body, false when it is drawn in a hollow one.
    Q_INVOKABLE [[nodiscard]] bool markIsCutOut(const QString& name) const;

    [[nodiscard]] static QStringList names();

private:
    QString family_;
};

} // namespace lumeo
