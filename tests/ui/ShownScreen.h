#pragma once

#include "support/EventLoop.h"
#include "support/Warnings.h"

#include <QAccessible>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QtTest>

#include <stdexcept>
#include <string>
#include <string_view>

namespace lumeo::testing {

/// One screen in a window of the smallest size. A test finds and uses its controls by their accessible names.
/// Translated texts show as their keys.
class ShownScreen {
public:
    ShownScreen(const char* type, const QVariantMap& properties) {
        view_.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
        QQmlComponent component(view_.engine());
        component.setData(std::string("import Lumeo.Window\n").append(type).append(" {}").c_str(), QUrl());
        auto* screen = component.createWithInitialProperties(properties);
        if (screen == nullptr) {
            throw std::runtime_error(component.errorString().toStdString());
        }
        view_.setResizeMode(QQuickView::SizeRootObjectToView);
        view_.setContent(QUrl(), &component, screen);
        view_.resize(900, 586);
        view_.show();
        view_.requestActivate();
        if (!waitUntil([this] { return view_.isActive(); })) {
            throw std::runtime_error("The window does not come up");
        }
    }

    ShownScreen(const char* type, QObject& model)
        : ShownScreen(type, QVariantMap{{QStringLiteral("model"), QVariant::fromValue(&model)}}) {}

    /// The visible item with this name. Null when there is none.
    [[nodiscard]] QQuickItem* find(std::string_view name) const { return find(view_.rootObject(), name); }

    [[nodiscard]] bool isEnabled(std::string_view name) const {
        const auto* item = find(name);
        return item != nullptr && item->isEnabled();
    }

    /// Presses a button, a choice or a tag. False when it is not there or cannot be pressed.
    bool press(std::string_view name) {
        auto* item = find(name);
        if (item == nullptr || !item->isEnabled()) {
            return false;
        }
        QAccessible::queryAccessibleInterface(item)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        return true;
    }

    void type(std::string_view text) {
        for (const char letter : text) {
            QTest::keyClick(&view_, letter);
        }
    }

    [[nodiscard]] QQuickView& view() { return view_; }

private:
    static QQuickItem* find(QQuickItem* item, std::string_view name) {
        auto* face = QAccessible::queryAccessibleInterface(item);
        if (face != nullptr && face->text(QAccessible::Name).toStdString() == name) {
            return item;
        }
        for (auto* child : item->childItems()) {
            if (auto* found = child->isVisible() ? find(child, name) : nullptr) {
                return found;
            }
        }
        return nullptr;
    }

    Warnings warnings_;
    QQuickView view_;
};

} // namespace lumeo::testing
