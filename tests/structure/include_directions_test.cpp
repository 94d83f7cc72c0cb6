// Which way knowledge flows, read from the #include lines.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

struct Include {
    std::string file;
    std::string target;
    bool in_angles;
};

// The part between `open` and `close` of an #include line; empty for any other line.
std::string quoted_by(const std::string& line, char open, char close) {
    const std::size_t begin = line.find_first_not_of(" \t");
    if (begin == std::string::npos || line.compare(begin, 8, "#include") != 0) return {};
    const std::size_t from = line.find_first_not_of(" \t", begin + 8);
    if (from == std::string::npos || line[from] != open) return {};
    return line.substr(from + 1, line.find(close, from + 1) - from - 1);
}

std::vector<Include> includes_under(const std::string& folder) {
    std::vector<Include> found;
    const fs::path root = fs::path(SOURCE_ROOT);
    if (!fs::exists(root / folder)) return found;
    for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp") continue;
        const std::string file = fs::relative(entry.path(), root).string();
        std::ifstream in(entry.path());
        for (std::string line; std::getline(in, line);) {
            const std::string quoted = quoted_by(line, '"', '"');
            const std::string angled = quoted_by(line, '<', '>');
            if (!quoted.empty()) found.push_back({file, quoted, false});
            if (!angled.empty()) found.push_back({file, angled, true});
        }
    }
    return found;
}

bool starts(const std::string& text, const std::vector<std::string>& beginnings) {
    for (const std::string& beginning : beginnings) {
        if (text.rfind(beginning, 0) == 0) return true;
    }
    return false;
}

// What files of a folder may include in quotes, headers alone or bodies too.
struct Rule {
    const char* folder;
    const char* extension;
    std::vector<std::string> allowed;
};

const Rule rules[] = {
    {"src/engine", "", {"engine/", "platform_types.h"}},
    {"src/platform", "", {"platform/", "platform_types.h", "engine/rect.h", "engine/services.h"}},
    {"src/layout", ".h", {"engine/", "layout/"}},
    {"src/fonts", ".h", {"engine/", "fonts/", "platform/platform.h", "platform_types.h"}},
    {"src/interaction", ".h", {"engine/", "layout/", "interaction/"}},
    {"src/module", ".h", {"engine/", "layout/", "module/"}},
    {"src",
     "",
     {"engine/", "platform", "layout/", "fonts/", "animation/", "interaction/", "render/", "script/", "legacy/",
      "module/"}},
    {"host",
     "",
     {"engine/", "platform/", "platform_types.h", "host/", "module/manager.h", "module/setting.h", "layout/dialog.h",
      "layout/shape.h", "fonts/font_info.h"}},
    {"player",
     "",
     {"engine/",
      "host/",
      "player/",
      "module/manager.h",
      "module/setting.h",
      "layout/dialog.h",
      "layout/shape.h",
      "layout/rounding.h",
      "layout/anchors.h",
      "fonts/font_info.h",
      "fonts/logfont.h",
      "fonts/font_candidates.h",
      "fonts/file_names.h",
      "animation/anim_node.h",
      "animation/keys.h",
      "legacy/animation_settings.h",
      "legacy/color.h",
      "legacy/controls.h",
      "legacy/names.h",
      "legacy/rects.h",
      "legacy/text_format.h"}},
};

}  // namespace

TEST(Structure, IncludesGoInTheAllowedDirectionsOnly) {
    for (const Rule& rule : rules) {
        const std::string extension(rule.extension);
        for (const Include& include : includes_under(rule.folder)) {
            const bool concerned =
                include.file.size() > extension.size() &&
                include.file.compare(include.file.size() - extension.size(), extension.size(), extension) == 0;
            if (include.in_angles || !concerned) continue;
            EXPECT_TRUE(starts(include.target, rule.allowed)) << include.file << " includes " << include.target;
        }
    }
    EXPECT_GT(includes_under("src/engine").size(), 20u) << "the sources are not where this test looks";
}

// Headers of systems and other libraries are in folders or end in .h; those of the standard library do neither.
TEST(Structure, TheModuleNeedsTheStandardLibraryAndItsSystemAlone) {
    for (const Include& include : includes_under("src")) {
        if (!include.in_angles || starts(include.file, {"src/platform/windows/", "src/platform/posix/"})) continue;
        EXPECT_EQ(include.target.find_first_of("./"), std::string::npos)
            << include.file << " includes " << include.target;
    }
}
