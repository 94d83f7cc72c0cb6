// What reading the names of font files costs, with all files in the system's memory, and the scan of 2,000 files that a
// program makes at its start.

#include <unistd.h>

#include <filesystem>

#include "fonts/file_names.h"
#include "host/core/text_conversion.h"
#include "host/system/platform.h"
#include "measure.h"
#include "system_fonts.h"

namespace {

namespace fs = std::filesystem;
using bench::system_fonts;

constexpr std::size_t many = 2000;

bool is_collection(const std::string& path) { return path.ends_with(".ttc"); }

std::size_t names_by_module(const tstringW& path, bool is_collection) {
    std::size_t count = read_names_of_file(path, FontFileKind::SINGLE).size();
    if (is_collection) count += read_names_of_file(path, FontFileKind::COLLECTION).size();
    return count;
}

void font_file(benchmark::State& state) {
    std::vector<std::pair<tstringW, bool>> files;
    for (const std::string& path : system_fonts()) files.emplace_back(from_utf8(path), is_collection(path));
    for (auto _ : state) {
        for (const auto& [path, is_collection] : files) benchmark::DoNotOptimize(names_by_module(path, is_collection));
    }
    bench::report(state, static_cast<double>(system_fonts().size()),
                  "per file: opening it, its names of all faces and languages, closing it; the file is in memory");
}

/// Links to the machine's fonts under many names.
class ManyFonts {
public:
    ManyFonts() {
        for (std::size_t at = 0; at < many && !system_fonts().empty(); ++at) {
            const fs::path target = system_fonts()[at % system_fonts().size()];
            const fs::path link = m_folder / (std::to_string(at) + target.extension().string());
            fs::create_symlink(target, link);
            m_paths.push_back(link.string());
        }
    }
    ~ManyFonts() { fs::remove_all(m_folder); }
    ManyFonts(const ManyFonts&) = delete;
    ManyFonts& operator=(const ManyFonts&) = delete;

    std::size_t scan() const {
        std::size_t names = 0;
        for (const std::string& path : m_paths) {
            const tstringW wide = from_utf8(path);
            names += names_of_file(wide, FontFileKind::SINGLE).size();
            if (is_collection(path)) names += names_of_file(wide, FontFileKind::COLLECTION).size();
        }
        return names;
    }

private:
    // Another one each time: a path that is known would not be read.
    static fs::path new_folder() {
        std::string name = (fs::temp_directory_path() / "many_fonts_XXXXXX").string();
        return mkdtemp(name.data());
    }

    fs::path m_folder = new_folder();
    std::vector<std::string> m_paths;
};

void first_scan(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto fonts = std::make_unique<ManyFonts>();
        state.ResumeTiming();
        benchmark::DoNotOptimize(fonts->scan());
        state.PauseTiming();
        fonts.reset();
        state.ResumeTiming();
    }
}

// As at every new project.
void scan_again(benchmark::State& state) {
    const ManyFonts fonts;
    fonts.scan();
    for (auto _ : state) benchmark::DoNotOptimize(fonts.scan());
}

void list_of_the_system(benchmark::State& state) {
    for (auto _ : state) {
        font_list list;
        host::default_platform_functions().list_fonts(list);
        benchmark::DoNotOptimize(list.fonts.data());
    }
}

}  // namespace

BENCHMARK(font_file)->Arg(static_cast<int>(system_fonts().size()))->Unit(benchmark::kMicrosecond);
BENCHMARK(first_scan)->Unit(benchmark::kMillisecond);
BENCHMARK(scan_again)->Unit(benchmark::kMillisecond);
BENCHMARK(list_of_the_system)->Unit(benchmark::kMillisecond);
