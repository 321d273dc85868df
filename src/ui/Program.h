#pragma once

#include "app/AppState.h"
#include "app/Preferences.h"
#include "l10n/LocalizationManager.h"
#include "ui/models/KeyTranslator.h"
#include "ui/models/OrganizationModel.h"
#include "ui/models/PreviewModel.h"
#include "ui/models/ProcessingModel.h"
#include "ui/models/ReportModel.h"
#include "ui/models/ScanModel.h"
#include "ui/models/SettingsModel.h"
#include "ui/models/ShellModel.h"
#include "ui/models/SourcesModel.h"
#include "ui/thumbnails/ThumbnailService.h"

#include <QQuickWindow>

#include <memory>

class QQmlEngine;
class QSettings;

namespace lumeo {

/// What the program needs from the machine. Everything must outlive it.
struct Machine {
    FileSystem& fileSystem;
    const Clock& clock;
    const Volumes& volumes;
    QSettings& settings;
    Desktop desktop;
    const RunJournals& journals;
};

/// The whole program behind its main window: state, models, texts. Main thread only. The destructor removes
/// the window first and then stops the running jobs.
class Program {
public:
    /// `engine` must outlive the program.
    Program(QQmlEngine& engine, const Machine& machine);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Creates the main window without showing it. Null, with the reasons in the log, when its files are
    /// broken.
    [[nodiscard]] QQuickWindow* makeWindow();

    [[nodiscard]] AppState& state() { return state_; }
    [[nodiscard]] ShellModel& shell() { return shell_; }
    [[nodiscard]] const ProcessingModel& processing() const { return processing_; }
    [[nodiscard]] Preferences& preferences() { return preferences_; }
    [[nodiscard]] LocalizationManager& localization() { return localization_; }

private:
    QQmlEngine& engine_;
    Preferences preferences_;
    LocalizationManager localization_;
    KeyTranslator translator_;
    AppState state_;
    ShellModel shell_;
    SettingsModel settings_;
    SourcesModel sources_;
    ScanModel scan_;
    OrganizationModel organization_;
    ThumbnailService thumbnails_;
    PreviewModel preview_;
    ProcessingModel processing_;
    ReportModel report_;
    std::unique_ptr<QQuickWindow> window_;
};

} // namespace lumeo
