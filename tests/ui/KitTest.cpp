#include <gtest/gtest.h>

#include <QAccessible>
#include <QColor>
#include <QFontDatabase>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QRawFont>
#include <QSignalSpy>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <memory>

#include "support/EventLoop.h"
#include "support/Warnings.h"
#include "ui/kit/Symbols.h"

namespace lumeo {
namespace {

using testing::waitUntil;
using testing::Warnings;

std::string nameOf(QObject* object) {
    auto* face = object != nullptr ? QAccessible::queryAccessibleInterface(object) : nullptr;
    return face != nullptr ? face->text(QAccessible::Name).toStdString() : "";
}

/// Shows the gallery of all controls in a window.
class KitTest : public ::testing::Test {
protected:
    void SetUp() override {
        view_.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
        QQmlComponent component(view_.engine(), QUrl::fromLocalFile(QStringLiteral(LUMEO_GALLERY)));
        auto* gallery = component.create();
        ASSERT_NE(gallery, nullptr) << component.errorString().toStdString();
        view_.setContent(QUrl(), &component, gallery);
        theme_ = gallery->property("theme").value<QObject*>();
        used_ = std::make_unique<QSignalSpy>(gallery, SIGNAL(used(QString)));
        view_.show();
        view_.requestActivate();
        ASSERT_TRUE(waitUntil([this] { return view_.isActive(); }));
    }

    void TearDown() override { EXPECT_EQ(Warnings::text(), expectedWarnings_); }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&view_, static_cast<Qt::Key>(key), modifiers);
    }

    /// Presses Tab until the control with this name has the focus.
    bool tabTo(const std::string& name) {
        for (int i = 0; i < 60; ++i) {
            press(Qt::Key_Tab);
            if (nameOf(view_.activeFocusItem()) == name) {
                return true;
            }
        }
        return false;
    }

    std::string lastUsed() { return used_->isEmpty() ? "" : used_->last().at(0).toString().toStdString(); }

    QColor color(const char* role) { return theme_->property(role).value<QColor>(); }

    QColor filled(const QString& tint) {
        QColor result;
        QMetaObject::invokeMethod(theme_, "filled", Q_RETURN_ARG(QColor, result), Q_ARG(QString, tint));
        return result;
    }

    Warnings warnings_;
    std::string expectedWarnings_;
    QQuickView view_;
    QObject* theme_ = nullptr;
    std::unique_ptr<QSignalSpy> used_;
};

double luminance(const QColor& color) {
    const auto channel = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF()) +
           0.0722 * channel(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

QColor over(const QColor& ground, QColor tint, float opacity) {
    const auto mix = [opacity](float under, float above) { return under + (above - under) * opacity; };
    return QColor::fromRgbF(mix(ground.redF(), tint.redF()), mix(ground.greenF(), tint.greenF()),
                            mix(ground.blueF(), tint.blueF()));
}

TEST_F(KitTest, SpaceAndReturnWorkEveryButton) {
    for (const char* name : {"Primary", "Plain", "Destructive", "Link", "Icon", "Switch"}) {
        for (const int key : {Qt::Key_Space, Qt::Key_Return}) {
            ASSERT_TRUE(tabTo(name)) << name;
            used_->clear();
            press(key);
            EXPECT_EQ(lastUsed(), name);
        }
    }
}

TEST_F(KitTest, ArrowKeysChooseWithinAGroup) {
    ASSERT_TRUE(tabTo("By year"));
    press(Qt::Key_Down);
    EXPECT_EQ(lastUsed(), "By day");
    EXPECT_EQ(nameOf(view_.activeFocusItem()), "By day");
    press(Qt::Key_Down);
    EXPECT_EQ(lastUsed(), "By year");

    ASSERT_TRUE(tabTo("Light"));
    press(Qt::Key_Right);
    EXPECT_EQ(lastUsed(), "Dark");

    ASSERT_TRUE(tabTo("Profile"));
    press(Qt::Key_Return);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(lastUsed(), "Careful");
}

TEST_F(KitTest, ASheetKeepsTheKeyboardUntilEscapeClosesIt) {
    ASSERT_TRUE(tabTo("Opens a sheet"));
    auto* opener = view_.activeFocusItem();
    press(Qt::Key_Return);
    ASSERT_TRUE(waitUntil([&] { return nameOf(view_.activeFocusItem()) == "Done"; }));
    for (int i = 0; i < 8; ++i) {
        press(Qt::Key_Tab);
        EXPECT_EQ(nameOf(view_.activeFocusItem()), "Done") << "its two buttons, and nothing beneath it";
    }
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([&] { return view_.activeFocusItem() == opener; }));
}

TEST_F(KitTest, AnAlertThatTakesSomethingAwayIsDeclinedUnlessTheOtherAnswerIsSought) {
    for (const int key : {Qt::Key_Escape, Qt::Key_Return}) {
        ASSERT_TRUE(tabTo("Opens an alert"));
        press(Qt::Key_Return);
        ASSERT_TRUE(waitUntil([&] { return nameOf(view_.activeFocusItem()) == "No"; }));
        used_->clear();
        press(key);
        EXPECT_EQ(lastUsed(), "No");
        EXPECT_EQ(used_->count(), 1);
    }
    ASSERT_TRUE(tabTo("Opens an alert"));
    press(Qt::Key_Return);
    ASSERT_TRUE(waitUntil([&] { return nameOf(view_.activeFocusItem()) == "No"; }));
    ASSERT_TRUE(tabTo("Yes"));
    press(Qt::Key_Return);
    EXPECT_EQ(lastUsed(), "Yes");
}

TEST_F(KitTest, AButtonThatCannotBeUsedSaysWhyAndStaysLegible) {
    const auto buttons = view_.rootObject()->findChildren<QQuickItem*>();
    const auto blocked = std::ranges::find_if(buttons, [](auto* item) { return nameOf(item) == "Blocked"; });
    ASSERT_NE(blocked, buttons.end());
    auto* const face = QAccessible::queryAccessibleInterface(*blocked);
    EXPECT_EQ(face->text(QAccessible::Description), QStringLiteral("Something is missing."));
    for (const bool dark : {false, true}) {
        theme_->setProperty("dark", dark);
        EXPECT_GE(contrast(color("textSecondary"), color("sunken")), 4.5);
    }
    EXPECT_EQ((*blocked)->opacity(), 1);
}

TEST_F(KitTest, EveryTextCanBeReadOnEveryGroundInBothAppearances) {
    for (const bool dark : {false, true}) {
        theme_->setProperty("dark", dark);
        for (const char* ground : {"ground", "surface", "sunken"}) {
            for (const char* text : {"textPrimary", "textSecondary", "textTertiary", "blue", "cyan", "orange",
                                     "purple", "indigo", "green", "red", "yellow", "grey"}) {
                EXPECT_GE(contrast(color(text), color(ground)), 4.5) << text << " on " << ground << dark;
            }
        }
        for (const char* tint : {"blue", "cyan", "orange", "purple", "indigo", "green", "red", "grey"}) {
            EXPECT_GE(contrast(color("onFilled"), filled(QString::fromLatin1(tint))), 4.5) << tint;
            const auto soft = over(color("surface"), color(tint), 0.12F);
            EXPECT_GE(contrast(color(tint), soft), 4.5) << tint << " on its soft ground " << dark;
        }
    }
}

TEST_F(KitTest, EverySymbolIsInTheFontAndUnknownNamesAreWarnedOf) {
    const Symbols symbols;
    const auto font = QRawFont::fromFont(QFont(symbols.family()));
    ASSERT_EQ(font.familyName(), symbols.family());
    for (const auto& name : Symbols::names()) {
        for (const auto& glyph : {symbols.glyph(name), symbols.mark(name)}) {
            EXPECT_TRUE(glyph.isEmpty() || font.supportsCharacter(glyph.front())) << name.toStdString();
        }
    }
    EXPECT_EQ(symbols.glyph(QStringLiteral("no.such.symbol")), QString());
    filled(QStringLiteral("beige"));
    expectedWarnings_ = "There is no symbol \"no.such.symbol\"\nThere is no tint \"beige\"";
}

} // namespace
} // namespace lumeo
