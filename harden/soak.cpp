// A long show: frames without end, with whatever people do to them in between. Memory, open files and the time of a
// frame stay what they were.

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <random>
#include <vector>

#include "fonts/font_info.h"
#include "harden/report.h"
#include "host/core/clock.h"
#include "host/core/default_font.h"
#include "host/core/font_files.h"
#include "host/core/log.h"
#include "host/core/sdl_device.h"
#include "module/manager.h"
#include "module/setting.h"
#include "scene/show.h"

namespace {

namespace fs = std::filesystem;
using namespace harden;

#ifdef __SANITIZE_ADDRESS__
constexpr bool is_sanitized = true;
#else
constexpr bool is_sanitized = false;
#endif

constexpr const char* legacy_project = SAMPLES "/legacy/both.legacy";
constexpr const char* showroom = SAMPLES "/showroom/showroom.sgui";
/// How often the show comes back to one and the same state, in which it is measured.
constexpr int checks = 100;
constexpr long long most_growth = 1 << 20;

double seconds_of_work() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

long long resident_bytes() {
    long long all = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

/// Handed out by malloc and not given back.
long long bytes_in_use() {
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<long long>(heap.uordblks) + static_cast<long long>(heap.hblkhd);
}

/// Files, pipes and all else with a number.
long open_handles() { return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()); }

/// What was measured in the state that comes back.
struct Check {
    long long resident;
    long long in_use;
    long handles;
};

struct Plan {
    /// The rows begin with it.
    std::string title;
    int frames;
    /// Times count where the machine has nothing else to do.
    bool is_timed;
    /// Of a new view, in pixels.
    int width;
    int height;
};

class Soak {
public:
    Soak(Plan plan, host::Device& screen) : m_plan(std::move(plan)), m_screen(screen), m_show(screen) {
        host::set_log_sink([](int, std::wstring_view) {});
        m_show.engine.scripts().on_error = [](const std::string&) {};
        m_show.engine.scripts().on_print = [](const std::string&) {};
        m_show.engine.on_message = [](const std::string&) {};
        host::list_font_files(m_fonts);
        m_seconds.reserve(static_cast<std::size_t>(m_plan.frames));
        m_checks.reserve(checks);
    }
    ~Soak() { host::set_log_sink({}); }
    Soak(const Soak&) = delete;
    Soak& operator=(const Soak&) = delete;

    void run() {
        warm_up();
        for (int frame = 0; frame < m_plan.frames; ++frame) {
            if (frame % (m_plan.frames / checks) == 0) check();
            disturb();
            host::advance_time(1.0 / 60.0);
            const double begin = seconds_of_work();
            m_show.engine.frame(0.0);
            m_seconds.push_back(seconds_of_work() - begin);
        }
        check();
    }

    int report_all() const {
        const std::string all = std::to_string(m_plan.frames) + " frames, " + std::to_string(m_projects) +
                                " projects, " + std::to_string(m_font_changes) + " fonts: ";
        const long handles = m_checks.back().handles - m_checks.front().handles;
        int failed = report(m_plan.title + ": handles", all + std::to_string(handles) + " more", "none", handles == 0);
        // What sanitizers keep is more than all that is measured here.
        if (is_sanitized) return failed;
        failed += report_growth(m_plan.title + ": resident memory", all, &Check::resident);
        failed += report_growth(m_plan.title + ": heap in use", all, &Check::in_use);
        return m_plan.is_timed ? failed + report_times(all) : failed;
    }

private:
    static void expect(bool good, const std::string& error) {
        if (good) return;
        std::fprintf(stderr, "FAULT: %s\n", error.c_str());
        std::exit(2);
    }

    static std::string written(const bench::Crowd& crowd, std::string path) {
        bench::write_crowd(crowd, path);
        return path;
    }

    int chance(int of) { return static_cast<int>(m_random() % static_cast<unsigned>(of)); }

    void open(const std::string& path) {
        std::string error;
        expect(m_show.engine.open_project(path, error), error);
        m_show.animate({bench::crowd_shape_id(0), bench::crowd_shape_id(1), bench::crowd_dialog_id(0)});
    }

    /// What happens seldom has happened often ahead of the first measuring: an allocator keeps what it once needed.
    void warm_up() {
        for (int round = 0; round < 100; ++round) {
            change_project();
            for (int font = 0; font < 4; ++font) change_font();
            m_show.engine.frame(0.0);
        }
    }

    void check() {
        m_show.engine.stop_run();
        host::set_time(0.0);
        m_show.engine.new_project(m_plan.width, m_plan.height);
        open(m_large);
        m_show.engine.start_run();
        // What is kept of former frames is another thing each time.
        m_screen.forget_unused();
        m_show.engine.frame(0.0);
        // How much free memory the allocator keeps depends on the places of what lies between, others in each run.
        malloc_trim(0);
        m_checks.push_back({resident_bytes(), bytes_in_use(), open_handles()});
    }

    void disturb() {
        const int what = chance(1000);
        if (what < 2) change_project();
        if (what >= 2 && what < 6) change_font();
        if (what >= 10 && what < 30) m_show.engine.resize(chance(2 * m_plan.width), chance(2 * m_plan.height));
        if (what >= 100) return;
        send_input();
    }

    void send_input() {
        using enum host::InputKind;
        constexpr host::InputKind kinds[] = {LEFT_DOWN,   LEFT_UP,   RIGHT_DOWN, RIGHT_UP, MIDDLE_DOWN,
                                             MIDDLE_UP,   WHEEL,     LEFT_CLICK, MOVE,     MOVE,
                                             LEFT_DOUBLE, CTRL_DOWN, CTRL_UP};
        m_show.engine.mouse(kinds[chance(static_cast<int>(std::size(kinds)))], chance(m_plan.width),
                            chance(m_plan.height));
    }

    void change_project() {
        ++m_projects;
        std::string error;
        host::Engine& engine = m_show.engine;
        switch (chance(6)) {
            case 0:
                engine.stop_run();
                open(m_small);
                break;
            case 1:
                engine.stop_run();
                open(m_large);
                break;
            case 2:
                expect(engine.open_project(showroom, error), error);
                break;
            case 3:
                expect(engine.import_project(legacy_project, error), error);
                break;
            case 4:
                engine.new_project(m_plan.width, m_plan.height);
                break;
            default:
                expect(engine.save_project(m_folder.file("saved.sgui"), error), error);
        }
        engine.start_run();
    }

    void change_font() {
        ++m_font_changes;
        if (m_fonts.empty()) return;
        auto& manager = static_cast<CSimpleGUIManager&>(*m_show.engine.module());
        CGlobalFontInfo& table = *manager.m_setting->m_font_info;
        auto name = table.m_fontname_fontpath_map.begin();
        std::advance(name, chance(static_cast<int>(table.m_fontname_fontpath_map.size())));
        LOGFONTW record{};
        record.lfHeight = 8 + chance(60);
        record.lfWeight = 400;
        std::copy_n(name->first.begin(), std::min<std::size_t>(name->first.length(), 31), record.lfFaceName);
        table.change_font(record, 1 + chance(CGlobalFontInfo::slot_count), chance(2) == 0);
    }

    int report_growth(const std::string& row, const std::string& all, long long Check::*bytes) const {
        const auto less = [bytes](const Check& a, const Check& b) { return a.*bytes < b.*bytes; };
        const auto warm = m_checks.begin() + checks / 4;
        const long long before = (*std::max_element(m_checks.begin(), warm, less)).*bytes;
        const long long after = (*std::max_element(warm, m_checks.end(), less)).*bytes;
        return report(row, all + std::to_string((after - before) / 1024) + " KiB more than in the first quarter",
                      "at most 1024 KiB", after - before <= most_growth);
    }

    // In microseconds, of the part of the show from one share of it to another.
    double percentile_99(double from, double to) const {
        const auto place = [this](double share) {
            return m_seconds.begin() + static_cast<std::ptrdiff_t>(share * static_cast<double>(m_seconds.size()));
        };
        std::vector<double> part(place(from), place(to));
        const auto at = part.begin() + static_cast<std::ptrdiff_t>(part.size() * 99 / 100);
        std::nth_element(part.begin(), at, part.end());
        return *at * 1e6;
    }

    int report_times(const std::string& all) const {
        const double first = percentile_99(0.0, 0.25), last = percentile_99(0.75, 1.0);
        char figure[100];
        std::snprintf(figure, sizeof figure, "%.0f us of work in the first quarter, %.0f us in the last", first, last);
        return report(m_plan.title + ": 99th percentile of a frame", all + figure, "at most 1.5 times the first",
                      last <= 1.5 * first);
    }

    Plan m_plan;
    host::Device& m_screen;
    bench::ScratchFolder m_folder;
    // Ahead of the show: of two engines in one program the later takes the module's items with it.
    std::string m_small = written({.shapes = 300, .scaled_dialogs = true}, m_folder.file("small.sgui"));
    std::string m_large = written({.shapes = 1000}, m_folder.file("large.sgui"));
    bench::Show m_show;
    std::mt19937 m_random{1};
    std::vector<host::FontFile> m_fonts;
    std::vector<double> m_seconds;
    std::vector<Check> m_checks;
    int m_projects = 0;
    int m_font_changes = 0;
};

}  // namespace

int main(int argc, char** argv) {
    const std::string much = argc > 1 ? argv[1] : "";
    const bool is_quick = much == "--quick";
    const int frames = is_quick ? 20'000 : much == "--long" ? 2'000'000 : 200'000;
    int failed = 0;
    {
        bench::NullDevice nowhere;
        Soak soak({"soak", frames, !is_quick, bench::crowd_width, bench::crowd_height}, nowhere);
        soak.run();
        failed += soak.report_all();
    }
    // A tenth of the frames, small ones, take longer to draw than all of those to compose.
    const auto screen = host::SdlDevice::in_memory();
    Soak drawn({"soak, drawn", frames / 10, !is_quick, 240, 135}, *screen);
    drawn.run();
    failed += drawn.report_all();
    return failed == 0 ? 0 : 1;
}
