import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The main window: the header, and below it the screen of the current step. A screen is created when its
/// step is shown and destroyed after it.
Window {
    id: window

    required property ShellModel shell
    required property SettingsModel settingsModel
    required property SourcesModel sourcesModel
    required property ScanModel scanModel
    required property OrganizationModel organizationModel
    required property PreviewModel previewModel
    required property ProcessingModel processingModel
    required property ReportModel reportModel

    function openSettings() {
        settings.show();
        settings.requestActivate();
    }

    objectName: "main-window"
    title: "LUMEO."
    width: 1100
    height: 760
    minimumWidth: 900
    minimumHeight: 650
    color: Theme.ground

    onClosing: close => {
        if (shell.isChangingFiles) {
            close.accepted = false;
            closeQuestion.open();
        } else {
            Qt.quit();
        }
    }

    Binding {
        target: Theme
        property: "dark"
        value: window.shell.isDark
    }

    Binding {
        target: Theme
        property: "reducedMotion"
        value: window.shell.reducedMotion
    }

    Binding {
        target: Theme
        property: "textScale"
        value: window.shell.textScale
    }

    Binding {
        target: Theme
        property: "accent"
        value: window.shell.tint
    }

    Shortcut {
        sequence: "Ctrl+Q"
        context: Qt.ApplicationShortcut
        onActivated: window.close()
    }

    Shortcut {
        sequence: "Ctrl+O"
        onActivated: window.shell.addFolder()
    }

    Shortcut {
        sequence: "F1"
        onActivated: help.open()
    }

    Shortcut {
        sequence: "Ctrl+,"
        onActivated: window.openSettings()
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        Header {
            Layout.fillWidth: true
            z: 1
            shell: window.shell
            onHelpRequested: help.open()
            onPrivacyRequested: privacy.open()
            onPerformanceRequested: performance.open()
            onAboutRequested: about.open()
            onSettingsRequested: window.openSettings()
        }

        StepStage {
            Layout.fillWidth: true
            Layout.fillHeight: true
            step: window.shell.currentStep
            screens: [
                { url: "screens/SourcesScreen.qml", properties: { model: window.sourcesModel, report: window.reportModel } },
                { url: "screens/ScanScreen.qml", properties: { model: window.scanModel } },
                { url: "screens/OrganizationScreen.qml", properties: { model: window.organizationModel } },
                { url: "screens/PreviewScreen.qml", properties: { model: window.previewModel } },
                { url: "screens/ProcessingScreen.qml", properties: { model: window.processingModel } },
                { url: "screens/ReportScreen.qml", properties: { model: window.reportModel } }
            ]
        }
    }

    HowToUseSheet {
        id: help
    }

    PrivacySheet {
        id: privacy
    }

    PerformanceSheet {
        id: performance
    }

    AboutSheet {
        id: about
    }

    SettingsWindow {
        id: settings

        model: window.settingsModel
        transientParent: window
    }

    Connections {
        target: window.shell

        function onIsChangingFilesChanged() {
            if (!window.shell.isChangingFiles)
                closeQuestion.close(); // the question was answered in another way
        }
    }

    Alert {
        id: closeQuestion

        title: "Quit LUMEO.?"
        message: window.shell.workText + "\n" + "Quitting stops the work. What is done by then stays, and no file is left half made."
        confirmText: "Quit"
        cancelText: "Keep Running"
        destructive: true
        onConfirmed: {
            window.processingModel.cancel();
            window.reportModel.stopUndo();
            Qt.quit();
        }
    }
}
