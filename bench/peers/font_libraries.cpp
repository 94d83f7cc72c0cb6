// The names of font files, by two libraries that read the same files.

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_SFNT_NAMES_H

#include "measure.h"
#include "system_fonts.h"

namespace {

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

void font_file(benchmark::State& state, std::size_t (*names_of)(const std::string&), const char* includes) {
    for (auto _ : state) {
        for (const std::string& path : bench::system_fonts()) benchmark::DoNotOptimize(names_of(path));
    }
    bench::report(state, static_cast<double>(bench::system_fonts().size()), includes);
}

void add(const char* name, std::size_t (*names_of)(const std::string&), const char* includes) {
    benchmark::RegisterBenchmark(name, font_file, names_of, includes)
        ->Arg(static_cast<int>(bench::system_fonts().size()))
        ->Unit(benchmark::kMicrosecond);
}

const bool added = [] {
    add("font_file:FreeType", names_by_freetype, "per file: each face opened, its full and PostScript names, closed");
    add("font_file:fontconfig", names_by_fontconfig,
        "per file: each face queried, which reads its characters too; that is why it keeps what it has read in files");
    return true;
}();

}  // namespace
