#include "support/EventLoop.h"
#include "ui/desktop/DesktopFileBrowser.h"
#include "ui/desktop/DesktopFolderChooser.h"
#include "ui/desktop/DesktopSavePanel.h"
#include "ui/desktop/DesktopSettings.h"
#include "ui/desktop/LauncherProgress.h"
#include "ui/desktop/SleepGuard.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTimer>

#include <gtest/gtest.h>

namespace lumeo::testing {
namespace {

/// Stands for the desktop: a portal that gives the answer of the test, and a file browser that records its
/// calls.
class FakeDesktop : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileChooser")

public:
    FakeDesktop()
        : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("desktop"))) {
        EXPECT_TRUE(bus_.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                                        QDBusConnection::ExportAllSlots));
        EXPECT_TRUE(bus_.registerService(service()));
    }
    ~FakeDesktop() override {
        bus_.unregisterService(service());
        QDBusConnection::disconnectFromBus(QStringLiteral("desktop"));
    }

    static QString service() { return QStringLiteral("org.freedesktop.portal.Desktop"); }

    QStringList uris;
    uint response = 0;
    bool dies = false;
    QString askedMethod;
    QString askedTitle;
    QVariantMap askedOptions;

public slots:
    QDBusObjectPath OpenFile(const QString&, const QString& title, const QVariantMap& options,
                             const QDBusMessage& message) {
        return answer(QStringLiteral("OpenFile"), title, options, message);
    }
    QDBusObjectPath SaveFile(const QString&, const QString& title, const QVariantMap& options,
                             const QDBusMessage& message) {
        return answer(QStringLiteral("SaveFile"), title, options, message);
    }

private:
    QDBusObjectPath answer(const QString& method, const QString& title, const QVariantMap& options,
                           const QDBusMessage& message) {
        askedMethod = method;
        askedTitle = title;
        askedOptions = options;
        const QString sender = message.service().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
        const QString handle = QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                                   .arg(sender, options.value(QStringLiteral("handle_token")).toString());
        QTimer::singleShot(0, this, [this, handle] {
            if (dies) {
                bus_.unregisterService(service());
                return;
            }
            QDBusMessage signal = QDBusMessage::createSignal(
                handle, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
            signal << response << QVariantMap{{QStringLiteral("uris"), uris}};
            bus_.send(signal);
        });
        return QDBusObjectPath(handle);
    }

    QDBusConnection bus_;
};

/// The answers that a chooser gave.
struct Answers {
    int count = 0;
    std::vector<FilePath> folders;

    FolderChooser::Answer listener() {
        return [this](std::vector<FilePath> chosen) {
            ++count;
            folders = std::move(chosen);
        };
    }
};

const FolderRequest request{
    .prompt = QStringLiteral("Select"), .message = QStringLiteral("Choose folders"), .allowsSeveral = true};

const SaveRequest saving{.defaultName = QStringLiteral("report.csv"),
                         .prompt = QStringLiteral("Export"),
                         .suffix = QStringLiteral("csv")};

TEST(DesktopFolderChooserTest, GivesSeveralFoldersWithEveryByteOfTheirNames) {
    FakeDesktop desktop;
    desktop.uris = {QStringLiteral("file:///media/card%20one"), QStringLiteral("file:///home/caf%E9"),
                    QStringLiteral("https://elsewhere/")};
    QQmlEngine engine;
    DesktopFolderChooser chooser(engine);
    Answers answers;
    chooser.choose(request, answers.listener());
    ASSERT_TRUE(waitUntil([&] { return answers.count > 0; }));
    EXPECT_EQ(answers.folders, (std::vector{FilePath("/media/card one"), FilePath("/home/caf\xe9")}));
    EXPECT_EQ(desktop.askedMethod, QStringLiteral("OpenFile"));
    EXPECT_EQ(desktop.askedTitle, request.message);
    EXPECT_EQ(desktop.askedOptions.value(QStringLiteral("accept_label")), request.prompt);
    EXPECT_EQ(desktop.askedOptions.value(QStringLiteral("directory")), true);
    EXPECT_EQ(desktop.askedOptions.value(QStringLiteral("multiple")), true);
}

TEST(DesktopFolderChooserTest, AnswersOnceWhenTheUserGoesAwayOrThePortalDies) {
    QQmlEngine engine;
    DesktopFolderChooser chooser(engine);
    for (const auto& [response, dies] : {std::pair(1U, false), std::pair(2U, false), std::pair(1U, true)}) {
        FakeDesktop desktop;
        desktop.uris = {QStringLiteral("file:///tmp")};
        desktop.response = response;
        desktop.dies = dies;
        Answers answers;
        chooser.choose(request, answers.listener());
        ASSERT_TRUE(waitUntil([&] { return answers.count > 0; }));
        QCoreApplication::processEvents();
        EXPECT_EQ(answers.count, 1);
        EXPECT_TRUE(answers.folders.empty());
    }
}

TEST(DesktopFolderChooserTest, SaysNothingMoreOnceItIsGone) {
    FakeDesktop desktop;
    QQmlEngine engine;
    Answers answers;
    {
        DesktopFolderChooser chooser(engine);
        chooser.choose(request, answers.listener());
    }
    ASSERT_TRUE(waitUntil([&] { return !desktop.askedMethod.isEmpty(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(answers.count, 0);
}

/// Windows that can show Qt's own dialogs.
class ToolkitDialogTest : public ::testing::Test {
protected:
    ToolkitDialogTest() {
        engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
        window_.show();
    }

    /// The dialog of `asker`. Null when none appears after a while.
    static QObject* dialogOf(const QObject& asker) {
        QObject* dialog = nullptr;
        std::ignore = waitUntil([&] {
            for (QObject* const child : asker.findChildren<QObject*>()) {
                if (child->property("acceptLabel").isValid() && child->property("visible").toBool()) {
                    dialog = child;
                }
            }
            return dialog != nullptr;
        });
        return dialog;
    }

    QQmlEngine engine_;
    QQuickWindow window_;
};

TEST_F(ToolkitDialogTest, AsksForAFolderWhereThereIsNoPortal) {
    DesktopFolderChooser chooser(engine_);
    chooser.setWindow(&window_);
    Answers answers;
    chooser.choose(request, answers.listener());
    QObject* const dialog = dialogOf(chooser);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->property("title"), request.message);
    QMetaObject::invokeMethod(dialog, "reject");
    ASSERT_TRUE(waitUntil([&] { return answers.count > 0; }));
    EXPECT_TRUE(answers.folders.empty());
}

TEST_F(ToolkitDialogTest, AsksWhereToSaveWhereThereIsNoPortal) {
    DesktopSavePanel panel(engine_);
    panel.setWindow(&window_);
    int answers = 0;
    panel.choose(saving, [&](const std::optional<FilePath>& file) {
        EXPECT_FALSE(file.has_value());
        ++answers;
    });
    QObject* const dialog = dialogOf(panel);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(answers, 0);
    EXPECT_EQ(dialog->property("title"), saving.prompt);
    EXPECT_EQ(dialog->property("acceptLabel"), saving.prompt);
    EXPECT_EQ(dialog->property("selectedFile").toUrl().fileName(), saving.defaultName);
    QMetaObject::invokeMethod(dialog, "reject");
    EXPECT_TRUE(waitUntil([&] { return answers == 1; }));
}

TEST(DesktopSavePanelTest, TakesTheNameThatTheUserConfirmed) {
    FakeDesktop desktop;
    desktop.uris = {QStringLiteral("file:///home/report%0A")};
    QQmlEngine engine;
    DesktopSavePanel panel(engine);
    std::optional<FilePath> chosen;
    panel.choose(saving, [&](std::optional<FilePath> file) { chosen = std::move(file); });
    ASSERT_TRUE(waitUntil([&] { return chosen.has_value(); }));
    EXPECT_EQ(*chosen, FilePath("/home/report\n"));
    EXPECT_EQ(desktop.askedTitle, saving.prompt);
    EXPECT_EQ(desktop.askedOptions.value(QStringLiteral("accept_label")), saving.prompt);
    EXPECT_EQ(desktop.askedOptions.value(QStringLiteral("current_name")), saving.defaultName);
}

/// What the portal has granted, until it is closed.
class FakeWish : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public:
    int closed = 0;

public slots:
    void Close() { ++closed; }
};

/// Stands for the portal that keeps the machine awake.
class FakeInhibitor : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Inhibit")

public:
    FakeInhibitor()
        : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("inhibitor"))) {
        EXPECT_TRUE(bus_.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                                        QDBusConnection::ExportAllSlots));
        EXPECT_TRUE(bus_.registerObject(QStringLiteral("/wish"), &wish_, QDBusConnection::ExportAllSlots));
        EXPECT_TRUE(bus_.registerService(FakeDesktop::service()));
    }
    ~FakeInhibitor() override {
        bus_.unregisterService(FakeDesktop::service());
        QDBusConnection::disconnectFromBus(QStringLiteral("inhibitor"));
    }

    uint inhibited = 0;
    [[nodiscard]] int closed() const { return wish_.closed; }

public slots:
    QDBusObjectPath Inhibit(const QString&, uint what, const QVariantMap&) {
        inhibited = what;
        return QDBusObjectPath(QStringLiteral("/wish"));
    }

private:
    FakeWish wish_;
    QDBusConnection bus_;
};

TEST(SleepGuardTest, KeepsTheMachineAwakeUntilItIsReleased) {
    const FakeInhibitor portal;
    SleepGuard guard;
    guard.keepAwake(true);
    guard.keepAwake(true);
    ASSERT_TRUE(waitUntil([&] { return portal.inhibited == 4; }));
    guard.keepAwake(false); // before the answer has been read
    EXPECT_TRUE(waitUntil([&] { return portal.closed() == 1; }));
}

/// Stands for a dock that shows the progress of programs on their icons.
class FakeDock : public QObject {
    Q_OBJECT

public:
    FakeDock() : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("dock"))) {
        EXPECT_TRUE(bus_.connect({}, {}, QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                 QStringLiteral("Update"), this, SLOT(take(QString, QVariantMap))));
    }
    ~FakeDock() override { QDBusConnection::disconnectFromBus(QStringLiteral("dock")); }

    QStringList updates;

public slots:
    void take(const QString& entry, const QVariantMap& properties) {
        EXPECT_EQ(entry, QStringLiteral("application://org.lumeo.Lumeo.desktop"));
        updates.append(properties.value(QStringLiteral("progress-visible")).toBool()
                           ? properties.value(QStringLiteral("progress")).toString()
                           : QStringLiteral("hidden"));
    }

private:
    QDBusConnection bus_;
};

TEST(LauncherProgressTest, TellsTheDockOfEachPercentAndTakesTheBarAway) {
    const FakeDock dock;
    {
        LauncherProgress progress(QStringLiteral("org.lumeo.Lumeo"));
        progress.show(std::nullopt); // nothing was shown, so nothing is removed
        progress.show(0);
        progress.show(0.254);
        progress.show(0.2599);
        progress.show(1);
    }
    const QStringList expected{QStringLiteral("0"), QStringLiteral("0.25"), QStringLiteral("1"),
                               QStringLiteral("hidden")};
    ASSERT_TRUE(waitUntil([&] { return dock.updates.size() >= expected.size(); }));
    EXPECT_EQ(dock.updates, expected);
}

struct Setting {
    QString group;
    QString key;
    QVariant value;
};

Setting animations(bool enabled) {
    return {QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("enable-animations"), enabled};
}

Setting durationFactor(const char* factor) {
    return {QStringLiteral("org.kde.kdeglobals.KDE"), QStringLiteral("AnimationDurationFactor"),
            QString::fromLatin1(factor)};
}

/// Stands for the portal of a desktop's settings.
class FakeSettings : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit FakeSettings(std::vector<Setting> settings)
        : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("settings"))),
          settings_(std::move(settings)) {
        EXPECT_TRUE(bus_.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                                        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
        EXPECT_TRUE(bus_.registerService(FakeDesktop::service()));
    }
    ~FakeSettings() override {
        bus_.unregisterService(FakeDesktop::service());
        QDBusConnection::disconnectFromBus(QStringLiteral("settings"));
    }

    void change(const Setting& to) { emit SettingChanged(to.group, to.key, QDBusVariant(to.value)); }

public slots:
    QDBusVariant Read(const QString& group, const QString& key, const QDBusMessage& message) {
        for (const Setting& setting : settings_) {
            if (setting.group == group && setting.key == key) {
                return QDBusVariant(QVariant::fromValue(QDBusVariant(setting.value)));
            }
        }
        message.setDelayedReply(true);
        bus_.send(message.createErrorReply(QDBusError::InvalidArgs, QStringLiteral("not found")));
        return QDBusVariant();
    }

signals:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    QDBusConnection bus_;
    std::vector<Setting> settings_;
};

/// What DesktopSettings reports for these settings once all are known, and after each change.
QList<bool> reductions(const std::vector<Setting>& settings, const std::vector<Setting>& changes) {
    FakeSettings desktop(settings);
    QList<bool> answers;
    const DesktopSettings motion;
    QObject::connect(&motion, &DesktopSettings::reducedChanged,
                     [&](bool reduced) { answers.append(reduced); });
    EXPECT_TRUE(waitUntil([&] { return answers.size() == static_cast<qsizetype>(settings.size()); }));
    QList<bool> said{answers.value(answers.size() - 1)};
    for (const Setting& change : changes) {
        const auto before = answers.size();
        desktop.change(change);
        EXPECT_TRUE(waitUntil([&] { return answers.size() > before; }));
        said.append(answers.back());
    }
    return said;
}

TEST(DesktopSettingsTest, FollowsTheDesktopsSwitchAndItsFactor) {
    EXPECT_EQ(reductions({animations(false)}, {animations(true), animations(false)}),
              (QList<bool>{true, false, true}));
    EXPECT_EQ(reductions({durationFactor("1")}, {durationFactor("0"), durationFactor("0.5")}),
              (QList<bool>{false, true, false}));
    // The order of the questions does not matter: one setting that asks for less motion is enough.
    EXPECT_EQ(reductions({animations(true), durationFactor("0")}, {durationFactor("1")}),
              (QList<bool>{true, false}));
    EXPECT_EQ(reductions({animations(false), durationFactor("1")}, {animations(true)}),
              (QList<bool>{true, false}));
}

} // namespace
} // namespace lumeo::testing

#include "DesktopSeamsTest.moc"
