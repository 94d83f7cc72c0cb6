// What reading the names of font files costs, with all files in the system's memory: this module beside FreeType and
// fontconfig on the same files, and the scan of 2,000 files that a program makes at its start.

#include <benchmark/benchmark.h>
#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include <unistd.h>
#include FT_FREETYPE_H
#include FT_SFNT_NAMES_H

#include <filesystem>

#include "fonts/file_names.h"
#include "host/core/font_files.h"
#include "host/core/text_conversion.h"
#include "host/system/platform.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t many = 2000;

// Those of this machine, so figures of two machines can't be compared.
const std::vector<std::string>& system_fonts() {
    static const std::vector<std::string> paths = [] {
        std::vector<host::FontFile> files;
        host::list_font_files(files);
        std::vector<std::string> all;
        for (const host::FontFile& file : files) all.push_back(file.path);
        return all;
    }();
    return paths;
}

bool is_collection(const std::string& path) { return path.ends_with(".ttc"); }

std::size_t names_by_module(const std::string& path) {
    const tstringW wide = from_utf8(path);
    std::size_t count = read_names_of_file(wide, FontFileKind::SINGLE).size();
    if (is_collection(path)) count += read_names_of_file(wide, FontFileKind::COLLECTION).size();
    return count;
}

std::size_t names_by_freetype(const std::string& path) {
    static FT_Library library = [] {
        FT_Library made = nullptr;
        FT_Init_FreeType(&made);
        return made;
    }();
    std::size_t count = 0;
    FT_Long faces = 1;
    for (FT_Long index = 0; index < faces; ++index) {
        FT_Face face = nullptr;
        if (FT_New_Face(library, path.c_str(), index, &face) != 0) break;
        faces = face->num_faces;
        for (FT_UInt at = 0; at < FT_Get_Sfnt_Name_Count(face); ++at) {
            FT_SfntName name;
            if (FT_Get_Sfnt_Name(face, at, &name) == 0 && (name.name_id == 4 || name.name_id == 6)) ++count;
        }
        FT_Done_Face(face);
    }
    return count;
}

// It reads the characters too, which is why it keeps what it has read in files of its own.
std::size_t names_by_fontconfig(const std::string& path) {
    FcFontSet* fonts = FcFontSetCreate();
    int faces = 0;
    FcFreeTypeQueryAll(reinterpret_cast<const FcChar8*>(path.c_str()), 0xFFFFFFFFu, nullptr, &faces, fonts);
    std::size_t count = 0;
    for (int at = 0; at < fonts->nfont; ++at) {
        FcChar8* name = nullptr;
        for (int place = 0; FcPatternGetString(fonts->fonts[at], FC_FULLNAME, place, &name) == FcResultMatch; ++place)
            ++count;
    }
    FcFontSetDestroy(fonts);
    return count;
}

void read_all(benchmark::State& state, std::size_t (*names_of)(const std::string&)) {
    std::size_t names = 0;
    for (auto _ : state) {
        names = 0;
        for (const std::string& path : system_fonts()) names += names_of(path);
    }
    state.counters["files"] = static_cast<double>(system_fonts().size());
    state.counters["names"] = static_cast<double>(names);
    state.counters["a_file"] =
        benchmark::Counter(static_cast<double>(system_fonts().size()),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
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

BENCHMARK_CAPTURE(read_all, module, &names_by_module)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(read_all, freetype, &names_by_freetype)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(read_all, fontconfig, &names_by_fontconfig)->Unit(benchmark::kMillisecond);
BENCHMARK(first_scan)->Unit(benchmark::kMillisecond);
BENCHMARK(scan_again)->Unit(benchmark::kMillisecond);
BENCHMARK(list_of_the_system)->Unit(benchmark::kMillisecond);
