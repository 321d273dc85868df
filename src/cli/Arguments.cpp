#include "cli/Arguments.h"

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

/// The texts as CLI11 collects them, before they become paths.
struct Texts {
    std::vector<std::string> sources;
    std::string destination;
    std::string manifest;
};

void addSources(CLI::App& command, Texts& texts) {
    command.add_option("SOURCE", texts.sources, "Folders, drives or single files; only read")->required();
}

void addPlan(CLI::App& command, Texts& texts, OrganizationPlan& plan) {
    command.add_option("--to", texts.destination, "The archive's root folder")->type_name("DEST")->required();
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
    app.set_version_flag("--version", std::string(LUMEO_VERSION));
    app.require_subcommand(1);
    app.footer("Exit status: 0 all well, 1 at least one file failed, 2 wrong usage, 3 not enough space, "
               "130 interrupted.\nSources are never written to; a move removes a file only after its copy "
               "was proven identical.");
    constexpr auto itemsAsJson = "Print one coded media item a line, then the counters";

    CLI::App* scan = app.add_subcommand("scan", "Find media and its dates");
    addSources(*scan, texts);
    addOutput(*scan, arguments, itemsAsJson);

    CLI::App* plan = app.add_subcommand("plan", "Show every planned change; write nothing");
    addSources(*plan, texts);
    addPlan(*plan, texts, arguments.plan);
    addOutput(*plan, arguments, itemsAsJson);

    CLI::App* organize = app.add_subcommand("organize", "Bring everything into the archive");
    addSources(*organize, texts);
    addPlan(*organize, texts, arguments.plan);
    organize->add_option("--manifest", texts.manifest, "Write the run's journal there, as JSON")
        ->type_name("FILE");
    organize->add_flag("-y,--yes", arguments.assumeYes, "Move without asking");
    addOutput(*organize, arguments, "Print the run's journal");

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? ExitStatus::success : ExitStatus::wrongUsage;
    }

    arguments.command = plan->parsed()       ? Command::plan
                        : organize->parsed() ? Command::organize
                                             : Command::scan;
    for (const std::string& source : texts.sources) {
        arguments.sources.push_back(FilePath::standardized(source));
    }
    if (!texts.destination.empty()) {
        arguments.plan.destinationURL = FilePath::standardized(texts.destination);
    }
    if (!texts.manifest.empty()) {
        arguments.manifestFile = FilePath::standardized(texts.manifest);
    }
    return arguments;
}

} // namespace lumeo::cli
