#pragma once

#include <QAccessible>
#include <QQmlEngine>
#include <QQuickItem>
#include <QtTest>

#include <stdexcept>

#include "support/Warnings.h"
#include "ui/MadeState.h"
#include "ui/Program.h"

namespace lumeo::testing {

/// The whole program with its window, over a folder and a desktop of its own, in English and without
/// motion.
struct MadeProgram {
    Warnings warnings;
    ScopedEnvironment locale{"LC_ALL", "en_US.UTF-8"};
    TempFolder folder;
    QSettings settings{QString::fromStdString((folder / "settings.ini").bytes()), QSettings::IniFormat};
    PosixFileSystem fileSystem;
    SystemClock clock;
    MadeVolumes volumes;
    MadeDesktop desktop;
    QQmlEngine engine;
    Program program{(settings.setValue(QStringLiteral("appLanguage"), QStringLiteral("en")), engine),
                    {.fileSystem = fileSystem,
                     .clock = clock,
                     .volumes = volumes,
                     .settings = settings,
                     .desktop = {desktop, desktop, desktop}}};
    AppState& state = program.state();
    QQuickWindow* window = program.makeWindow();

    MadeProgram() {
        if (window == nullptr) {
            throw std::runtime_error(Warnings::text());
        }
        program.shell().setReducedMotion(true);
        window->show();
        window->requestActivate();
        if (!waitUntil([this] { return window->isActive(); })) {
            throw std::runtime_error("The window does not come up");
        }
    }

    /// The item in sight of that accessible name; null when there is none.
    [[nodiscard]] QQuickItem* find(const std::string& name) const {
        return find(window->contentItem(), name);
    }

    /// Waits until something of that name is in sight.
    [[nodiscard]] bool shows(const std::string& name) const {
        return waitUntil([&] { return find(name) != nullptr; });
    }

    /// Clicks in the middle of what has that name; false when it is not in sight.
    bool click(const std::string& name) {
        const auto* item = find(name);
        if (item == nullptr) {
            return false;
        }
        const QPointF middle = item->mapToScene({item->width() / 2, item->height() / 2});
        QTest::mouseClick(window, Qt::LeftButton, {}, middle.toPoint());
        return true;
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(window, key, modifiers); }

private:
    static QQuickItem* find(QQuickItem* item, const std::string& name) {
        if (!item->isVisible()) {
            return nullptr;
        }
        auto* face = QAccessible::queryAccessibleInterface(item);
        if (face != nullptr && face->text(QAccessible::Name).toStdString() == name) {
            return item;
        }
        for (auto* child : item->childItems()) {
            if (auto* found = find(child, name)) {
                return found;
            }
        }
        return nullptr;
    }
};

} // namespace lumeo::testing
