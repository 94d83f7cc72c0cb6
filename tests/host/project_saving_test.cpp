#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>

#include "host/core/project_file.h"
#include "host/core/project_save.h"

namespace {

namespace fs = std::filesystem;
using host::ProjectDocument;

std::string content(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void write(const fs::path& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

// More than is written at a time.
ProjectDocument large_project() {
    ProjectDocument document;
    for (std::uint32_t number = 1; number <= 400; ++number) {
        host::ProjectItem& item = document.items.emplace_back();
        item.type = 1;
        item.id = CGuid(GUID{number, 0, 0, {}});
        item.data.set("key", tstringW(std::wstring(2000, L'x')));
    }
    return document;
}

/// A folder of its own, with an old file in it.
class Saving : public testing::Test {
protected:
    void SetUp() override {
        std::string name = testing::TempDir() + "sgui_saving_XXXXXX";
        folder = mkdtemp(name.data());
        file = folder / "old.sgui";
        write(file, "old");
    }
    void TearDown() override { fs::remove_all(folder); }

    bool save(const fs::path& path) {
        ProjectDocument document;
        document.modules.add("M").set("key", tstringW(std::wstring(5000, L'x')));
        return host::write_project(path.string(), document, error);
    }
    std::set<std::string> listing() const {
        std::set<std::string> names;
        for (const auto& entry : fs::recursive_directory_iterator(folder)) names.insert(entry.path().string());
        return names;
    }

    fs::path folder, file;
    std::string error;
};

// Bounds what the process may write to a file, as a full disk does.
struct FullDisk {
    explicit FullDisk(rlim_t size) {
        getrlimit(RLIMIT_FSIZE, &former);
        const rlimit small{size, former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &former);
        std::signal(SIGXFSZ, handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    rlimit former{};
    void (*handler)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

// Root may write everywhere; for the while of a save it is somebody else.
struct CommonUser {
    CommonUser() {
        if (former == 0 && seteuid(65534) != 0) ADD_FAILURE() << "cannot give up the rights of root";
    }
    ~CommonUser() {
        if (former == 0 && seteuid(former) != 0) std::abort();
    }
    CommonUser(const CommonUser&) = delete;
    CommonUser& operator=(const CommonUser&) = delete;
    const uid_t former = geteuid();
};

}  // namespace

TEST_F(Saving, WritesALargeProjectAsItIs) {
    const ProjectDocument document = large_project();
    ASSERT_TRUE(host::write_project(file.string(), document, error)) << error;
    EXPECT_EQ(content(file), host::format_project(document, error));
}

// As where pictures are copied beside a project ahead of it.
TEST_F(Saving, WaitsForAFolderThatIsMadeMeanwhile) {
    const ProjectDocument document = large_project();
    host::ProjectSave project((folder / "late/new.sgui").string(), document.items.size());
    project.take(document.modules);
    for (std::size_t at = 0; at < document.items.size(); ++at) {
        if (at == 300) fs::create_directory(folder / "late");
        project.take_with_id(document.items[at]);
    }
    ASSERT_TRUE(project.finish(error)) << error;
    EXPECT_EQ(content(folder / "late/new.sgui"), host::format_project(document, error));
}

TEST_F(Saving, KeepsTheRightsOfTheOldFile) {
    for (const mode_t rights : {0600u, 0640u, 0664u, 0444u}) {
        ASSERT_EQ(chmod(file.c_str(), rights), 0);
        ASSERT_TRUE(save(file)) << error;
        struct stat facts {};
        ASSERT_EQ(stat(file.c_str(), &facts), 0);
        EXPECT_EQ(facts.st_mode & 07777u, rights);
    }
    const mode_t mask = umask(027);
    EXPECT_TRUE(save(folder / "new.sgui")) << error;
    umask(mask);
    EXPECT_EQ(fs::status(folder / "new.sgui").permissions(), fs::perms(0640));
    EXPECT_EQ(listing().size(), 3u) << "the old file, its successor, the new file";
}

TEST_F(Saving, KeepsWhatItReplacesAndOffersItForADamagedFile) {
    ASSERT_TRUE(save(file)) << error;
    EXPECT_EQ(content(folder / "old.sgui.bak"), "old");
    const std::string good = content(file);
    ASSERT_TRUE(save(file)) << error;
    EXPECT_EQ(content(folder / "old.sgui.bak"), good);
    write(file, "damaged");
    fs::create_symlink("old.sgui", folder / "link");
    for (const char* name : {"old.sgui", "link"}) {
        ProjectDocument document;
        EXPECT_FALSE(host::read_project((folder / name).string(), document, error));
        EXPECT_NE(error.find("old.sgui.bak holds it as it was"), std::string::npos) << error;
    }
    ASSERT_TRUE(host::restore_project((folder / "link").string(), error)) << error;
    EXPECT_EQ(content(file) + content(folder / "old.sgui.bak"), good + "damaged");
    EXPECT_FALSE(host::restore_project(file.string(), error));
    EXPECT_EQ(content(file) + content(folder / "old.sgui.bak"), good + "damaged") << error;
    fs::remove(folder / "old.sgui.bak");
    fs::create_directories(folder / "old.sgui.bak" / "full");
    EXPECT_TRUE(save(file)) << "what stands in the old file's way is no reason to lose the new one: " << error;
    EXPECT_EQ(listing().size(), 4u);
}

TEST_F(Saving, FollowsSymbolicLinks) {
    fs::create_directory(folder / "elsewhere");
    fs::create_symlink("../old.sgui", folder / "elsewhere/near");
    fs::create_symlink("elsewhere/near", folder / "link");
    fs::create_symlink("elsewhere/fresh", folder / "to_nothing");
    ASSERT_TRUE(save(folder / "link")) << error;
    EXPECT_TRUE(fs::is_symlink(folder / "link") && fs::is_symlink(folder / "elsewhere/near"));
    EXPECT_NE(content(file), "old");
    ASSERT_TRUE(save(folder / "to_nothing")) << error;
    EXPECT_TRUE(fs::is_symlink(folder / "to_nothing") && fs::is_regular_file(folder / "elsewhere/fresh"));
}

TEST_F(Saving, LeavesEverythingAsItWasWhereItFails) {
    fs::create_directory(folder / "target");
    fs::create_symlink("circle", folder / "circle");
    fs::create_directory(folder / "closed");
    write(folder / "closed/old.sgui", "old");
    fs::permissions(folder, fs::perms(0755));
    fs::permissions(folder / "closed", fs::perms(0555));
    mkfifo((folder / "pipe").c_str(), 0600);
    const std::pair<const char*, std::function<bool()>> failures[] = {
        {"a folder in its place", [&] { return save(folder / "target"); }},
        {"a link to itself", [&] { return save(folder / "circle"); }},
        {"no such folder", [&] { return save(folder / "missing/p.sgui"); }},
        {"an identifier twice",
         [&] {
             ProjectDocument document;
             for (int count = 0; count < 2; ++count) {
                 host::ProjectItem& item = document.items.emplace_back();
                 item.type = 1;
                 item.id = CGuid(L"283B689B-6775-0F82-3171-70E93AFF15F6");
             }
             return host::write_project(file.string(), document, error);
         }},
        {"a file as folder", [&] { return save(file / "p.sgui"); }},
        {"a pipe", [&] { return save(folder / "pipe"); }},
        {"a name beyond the longest", [&] { return save(folder / std::string(300, 'n')); }},
        {"a full disk",
         [&] {
             const FullDisk full(1000);
             return save(file);
         }},
        {"a disk that is full behind a part",
         [&] {
             const FullDisk full(500'000);
             return host::write_project(file.string(), large_project(), error);
         }},
        {"a disk that is full for a while",
         [&] {
             const ProjectDocument document = large_project();
             host::ProjectSave project(file.string(), document.items.size());
             project.take(document.modules);
             {
                 const FullDisk full(500'000);
                 for (const host::ProjectItem& item : document.items) project.take_with_id(item);
             }
             return project.finish(error);
         }},
        {"a parent that comes behind",
         [&] {
             ProjectDocument document = large_project();
             document.items.front().parent = document.items.back().id;
             return host::write_project(file.string(), document, error);
         }},
        {"an identifier twice, far behind",
         [&] {
             ProjectDocument document = large_project();
             document.items.back().id = document.items.front().id;
             return host::write_project(file.string(), document, error);
         }},
        {"a name that no file can hold, far behind",
         [&] {
             ProjectDocument document = large_project();
             document.items.back().data.add("\xFF");
             return host::write_project(file.string(), document, error);
         }},
        {"a closed folder",
         [&] {
             const CommonUser user;
             return save(folder / "closed/old.sgui");
         }},
    };
    const auto before = listing();
    for (const auto& [what, attempt] : failures) {
        error.clear();
        EXPECT_FALSE(attempt()) << what;
        EXPECT_FALSE(error.empty()) << what;
        EXPECT_EQ(listing(), before) << what;
        EXPECT_EQ(content(file) + content(folder / "closed/old.sgui"), "oldold") << what;
    }
}
