#include "support/TinyMovies.h"
#include "ui/MadeProgram.h"

#include <QDir>
#include <QGuiApplication>
#include <QQuickWindow>

#include <functional>
#include <iostream>

namespace {

using namespace lumeo;
using lumeo::testing::MadeProgram;
using lumeo::testing::waitUntil;
using lumeo::testing::Warnings;

/// How a state of the program is looked at.
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

/// Walks through the program and takes its picture in every state.
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
        state.addSource(made_.folder / "Pictures");
        state.addSource(made_.folder / "card");
        take("sources");
        sheets();

        state.startScan();
        state.pauseScan();
        take("scan-paused");
        state.resumeScan();
        if (!waitUntil([&] { return !state.isScanning(); })) {
            return false;
        }
        take("results");
        state.runDuplicateDetection();
        if (!waitUntil([&] { return !state.isDetectingDuplicates(); })) {
            return false;
        }
        take("results-duplicates");

        state.proceedToNextStep();
        take("organization-empty");
        state.setDestination(made_.folder / "Archive");
        OrganizationPlan plan = state.organizationPlan();
        plan.preset = OrganizationPreset::custom;
        state.setOrganizationPlan(plan);
        take("organization");
        run();
        return Warnings::text().empty();
    }

private:
    void run() {
        auto& state = made_.state;
        state.previewChanges();
        std::ignore = waitUntil([&] { return !state.isPlanning(); });
        take("preview");
        made_.program.localization().setLanguage(AppLanguage::english);
        made_.click("IMG_1002.JPG");
        take("inspector");
        state.startOperation();
        std::ignore = waitUntil([&] { return state.isProcessing(); });
        state.pauseOperation();
        take("processing-paused");
        state.resumeOperation();
        std::ignore = waitUntil([&] { return !state.isProcessing(); });
        take("report");
        state.finishCompletedOperation();
        take("sources-again");
    }

    void sheets() {
        const std::pair<const char*, const char*> all[] = {{"How to Use", "help"},
                                                           {"Privacy & Security", "privacy"},
                                                           {"Performance Notice", "performance"},
                                                           {"About LUMEO.", "about"},
                                                           {"Application Language", "languages"}};
        for (const auto& [button, name] : all) {
            made_.program.localization().setLanguage(AppLanguage::english);
            made_.click(button);
            take(name);
            made_.press(Qt::Key_Escape);
        }
        made_.press(Qt::Key_Comma, Qt::ControlModifier);
        const auto windows = QGuiApplication::topLevelWindows();
        for (auto* window : windows) {
            auto* settings = qobject_cast<QQuickWindow*>(window);
            if (settings != nullptr && settings != made_.window && settings->isVisible()) {
                for (const auto appearance : {AppAppearance::light, AppAppearance::dark}) {
                    made_.program.preferences().setAppearance(appearance);
                    save(*settings, nameOf(QStringLiteral("settings"),
                                           {AppLanguage::english, appearance, settings->size()}));
                }
                settings->close();
            }
        }
    }

    void take(const char* state) {
        for (const auto& view : views_) {
            made_.program.localization().setLanguage(view.language);
            made_.program.preferences().setAppearance(view.appearance);
            made_.window->resize(view.size);
            save(*made_.window, nameOf(QString::fromLatin1(state), view));
        }
    }

    void save(QQuickWindow& window, const QString& name) {
        // Layouts settle in their own time, a tooltip or a colour in a few frames more.
        QTest::qWait(60);
        window.grabWindow().save(folder_.filePath(name));
    }

    MadeProgram made_;
    QDir folder_;
    std::vector<View> views_;
};

} // namespace

/// Takes pictures of every screen, in both appearances, both sizes and the languages given; fails when
/// anything was warned of meanwhile.
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
