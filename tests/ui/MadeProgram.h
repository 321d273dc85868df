#pragma once

#include <QAccessible>
#include <QQmlEngine>
#include <QQuickItem>
#include <QtTest>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>

#include "support/FaultyFileSystem.h"
#include "support/Warnings.h"
#include "ui/MadeState.h"
#include "ui/Program.h"

namespace lumeo::testing {

/// The whole program with its window, in English and without motion. It has its own folder and desktop.
struct MadeProgram {
    Warnings warnings;
    ScopedEnvironment locale{"LC_ALL", "en_US.UTF-8"};
    TempFolder folder;
    QSettings settings{QString::fromStdString((folder / "settings.ini").bytes()), QSettings::IniFormat};
    PosixFileSystem realDisk;
    FaultyFileSystem disk{realDisk};
    SystemClock clock;
    MadeVolumes volumes;
    MadeDesktop desktop;
    RunJournals journals{realDisk, folder / "journals"};
    QQmlEngine engine;
    Program program{(settings.setValue(QStringLiteral("appLanguage"), QStringLiteral("en")), engine),
                    {.fileSystem = disk,
                     .clock = clock,
                     .volumes = volumes,
                     .settings = settings,
                     .desktop = {desktop, desktop, desktop},
                     .journals = journals}};
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

    /// The visible item with this accessible name, the topmost one. Null when there is none. The row of a
    /// table has the name of its first cell.
    [[nodiscard]] QQuickItem* find(const std::string& name) const {
        const auto layers = window->contentItem()->childItems();
        for (auto layer = layers.rbegin(); layer != layers.rend(); ++layer) {
            if (auto* found = find(*layer, name)) {
                return found;
            }
        }
        return nullptr;
    }

    /// Waits until all changes have been laid out and drawn.
    static void draw(QQuickWindow& window) {
        for (int frame = 0; frame < 2; ++frame) { // one layout may change another one
            bool isDrawn = false;
            const auto drawing =
                QObject::connect(&window, &QQuickWindow::frameSwapped, [&isDrawn] { isDrawn = true; });
            window.update();
            std::ignore = waitUntil([&isDrawn] { return isDrawn; });
            QObject::disconnect(drawing);
        }
    }

    /// Waits until something with this name is visible.
    [[nodiscard]] bool shows(const std::string& name) const {
        return waitUntil([&] { return find(name) != nullptr; });
    }

    /// Clicks in the middle of the item with this name, and scrolls to it if necessary. False when it is not
    /// visible or cannot be clicked.
    bool click(const std::string& name) {
        auto* item = find(name);
        if (item == nullptr || !item->isEnabled()) {
            return false;
        }
        draw(*window); // a user clicks on what is drawn
        scrollTo(*item);
        const QPointF middle = item->mapToScene({item->width() / 2, item->height() / 2});
        QTest::mouseClick(window, Qt::LeftButton, {}, middle.toPoint());
        return true;
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window, key, modifiers);
        // An event loop would do this at once. What a left screen had started must not go on without it.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void type(std::string_view text) {
        for (const char letter : text) {
            QTest::keyClick(window, letter);
        }
    }

    /// The name of the item with the keyboard focus. For a part of a control, the name of the control.
    [[nodiscard]] std::string focusedName() const {
        for (auto* item = window->activeFocusItem(); item != nullptr; item = item->parentItem()) {
            if (std::string name = nameOf(item); !name.empty()) {
                return name;
            }
        }
        return {};
    }

    /// Presses Tab until the item with this name has the focus. False when it never gets it.
    bool tabTo(const std::string& name) {
        for (int presses = 0; presses < 100; ++presses) {
            if (focusedName() == name) {
                return true;
            }
            press(Qt::Key_Tab);
        }
        return false;
    }

    [[nodiscard]] static std::string nameOf(QQuickItem* item) {
        auto* face = QAccessible::queryAccessibleInterface(item);
        return face != nullptr ? face->text(QAccessible::Name).toStdString() : std::string();
    }

private:
    static QQuickItem* find(QQuickItem* item, const std::string& name) {
        if (!item->isVisible()) {
            return nullptr;
        }
        if (const std::string found = nameOf(item); found == name || found.starts_with(name + ", ")) {
            return item;
        }
        for (auto* child : item->childItems()) {
            if (auto* found = find(child, name)) {
                return found;
            }
        }
        return nullptr;
    }

    /// Scrolls as the mouse wheel would.
    static void scrollTo(QQuickItem& item) {
        for (auto* page = item.parentItem(); page != nullptr; page = page->parentItem()) {
            if (page->inherits("QQuickFlickable")) {
                const double y = item.mapToItem(page, {0, item.height() / 2}).y();
                if (y < 0 || y > page->height()) {
                    const double wanted = page->property("contentY").toDouble() + y - page->height() / 2;
                    const double end = page->property("contentHeight").toDouble() - page->height();
                    page->setProperty("contentY", std::clamp(wanted, 0.0, end));
                }
            }
        }
    }
};

} // namespace lumeo::testing
