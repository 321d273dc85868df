#include "platform/Clock.h"
#include "platform/PosixFileSystem.h"
#include "platform/Volumes.h"
#include "ui/Program.h"

#include <CLI/CLI.hpp>

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <ctime>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include <unistd.h>

/// The whole program with its window, without a display, taken from a folder to the preview. Prints one line
/// of JSON: seconds from the start of the process to the first frame; for each stage, the longest time that
/// the main thread did not handle events; the cost of showing, searching and scrolling the list; and memory
/// in bytes.
namespace lumeo::bench {
namespace {

double secondsOf(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double wallSeconds() {
    return secondsOf(CLOCK_MONOTONIC);
}

/// The processor time of this thread, which does not depend on other work of the machine.
double workedSeconds() {
    return secondsOf(CLOCK_THREAD_CPUTIME_ID);
}

double processStartSeconds() {
    std::ifstream stat("/proc/self/stat");
    std::string text{std::istreambuf_iterator<char>(stat), {}};
    std::istringstream fields(text.substr(text.rfind(')') + 2));
    std::string field;
    for (int i = 3; i <= 22; ++i) {
        fields >> field;
    }
    return std::stod(field) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

std::int64_t memory(std::string_view name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name)) {
            return std::stoll(line.substr(name.size() + 1)) * 1024;
        }
    }
    return 0;
}

/// Answers every question with nothing.
class NoDesktop final : public FolderChooser, public SavePanel, public FileBrowser {
public:
    void choose(const FolderRequest& /*request*/, FolderChooser::Answer answer) override { answer({}); }
    void choose(const SaveRequest& /*request*/, SavePanel::Answer answer) override { answer({}); }
    void reveal(const FilePath& /*folder*/) override {}
    void show(const FilePath& /*file*/) override {}
    void open(const FilePath& /*file*/) override {}
};

/// The usual value and the worst of many times.
Json summary(std::vector<double> seconds) {
    std::ranges::sort(seconds);
    return {{"median", seconds[seconds.size() / 2]}, {"longest", seconds.back()}};
}

/// A timer of 5 ms on the main thread. It measures how long the thread could not handle it.
class Beat {
public:
    struct Gap {
        double seconds = 0;
        double worked = 0; ///< of them, on the processor
    };

    Beat() {
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, [this] { note(); });
        timer_.start(5);
    }
    void begin() {
        longest_ = {};
        seconds_ = wallSeconds();
        worked_ = workedSeconds();
    }
    Gap end() {
        note();
        return longest_;
    }

private:
    void note() {
        const double seconds = wallSeconds();
        const double worked = workedSeconds();
        longest_.seconds = std::max(longest_.seconds, seconds - std::exchange(seconds_, seconds));
        longest_.worked = std::max(longest_.worked, worked - std::exchange(worked_, worked));
    }

    QTimer timer_;
    Gap longest_;
    double seconds_ = 0;
    double worked_ = 0;
};

class Journey {
public:
    Journey(const FilePath& folder, bool analyzesDuplicates)
        : folder_(folder), analyzesDuplicates_(analyzesDuplicates) {}

    bool go() {
        if (window_ == nullptr) {
            return false;
        }
        QObject::connect(window_, &QQuickWindow::frameSwapped, [this] { ++frames_; });
        window_->show();
        window_->requestActivate();
        awaitFrame();
        told_["firstFrame"] = secondsOf(CLOCK_BOOTTIME) - processStartSeconds();

        stage("scan", [this] {
            state().addSource(folder_);
            state().startScan();
            await([this] { return !state().isScanning(); });
        });
        stage("results", [this] { awaitFrame(); });
        if (analyzesDuplicates_) {
            stage("duplicates", [this] {
                state().runDuplicateDetection();
                await([this] { return !state().isDetectingDuplicates(); });
                awaitFrame();
            });
        }
        stage("organization", [this] {
            state().proceedToNextStep();
            awaitFrame();
        });
        stage("planning", [this] {
            state().setDestination(FilePath(home_.path().toStdString()).appending("archive"));
            await([this] { return !state().isPlanning(); });
            awaitFrame();
        });
        const double asked = wallSeconds();
        stage("preview", [this] {
            state().navigateToStep(WizardStep::preview);
            state().previewChanges();
            awaitFrame();
        });
        told_["previewShown"] = wallSeconds() - asked;
        stage("planned again", [this] {
            await([this] { return !state().isPlanning(); });
            awaitFrame();
        });
        search();
        scroll();
        told_["files"] = state().totalFilesCount();
        told_["memory"] = memory("VmRSS");
        told_["memoryPeak"] = memory("VmHWM");
        std::cout << told_ << '\n';
        return true;
    }

private:
    AppState& state() { return program_.state(); }

    template<class Condition>
    static void await(Condition condition) {
        while (!condition()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }
    void awaitFrame() {
        window_->update();
        await([this, frame = frames_] { return frames_ > frame; });
    }
    template<class Work>
    void stage(const char* name, Work work) {
        beat_.begin();
        const double began = wallSeconds();
        work();
        const double seconds = wallSeconds() - began;
        const Beat::Gap gap = beat_.end();
        told_["stages"].push_back(
            {{"name", name}, {"seconds", seconds}, {"gap", gap.seconds}, {"gapWorked", gap.worked}});
    }

    /// Types letter by letter, and waits for each result to be shown.
    void search() {
        auto* field = window_->findChild<QQuickItem*>(QStringLiteral("search"));
        field->forceActiveFocus();
        std::vector<double> letters;
        stage("search", [&] {
            for (const QChar letter : QStringLiteral("img_77")) {
                const double began = workedSeconds();
                press(0, letter);
                awaitFrame();
                letters.push_back(workedSeconds() - began);
            }
        });
        told_["letter"] = summary(letters);
        press(Qt::Key_Escape, {});
        awaitFrame();
    }

    void press(int key, const QString& text) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier, text);
            QGuiApplication::sendEvent(window_, &event);
        }
    }

    /// Scrolls by some rows for each of three hundred frames. Then jumps through the whole list.
    void scroll() {
        const auto parts = window_->findChild<QQuickItem*>(QStringLiteral("table"))->childItems();
        auto* list = *std::ranges::find_if(
            parts, [](const QQuickItem* item) { return item->inherits("QQuickListView"); });
        const double end = list->property("contentHeight").toDouble() - list->height();
        told_["scrolledFrame"] = framesOf(*list, 300, 97, end);
        told_["jumpedFrame"] = framesOf(*list, 100, end / 100, end);
    }

    Json framesOf(QQuickItem& list, int count, double step, double end) {
        std::vector<double> worked;
        for (int i = 0; i < count; ++i) {
            const double began = workedSeconds();
            list.setProperty("contentY", std::min(step * i, end));
            awaitFrame();
            worked.push_back(workedSeconds() - began);
        }
        return summary(std::move(worked));
    }

    const FilePath folder_;
    const bool analyzesDuplicates_;
    QTemporaryDir home_;
    QSettings settings_{home_.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat};
    PosixFileSystem fileSystem_;
    SystemClock clock_;
    SystemVolumes volumes_;
    NoDesktop desktop_;
    RunJournals journals_{fileSystem_, FilePath((home_.path() + QStringLiteral("/journals")).toStdString())};
    QQmlEngine engine_;
    Program program_{engine_,
                     {.fileSystem = fileSystem_,
                      .clock = clock_,
                      .volumes = volumes_,
                      .settings = settings_,
                      .desktop = {desktop_, desktop_, desktop_},
                      .journals = journals_}};
    QQuickWindow* window_ = program_.makeWindow();
    int frames_ = 0;
    Beat beat_;
    Json told_;
};

int run(int argc, char** argv) {
    std::string folder;
    bool analyzesDuplicates = false;
    CLI::App app("Leads the window over FOLDER to the preview and tells how long it kept people waiting.");
    app.add_option("FOLDER", folder)->required();
    app.add_flag("--duplicates", analyzesDuplicates, "analyze duplicates on the way");
    CLI11_PARSE(app, argc, argv);
    return Journey(FilePath::standardized(folder), analyzesDuplicates).go() ? 0 : 1;
}

} // namespace
} // namespace lumeo::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    try {
        return lumeo::bench::run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
