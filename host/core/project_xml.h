#pragma once

// One XML element read strictly: what it may hold, and the error that says what was found instead. The only header that
// knows pugixml.

#include <functional>
#include <initializer_list>
#include <pugixml.hpp>
#include <stdexcept>
#include <string>
#include <string_view>

#include "engine/guid.h"
#include "engine/text.h"

namespace host::xml {

/// What ends the reading of a file.
struct Failure : std::runtime_error {
    Failure(std::ptrdiff_t offset_, const std::string& reason) : std::runtime_error(reason), offset(offset_) {}
    /// Of the place in the file, in bytes; may be below 0 where pugixml can't tell.
    std::ptrdiff_t offset;
};

/// "WHAT (found FOUND, expected EXPECTED)" at the element.
[[noreturn]] void fail(const pugi::xml_node& node, const std::string& what, const std::string& found,
                       const std::string& expected);
/// In quotation marks, as one line, cut where it is long.
std::string quoted(std::string_view text);

bool is_element(const pugi::xml_node& node);
/// Text between elements means nothing in this format, so it is a slip of whoever wrote the file.
void check_no_text(const pugi::xml_node& node);
void check_attributes(const pugi::xml_node& node, std::initializer_list<std::string_view> known);

/// These want the attribute to be there.
pugi::xml_attribute required(const pugi::xml_node& node, const char* name);
long long read_number(const pugi::xml_node& node, const char* name, long long least, long long most);
float read_float(const pugi::xml_node& node, const char* name);
/// All bytes 0 is refused.
CGuid read_guid(const pugi::xml_node& node, const char* name);

/// From `name` or `name-escaped`; empty without both.
tstringW read_name(const pugi::xml_node& node);
tstringW unescaped(const pugi::xml_node& node, std::string_view bytes, bool escaped);

/// Beyond these a file is refused: no project comes near them, and a broken one must not eat the machine.
inline constexpr std::size_t largest_file = std::size_t{256} << 20;
inline constexpr int deepest_nesting = 64;

/// A kind of file: the name of its one outermost element, and the newest version of it that is known.
struct FileKind {
    const char* root;
    int version;
};
/// The text behind the mark of its encoding, if it begins with one.
std::string_view without_mark(std::string_view text);
/// Reads a text as a file of that kind and hands its outermost element to `read`, whose Failures it makes an error,
/// "NAME:LINE: reason". False: `error` is set.
bool read_text_file(std::string_view text, const std::string& name, FileKind kind, std::string& error,
                    const std::function<void(const pugi::xml_node& root)>& read);

/// Lines of places that come in the order of the text, from 1.
class LineCounter {
public:
    explicit LineCounter(std::string_view text) : m_text(text) {}
    int line_at(std::ptrdiff_t offset);

private:
    std::string_view m_text;
    std::size_t m_counted = 0;
    int m_line = 1;
};

}  // namespace host::xml
