#include "platform/Clock.h"
#include "platform/PosixFileSystem.h"
#include "platform/Volumes.h"
#include "ui/Program.h"
#include "ui/desktop/DesktopFileBrowser.h"
#include "ui/desktop/DesktopFolderChooser.h"
#include "ui/desktop/DesktopMotion.h"
#include "ui/desktop/DesktopSavePanel.h"
#include "ui/desktop/LauncherProgress.h"
#include "window/SingleInstance.h"
#include "window/WindowPlace.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QSettings>

#include <iostream>
#include <optional>
#include <span>
#include <string_view>

namespace {

/// Answers what needs no display; false when the window is wanted.
bool hasAnswered(std::span<const char* const> arguments) {
    for (const std::string_view argument : arguments) {
        if (argument == "--version") {
            std::cout << LUMEO_VERSION << '\n';
            return true;
        }
        if (argument == "--help" || argument == "-h") {
            std::cout << "lumeo opens the window. For scripts and terminals there is lumeo-cli.\n";
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

void bringToFront(QWindow& window) {
    window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.setVisible(true); // show() would take a large window's size away
    window.raise();
    window.requestActivate();
}

} // namespace

int main(int argc, char* argv[]) {
    if (hasAnswered(std::span(argv, static_cast<std::size_t>(argc)))) {
        return 0;
    }
    QGuiApplication application(argc, argv);
    name(application);

    lumeo::SingleInstance instance(QStringLiteral("lumeo"));
    if (!instance.claim()) {
        return 0;
    }

    lumeo::PosixFileSystem fileSystem;
    const lumeo::SystemClock clock;
    const lumeo::SystemVolumes volumes;
    QSettings settings;

    QQmlEngine engine;
    lumeo::DesktopFolderChooser folderChooser(engine);
    lumeo::DesktopSavePanel savePanel(engine);
    lumeo::DesktopFileBrowser fileBrowser;
    lumeo::Program program(engine, {.fileSystem = fileSystem,
                                    .clock = clock,
                                    .volumes = volumes,
                                    .settings = settings,
                                    .desktop = {folderChooser, savePanel, fileBrowser}});
    QObject::connect(&engine, &QQmlEngine::quit, &application, &QCoreApplication::quit);

    auto* window = program.makeWindow();
    if (window == nullptr) {
        return 1;
    }
    folderChooser.setWindow(window);
    savePanel.setWindow(window);
    const lumeo::DesktopMotion motion;
    QObject::connect(&motion, &lumeo::DesktopMotion::reducedChanged, &program.shell(),
                     &lumeo::ShellModel::setReducedMotion);
    QObject::connect(&instance, &lumeo::SingleInstance::startedAgain, window,
                     [window] { bringToFront(*window); });

    lumeo::LauncherProgress launcher(QGuiApplication::desktopFileName());
    const lumeo::ProcessingModel& run = program.processing();
    const auto showRun = [&] {
        launcher.show(run.isRunning() ? std::optional(run.fraction()) : std::nullopt);
    };
    QObject::connect(&run, &lumeo::ProcessingModel::isRunningChanged, &launcher, showRun);
    QObject::connect(&run, &lumeo::ProcessingModel::progressChanged, &launcher, showRun);

    const lumeo::WindowPlace place(*window, settings);
    window->setVisible(true); // not show(), which forgets that it filled the screen
    return QGuiApplication::exec();
}
