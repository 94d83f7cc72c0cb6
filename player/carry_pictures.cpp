#include "player/carry_pictures.h"

#include <filesystem>
#include <map>

#include "host/core/item_store.h"
#include "host/core/native_path.h"
#include "host/core/project_disk.h"
#include "host/core/project_picture.h"
#include "host/core/text_conversion.h"
#include "host/system/platform.h"

namespace player {

namespace {

namespace fs = std::filesystem;

// Pictures beyond this size are not compared but copied.
constexpr std::size_t largest_compared = std::size_t{256} << 20;

std::string utf8(const fs::path& path) {
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

bool same_bytes(const fs::path& one, const fs::path& other) {
    std::string first;
    std::string second;
    std::string ignored;
    return fs::is_regular_file(other) && host::read_whole_file(utf8(one), largest_compared, first, ignored) &&
           host::read_whole_file(utf8(other), largest_compared, second, ignored) && first == second;
}

template <class T>
const T* value_of(const host::ProjectNode& node, const char* key) {
    const host::PropertyValue* value = node.find(key);
    return value ? std::get_if<T>(value) : nullptr;
}

}  // namespace

class CarriedPictures::Carrier {
public:
    explicit Carrier(const std::string& project) {
        const fs::path path = host::native_path(from_utf8(project));
        m_folder = path.parent_path() / path.stem();
        m_folder += "_textures";
        m_project_folder = host::folder_of(project);
    }

    /// Each picture in the node and below.
    void carry(host::ProjectNode& node) {
        for (const auto& child : node.children()) carry(*child);
        const int* type = value_of<int>(node, "type");
        const tstringW* name = value_of<tstringW>(node, "file_name");
        if (!type || static_cast<unsigned long>(*type) != host::ITEM_TYPE_PICTURE) return;
        const fs::path source = name ? host::native_path(*name) : fs::path();
        std::error_code ignored;
        // What lies inside the project's folder has a relative name, and what is lost has a word in the place of one.
        if (!source.is_absolute() || !fs::is_regular_file(source, ignored)) return;
        const auto [known, is_new] = m_copies.try_emplace(source);
        if (is_new) known->second = copy(source);
        node.set("file_name", tstringW(from_utf8(host::stored_picture_path(utf8(known->second), m_project_folder))));
    }

    std::size_t count() const { return m_copies.size(); }

private:
    fs::path copy(const fs::path& source) {
        fs::create_directory(m_folder);
        fs::path copy = m_folder / source.filename();
        for (int number = 2; fs::exists(copy) && !same_bytes(source, copy); ++number) {
            copy = m_folder / source.stem();
            copy += "_" + std::to_string(number);
            copy += source.extension();
        }
        if (!fs::exists(copy) &&
            !host::default_platform_functions().copy_file(from_utf8(utf8(source)), from_utf8(utf8(copy))))
            throw fs::filesystem_error("", source, copy, std::make_error_code(std::errc::io_error));
        return copy;
    }

    fs::path m_folder;
    std::string m_project_folder;
    std::map<fs::path, fs::path> m_copies;
};

CarriedPictures::CarriedPictures(const std::string& project, host::ProjectParts& next)
    : m_carrier(std::make_unique<Carrier>(project)), m_next(next) {}
CarriedPictures::~CarriedPictures() = default;

void CarriedPictures::add_items(std::span<host::ProjectItem> items) {
    for (host::ProjectItem& item : items) m_carrier->carry(item.data);
    m_next.add_items(items);
}

std::size_t CarriedPictures::count() const { return m_carrier->count(); }

}  // namespace player
