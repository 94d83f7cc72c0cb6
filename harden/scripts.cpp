// Scripts stay in their box: each hostile script is stopped in time, reaches nothing outside, and the next event works.

#include <algorithm>
#include <ctime>
#include <string>

#include "harden/closed_box.h"
#include "harden/hostile_scripts.h"
#include "harden/report.h"
#include "host/core/item_store.h"
#include "host/core/recording_device.h"
#include "host/system/engine.h"

namespace {

using namespace harden;

double seconds_of_work() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

host::ProjectItem item(unsigned long type, const wchar_t* id, const wchar_t* name, const CRect& rect) {
    host::ProjectItem made;
    made.type = type;
    made.id = CGuid(id);
    made.name = name;
    made.data.set("m_offsetx", static_cast<int>(rect.left));
    made.data.set("m_offsety", static_cast<int>(rect.top));
    made.data.set("m_rect", rect);
    return made;
}

void add_script(host::ProjectItem& shape, const std::string& text) {
    host::ProjectNode& script = shape.data.add("m_func_left_down");
    script.set("type", static_cast<int>(host::ITEM_TYPE_SCRIPT));
    // Each byte a character: texts that are no UTF-8 come through as something that is.
    script.set("script", tstringW(std::wstring(text.begin(), text.end())));
}

/// A button with the script, and another that answers.
host::ProjectDocument project_with(const std::string& script) {
    host::ProjectDocument project;
    project.items.push_back(item(ITEM_TYPE_DIALOG, L"00000000-0000-0000-0000-000000000001", L"D", {0, 0, 400, 300}));
    project.items.push_back(
        item(ITEM_TYPE_SHAPE, L"00000000-0000-0000-0000-000000000002", L"hostile", {10, 10, 30, 30}));
    project.items.push_back(item(ITEM_TYPE_SHAPE, L"00000000-0000-0000-0000-000000000003", L"other", {50, 10, 70, 30}));
    for (std::size_t shape : {1u, 2u}) project.items[shape].parent = project.items[0].id;
    project.items[1].flag = 1;
    add_script(project.items[1], script);
    add_script(project.items[2], "local t = {} for i = 1, 1000 do t[i] = 'x' .. i end");
    return project;
}

class Scripts {
public:
    Scripts() {
        std::string error;
        if (!m_engine.load_module(MODULE_PATH, error)) fault(error);
        m_engine.scripts().on_print = [this](const std::string& line) { m_escaped |= line == "ESCAPED"; };
        m_engine.scripts().on_error = [this](const std::string& line) { m_errors.push_back(line); };
        open("");
    }
    ~Scripts() { m_engine.close(); }
    Scripts(const Scripts&) = delete;
    Scripts& operator=(const Scripts&) = delete;

    int run_all() {
        const std::vector<std::string> scripts = hostile_scripts();
        const bool is_watched = forbid_all_but_computing();
        for (const std::string& script : scripts) run(script);
        const double budget = host::LuaLimits().seconds;
        char figure[200];
        std::snprintf(figure, sizeof figure, "%zu scripts, the slowest %.2f s of work, %d got out, %d deaf afterwards",
                      scripts.size(), m_longest, m_escapes, m_deaf);
        int failed = report("scripts: hostile ones are stopped", figure,
                            "at least 200, twice " + std::to_string(budget).substr(0, 3) + " s, none, none",
                            scripts.size() >= 200 && m_longest <= 2 * budget && m_escapes == 0 && m_deaf == 0);
        failed += report("scripts: they ask nothing of the system",
                         is_watched ? std::to_string(m_forbidden) + " calls beyond memory and time; " +
                                          std::to_string(m_for_pictures) + " by functions that look for a picture"
                                    : "this system can't watch it",
                         "none", is_watched && m_forbidden == 0);
        return failed;
    }

private:
    [[noreturn]] static void fault(const std::string& why) {
        std::fprintf(stderr, "FAULT: %s\n", why.c_str());
        std::exit(2);
    }

    void open(const std::string& script) {
        m_engine.stop_run();
        m_engine.new_project(800, 600);
        std::string error;
        if (!m_engine.open_document(project_with(script), "", error)) fault(error);
        m_engine.start_run();
    }

    void run(const std::string& script) {
        open(script);
        m_escaped = false;
        const int forbidden = forbidden_calls();
        const double start = seconds_of_work();
        m_engine.mouse(host::InputKind::LEFT_DOWN, 20, 20);
        const double taken = seconds_of_work() - start;
        m_longest = std::max(m_longest, taken);
        // What a script names as a picture is looked for; that alone asks the system.
        const bool may_ask = script.find("set_ctrl_texture") != std::string::npos;
        const int calls = forbidden_calls() - forbidden;
        const bool asked = calls > 0 && !may_ask;
        m_engine.mouse(host::InputKind::LEFT_UP, 20, 20);
        m_errors.clear();
        const bool answers = m_engine.mouse(host::InputKind::LEFT_DOWN, 60, 20) && m_errors.empty();
        m_escapes += m_escaped ? 1 : 0;
        m_deaf += answers ? 0 : 1;
        (may_ask ? m_for_pictures : m_forbidden) += calls;
        if (taken > 2 * host::LuaLimits().seconds || m_escaped || asked || !answers)
            std::fprintf(stderr, "%.2f s%s%s: %.200s\n%s\n", taken, m_escaped ? ", got out" : "",
                         answers ? "" : ", deaf afterwards", script.c_str(),
                         asked ? ("asked for call " + std::to_string(last_forbidden_call())).c_str() : "");
    }

    host::RecordingDevice m_device;
    host::Engine m_engine{m_device, L""};
    std::vector<std::string> m_errors;
    bool m_escaped = false;
    double m_longest = 0.0;
    int m_escapes = 0;
    int m_deaf = 0;
    int m_forbidden = 0;
    int m_for_pictures = 0;
};

}  // namespace

int main() { return Scripts().run_all() == 0 ? 0 : 1; }
