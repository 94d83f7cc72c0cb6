#pragma once

// A project tree in memory that also remembers in which order it was written and read.

#include <memory>
#include <string>
#include <vector>

#include "engine/engine_core.h"

struct load_operation {};
struct save_operation {};

class MemoryNode final : public pack_node {
public:
    /// Kinds beside pak_node_type.
    enum : int { BASE = -1, TEXT = -2, ITEM = -3 };
    struct Entry {
        std::string key;
        int kind;
        std::string bytes;
        tstringW text;
        CMyComPtr<IBaseItem> item;
    };

    explicit MemoryNode(std::string name = {}) : m_name(std::move(name)) {}

    pack_node* add_child(const char* name) override;
    pack_node* find_child(const char* name) override;
    const std::list<pack_node*>* get_children() const override { return &m_children; }
    void add_property(const char* key, pak_node_type type, void* value) override;
    bool get_property(const char* key, pak_node_type type, void* value) override;
    void add_string_property(const char* key, const tstringW& text) override;
    bool get_string_property(const char* key, tstringW& text) override;

    MemoryNode* child(const char* name) { return static_cast<MemoryNode*>(find_child(name)); }
    /// Null where there is no such entry.
    Entry* find(const std::string& key, int kind);
    void erase(const std::string& key);
    template <class T>
    T value(const char* key, pak_node_type type) {
        T result{};
        require(get_property(key, type, &result), key);
        return result;
    }
    /// "kind key" of each entry in the order of writing, and of each question in the order of reading.
    std::vector<std::string> written() const;
    std::vector<std::string> asked;

    std::vector<Entry> entries;

private:
    static void require(bool found, const char* key);
    std::string m_name;
    std::list<pack_node*> m_children;
    std::vector<std::unique_ptr<MemoryNode>> m_owned;
};

std::string described(int kind, const std::string& key);
