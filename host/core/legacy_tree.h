#pragma once

// A legacy project in memory, as modules walk it. Knows no file format and no module.

#include <memory>
#include <string>
#include <string_view>

#include "engine/legacy_tree.h"

namespace host {

/// One node: a name, perhaps a value, perhaps nodes below it. Owns these.
class LegacyNode final : public CPakNode {
public:
    /// `file` is what get_pak_file gives, here and in all nodes below; it outlives the node.
    explicit LegacyNode(CPakFile& file) : m_file(&file) {}
    LegacyNode(const LegacyNode&) = delete;
    LegacyNode& operator=(const LegacyNode&) = delete;
    ~LegacyNode();

    CPakNode* find(const char* key) override { return key ? child(key) : nullptr; }
    /// A value of another layout than the code's, or one with too few bytes, leaves `out` as it is, like none.
    CPakNode* find_data(const char* key, int type, void* out, int) override;
    std::list<CPakNode*>* get_children() override { return &m_children; }
    tstringW get_name() const override;
    int get_length() const override;
    void get_buffer_to_mem_allocated(void* out, int size) const override;
    CPakFile* get_pak_file() const override { return m_file; }

    /// The new node, at the end.
    LegacyNode& add(std::string node_name);
    /// Old files could hold places without a node.
    void add_nothing() { m_children.push_back(nullptr); }
    /// The first child of that name, or null.
    LegacyNode* child(std::string_view child_name) const;
    /// In their order; null for a place without a node.
    const std::list<CPakNode*>& children() const { return m_children; }

    /// UTF-8.
    std::string name;
    /// How the value is laid out; 0: bytes without a code, or no value at all.
    int code = 0;
    /// The value as it lies in memory, little-endian.
    std::string data;
    /// Where it stands in its file, from 1; 0 if it comes from no file.
    int line = 0;

private:
    CPakFile* m_file;
    std::list<std::unique_ptr<LegacyNode>> m_owned;
    std::list<CPakNode*> m_children;
};

/// A legacy project with the file that it came from.
class LegacyProject final : public CPakFile {
public:
    explicit LegacyProject(tstringW path = {}) : m_path(std::move(path)) {}
    LegacyProject(const LegacyProject&) = delete;
    LegacyProject& operator=(const LegacyProject&) = delete;
    ~LegacyProject();

    tstringW get_full_filename() const override { return m_path; }
    LegacyNode& root() { return m_root; }
    const LegacyNode& root() const { return m_root; }

private:
    tstringW m_path;
    LegacyNode m_root{*this};
};

/// The child as what it is here: this engine makes no other nodes.
inline LegacyNode* legacy_node(CPakNode* node) { return static_cast<LegacyNode*>(node); }

}  // namespace host
