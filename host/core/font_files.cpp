#include "host/core/font_files.h"

#include <fontconfig/fontconfig.h>

#include <map>
#include <memory>

namespace host {

namespace {

struct Destroyer {
    void operator()(FcConfig* config) const { FcConfigDestroy(config); }
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcObjectSet* objects) const { FcObjectSetDestroy(objects); }
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
};
template <class T>
using Held = std::unique_ptr<T, Destroyer>;

std::string text_of(const FcPattern* font, const char* object, int place) {
    FcChar8* text = nullptr;
    if (FcPatternGetString(font, object, place, &text) != FcResultMatch) return {};
    return reinterpret_cast<const char*>(text);
}

// A font has a name in each of several languages; the English one is what it is listed under. The last of several, for
// fonts of a collection that begin with the name of their family say what sets them apart behind it.
std::string english_name(const FcPattern* font) {
    std::string name = text_of(font, FC_FULLNAME, 0);
    for (int at = 0;; ++at) {
        const std::string language = text_of(font, FC_FULLNAMELANG, at);
        if (language.empty()) return name;
        if (language == "en") name = text_of(font, FC_FULLNAME, at);
    }
}

std::string name_of(const FcPattern* font) {
    const std::string name = english_name(font);
    return name.empty() ? text_of(font, FC_FAMILY, 0) : name;
}

struct Listed {
    std::map<int, std::string> names;
    std::string format;
};

// The upper half of an index counts the styles of a font that can be varied; the file opens in its first style, so only
// that one has a name.
void enter(const FcPattern* font, std::map<std::string, Listed>& files) {
    const std::string path = text_of(font, FC_FILE, 0);
    int index = 0;
    FcPatternGetInteger(font, FC_INDEX, 0, &index);
    if (path.empty()) return;
    Listed& listed = files[path];
    listed.format = text_of(font, FC_FONTFORMAT, 0);
    if (index >> 16 == 0) listed.names.emplace(index, name_of(font));
}

std::string joined(const std::map<int, std::string>& names) {
    std::string text;
    for (const auto& [index, name] : names) text += (text.empty() || name.empty() ? "" : " & ") + name;
    return text;
}

// Kept between calls, for reading it takes longer than all else here; read anew where fonts have come or gone. Not the
// font system's own, which it never gives back.
FcConfig* known_fonts() {
    static Held<FcConfig> config;
    if (!config || !FcConfigUptoDate(config.get())) config.reset(FcInitLoadConfigAndFonts());
    return config.get();
}

}  // namespace

bool list_font_files(std::vector<FontFile>& files) {
    FcConfig* const config = known_fonts();
    if (!config) return false;
    const Held<FcPattern> wish(FcNameParse(reinterpret_cast<const FcChar8*>(":scalable=true")));
    const Held<FcObjectSet> wanted(FcObjectSetBuild(FC_FILE, FC_INDEX, FC_FULLNAME, FC_FULLNAMELANG, FC_FAMILY,
                                                    FC_FONTFORMAT, static_cast<char*>(nullptr)));
    const Held<FcFontSet> fonts(FcFontList(config, wish.get(), wanted.get()));
    if (!fonts) return false;
    std::map<std::string, Listed> by_path;
    for (int at = 0; at < fonts->nfont; ++at) enter(fonts->fonts[at], by_path);
    for (const auto& [path, listed] : by_path) files.push_back({path, joined(listed.names), listed.format});
    return true;
}

}  // namespace host
