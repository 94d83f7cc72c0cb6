// Which way knowledge flows, read from the #include lines.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

struct Include {
    std::string file;
    std::string target;
    bool in_angles;
};

std::vector<Include> includes_under(const std::string& folder) {
    static const std::regex line_form(R"(\s*#\s*include\s*([<"])([^>"]+)[>"].*)");
    std::vector<Include> found;
    const fs::path root = fs::path(SOURCE_ROOT);
    if (!fs::exists(root / folder)) return found;
    for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp") continue;
        std::ifstream in(entry.path());
        std::smatch match;
        for (std::string line; std::getline(in, line);) {
            if (!std::regex_match(line, match, line_form)) continue;
            found.push_back({fs::relative(entry.path(), root).string(), match[2], match[1] == "<"});
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
    {"src/platform", "", {"platform/", "platform_types.h"}},
    {"src/layout", ".h", {"engine/", "layout/"}},
    {"src/fonts", ".h", {"engine/", "fonts/", "platform_types.h"}},
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
TEST(Structure, TheModuleNeedsTheStandardLibraryAlone) {
    for (const Include& include : includes_under("src")) {
        if (!include.in_angles) continue;
        EXPECT_EQ(include.target.find_first_of("./"), std::string::npos)
            << include.file << " includes " << include.target;
    }
}
