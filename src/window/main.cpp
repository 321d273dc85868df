#include "app/SettingsFile.h"
#include "platform/Clock.h"
#include "platform/Interrupt.h"
#include "platform/PosixFileSystem.h"
#include "platform/Volumes.h"
#include "ui/Program.h"
#include "ui/desktop/DesktopFileBrowser.h"
#include "ui/desktop/DesktopFolderChooser.h"
#include "ui/desktop/DesktopNotifier.h"
#include "ui/desktop/DesktopSavePanel.h"
#include "ui/desktop/DesktopSettings.h"
#include "ui/desktop/LauncherProgress.h"
#include "ui/desktop/SleepGuard.h"
#include "ui/models/LongWork.h"
#include "window/SingleInstance.h"
#include "window/WindowPlace.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QSettings>

#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <string_view>

namespace {

const char* const activationToken = "XDG_ACTIVATION_TOKEN";

/// Handles options that need no display. False when the window is wanted.
bool hasAnswered(std::span<const char* const> arguments) {
    for (const std::string_view argument : arguments) {
        if (argument == "--version") {
            std::cout << LUMEO_VERSION << '\n';
            return true;
        }
        if (argument == "--help" || argument == "-h") {
            std::cout << "lumeo opens the window; with --settings, that of the settings as well.\n"
                         "For scripts and terminals there is lumeo-cli.\n";
            return true;
        }
    }
    return false;
}

void name(QGuiApplication& application) {
    application.setOrganizationName(QStringLiteral("LUMEO"));
    application.setApplicationName(QStringLiteral("LUMEO"));
    application.setApplicationVersion(QStringLiteral(LUMEO_VERSION));
    application.setDesktopFileName(QStringLiteral("org.lumeo.Lumeo"));
}

/// Reads what the desktop has passed to this start, before Qt uses it for itself.
lumeo::Start thisStart(std::span<const char* const> arguments) {
    return {.showsSettings = std::ranges::any_of(
                arguments, [](std::string_view argument) { return argument == "--settings"; }),
            .activationToken = qgetenv(activationToken)};
}

void show(QWindow& window) {
    window.setVisible(true); // QWindow::show() would forget that it fills the screen
}

void showSettingsIfAsked(QWindow& window, const lumeo::Start& start) {
    if (start.showsSettings) {
        QMetaObject::invokeMethod(&window, "openSettings");
    }
}

void bringToFront(QWindow& window, const lumeo::Start& start) {
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
        qputenv(activationToken, start.activationToken); // requestActivate() looks for it there
    }
    window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    show(window);
    window.raise();
    window.requestActivate();
    showSettingsIfAsked(window, start);
}

} // namespace

int main(int argc, char* argv[]) {
    const std::span<const char* const> arguments(argv, static_cast<std::size_t>(argc));
    if (hasAnswered(arguments)) {
        return 0;
    }
    const lumeo::Start start = thisStart(arguments);
    lumeo::turnWriteSignalsIntoErrors();
    QGuiApplication application(argc, argv);
    name(application);
    // The end of a session ends the event loop. The destructor of the state then stops the running jobs.
    const lumeo::Interrupt interrupt;
    const std::stop_callback ending(interrupt.token(), [&application] {
        QMetaObject::invokeMethod(
            &application, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
    });

    lumeo::SingleInstance instance(QStringLiteral("lumeo"));
    if (!instance.claim(start)) {
        return 0;
    }

    lumeo::PosixFileSystem fileSystem;
    const lumeo::SystemClock clock;
    const lumeo::SystemVolumes volumes;
    const lumeo::RunJournals journals(fileSystem, lumeo::RunJournals::userFolder());
    const std::unique_ptr<QSettings> settings = lumeo::openSettings(fileSystem, lumeo::settingsFile());

    QQmlEngine engine;
    lumeo::DesktopFolderChooser folderChooser(engine);
    lumeo::DesktopSavePanel savePanel(engine);
    lumeo::DesktopFileBrowser fileBrowser;
    lumeo::Program program(engine, {.fileSystem = fileSystem,
                                    .clock = clock,
                                    .volumes = volumes,
                                    .settings = *settings,
                                    .desktop = {folderChooser, savePanel, fileBrowser},
                                    .journals = journals});
    QObject::connect(&engine, &QQmlEngine::quit, &application, &QCoreApplication::quit);

    auto* window = program.makeWindow();
    if (window == nullptr) {
        return 1;
    }
    folderChooser.setWindow(window);
    savePanel.setWindow(window);
    const lumeo::DesktopSettings desktopSettings;
    QObject::connect(&desktopSettings, &lumeo::DesktopSettings::reducedChanged, &program.shell(),
                     &lumeo::ShellModel::setReducedMotion);
    QObject::connect(&desktopSettings, &lumeo::DesktopSettings::textScaled, &program.shell(),
                     &lumeo::ShellModel::setTextScale);
    QObject::connect(&instance, &lumeo::SingleInstance::startedAgain, window,
                     [window](const lumeo::Start& again) { bringToFront(*window, again); });

    lumeo::LauncherProgress launcher(QGuiApplication::desktopFileName());
    const lumeo::ProcessingModel& run = program.processing();
    const auto showRun = [&] {
        launcher.show(run.isRunning() ? std::optional(run.figures().fraction) : std::nullopt);
    };
    QObject::connect(&run, &lumeo::ProcessingModel::isRunningChanged, &launcher, showRun);
    QObject::connect(&run, &lumeo::ProcessingModel::figuresChanged, &launcher, showRun);

    lumeo::SleepGuard guard;
    const auto keepAwakeWhileFilesChange = [&] { guard.keepAwake(program.state().isChangingFiles()); };
    QObject::connect(&program.state(), &lumeo::AppState::isProcessingChanged, &guard,
                     keepAwakeWhileFilesChange);
    QObject::connect(&program.state(), &lumeo::AppState::isUndoingChanged, &guard, keepAwakeWhileFilesChange);
    const lumeo::LongWork work(program.state());
    QObject::connect(&work, &lumeo::LongWork::ended, window,
                     [window](const QString& title, const QString& text) {
                         if (!window->isActive()) {
                             lumeo::DesktopNotifier::tell(title, text);
                         }
                     });

    const lumeo::WindowPlace place(*window, *settings);
    show(*window);
    showSettingsIfAsked(*window, start);
    return QGuiApplication::exec();
}
