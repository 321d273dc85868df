#include "ui/desktop/QuickDialog.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickStyle>
#include <QWindow>

#include <utility>

namespace lumeo {
namespace {

/// Receives the dialog's signal, which only QML declares, and calls the answer.
class Listener : public QObject {
    Q_OBJECT

public:
    Listener(QuickDialog::Answer answer, QObject* parent) : QObject(parent), answer_(std::move(answer)) {}

public slots:
    void hear(const QUrl& url) {
        deleteLater();
        if (answer_) {
            std::exchange(answer_, nullptr)(url);
        }
    }

private:
    QuickDialog::Answer answer_;
};

/// Without this, Qt draws a dialog and its contents in two different styles, white on white.
void settleStyle() {
    static bool isSettled = false;
    if (!std::exchange(isSettled, true)) {
        QQuickStyle::setStyle(QStringLiteral("Basic"));
    }
}

} // namespace

void QuickDialog::open(QQmlEngine& engine, const QString& name, QVariantMap properties, QWindow* window,
                       Answer answer, QObject* parent) {
    settleStyle();
    auto* const listener = new Listener(std::move(answer), parent);
    QQmlComponent component(&engine, QUrl(QStringLiteral("qrc:/qt/qml/Lumeo/Desktop/%1.qml").arg(name)));
    properties[QStringLiteral("parentWindow")] = QVariant::fromValue(window);
    QObject* const dialog = component.createWithInitialProperties(properties);
    if (dialog == nullptr) {
        qWarning("%s", qUtf8Printable(component.errorString()));
        QMetaObject::invokeMethod(listener, "hear", Qt::QueuedConnection, Q_ARG(QUrl, QUrl()));
        return;
    }
    dialog->setParent(listener);
    QObject::connect(dialog, SIGNAL(answered(QUrl)), listener, SLOT(hear(QUrl)));
    QMetaObject::invokeMethod(dialog, "open");
}

} // namespace lumeo

#include "QuickDialog.moc"
