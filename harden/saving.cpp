// Saving never loses a project: every call to the disk fails in turn, the process dies in the middle, the power goes.
// The file is the old one or the new one afterwards, byte for byte, and the program knows which.

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>
#include <utility>

#include "harden/power_cut.h"
#include "harden/report.h"
#include "host/core/picture_file.h"
#include "host/core/project_file.h"
#include "host/core/recording_device.h"
#include "host/system/engine.h"
#include "host/system/platform.h"

namespace {

namespace fs = std::filesystem;
using namespace harden;

std::string content(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Something that writes files, and where.
struct Writer {
    const char* name;
    fs::path target;
    std::function<bool(std::string& error)> write;
    bool keeps_the_old_file = true;
    bool is_new = false;
    bool no_second_names = false;
    Folder before = {}, after = {};
};

class Saving {
public:
    explicit Saving(const fs::path& folder) : m_folder(folder) {
        std::string error;
        if (!m_engine.load_module(MODULE_PATH, error)) fault("the module", error);
        m_engine.new_project(1280, 720);
        if (!m_engine.open_project(SAMPLES "/showroom/showroom.sgui", error)) fault("the showroom", error);
        m_project = text_of_the_project();
        const fs::path project = m_folder / "show.sgui";
        const auto save = [this, project](std::string& why) { return m_engine.save_project(project.string(), why); };
        add({"a project over the old one", project, save});
        add({"a new project", project, save, true, true});
        add({"a project, without second names", project, save, true, false, true});
        add({"a project through a link", project,
             [this](std::string& why) { return m_engine.save_project((m_folder / "link.sgui").string(), why); }});
        add({"a picture", m_folder / "frame.png",
             [this](std::string& why) {
                 std::vector<std::uint32_t> pixels(std::size_t{64} * 48, 0xFF336699u);
                 return host::write_png((m_folder / "frame.png").string(), pixels, 64, why);
             },
             false});
        add({"a published font", m_folder / "font.ttf",
             [this](std::string& why) {
                 why = "no word";
                 return host::default_platform_functions().copy_file(
                     fs::path(SAMPLES "/showroom/showroom_textures/Quicksand-Medium.ttf").wstring(),
                     (m_folder / "font.ttf").wstring());
             },
             false});
    }
    ~Saving() { m_engine.close(); }
    Saving(const Saving&) = delete;
    Saving& operator=(const Saving&) = delete;

    int fail_every_call() {
        for (Writer& writer : m_writers) {
            const int count = calls_of(writer).second;
            for (int at = 0; at < count; ++at) {
                for (const int error : {ENOSPC, EIO, EINTR, EACCES}) {
                    inject(writer, {Fault::ERROR, at, error});
                    if (error != EINTR) inject(writer, {Fault::ERROR, at, error, true});
                }
                inject(writer, {Fault::SHORT_WRITE, at, 0});
            }
        }
        return summary("saving: a call fails", m_injections, 500, "failing calls",
                       std::to_string(m_refused) + " saves were refused");
    }

    int kill(int times) {
        std::mt19937 chance(1);
        int done = 0;
        while (done < times) {
            Writer& writer = m_writers[chance() % m_writers.size()];
            const int count = calls_of(writer).second;
            const auto begin = std::chrono::steady_clock::now();
            prepare(writer);
            std::string ignored;
            writer.write(ignored);
            const auto length = std::chrono::steady_clock::now() - begin;
            for (int round = 0; round < 10; ++round, ++done) {
                prepare(writer);
                const auto kind = static_cast<Fault::Kind>(Fault::KILL_AHEAD + chance() % 3);
                const int at = static_cast<int>(chance() % static_cast<unsigned>(count));
                // Half of them die at a call, half at any moment.
                const bool at_a_call = round % 2 == 0;
                const pid_t child = fork();
                if (child == 0) {
                    const DiskWatch watch({at_a_call ? kind : Fault::NONE, at, 0, false, writer.no_second_names});
                    writer.write(ignored);
                    _exit(0);
                }
                if (!at_a_call) {
                    std::this_thread::sleep_for(length * static_cast<int>(chance() % 1000) / 1000);
                    ::kill(child, SIGKILL);
                }
                int status = 0;
                waitpid(child, &status, 0);
                m_killed += WIFSIGNALED(status) ? 1 : 0;
                check_state(writer, read_folder(), "killed");
            }
        }
        return summary("saving: the process is killed", done, times, "kills",
                       std::to_string(m_killed) + " of them before the end");
    }

    int cut_power(int times) {
        std::mt19937 chance(2);
        int done = 0;
        while (done < times) {
            for (Writer& writer : m_writers) {
                const std::vector<DiskCall> calls = calls_of(writer).first;
                for (std::size_t made = 0; made <= calls.size(); ++made, ++done)
                    check_state(writer, after_power_cut(writer.before, calls, made, chance), "without power");
            }
        }
        return summary("saving: the power goes", done, times, "replays", "");
    }

private:
    static void fault(const std::string& what, const std::string& why) {
        std::fprintf(stderr, "FAULT: %s: %s\n", what.c_str(), why.c_str());
        std::exit(2);
    }

    std::string text_of_the_project() {
        std::string error;
        return host::format_project(m_engine.document(""), error);
    }

    void add(Writer writer) {
        if (!writer.is_new) writer.before[writer.target.string()] = "<the old file/>\n";
        if (writer.keeps_the_old_file && !writer.is_new)
            writer.before[writer.target.string() + ".bak"] = "<an older one/>\n";
        prepare(writer);
        std::string error;
        if (!writer.write(error)) fault(writer.name, error);
        writer.after = read_folder();
        m_writers.push_back(std::move(writer));
    }

    void prepare(const Writer& writer) {
        for (const auto& entry : fs::directory_iterator(m_folder)) fs::remove(entry.path());
        fs::create_symlink("show.sgui", m_folder / "link.sgui");
        for (const auto& [name, bytes] : writer.before) std::ofstream(name, std::ios::binary) << bytes;
    }

    Folder read_folder() const {
        Folder folder;
        for (const auto& entry : fs::directory_iterator(m_folder))
            if (!entry.is_symlink()) folder[entry.path().string()] = content(entry.path());
        return folder;
    }

    /// What an undisturbed save asks of the disk, and how many calls these are with those that only close and the like.
    std::pair<std::vector<DiskCall>, int> calls_of(const Writer& writer) {
        prepare(writer);
        const DiskWatch watch({Fault::NONE, 0, 0, false, writer.no_second_names});
        std::string ignored;
        writer.write(ignored);
        return {watch.calls(), watch.count()};
    }

    void inject(const Writer& writer, Fault what) {
        prepare(writer);
        what.no_second_names = writer.no_second_names;
        std::string error;
        bool good = false;
        {
            const DiskWatch watch(what);
            good = writer.write(error);
            if (!watch.was_disturbed()) return;
        }
        ++m_injections;
        m_refused += good ? 0 : 1;
        const std::string target = writer.target.string();
        Folder found = read_folder();
        const Folder& expected = good ? writer.after : writer.before;
        const std::string where = "call " + std::to_string(what.at) + " with " + std::to_string(what.error);
        // The new file counts even where the old one could not be kept any more.
        if (good && found[target] == expected.at(target))
            check_state(writer, found, where);
        else if (found != expected)
            violation(writer, where, "files differ from what the program believes");
        for (const auto& [name, bytes] : found)
            if (!writer.after.contains(name)) violation(writer, where, "left behind: " + name);
        if (!good && error.empty()) violation(writer, where, "nothing is said");
        if (text_of_the_project() != m_project) violation(writer, where, "the project in memory has changed");
    }

    void check_state(const Writer& writer, const Folder& found, const std::string& where) {
        const std::string target = writer.target.string();
        const auto is_of = [&](const std::string& name, const std::string& bytes) {
            const auto one = writer.before.find(name);
            const auto other = writer.after.find(name);
            return (one != writer.before.end() && one->second == bytes) ||
                   (other != writer.after.end() && other->second == bytes);
        };
        const auto file = found.find(target);
        if (file == found.end() ? !writer.is_new : !is_of(target, file->second))
            violation(writer, where, "neither the old file nor the new one");
        const auto kept = found.find(target + ".bak");
        if (writer.before.contains(target + ".bak") && (kept == found.end() || !is_of(kept->first, kept->second)))
            violation(writer, where, "what was kept is lost");
    }

    void violation(const Writer& writer, const std::string& where, const std::string& what) {
        ++m_violations;
        std::fprintf(stderr, "%s, %s: %s\n", writer.name, where.c_str(), what.c_str());
    }

    int summary(const std::string& row, int done, int wanted, const char* unit, const std::string& more) {
        const int violations = std::exchange(m_violations, 0);
        std::string figure = std::to_string(done) + " " + unit + ", " + std::to_string(violations) + " losses";
        if (!more.empty()) figure += "; " + more;
        return report(row, figure, "at least " + std::to_string(wanted) + ", none", done >= wanted && violations == 0);
    }

    fs::path m_folder;
    host::RecordingDevice m_device;
    host::Engine m_engine{m_device, fs::path(SAMPLES "/showroom/showroom_textures/Quicksand-Medium.ttf").wstring()};
    std::string m_project;
    std::vector<Writer> m_writers;
    int m_violations = 0;
    int m_injections = 0;
    int m_refused = 0;
    int m_killed = 0;
};

}  // namespace

int main(int argc, char** argv) {
    const int times = argc > 1 && std::string(argv[1]) == "--long" ? 20000 : 500;
    std::string name = fs::temp_directory_path() / "saving_XXXXXX";
    const fs::path folder = mkdtemp(name.data());
    int failed = 0;
    {
        Saving saving(folder);
        failed += saving.fail_every_call();
        failed += saving.kill(times);
        failed += saving.cut_power(times);
    }
    fs::remove_all(folder);
    return failed == 0 ? 0 : 1;
}
