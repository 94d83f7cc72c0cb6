#include "host/core/legacy_tree.h"

#include <algorithm>
#include <climits>
#include <cstring>

#include "host/core/legacy_value.h"
#include "host/core/text_conversion.h"

namespace host {

LegacyNode::~LegacyNode() = default;
LegacyProject::~LegacyProject() = default;

CPakNode* LegacyNode::find_data(const char* key, int type, void* out, int) {
    LegacyNode* found = key ? child(key) : nullptr;
    if (found && !found->data.empty()) copy_legacy_value(found->data, found->code, type, out);
    return found;
}

tstringW LegacyNode::get_name() const { return from_utf8(name); }

int LegacyNode::get_length() const { return static_cast<int>(std::min<std::size_t>(data.size(), INT_MAX)); }

void LegacyNode::get_buffer_to_mem_allocated(void* out, int size) const {
    const std::size_t count = std::min(data.size(), static_cast<std::size_t>(std::max(size, 0)));
    if (out && count > 0) std::memcpy(out, data.data(), count);
}

LegacyNode& LegacyNode::add(std::string node_name) {
    m_owned.push_back(std::make_unique<LegacyNode>(*m_file));
    m_children.push_back(m_owned.back().get());
    m_owned.back()->name = std::move(node_name);
    return *m_owned.back();
}

LegacyNode* LegacyNode::child(std::string_view child_name) const {
    for (const auto& node : m_owned)
        if (node->name == child_name) return node.get();
    return nullptr;
}

}  // namespace host
