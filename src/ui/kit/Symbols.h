#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace lumeo {

/// The pictures of the interface by name, from the icon font that is built into the program. Some consist of
/// two glyphs: a body, and a mark inside it. Main thread only.
class Symbols : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QString family READ family CONSTANT)
    Q_PROPERTY(QStringList all READ names CONSTANT)

public:
    /// Registers the font with the application.
    explicit Symbols(QObject* parent = nullptr);

    [[nodiscard]] QString family() const { return family_; }

    /// The glyph to write in `family`. Empty, with a warning, for an unknown name.
    Q_INVOKABLE [[nodiscard]] QString glyph(const QString& name) const;
    /// The glyph of the mark inside. Empty when there is none.
    Q_INVOKABLE [[nodiscard]] QString mark(const QString& name) const;
    /// True when the mark is cut out of a solid body, false when it is drawn inside a hollow one.
    Q_INVOKABLE [[nodiscard]] bool markIsCutOut(const QString& name) const;

    [[nodiscard]] static QStringList names();

private:
    QString family_;
};

} // namespace lumeo
