#include "host/core/default_font.h"

#include <fontconfig/fontconfig.h>

#include <filesystem>
#include <memory>
#include <system_error>

#include "host/core/text_conversion.h"

namespace {

// Where systems put the font that the host's pictures are made with. Tried ahead of the font system, so that machines
// that have it show the same pictures whatever else is installed.
constexpr const char* usual_places[] = {
    "/usr/share/fonts/truetype/wqy/wqy-microhei.ttc", "/usr/share/fonts/wenquanyi/wqy-microhei/wqy-microhei.ttc",
    "/usr/share/fonts/wqy-microhei/wqy-microhei.ttc", "/usr/share/fonts/TTF/wqy-microhei.ttc",
    "/usr/local/share/fonts/wqy-microhei.ttc",
};

struct FontDeleter {
    void operator()(FcConfig* config) const { FcConfigDestroy(config); }
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
template <class T>
using Held = std::unique_ptr<T, FontDeleter>;

bool covers_chinese(const FcPattern* font) {
    FcLangSet* languages = nullptr;
    return FcPatternGetLangSet(font, FC_LANG, 0, &languages) == FcResultMatch &&
           FcLangSetHasLang(languages, reinterpret_cast<const FcChar8*>("zh-cn")) == FcLangEqual;
}

// The font system always answers with some font; only one that covers simplified Chinese counts.
std::string ask_font_system() {
    const Held<FcConfig> config(FcInitLoadConfigAndFonts());
    if (!config) return {};
    const Held<FcPattern> wish(FcNameParse(reinterpret_cast<const FcChar8*>("sans:lang=zh-cn:scalable=true")));
    FcConfigSubstitute(config.get(), wish.get(), FcMatchPattern);
    FcDefaultSubstitute(wish.get());
    FcResult result = FcResultNoMatch;
    const Held<FcPattern> font(FcFontMatch(config.get(), wish.get(), &result));
    FcChar8* file = nullptr;
    if (!font || !covers_chinese(font.get())) return {};
    if (FcPatternGetString(font.get(), FC_FILE, 0, &file) != FcResultMatch) return {};
    return reinterpret_cast<const char*>(file);
}

}  // namespace

std::wstring host::default_font_path() {
    for (const char* place : usual_places) {
        std::error_code ignored;
        if (std::filesystem::is_regular_file(place, ignored)) return from_utf8(place);
    }
    return from_utf8(ask_font_system());
}
