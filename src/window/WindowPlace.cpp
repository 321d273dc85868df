#include "window/WindowPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWindow>

#include <algorithm>

namespace lumeo {
namespace {

QString placeKey() {
    return QStringLiteral("window/place");
}

QString maximizedKey() {
    return QStringLiteral("window/maximized");
}

} // namespace

WindowPlace::WindowPlace(QWindow& window, QSettings& settings, QObject* parent)
    : QObject(parent), window_(window), settings_(settings) {
    restore();
    place_ = window_.geometry();
    // The window system may report the new size before it reports that the window fills the screen.
    settled_.setSingleShot(true);
    settled_.setInterval(300);
    connect(&settled_, &QTimer::timeout, this, &WindowPlace::note);
    for (auto changed :
         {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged, &QWindow::heightChanged}) {
        connect(&window_, changed, &settled_, qOverload<>(&QTimer::start));
    }
}

WindowPlace::~WindowPlace() {
    if (settled_.isActive()) {
        note();
    }
    settings_.setValue(placeKey(), place_);
    settings_.setValue(maximizedKey(), window_.windowStates().testFlag(Qt::WindowMaximized));
}

void WindowPlace::restore() {
    const QRect place = settings_.value(placeKey()).toRect();
    const auto screens = QGuiApplication::screens();
    const bool isInSight = std::ranges::any_of(screens, [&](const QScreen* screen) {
        // Enough of the title bar must be visible to drag the window by it.
        return screen->availableGeometry().intersects(place.adjusted(40, 0, -40, 40 - place.height()));
    });
    if (place.isValid() && isInSight) {
        window_.setGeometry(place);
    }
    if (settings_.value(maximizedKey()).toBool()) {
        window_.setWindowStates(Qt::WindowMaximized);
    }
}

void WindowPlace::note() {
    if (window_.windowStates() == Qt::WindowNoState) {
        place_ = window_.geometry();
    }
}

} // namespace lumeo
