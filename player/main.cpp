#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>

#include "player/commands.h"

namespace {

using namespace player;

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

/// The command line, as far as it concerns all commands.
struct CommandLine {
    CLI::App app{about, "sgui"};
    std::string module;
    std::string size = "1280x720";
    std::vector<std::string> mouse;
    PlayOptions play_options;
    RenderOptions render_options;
    InspectOptions inspect_options;
    NewOptions new_options;

    CLI::App* play = app.add_subcommand("play", "Runs a project in a window. F5 opens the file again, Esc ends.");
    CLI::App* render = app.add_subcommand("render", "Draws one picture of a project, without a window.");
    CLI::App* inspect =
        app.add_subcommand("inspect", "Prints every field of a project file and what is wrong with it.");
    CLI::App* create = app.add_subcommand("new", "Writes a small project to start from.");

    CommandLine() {
        app.footer(exit_codes);
        app.set_version_flag("--version", SGUI_VERSION);
        app.require_subcommand(1);
        app.allow_extras();
        define_play();
        define_render();
        define_inspect();
        define_new();
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
        render->add_option("--at", render_options.at, "The moment, in seconds after the start")->check(moment);
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
    void define_inspect() {
        inspect->add_option("PROJECT", inspect_options.project, "The project file")->required();
        inspect->add_flag("--json", inspect_options.json, "JSON instead of text");
        inspect->footer("Exit code 1 also where something is wrong with the project.");
    }
    void define_new() {
        create->add_option("FILE", new_options.file, "The file to write; it must not exist yet")->required();
        define_module(create);
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
        if (*inspect) return player::inspect(inspect_options);
        new_options.module = module;
        return create_project(new_options);
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

}  // namespace

int main(int argc, char** argv) {
    try {
        CommandLine line;
        try {
            line.app.parse(argc, argv);
        } catch (const CLI::ParseError& error) {
            // Help and version are answers; everything else is one line that names what was wrong.
            if (error.get_exit_code() == 0) return line.app.exit(error);
            std::cerr << "sgui: " << line.complaint(error) << " (see \"sgui --help\")\n";
            return EXIT_USAGE;
        }
        if (!line.app.remaining().empty()) {
            std::cerr << "sgui: \"" << line.app.remaining().front()
                      << "\" is not expected there (see \"sgui --help\")\n";
            return EXIT_USAGE;
        }
        return line.run();
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}
