#include "player/command_line.h"

#include <CLI/CLI.hpp>
#include <string_view>

#include "player/commands.h"

namespace player {
namespace {

constexpr const char* about =
    "Plays, renders and inspects GUI projects of 3D presentations.\n\n"
    "Begin with:\n"
    "  sgui new hello.sgui          a small project to start from\n"
    "  sgui play hello.sgui         run it in a window (F5 opens the file again, Esc ends)\n"
    "  sgui inspect hello.sgui      every field, and what is wrong with it";

constexpr const char* exit_codes =
    "Exit codes: 0 done, 1 failed (one line on the standard error says why), 2 wrong command line.";

CLI::Validator size_text(
    [](std::string& text) {
        ViewSize ignored;
        return parse_size(text, ignored) ? std::string()
                                         : "\"" + text + "\" is no size: expected WIDTHxHEIGHT, like 1280x720";
    },
    "WIDTHxHEIGHT");

CLI::Validator mouse_text(
    [](std::string& text) {
        MouseAction ignored;
        std::string error;
        parse_mouse_action(text, ignored, error);
        return error;
    },
    "EVENT:X,Y");

// A number of seconds that a frame can stand at; an hour of frames would take longer than anyone waits.
CLI::Validator moment = CLI::Range(0.0, 3600.0);

// More would be too small to see, and a picture too large to show.
constexpr int most_frames = 100;

}  // namespace

struct CommandLine::Options {
    CLI::App app{about, "sgui"};
    std::string module;
    std::string size = "1280x720";
    std::vector<std::string> mouse;
    PlayOptions play_options;
    RenderOptions render_options;
    SheetOptions sheet_options;
    InspectOptions inspect_options;
    ImportOptions import_options;
    NewOptions new_options;
    scenario::RunOptions scenario_options;
    FunctionsOptions functions_options;
    RestoreOptions restore_options;
    FontsOptions fonts_options;
    PublishOptions publish_options;

    CLI::App* play = app.add_subcommand("play", "Runs a project in a window. F5 opens the file again, Esc ends.");
    CLI::App* render = app.add_subcommand("render", "Draws one picture of a project, without a window.");
    CLI::App* sheet = app.add_subcommand("sheet", "Draws moments of an animation beside each other, in one picture.");
    CLI::App* inspect =
        app.add_subcommand("inspect", "Prints every field of a project file and what is wrong with it.");
    CLI::App* scenario = app.add_subcommand("run", "Carries out a Lua file that drives and checks projects.");
    CLI::App* import = app.add_subcommand("import", "Brings a project of the old format over into a new file.");
    CLI::App* create = app.add_subcommand("new", "Writes a small project to start from.");
    CLI::App* restore =
        app.add_subcommand("restore", "Puts a project back to what it was before it was last saved, or forth again.");
    CLI::App* fonts = app.add_subcommand("fonts", "Prints the names of this machine's fonts and their files.");
    CLI::App* publish = app.add_subcommand("publish", "Copies the fonts of a project beside it, for other machines.");
    CLI::App* reference = app.add_subcommand("functions", "Prints what scripts can call, one function a line.");

    Options() {
        app.footer(exit_codes);
        app.set_version_flag("--version", SGUI_VERSION);
        app.require_subcommand(1);
        app.allow_extras();
        define_play();
        define_render();
        define_sheet();
        define_inspect();
        define_scenario();
        define_import();
        define_new();
        define_restore();
        define_functions();
        define_fonts();
        define_publish();
    }

    void define_module(CLI::App* command) {
        command->add_option("--module", module, "The module to load; without it the one beside the program");
    }
    void define_size(CLI::App* command) {
        command->add_option("--size", size, "Size of the view")->check(size_text)->capture_default_str();
    }

    void define_play() {
        play->add_option("PROJECT", play_options.project, "The project file")->required();
        define_size(play);
        play->add_option("--frames", play_options.frames, "End after so many frames")->check(CLI::Range(0, 1000000));
        define_module(play);
    }
    void define_render() {
        render->add_option("PROJECT", render_options.project, "The project file")->required();
        render->add_option("--out", render_options.out, "The picture to write, a PNG file")->required();
        define_size(render);
        render->add_option("--at", render_options.at, "The moment, in seconds after the start of what starts by itself")
            ->check(moment);
        render->add_flag("--running", render_options.running, "Run the project; without it the editor's look is drawn");
        render
            ->add_option("--mouse", mouse,
                         "What the mouse does at the start, in order: move, click, left_down, left_up, right_down,\n"
                         "right_up, middle_down or middle_up, then :X,Y. Runs the project")
            ->check(mouse_text);
        render->add_option("--save", render_options.save, "Save the project to this file afterwards");
        define_module(render);
        render->footer("Example: sgui render show.sgui --size 1920x1080 --mouse click:640,360 --at 1.5 --out show.png");
    }
    void define_sheet() {
        sheet->add_option("PROJECT", sheet_options.project, "The project file")->required();
        sheet->add_option("--animation", sheet_options.animation, "The name of the animation")->required();
        sheet->add_option("--out", sheet_options.out, "The picture to write, a PNG file")->required();
        sheet->add_option("--frames", sheet_options.frames, "How many moments, from the first to the last")
            ->check(CLI::Range(1, most_frames))
            ->capture_default_str();
        define_size(sheet);
        define_module(sheet);
    }
    void define_inspect() {
        inspect->add_option("PROJECT", inspect_options.project, "The project file")->required();
        inspect->add_flag("--json", inspect_options.json, "JSON instead of text");
        inspect->footer("Exit code 1 also where something is wrong with the project.");
    }
    void define_scenario() {
        scenario->add_option("SCENARIO", scenario_options.file, "The Lua file")->required();
        scenario->add_option("--record", play_options.project,
                             "Plays this project in a window and writes what the mouse does there to SCENARIO");
        define_size(scenario);
        scenario->footer(
            "What stands behind SCENARIO is the list ARGS of the file.\n"
            "Exit code 1 where the file, an expect or an assert in it fails. docs/scenarios.md tells all.");
    }
    void define_import() {
        import->add_option("LEGACY", import_options.legacy, "The file of the old project, which stays as it is")
            ->required();
        import->add_option("--out", import_options.out, "The project file to write")->required();
        define_size(import);
        import
            ->add_option("--start", import_options.start,
                         "An animation that plays as soon as the project runs; old files do not say which do")
            ->allow_extra_args(false);
        import->add_flag("--report", import_options.report, "List what does not come over as it was, and why");
        define_module(import);
        import->footer(
            "Pictures outside of the new project's folder are copied into a folder beside it, so that it can be "
            "carried.\n"
            "docs/legacy-file.md tells what an old file holds.");
    }
    void define_new() {
        create->add_option("FILE", new_options.file, "The file to write; it must not exist yet")->required();
        define_module(create);
    }
    void define_restore() {
        restore->add_option("PROJECT", restore_options.project, "The project file")->required();
        restore->footer("Each save keeps the file that it replaces as PROJECT.bak; the two change places.");
    }
    void define_functions() {
        const auto form = [this](const char* flag, FunctionsForm value, const char* text) {
            return reference->add_flag_callback(
                flag, [this, value] { functions_options.form = value; }, text);
        };
        CLI::Option* markdown = form("--markdown", FUNCTIONS_MARKDOWN, "A page by category");
        CLI::Option* json = form("--json", FUNCTIONS_JSON, "Every field, in order of registration");
        json->excludes(markdown);
        form("--lua", FUNCTIONS_STUBS, "Annotated declarations for script editors")->excludes(markdown)->excludes(json);
        define_module(reference);
    }

    void define_fonts() {
        CLI::Option* pattern =
            fonts->add_option("PATTERN", fonts_options.pattern, "Only names that hold this, in any case");
        fonts->add_flag("--json", fonts_options.json, "JSON instead of text");
        CLI::Option* why = fonts->add_option("--why", fonts_options.face,
                                             "Explains how a font of this face is looked for: every name, in order");
        fonts->add_option("--weight", fonts_options.weight, "Its weight: 400 is regular, 700 bold")
            ->needs(why)
            ->capture_default_str();
        fonts->add_flag("--italic", fonts_options.italic, "It leans")->needs(why);
        why->excludes(pattern);
        fonts->footer(
            "Exit code 1 where there is no such font. Example: sgui fonts --why \"DejaVu Sans\" --weight 700");
    }
    void define_publish() {
        publish->add_option("PROJECT", publish_options.project, "The project file")->required();
        define_module(publish);
        publish->footer("Exit code 1 where a font can't be taken along.");
    }

    /// What was wrong with the command line, in one line.
    std::string complaint(const CLI::ParseError& error) const {
        const std::vector<std::string> unknown = app.remaining();
        if (app.get_subcommands().empty() && !unknown.empty()) return "there is no command \"" + unknown.front() + "\"";
        return error.what();
    }

    int run() {
        if (*play) {
            parse_size(size, play_options.size);
            play_options.module = module;
            return player::play(play_options);
        }
        if (*render) return run_render();
        if (*sheet) {
            parse_size(size, sheet_options.size);
            sheet_options.module = module;
            return player::sheet(sheet_options);
        }
        if (*import) {
            parse_size(size, import_options.size);
            import_options.module = module;
            return player::import(import_options);
        }
        if (*inspect) return player::inspect(inspect_options);
        if (*scenario) return scenario->count("--record") > 0 ? record() : run_scenario(scenario_options);
        if (*reference) {
            functions_options.module = module;
            return player::functions(functions_options);
        }
        if (*restore) return player::restore(restore_options);
        if (*fonts) return list_fonts(fonts_options);
        if (*publish) {
            publish_options.module = module;
            return player::publish(publish_options);
        }
        new_options.module = module;
        return create_project(new_options);
    }

    int record() {
        parse_size(size, play_options.size);
        play_options.record = scenario_options.file;
        return player::play(play_options);
    }

    int run_render() {
        parse_size(size, render_options.size);
        render_options.module = module;
        for (const std::string& text : mouse) {
            std::string error;
            parse_mouse_action(text, render_options.mouse.emplace_back(), error);
        }
        return player::render(render_options);
    }
};

namespace {

// What stands behind the file of `run` is the file's own, whatever it looks like; gives where that begins.
int end_of_own_arguments(int argc, const char* const* argv) {
    const bool is_scenario = argc > 2 && std::string_view(argv[1]) == "run" && argv[2][0] != '-';
    return is_scenario ? 3 : argc;
}

}  // namespace

CommandLine::CommandLine() : m_options(std::make_unique<Options>()) {}
CommandLine::~CommandLine() = default;

std::optional<int> CommandLine::parse(int argc, const char* const* argv, std::ostream& out, std::ostream& error) {
    const int own = end_of_own_arguments(argc, argv);
    m_options->scenario_options.arguments.assign(argv + own, argv + argc);
    CLI::App& app = m_options->app;
    try {
        app.parse(own, argv);
    } catch (const CLI::ParseError& problem) {
        // Help and version are answers; everything else is one line that names what was wrong.
        if (problem.get_exit_code() == 0) return app.exit(problem, out, error);
        error << "sgui: " << m_options->complaint(problem) << " (see \"sgui --help\")\n";
        return EXIT_USAGE;
    }
    if (app.remaining().empty()) return std::nullopt;
    error << "sgui: \"" << app.remaining().front() << "\" is not expected there (see \"sgui --help\")\n";
    return EXIT_USAGE;
}

int CommandLine::run() { return m_options->run(); }

}  // namespace player
