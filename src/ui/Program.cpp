#include "ui/Program.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQmlEngine>

namespace lumeo {

Program::Program(QQmlEngine& engine, const Machine& machine)
    : engine_(engine),
      preferences_(machine.settings),
      localization_(machine.settings),
      translator_(localization_),
      state_({.fileSystem = machine.fileSystem,
              .clock = machine.clock,
              .volumes = machine.volumes,
              .preferences = preferences_,
              .desktop = machine.desktop,
              .journals = machine.journals}),
      shell_(state_, localization_, preferences_),
      settings_(preferences_),
      sources_(state_, localization_),
      scan_(state_, localization_),
      organization_(state_, localization_),
      preview_(state_, localization_, thumbnails_, machine.desktop.fileBrowser, preferences_),
      processing_(state_),
      report_(state_, localization_, machine.desktop, machine.fileSystem, machine.clock) {
    engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
    QCoreApplication::installTranslator(&translator_);
    QObject::connect(&localization_, &LocalizationManager::currentLanguageChanged, &engine_,
                     &QQmlEngine::retranslate);
}

Program::~Program() {
    window_.reset();
    QCoreApplication::removeTranslator(&translator_);
}

QQuickWindow* Program::makeWindow() {
    QQmlComponent component(&engine_);
    component.setData("import Lumeo.Window\nMain {}", QUrl());
    std::unique_ptr<QObject> made;
    if (component.isReady()) {
        const auto of = [](QObject& model) { return QVariant::fromValue(&model); };
        made.reset(component.createWithInitialProperties({
            {QStringLiteral("shell"), of(shell_)},
            {QStringLiteral("settingsModel"), of(settings_)},
            {QStringLiteral("sourcesModel"), of(sources_)},
            {QStringLiteral("scanModel"), of(scan_)},
            {QStringLiteral("organizationModel"), of(organization_)},
            {QStringLiteral("previewModel"), of(preview_)},
            {QStringLiteral("processingModel"), of(processing_)},
            {QStringLiteral("reportModel"), of(report_)},
        }));
    }
    window_.reset(qobject_cast<QQuickWindow*>(made.release()));
    if (window_ == nullptr) {
        qCritical("%s", qUtf8Printable(component.errorString()));
    }
    return window_.get();
}

} // namespace lumeo
