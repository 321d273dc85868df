#pragma once

#include <QString>
#include <QStringList>

namespace lumeo::testing {

/// Collects the warnings that are logged as long as it exists, such as QML's warnings about bindings. Only
/// one may exist at a time.
class Warnings {
public:
    Warnings() {
        collected().clear();
        before_ = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
            if (type != QtDebugMsg && type != QtInfoMsg) {
                collected().append(text);
            }
        });
    }
    ~Warnings() { qInstallMessageHandler(before_); }
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;

    [[nodiscard]] static std::string text() { return collected().join(u'\n').toStdString(); }

private:
    static QStringList& collected() {
        static QStringList texts;
        return texts;
    }

    QtMessageHandler before_ = nullptr;
};

} // namespace lumeo::testing
