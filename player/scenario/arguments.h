#pragma once

#include <set>
#include <vector>

#include "player/scenario/value.h"

namespace scenario {

/// The named fields of a table that a scenario hands in. A name that no one asks for is a slip of the pen, so finish()
/// makes it an error.
class Fields {
public:
    /// `table` must outlive the fields; anything but a table with names is a Failure. `what` names it in errors.
    Fields(const Value& table, std::string what);

    /// The value under the name, or null.
    const Value& get(const std::string& name);
    bool has(const std::string& name) { return !get(name).is_null(); }
    /// What to call the field in errors.
    std::string where(const std::string& name) const { return m_what + "." + name; }

    /// Stores the field if it is given; true if it was.
    template <class T>
    bool read(const std::string& name, T& target) {
        const Value& value = get(name);
        if (value.is_null()) return false;
        read_value(value, where(name), target);
        return true;
    }
    /// Every field under that name, which another table names further.
    Fields table(const std::string& name);
    /// The names, sorted.
    std::vector<std::string> names() const;
    /// Throws for a name that was never asked for.
    void finish() const;

private:
    const Value& m_table;
    std::string m_what;
    std::set<std::string> m_asked;
};

/// The values of one call.
class Arguments {
public:
    /// `function` names the call in errors.
    Arguments(std::string function, std::vector<Value> values)
        : m_function(std::move(function)), m_values(std::move(values)) {}

    /// The argument, counted from 0, or null.
    const Value& at(std::size_t index) const;
    bool has(std::size_t index) const { return !at(index).is_null(); }
    std::size_t count() const { return m_values.size(); }
    std::string where(std::size_t index, const char* name) const;

    /// The argument as a value of a kind; `name` stands for it in errors.
    template <class T>
    T get(std::size_t index, const char* name) const {
        T target{};
        read_value(at(index), where(index, name), target);
        return target;
    }
    template <class T>
    T get(std::size_t index, const char* name, T missing) const {
        if (has(index)) read_value(at(index), where(index, name), missing);
        return missing;
    }
    Fields fields(std::size_t index, const char* name) const { return {at(index), where(index, name)}; }
    /// A list, which may be empty.
    const Value& list(std::size_t index, const char* name) const;
    const std::string& function() const { return m_function; }

private:
    std::string m_function;
    std::vector<Value> m_values;
};

/// What a call gives: no value, one, or two.
struct Results {
    Results() = default;
    Results(Value one) { values.push_back(std::move(one)); }
    Results(Value first, Value second) {
        values.push_back(std::move(first));
        values.push_back(std::move(second));
    }
    std::vector<Value> values;
};

}  // namespace scenario
