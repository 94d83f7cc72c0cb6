#include "player/scenario/arguments.h"

namespace scenario {

namespace {

const Value nothing;

}  // namespace

Fields::Fields(const Value& table, std::string what) : m_table(table), m_what(std::move(what)) {
    const bool empty = table.is_array() && table.empty();
    if (!empty && (!table.is_object() || function_reference(table) >= 0))
        throw Failure(m_what + " must be a table of named fields, " + short_text(table) + " given");
}

const Value& Fields::get(const std::string& name) {
    m_asked.insert(name);
    if (!m_table.is_object()) return nothing;
    const auto found = m_table.find(name);
    return found == m_table.end() ? nothing : *found;
}

Fields Fields::table(const std::string& name) { return {get(name), where(name)}; }

std::vector<std::string> Fields::names() const {
    std::vector<std::string> all;
    if (m_table.is_object())
        for (const auto& entry : m_table.items()) all.push_back(entry.key());
    return all;
}

void Fields::finish() const {
    for (const std::string& name : names())
        if (!m_asked.contains(name)) throw Failure(m_what + ": there is no field \"" + name + "\"");
}

const Value& Arguments::at(std::size_t index) const { return index < m_values.size() ? m_values[index] : nothing; }

std::string Arguments::where(std::size_t index, const char* name) const {
    return m_function + ": argument " + std::to_string(index + 1) + " (" + name + ")";
}

const Value& Arguments::list(std::size_t index, const char* name) const {
    if (!at(index).is_array())
        throw Failure(where(index, name) + " must be a list, " + short_text(at(index)) + " given");
    return at(index);
}

}  // namespace scenario
