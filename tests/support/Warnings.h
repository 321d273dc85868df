#pragma once

#include <QString>
#include <QStringList>

namespace lumeo::testing {

/// Collects what is warned of while it lives, such as QML's complaints about bindings. One at a time.
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
