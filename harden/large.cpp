// Files of 1 MiB that stand for as much as such a file can: the player takes each in, in little time and memory.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "harden/report.h"
#include "host/core/picture_file.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t size = 1 << 20;
constexpr long most_memory = 256;

/// A beginning, as often as there is room for it a piece, an end.
struct Kind {
    const char* name;
    /// How the file is taken in: an argument of the player stands for it as "FILE".
    std::vector<std::string> words;
    std::string begin;
    std::function<std::string(int)> piece;
    std::string end;
    /// With which the player ends: a file of no sense is an error.
    int code = 0;
};

std::string text_of(const Kind& kind) {
    std::string text = kind.begin;
    for (int number = 0;; ++number) {
        const std::string piece = kind.piece(number);
        if (text.size() + piece.size() + kind.end.size() > size) return text + kind.end;
        text += piece;
    }
}

std::string id(int number) {
    char text[40];
    std::snprintf(text, sizeof text, "%08X-0000-0000-0000-000000000001", static_cast<unsigned>(number) + 1);
    return text;
}

std::function<std::string(int)> always(const std::string& piece) {
    return [piece](int) { return piece; };
}

std::vector<Kind> kinds() {
    const std::string head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<project version=\"1\">";
    const std::string dialog = head + "<items><item type=\"83783\" id=\"" + id(0) +
                               "\" name=\"d\"><rect key=\"m_rect\" value=\"0 0 300 170\"/></item>";
    const std::string items_end = "</items></project>";
    const std::string shape = "<item type=\"83782\" parent=\"" + id(0) + "\" id=\"";
    const std::string title = dialog + shape + id(1) + "\"><rect key=\"m_rect\" value=\"0 0 300 170\"/>";
    const std::string node = "<anim_node type=\"1001\" item=\"" + id(0) + "\">";
    const std::string key_end = "</node></node></node></anim_node></animation></animations></project>";
    const std::string legacy =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<legacy version=\"1\"><node name=\"GUI\"><node name=\"Dialogs\">";
    const std::string legacy_end = "</node></node></legacy>";
    const std::vector<std::string> run = {"render", "FILE", "--running", "--size", "320x180", "--out", "out.png"};
    const std::vector<std::string> import = {"import", "FILE", "--out", "out.sgui"};
    return {
        {"shapes", run, dialog, [=](int at) { return shape + id(at + 1) + "\"/>"; }, items_end},
        {"dialogs", run, head + "<items>", [](int at) { return "<item type=\"83783\" id=\"" + id(at) + "\"/>"; },
         items_end},
        {"shapes of equal numbers", run, dialog,
         [=](int at) {
             return shape + id(at + 1) + "\"><int key=\"m_order_num\" value=\"" + std::to_string(at / 2) +
                    "\"/></item>";
         },
         items_end},
        {"shapes one below the other", run, dialog,
         [](int at) { return "<item type=\"83782\" parent=\"" + id(at) + "\" id=\"" + id(at + 1) + "\"/>"; },
         items_end},
        {"properties", run, title, [](int at) { return "<int key=\"k" + std::to_string(at) + "\" value=\"1\"/>"; },
         "</item>" + items_end},
        {"nodes", run, title, always("<node name=\"a\"/>"), "</item>" + items_end},
        {"keys", run,
         dialog + "</items><animations><animation start=\"1\">" + node +
             "<node name=\"tracks\"><node name=\"track\"><int key=\"track_type\" value=\"1002\"/>"
             "<int key=\"type\" value=\"1002\"/><node name=\"keys\">",
         always("<node name=\"child\"/>"), key_end},
        {"animation nodes", run, dialog + "</items><animations><animation start=\"1\">",
         always("<anim_node type=\"1001\"/>"), "</animation></animations></project>"},
        {"animations", run, head + "<animations>", always("<animation start=\"1\"/>"), "</animations></project>"},
        {"a long text", run, title + "<text key=\"m_title\" value=\"", always("W"), "\"/></item>" + items_end},
        {"a text of lines", run, title + "<text key=\"m_title\">", always("a\n"), "</text></item>" + items_end},
        {"a text of escapes", run, title + "<text key=\"m_title\" value-escaped=\"", always("\\u{1}"),
         "\"/></item>" + items_end},
        {"legacy dialogs", import, legacy, always("<node name=\"a\"/>"), legacy_end},
        {"legacy controls", import, legacy + "<node name=\"d\"><node name=\"Controls\">",
         always("<node name=\"control\"/>"), "</node></node>" + legacy_end},
        {"a script", {"run", "FILE"}, "", always("a=1 "), ""},
        {"a script of brackets", {"run", "FILE"}, "a=", always("("), "", 1},
        {"a script's table", {"run", "FILE"}, "a={", always("1,"), "}"},
    };
}

/// What the player took for something.
struct Cost {
    double seconds;
    long megabytes;
    /// With which it ended; -1 if it did not end by itself.
    int code;
};

Cost cost_of(std::vector<std::string> words, const std::string& folder) {
    const pid_t child = fork();
    if (child == 0) {
        std::vector<char*> arguments;
        arguments.reserve(words.size() + 2);
        words.insert(words.begin(), SGUI);
        for (std::string& word : words) arguments.push_back(word.data());
        arguments.push_back(nullptr);
        if (chdir(folder.c_str()) == 0 && std::freopen("log", "w", stderr) && std::freopen("log", "w", stdout))
            execv(SGUI, arguments.data());
        _exit(99);
    }
    int status = 0;
    rusage used{};
    wait4(child, &status, 0, &used);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return {seconds(used.ru_utime) + seconds(used.ru_stime), used.ru_maxrss / 1024,
            WIFEXITED(status) ? WEXITSTATUS(status) : -1};
}

class Table {
public:
    /// `seconds`: of work, the most for each.
    Table(std::string folder, double seconds) : m_folder(std::move(folder)), m_seconds(seconds) {}

    void add(const std::string& name, const std::vector<std::string>& words, int code = 0) {
        const Cost cost = cost_of(words, m_folder);
        ++m_count;
        m_slowest = std::max(m_slowest, cost.seconds);
        m_largest = std::max(m_largest, cost.megabytes);
        const bool holds = cost.code == code && cost.seconds <= m_seconds && cost.megabytes <= most_memory;
        m_holds = m_holds && holds;
        std::fprintf(stderr, "%-30s %.2f s, %ld MiB, ends with %d%s\n", name.c_str(), cost.seconds, cost.megabytes,
                     cost.code, holds ? "" : ": DOES NOT HOLD");
        // An import writes no file a second time.
        fs::remove(m_folder + "/out.sgui");
    }

    int report_all() const {
        char figure[100], goal[100];
        std::snprintf(goal, sizeof goal, "each within %.0f s and %ld MiB", m_seconds, most_memory);
        std::snprintf(figure, sizeof figure, "%d files, the slowest %.2f s of work, the largest %ld MiB", m_count,
                      m_slowest, m_largest);
        return harden::report("files of 1 MiB", figure, goal, m_holds && m_count > 0);
    }

private:
    std::string m_folder;
    double m_seconds;
    int m_count = 0;
    double m_slowest = 0.0;
    long m_largest = 0;
    bool m_holds = true;
};

// The largest that are read, which take up next to nothing in their files.
void write_pictures(const std::string& folder) {
    constexpr int width = 7680, height = 4320;
    std::vector<std::uint32_t> pixels(std::size_t{width} * height);
    std::string error;
    if (!host::write_png(folder + "/large.png", pixels, width, error))
        std::fprintf(stderr, "FAULT: %s\n", error.c_str());
    std::ofstream(folder + "/picture.sgui")
        << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<project version=\"1\"><items>"
           "<item type=\"83783\" id=\""
        << id(0)
        << "\"><rect key=\"m_rect\" value=\"0 0 300 170\"/></item>"
           "<item type=\"83782\" id=\""
        << id(1) << "\" parent=\"" << id(0)
        << "\"><rect key=\"m_rect\" value=\"0 0 300 170\"/><node name=\"m_texture\">"
           "<int key=\"type\" value=\"100001\"/><text key=\"file_name\" "
           "value=\"large.png\"/></node></item></items></project>";
}

}  // namespace

int main(int argc, char** argv) {
    // A test must hold on any machine, so that it finds alone what has no end.
    const bool is_quick = argc > 1 && argv[1] == std::string("--quick");
    std::string folder = fs::temp_directory_path() / "large_XXXXXX";
    if (!mkdtemp(folder.data())) return 2;
    Table table(folder, is_quick ? 10.0 : 1.0);
    for (const Kind& kind : kinds()) {
        std::ofstream(folder + "/in", std::ios::binary) << text_of(kind);
        std::vector<std::string> words = kind.words;
        std::replace(words.begin(), words.end(), std::string("FILE"), std::string("in"));
        table.add(kind.name, words, kind.code);
    }
    write_pictures(folder);
    table.add("a picture", {"render", "picture.sgui", "--size", "320x180", "--out", "out.png"});
    fs::remove_all(folder);
    return table.report_all() == 0 ? 0 : 1;
}
