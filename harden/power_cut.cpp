#include "harden/power_cut.h"

#include <list>
#include <utility>

namespace harden {
namespace {

struct File {
    std::string flushed;
    std::string written;  // since then
};

/// Names that change together: a file gets a name, or one is taken away where `file` is null.
struct NameChange {
    std::string name;
    File* file;
};
using Change = std::vector<NameChange>;

class Disk {
public:
    Disk(const Folder& before, std::mt19937& chance) : m_chance(chance) {
        for (const auto& [name, content] : before) {
            m_names[name] = m_flushed_names[name] = make(content);
        }
    }

    void make_call(const DiskCall& call) {
        switch (call.kind) {
            case DiskCall::CREATE:
                m_opened[call.path] = make("");
                change({{call.path, m_opened[call.path]}});
                break;
            case DiskCall::WRITE:
                m_opened[call.path]->written += call.to;
                break;
            case DiskCall::SYNC:
                flush(call.path);
                break;
            case DiskCall::RENAME:
                change({{call.to, m_names.at(call.path)}, {call.path, nullptr}});
                break;
            case DiskCall::LINK:
                change({{call.to, m_names.at(call.path)}});
                break;
            case DiskCall::UNLINK:
                change({{call.path, nullptr}});
                break;
        }
    }

    Folder found_afterwards() {
        for (const Change& change : m_changes)
            if (one_of(2) == 0) apply(change, m_flushed_names);
        Folder folder;
        for (const auto& [name, file] : m_flushed_names) folder[name] = file->flushed + what_is_left(file->written);
        return folder;
    }

private:
    File* make(const std::string& content) { return &m_files.emplace_back(File{content, ""}); }
    unsigned one_of(std::size_t count) { return static_cast<unsigned>(m_chance() % count); }

    static void apply(const Change& change, std::map<std::string, File*>& names) {
        for (const NameChange& name : change) {
            if (name.file)
                names[name.name] = name.file;
            else
                names.erase(name.name);
        }
    }
    void change(Change change) {
        apply(change, m_names);
        m_changes.push_back(std::move(change));
    }
    void flush(const std::string& path) {
        const auto file = m_opened.find(path);
        if (file != m_opened.end()) {
            file->second->flushed += std::exchange(file->second->written, "");
            return;
        }
        for (const Change& change : m_changes) apply(change, m_flushed_names);
        m_changes.clear();
    }
    std::string what_is_left(const std::string& written) {
        const std::size_t length = one_of(written.size() + 1);
        switch (one_of(4)) {
            case 0:
                return "";
            case 1:
                return std::string(length, '\0');
            case 2:
                return written.substr(0, length);
            default:
                return written;
        }
    }

    std::mt19937& m_chance;
    std::list<File> m_files;
    std::map<std::string, File*> m_names, m_flushed_names, m_opened;
    std::vector<Change> m_changes;  // since the folder's last flush
};

}  // namespace

Folder after_power_cut(const Folder& before, const std::vector<DiskCall>& calls, std::size_t made,
                       std::mt19937& chance) {
    Disk disk(before, chance);
    for (std::size_t call = 0; call < made; ++call) disk.make_call(calls[call]);
    return disk.found_afterwards();
}

}  // namespace harden
