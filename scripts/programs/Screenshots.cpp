#include "samples/TinyMovies.h"
#include "ui/MadeProgram.h"

#include <QDir>
#include <QGuiApplication>
#include <QMimeData>
#include <QQuickWindow>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <thread>

namespace {

using namespace lumeo;
using lumeo::testing::MadeProgram;
using lumeo::testing::waitUntil;
using lumeo::testing::Warnings;

/// One way to show a state of the program.
struct View {
    AppLanguage language = AppLanguage::english;
    AppAppearance appearance = AppAppearance::light;
    QSize size;
};

std::vector<View> views(const std::vector<AppLanguage>& languages) {
    std::vector<View> all;
    for (const auto language : languages) {
        for (const auto appearance : {AppAppearance::light, AppAppearance::dark}) {
            for (const QSize size : {QSize(900, 650), QSize(1100, 760)}) {
                all.push_back({language, appearance, size});
            }
            if (language == AppLanguage::english || language == AppLanguage::arabic) {
                all.push_back({language, appearance, QSize(1920, 1080)});
            }
        }
    }
    return all;
}

QString nameOf(const QString& state, const View& view) {
    const bool isDark = view.appearance == AppAppearance::dark;
    return QStringLiteral("%1-%2-%3-%4.png")
        .arg(state, languageCode(view.language), isDark ? QStringLiteral("dark") : QStringLiteral("light"))
        .arg(view.size.width());
}

/// A few years of a family's photos and films.
class Library {
public:
    explicit Library(const TempFolder& folder) {
        const char* const cameras[] = {"Pocket 5", "Studio 1", "Phone 9"};
        for (int i = 0; i < 240; ++i) {
            const std::string number = std::to_string(1000 + i);
            TinyPhoto photo;
            photo.model = cameras[i % 3];
            photo.make = "Example";
            photo.width = 16 + i;
            if (i % 17 != 0) {
                photo.dateTimeOriginal = std::to_string(2017 + i % 8) + ":0" + std::to_string(1 + i % 9) +
                                         ":1" + std::to_string(i % 10) + " 15:30:45";
            }
            const std::string place = i % 2 == 0 ? "Pictures/Holidays/" : "card/DCIM/";
            folder.write(place + "IMG_" + number + (i % 23 == 0 ? ".DNG" : ".JPG"), tinyJpeg(photo));
            if (i % 20 == 0) {
                folder.write("Pictures/Copies/IMG_" + number + " (copy).JPG", tinyJpeg(photo));
            }
            if (i % 12 == 0) {
                TinyMovie movie;
                movie.quickTimeCreationDate = "2021-03-14T15:30:45+0100";
                folder.write("card/DCIM/MVI_" + number + ".MOV", tinyQuickTime(movie));
            }
        }
        folder.write("Pictures/tax.pdf", "no media");
    }
};

/// Walks through the program and takes a picture of every state.
class Photographer {
public:
    Photographer(QDir folder, const std::vector<AppLanguage>& languages)
        : folder_(std::move(folder)), views_(views(languages)) {}

    bool walk() {
        made_.volumes.add(made_.folder / "card", 64'000'000'000, 9'000'000'000, true);
        made_.volumes.add(FilePath("/"), 512'000'000'000, 190'000'000'000);
        const Library library(made_.folder);
        auto& state = made_.state;

        take("sources-empty");
        drag();
        state.addSource(made_.folder / "Pictures");
        state.addSource(made_.folder / "card");
        take("sources");
        sheets();
        gaps();

        state.startScan();
        state.pauseScan();
        take("scan-paused");
        state.resumeScan();
        await([&] { return !state.isScanning(); });
        take("results");
        state.runDuplicateDetection();
        await([&] { return !state.isDetectingDuplicates(); });
        take("results-duplicates");

        state.proceedToNextStep();
        take("organization-empty");
        state.setDestination(made_.folder / "Archive");
        OrganizationPlan plan = state.organizationPlan();
        plan.preset = OrganizationPreset::custom;
        state.setOrganizationPlan(plan);
        take("organization");
        choose("Advanced Settings");
        take("organization-advanced");
        preview();
        run();
        report();
        return isOnTheWay_ && Warnings::text().empty();
    }

private:
    template<class Condition>
    void await(Condition condition) {
        isOnTheWay_ = waitUntil(condition) && isOnTheWay_;
    }

    /// What a scan could not find or read, and one that finds nothing.
    void gaps() {
        auto& state = made_.state;
        state.addSource(made_.folder / "old disk");
        await([&] { return state.presence(state.sources().back().id) == SourcePresence::gone; });
        take("source-missing");
        state.startScan();
        await([&] { return !state.isScanning(); });
        choose("1 place could not be read");
        take("unreadable");
        state.navigateToStep(WizardStep::sources);
        const std::vector<SourceVolume> all = state.sources();
        state.clearSources();
        made_.folder.write("Papers/tax.pdf", "no media");
        state.addSource(made_.folder / "Papers");
        state.startScan();
        await([&] { return !state.isScanning(); });
        take("nothing-to-organize");
        state.navigateToStep(WizardStep::sources);
        state.clearSources();
        state.addSource(all[0].url);
        state.addSource(all[1].url);
    }

    void preview() {
        auto& state = made_.state;
        state.previewChanges();
        await([&] { return !state.isPlanning(); });
        take("preview");
        take("planning", [&] { state.startPlanning(); });
        await([&] { return !state.isPlanning(); });

        child("table").forceActiveFocus();
        for (int row = 0; row < 7; ++row) {
            made_.press(Qt::Key_Down);
        }
        take("inspector");
        made_.press(Qt::Key_Space);
        take("large-picture");
        made_.press(Qt::Key_Space);
        made_.press(Qt::Key_Escape);
        child("search").forceActiveFocus();
        child("search").setProperty("text", QStringLiteral("grandmother"));
        take("nothing-found");
        child("search").setProperty("text", QString());

        made_.volumes.add(FilePath("/"), 512'000'000'000, 4'000);
        state.startOperation();
        take("refusal");
        made_.volumes.add(FilePath("/"), 512'000'000'000, 190'000'000'000);
        setMode(OperationMode::move);
        choose("Start Move...");
        take("move-question");
        made_.press(Qt::Key_Escape);
        setMode(OperationMode::copy);
        state.startOperation();
        await([&] { return state.operationProgress().verifiedCount > 0; });
        state.cancelOperation();
        await([&] { return !state.isProcessing(); });
        take("cancelled");
        await([&] { return state.recentRuns().interrupted.has_value(); });
        state.navigateToStep(WizardStep::sources);
        take("interrupted-run");
        state.navigateToStep(WizardStep::preview);
        std::filesystem::remove_all((made_.folder / "Archive").bytes());
        state.startPlanning();
        await([&] { return !state.isPlanning(); });
    }

    void run() {
        auto& state = made_.state;
        // Each call is slowed down so that the picture is taken before the run is over.
        made_.disk.beforeEachCall(
            [](const DiskCall&) { std::this_thread::sleep_for(std::chrono::microseconds(500)); });
        state.startOperation();
        std::ignore =
            waitUntil([&] { return state.isProcessing() && state.operationProgress().processedCount > 80; });
        state.pauseOperation();
        take("processing-paused");
        made_.window->close();
        take("close-question");
        made_.press(Qt::Key_Escape);
        made_.disk.beforeEachCall({});
        state.resumeOperation();
        await([&] { return !state.isProcessing(); });
    }

    void report() {
        take("report");
        made_.desktop.document = made_.folder / "removed disk/report.csv";
        choose("Export CSV");
        take("export-failed");
        made_.desktop.document = made_.folder / "report.csv";
        choose("Export CSV");
        take("exported");

        choose("Undo Organization...");
        take("undo-question");
        spoilTwo(made_.state.activeManifest()->items);
        choose("Yes, Undo Organization");
        await([&] { return child("undo").isEnabled(); });
        choose("Warnings");
        take("undone");
        made_.state.finishCompletedOperation();
        take("sources-again");
        made_.program.shell().setTextScale(1.5);
        take("sources-large-texts");
        made_.program.shell().setTextScale(1);
        failures();
    }

    void failures() {
        auto& state = made_.state;
        state.startScan();
        await([&] { return !state.isScanning(); });
        state.proceedToNextStep();
        state.setDestination(made_.folder / "Archive");
        state.previewChanges();
        await([&] { return !state.isPlanning(); });
        for (const auto& [part, name] : {std::pair("MVI_", "some-failed"), std::pair("", "all-failed")}) {
            made_.disk.failWhen(
                [part = std::string(part)](const DiskCall& call) {
                    return call.operation == "createFile" &&
                           call.path.bytes().find(part) != std::string::npos;
                },
                ENOSPC);
            state.navigateToStep(WizardStep::preview);
            await([&] { return !state.isPlanning(); });
            state.startOperation();
            await([&] { return state.currentStep() == WizardStep::report; });
            take(name);
            std::filesystem::remove_all((made_.folder / "Archive").bytes());
        }
    }

    /// Changes one file of the archive and removes another.
    static void spoilTwo(const std::vector<FileTransactionItem>& items) {
        std::vector<std::string> archived;
        for (const auto& item : items) {
            if (item.status == TransactionStatus::verified) {
                archived.push_back(item.destinationPath.bytes());
            }
        }
        std::ofstream(archived.at(0)) << "edited since";
        std::filesystem::remove(archived.at(1));
    }

    void drag() {
        QMimeData data;
        data.setData(QStringLiteral("text/uri-list"), "file:///photos\r\n");
        QDragEnterEvent enter({450, 325}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(made_.window, &enter);
        take("sources-drag");
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(made_.window, &leave);
    }

    void sheets() {
        const std::pair<const char*, const char*> all[] = {{"How to Use", "help"},
                                                           {"Privacy & Security", "privacy"},
                                                           {"Performance Notice", "performance"},
                                                           {"About LUMEO.", "about"},
                                                           {"Application Language", "languages"}};
        for (const auto& [button, name] : all) {
            choose(button);
            take(name);
            made_.press(Qt::Key_Escape);
        }
        made_.press(Qt::Key_Comma, Qt::ControlModifier);
        const auto windows = QGuiApplication::topLevelWindows();
        for (auto* window : windows) {
            auto* settings = qobject_cast<QQuickWindow*>(window);
            if (settings != nullptr && settings != made_.window && settings->isVisible()) {
                const View light{AppLanguage::english, AppAppearance::light, settings->size()};
                const View dark{AppLanguage::english, AppAppearance::dark, settings->size()};
                for (const char* const tab : {"settings", "settings-privacy"}) {
                    for (const View& view : {light, dark}) {
                        made_.program.preferences().setAppearance(view.appearance);
                        settle();
                        save(*settings, nameOf(QString::fromLatin1(tab), view));
                    }
                    QTest::mouseClick(settings, Qt::LeftButton, {}, QPoint(settings->width() / 2 + 50, 36));
                }
                settings->close();
                made_.window->requestActivate();
            }
        }
    }

    QQuickItem& child(const char* name) const {
        return *made_.window->findChild<QQuickItem*>(QString::fromLatin1(name));
    }

    /// Clicks the control with this English name.
    void choose(const char* name) {
        made_.program.localization().setLanguage(AppLanguage::english);
        settle();
        if (!made_.shows(name) || !made_.click(name)) {
            std::cerr << "There is no \"" << name << "\" to be clicked\n";
            isOnTheWay_ = false;
        }
    }

    void setMode(OperationMode mode) {
        OrganizationPlan plan = made_.state.organizationPlan();
        plan.operationMode = mode;
        made_.state.setOrganizationPlan(plan);
    }

    /// Takes the window's picture in all views. `begin` starts a state that lasts only for a moment.
    void take(const char* state, const std::function<void()>& begin = {}) {
        for (const auto& view : views_) {
            made_.program.localization().setLanguage(view.language);
            made_.program.preferences().setAppearance(view.appearance);
            made_.window->resize(view.size);
            settle();
            if (begin) {
                begin();
            }
            save(*made_.window, nameOf(QString::fromLatin1(state), view));
        }
    }

    /// Layouts take some time to settle, and a tooltip or a colour takes a few frames more.
    static void settle() { QTest::qWait(60); }

    void save(QQuickWindow& window, const QString& name) { window.grabWindow().save(folder_.filePath(name)); }

    MadeProgram made_;
    QDir folder_;
    std::vector<View> views_;
    bool isOnTheWay_ = true; ///< every state so far was reached
};

} // namespace

/// Takes pictures of every screen, in both appearances, both sizes and the given languages. Fails when a
/// state was not reached or when there was a warning.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    if (argc < 3) {
        std::cerr << "usage: lumeo-screenshots FOLDER LANGUAGE...\n";
        return 2;
    }
    std::vector<AppLanguage> languages;
    for (int i = 2; i < argc; ++i) {
        languages.push_back(languageOfCode(QString::fromLatin1(argv[i])).value_or(AppLanguage::english));
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    if (!folder.mkpath(QStringLiteral("."))) {
        std::cerr << "cannot make " << argv[1] << '\n';
        return 1;
    }
    if (!Photographer(folder, languages).walk()) {
        std::cerr << Warnings::text() << '\n';
        return 1;
    }
    return 0;
}
