// Memory runs out: each allocation of each operation fails in turn, alone or with all behind it. The operation says so,
// nothing is lost or left behind, and it works once there is memory again.

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <vector>

#include "harden/report.h"
#include "harden/short_memory.h"
#include "host/core/clock.h"
#include "host/core/default_font.h"
#include "host/core/log.h"
#include "host/core/project_file.h"
#include "host/core/sdl_device.h"
#include "host/system/engine.h"

namespace {

namespace fs = std::filesystem;
using namespace harden;

constexpr int width = 320;
constexpr int height = 180;
/// At which the showroom stands still, in seconds.
constexpr double moment = 5.0;
const std::string module_path = MODULE_PATH;
const std::string showroom = SAMPLES "/showroom/showroom.sgui";
const std::string legacy_project = SAMPLES "/legacy/both.legacy";

/// Something that asks for memory.
struct Operation {
    const char* name;
    std::function<void()> prepare;
    /// False: `error` says why.
    std::function<bool(std::string& error)> run;
    /// What a failure may leave.
    enum Rest {
        FORMER,
        /// The former project as it comes back from a save; with all behind it failing there is no memory to bring it
        /// back, so it may be an empty one.
        FORMER_REOPENED,
        /// The former state, or an empty project, which is what was asked for.
        FORMER_OR_EMPTY,
        /// What is there with memory: a frame is made anew each time.
        WHOLE,
        /// A script or an animation ends anywhere; what it has done by then stays.
        PART_OF_ITS_WORK,
    } rest = FORMER;
};

class Memory {
public:
    Memory(const fs::path& folder, host::SdlDevice& device)
        : m_folder(folder), m_device(device), m_engine(device, host::default_font_path()) {
        host::use_settable_time(0);
        host::set_log_sink([this](int, std::wstring_view line) {
            m_says_why |= line.find(L"out of memory") != std::wstring_view::npos;
        });
        m_engine.draw_scene = {};
        m_engine.scripts().on_error = [this](const std::string& line) {
            m_script_failed = true;
            m_says_why |= line.find("memory") != std::string::npos;
        };
        std::string error;
        if (!m_engine.load_module(MODULE_PATH, error)) fault("the module", error);
        start_empty();
        m_empty = state();
    }
    ~Memory() {
        m_engine.close();
        host::set_log_sink({});
    }
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    /// Of each operation the first `most` allocations fail, and behind them each `step`th, or a hundred in all for 0.
    int run_all(long most, long step) {
        const std::string file = (m_folder / "saved.sgui").string();
        run_showroom();
        const CPoint place = middle_of(L"菜单造型");
        const Operation operations[] = {
            {"opening", [this] { import(); },
             [this](std::string& error) { return m_engine.open_project(showroom, error); }, Operation::FORMER_REOPENED},
            {"saving",
             [this, file] {
                 open_showroom();
                 std::ofstream(file, std::ios::binary) << "<the old file/>\n";
                 fs::remove(file + ".bak");
             },
             [this, file](std::string& error) { return m_engine.save_project(file, error); }},
            {"importing", [this] { open_showroom(); },
             [this](std::string& error) { return m_engine.import_project(legacy_project, error); },
             Operation::FORMER_REOPENED},
            {"a new project with its font scan", [this] { import(); },
             [this](std::string&) { return m_engine.new_project(width, height); }, Operation::FORMER_OR_EMPTY},
            {"a frame in a new view size",
             [this] {
                 run_showroom();
                 m_engine.resize(width + 10, height + 20);
             },
             [this](std::string&) {
                 m_engine.resize(width, height);
                 return m_engine.frame(moment) && !m_says_why;
             },
             Operation::WHOLE},
            {"a start of the run", [this] { open_showroom(); }, [this](std::string&) { return m_engine.start_run(); },
             Operation::PART_OF_ITS_WORK},
            {"a click with its script", [this] { run_showroom(); },
             [this, place](std::string&) {
                 m_engine.mouse(host::InputKind::LEFT_DOWN, place.x, place.y);
                 return !m_says_why && !m_script_failed;
             },
             Operation::PART_OF_ITS_WORK},
        };
        int failed = 0;
        for (const Operation& operation : operations) failed += fail_every(operation, most, step);
        return failed;
    }

private:
    [[noreturn]] static void fault(const std::string& what, const std::string& why) {
        std::fprintf(stderr, "FAULT: %s: %s\n", what.c_str(), why.c_str());
        std::exit(2);
    }

    void start_empty() {
        m_engine.stop_run();
        m_engine.scene().use_counted_ids();
        m_device.forget_unused();
        for (const auto& entry : fs::directory_iterator(m_folder)) fs::remove(entry.path());
        host::set_time(0.0);
        m_engine.new_project(width, height);
    }

    void import() {
        start_empty();
        std::string error;
        if (!m_engine.import_project(legacy_project, error)) fault(legacy_project, error);
    }

    void open_showroom() {
        start_empty();
        std::string error;
        if (!m_engine.open_project(showroom, error)) fault(showroom, error);
        // Drawing a text notes where it stands, and that is saved.
        m_engine.frame(moment);
    }

    void run_showroom() {
        open_showroom();
        host::set_time(0.0);
        m_engine.start_run();
        host::set_time(moment);
        m_engine.frame(moment);
        m_device.forget_unused();
    }

    CPoint middle_of(const wchar_t* shape) {
        CRect rect;
        host::ProjectDocument document = m_engine.document();
        for (host::ProjectItem& item : document.items)
            if (item.name == shape) item.data.get_property("m_rect", PAK_RECT, &rect);
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }

    /// The open project, its file, a frame of it, and the files beside it.
    std::string state() {
        // Drawing a text notes where it stands.
        m_engine.frame(moment);
        std::string error;
        std::string all = host::format_project(m_engine.document(), error) + error;
        all += std::string(m_engine.project_file_path.begin(), m_engine.project_file_path.end());
        for (const std::uint32_t pixel : m_device.read_pixels())
            all.append(reinterpret_cast<const char*>(&pixel), sizeof pixel);
        for (const auto& entry : fs::directory_iterator(m_folder)) {
            std::ifstream in(entry.path(), std::ios::binary);
            all += "\n" + entry.path().string() + "\n" + std::string(std::istreambuf_iterator<char>(in), {});
        }
        return all;
    }

    std::string state_reopened() {
        const std::string path(m_engine.project_file_path.begin(), m_engine.project_file_path.end());
        std::string error;
        if (!m_engine.open_document(m_engine.document(path), path, error)) fault("opening again", error);
        return state();
    }

    int fail_every(const Operation& operation, long most, long step) {
        // Twice ahead of counting: what is kept for good is then there.
        std::string error, before, after;
        for (int round = 0; round < 2; ++round) {
            operation.prepare();
            before = state();
            operation.prepare();
            if (!operation.run(error)) fault(operation.name, error);
            after = state();
        }
        operation.prepare();
        m_reopened = operation.rest == Operation::FORMER_REOPENED ? state_reopened() : "";
        operation.prepare();
        long asked = 0;
        {
            const ShortMemory count;
            operation.run(error);
            asked = count.count();
        }
        std::fprintf(stderr, "%s asks %ld times\n", operation.name, asked);
        std::string().swap(error);
        operation.prepare();
        m_live = live_bytes();
        m_done = m_overcome = m_closed = m_violations = 0;
        const long behind = step > 0 ? step : asked / 100 + 1;
        for (long at = 0; at < asked; at += at < most ? 1 : behind)
            for (const bool lasts : {false, true}) inject(operation, at, lasts, before, after);
        return report(std::string("memory: none left in ") + operation.name,
                      std::to_string(m_done) + " failures, " + std::to_string(m_violations) + " losses; of " +
                          std::to_string(asked) + " allocations, " + std::to_string(m_overcome) + " done without" +
                          (m_closed > 0 ? ", " + std::to_string(m_closed) + " end empty" : ""),
                      "none", m_done > 0 && m_violations == 0);
    }

    /// False where nothing failed, for it asks for less.
    bool run_short(const Operation& operation, long at, bool lasts, bool& good, std::string& error) {
        m_says_why = m_script_failed = false;
        const ShortMemory fault(at, lasts);
        good = operation.run(error);
        m_says_why |= error.find("out of memory") != std::string::npos;
        return fault.was_felt();
    }

    bool works(const Operation& operation) {
        std::string error;
        m_says_why = m_script_failed = false;
        m_engine.scene().use_counted_ids();
        return operation.run(error);
    }

    void inject(const Operation& operation, long at, bool lasts, const std::string& before, const std::string& after) {
        bool good = false;
        std::string error;
        if (!run_short(operation, at, lasts, good, error)) return;
        ++m_done;
        m_overcome += good ? 1 : 0;
        const auto expect = [&](bool holds, const char* what) {
            if (holds) return;
            ++m_violations;
            std::fprintf(stderr, "%s, allocation %ld%s: %s; %s\n", operation.name, at, lasts ? " and on" : "", what,
                         good ? "it said it worked" : error.c_str());
        };
        expect(good || m_says_why, "nothing is said");
        const bool is_part = operation.rest == Operation::PART_OF_ITS_WORK;
        {
            const std::string found = state();
            const bool may_be_empty =
                operation.rest == Operation::FORMER_OR_EMPTY || (operation.rest == Operation::FORMER_REOPENED && lasts);
            const bool is_empty = may_be_empty && found == m_empty;
            const bool is_whole = (good || operation.rest == Operation::WHOLE) && found == after;
            const bool is_former = !good && (found == before || found == m_reopened);
            m_closed += !good && is_empty && !is_former ? 1 : 0;
            expect(is_whole || is_former || (!good && (is_empty || is_part)), "what is left is not what should be");
        }
        expect(works(operation) && (is_part || state() == after), "with memory it does not work either");
        operation.prepare();
        std::string().swap(error);
        if (live_bytes() == m_live) return;
        // What is kept for good may have grown otherwise than it does with memory. A leak grows each time.
        m_live = live_bytes();
        run_short(operation, at, lasts, good, error);
        works(operation);
        operation.prepare();
        std::string().swap(error);
        expect(live_bytes() == m_live, ("bytes lost: " + std::to_string(live_bytes() - m_live)).c_str());
        m_live = live_bytes();
    }

    fs::path m_folder;
    host::SdlDevice& m_device;
    host::Engine m_engine;
    std::string m_empty;
    std::string m_reopened;
    bool m_says_why = false;
    bool m_script_failed = false;
    long long m_live = 0;
    int m_done = 0;
    int m_overcome = 0;
    int m_closed = 0;
    int m_violations = 0;
};

// A module that could not be loaded whole is not there, and can be loaded again. False where nothing failed.
bool load_short(host::SdlDevice& device, long at, int& losses) {
    std::string error;
    host::Engine engine(device, host::default_font_path());
    const ShortMemory fault(at);
    const bool good = engine.load_module(module_path, error);
    if (good == (engine.module() == nullptr) || (!good && error.find("out of memory") == std::string::npos)) {
        ++losses;
        std::fprintf(stderr, "loading, allocation %ld: %s\n", at, error.c_str());
    }
    return fault.was_felt();
}

int load_every(host::SdlDevice& device) {
    host::set_log_sink([](int, std::wstring_view) {});
    int losses = 0;
    load_short(device, ShortMemory::never, losses);
    long long live = live_bytes();
    long at = 0;
    for (; load_short(device, at, losses); ++at) {
        if (live_bytes() == live) continue;
        // As with the operations above: a leak grows each time.
        live = live_bytes();
        load_short(device, at, losses);
        if (live_bytes() > live) std::fprintf(stderr, "loading, allocation %ld: bytes lost\n", at), ++losses;
        live = live_bytes();
    }
    return report("memory: none left in loading the module",
                  std::to_string(at) + " failures, " + std::to_string(losses) + " losses", "none",
                  at > 10 && losses == 0);
}

}  // namespace

int main(int argc, char** argv) {
    const std::string much = argc > 1 ? argv[1] : "";
    watch_library_memory();
    std::string name = fs::temp_directory_path() / "memory_XXXXXX";
    const fs::path folder = mkdtemp(name.data());
    int failed = 0;
    {
        const auto device = host::SdlDevice::in_memory();
        failed = load_every(*device);
        failed += Memory(folder, *device)
                      .run_all(much == "--quick" ? 0 : 2000, much == "--long"    ? 1
                                                             : much == "--quick" ? 0
                                                                                 : 97);
    }
    fs::remove_all(folder);
    return failed == 0 ? 0 : 1;
}
