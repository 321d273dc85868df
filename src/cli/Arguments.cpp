#include "cli/Arguments.h"

#include "cli/Version.h"

#include <algorithm>
#include <string_view>

#include <CLI/CLI.hpp>

namespace lumeo::cli {
namespace {

/// Adds an option whose values are the coded texts of an enumeration.
template<class Enum>
CLI::Option* addChoice(CLI::App& app, const std::string& name, Enum& value, const std::string& help) {
    std::string choices;
    for (const Enum candidate : allCases<Enum>()) {
        choices += (choices.empty() ? "" : "|") + std::string(rawValue(candidate));
    }
    CLI::Option* option = app.add_option_function<std::string>(
        name,
        [&value, name, choices](const std::string& text) {
            const std::optional<Enum> chosen = fromRawValue<Enum>(text);
            if (!chosen) {
                throw CLI::ValidationError(name, "\"" + text + "\" is none of " + choices);
            }
            value = *chosen;
        },
        help);
    option->type_name(choices)->default_str(std::string(rawValue(value)));
    return option;
}

/// Refuses an empty path. An unset variable of a script must not mean "none" or the current folder.
std::string pathProblem(const std::string& text) {
    return text.empty() ? "the path is empty" : "";
}

/// The texts as CLI11 collects them, before they become paths.
struct Texts {
    std::vector<std::string> sources;
    std::string destination;
    std::string archive;
    std::string manifest;
    std::string csv;
    std::string report;
};

void addSources(CLI::App& command, Texts& texts) {
    command.add_option("SOURCE", texts.sources, "Folders, drives or single files; only read")
        ->required()
        ->check(pathProblem);
}

void addPlan(CLI::App& command, Texts& texts, OrganizationPlan& plan) {
    command.add_option("--to", texts.destination, "The archive's root folder")
        ->type_name("DEST")
        ->required()
        ->check(pathProblem);
    addChoice(command, "--preset", plan.preset, "Folder structure");
    command
        .add_option_function<std::string>(
            "--template",
            [&plan](const std::string& text) {
                plan.preset = OrganizationPreset::custom;
                plan.customTemplate = text;
            },
            "Folder structure of your own, e.g. \"{YYYY}/{MM} {Month}/{CameraModel}\"; tokens: {YYYY} {YY} "
            "{MM} {DD} {Month} {MonthShort} {CameraMake} {CameraModel} {MediaType}")
        ->type_name("TEXT")
        ->trigger_on_parse();
    addChoice(command, "--mode", plan.operationMode, "Keep the sources, or remove each after its proof");
    addChoice(command, "--duplicates", plan.duplicatePolicy, "What becomes of later copies of one content");
    addChoice(command, "--unknown-dates", plan.unknownDatePolicy, "What becomes of files without a date");
}

void addAnalysis(CLI::App& command, Arguments& arguments) {
    command.add_flag("--analyze-duplicates", arguments.analyzeDuplicates,
                     "Find byte-identical files by SHA-256 first");
}

void addFile(CLI::App& command, const std::string& name, std::string& text, const std::string& help) {
    command.add_option(name, text, help)->type_name("FILE")->check(pathProblem);
}

std::optional<FilePath> pathFrom(const std::string& text) {
    return text.empty() ? std::nullopt : std::optional(FilePath::standardized(text));
}

void addOutput(CLI::App& command, Arguments& arguments, const std::string& jsonHelp) {
    command.add_flag("--json", arguments.json, jsonHelp);
    command.add_flag("-q,--quiet", arguments.quiet, "No progress and no tables, errors only");
}

} // namespace

std::variant<Arguments, ExitStatus> parseArguments(int argc, const char* const* argv) {
    Arguments arguments;
    Texts texts;

    CLI::App app("Turns scattered photos and videos into a dated archive, verified file by file.",
                 "lumeo-cli");
    // The version is printed as soon as the option is read, so --verbose must count wherever it stands.
    bool isVerbose = std::find(argv, argv + argc, std::string_view("--verbose")) != argv + argc;
    app.set_version_flag("--version", [&isVerbose] { return versionText(isVerbose); });
    app.add_flag("--verbose", isVerbose, "With --version: tell how the helpers that decode are locked in");
    app.require_subcommand(1);
    app.footer("Exit status: 0 all well, 1 at least one file failed or was left alone, 2 wrong usage, "
               "3 not enough space, 4 another run works in the archive, 130 interrupted.\nSources are never "
               "written to; a move removes a file only after its copy "
               "was proven identical.");
    constexpr auto itemsAsJson = "Print one coded media item a line, then the counters";

    CLI::App* scan = app.add_subcommand("scan", "Find media and its dates");
    addSources(*scan, texts);
    addAnalysis(*scan, arguments);
    addOutput(*scan, arguments, itemsAsJson);

    CLI::App* plan = app.add_subcommand("plan", "Show every planned change; write nothing");
    addSources(*plan, texts);
    addPlan(*plan, texts, arguments.plan);
    addAnalysis(*plan, arguments);
    addOutput(*plan, arguments, itemsAsJson);

    CLI::App* organize = app.add_subcommand("organize", "Bring everything into the archive");
    addSources(*organize, texts);
    addPlan(*organize, texts, arguments.plan);
    addAnalysis(*organize, arguments);
    addFile(*organize, "--manifest", texts.manifest, "Write the run's journal there, as JSON; undo reads it");
    addFile(*organize, "--csv", texts.csv, "Write a table of what was done there");
    addFile(*organize, "--report", texts.report, "Write a report for people there");
    organize->add_flag("--checksums", arguments.plan.listsChecksums,
                       "Add each digest to the file SHA256SUMS in DEST, which verify and sha256sum -c read");
    organize->add_flag("-y,--yes", arguments.assumeYes, "Move without asking");
    addOutput(*organize, arguments, "Print the run's journal");

    CLI::App* duplicates = app.add_subcommand("duplicates", "Find byte-identical files; write nothing");
    addSources(*duplicates, texts);
    addOutput(*duplicates, arguments, "Print the groups and what they waste");

    CLI::App* check =
        app.add_subcommand("check", "Tell whether every media file of the sources is in the archive");
    addSources(*check, texts);
    check->add_option("--archive", texts.archive, "The archive's root folder; only read")
        ->type_name("DIR")
        ->required()
        ->check(pathProblem);
    check->add_flag("--read-all", arguments.readAll,
                    "Read every file of the archive, also those that an earlier check or verify has read");
    addOutput(*check, arguments, "Print one file a line that is not there, then the counters");

    CLI::App* verify =
        app.add_subcommand("verify", "Compare an archive with its SHA256SUMS; write nothing there");
    verify->add_option("DIR", texts.archive, "The archive's root folder")->required()->check(pathProblem);
    verify
        ->add_option("--since", arguments.sinceDays,
                     "Spare files that were read within so many days and look untouched since")
        ->type_name("DAYS")
        ->check(CLI::Range(std::int64_t{1}, std::int64_t{36500}));
    addOutput(*verify, arguments, "Print one file a line that is not as listed, then the counters");

    CLI::App* undo = app.add_subcommand("undo", "Take a run back, as far as its files are unchanged");
    undo->add_option("JOURNAL", texts.manifest,
                     "A journal that runs lists, or that organize --manifest wrote; the last run without it")
        ->check(pathProblem);
    undo->add_flag("-y,--yes", arguments.assumeYes, "Undo without asking");
    undo->add_flag("-q,--quiet", arguments.quiet, "Errors only");

    CLI::App* runs = app.add_subcommand("runs", "List the latest runs and where their journals are");
    runs->add_flag("--json", arguments.json, "Print one run a line");

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? ExitStatus::success : ExitStatus::wrongUsage;
    }

    for (const auto& [subcommand, command] :
         {std::pair{scan, Command::scan}, std::pair{plan, Command::plan},
          std::pair{organize, Command::organize}, std::pair{duplicates, Command::duplicates},
          std::pair{check, Command::check}, std::pair{verify, Command::verify},
          std::pair{undo, Command::undo}, std::pair{runs, Command::runs}}) {
        if (subcommand->parsed()) {
            arguments.command = command;
        }
    }
    for (const std::string& source : texts.sources) {
        arguments.sources.push_back(FilePath::standardized(source));
    }
    arguments.plan.destinationURL = pathFrom(texts.destination);
    arguments.archive = FilePath::standardized(texts.archive);
    arguments.manifestFile = pathFrom(texts.manifest);
    arguments.csvFile = pathFrom(texts.csv);
    arguments.reportFile = pathFrom(texts.report);
    return arguments;
}

} // namespace lumeo::cli
