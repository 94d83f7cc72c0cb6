#include "player/scenario/value.h"

#include <cmath>

#include "host/core/text_conversion.h"

namespace scenario {

namespace {

constexpr const char* function_key = "\x01function";
constexpr std::size_t longest_text = 400;
// Whole numbers up to here are exact in floating point.
constexpr double largest_exact = 9007199254740992.0;

[[noreturn]] void wrong(const std::string& what, const char* expected, const Value& given) {
    throw Failure(what + " must be " + expected + ", " + short_text(given) + " given");
}

bool is_list_of_numbers(const Value& value, std::size_t count) {
    if (!value.is_array() || value.size() != count) return false;
    for (const Value& member : value)
        if (!member.is_number()) return false;
    return true;
}

double whole_number(const Value& value, const std::string& what, const char* expected) {
    if (value.is_boolean()) return value.get<bool>() ? 1.0 : 0.0;
    const double number = value.is_number() ? value.get<double>() : NAN;
    if (std::floor(number) != number || number < INT32_MIN || number > INT32_MAX) wrong(what, expected, value);
    return number;
}

// Members that are whole are written as whole numbers, whatever Lua held them as: that is the shortest form.
Value shortened(const Value& value) {
    if (value.is_number_float()) {
        const double number = value.get<double>();
        const bool whole = std::floor(number) == number && std::abs(number) <= largest_exact;
        if (whole && !(number == 0.0 && std::signbit(number))) return static_cast<std::int64_t>(number);
        return value;
    }
    if (!value.is_structured()) return value;
    if (function_reference(value) >= 0) return "a function";
    Value copy = value;
    for (Value& member : copy) member = shortened(member);
    return copy;
}

}  // namespace

Value value_of(bool flag) { return flag; }
Value value_of(int number) { return number; }
Value value_of(float number) { return static_cast<double>(number); }
Value value_of(const CRect& rect) { return Value::array({rect.left, rect.top, rect.right, rect.bottom}); }
Value value_of(const VEC2& point) { return Value::array({point.x, point.y}); }
Value value_of(const VEC4& color) { return Value::array({color.x, color.y, color.z, color.w}); }
Value value_of(const CGuid& id) { return to_utf8(id.to_text()); }
Value value_of(const std::wstring& text) { return to_utf8(text); }

void read_value(const Value& value, const std::string& what, bool& flag) {
    if (value.is_boolean())
        flag = value.get<bool>();
    else if (value.is_number())
        flag = value.get<double>() != 0.0;
    else
        wrong(what, "true, false, 1 or 0", value);
}

void read_value(const Value& value, const std::string& what, int& number) {
    number = static_cast<int>(whole_number(value, what, "a whole number"));
}

void read_value(const Value& value, const std::string& what, double& number) {
    if (!value.is_number()) wrong(what, "a number", value);
    number = value.get<double>();
}

void read_value(const Value& value, const std::string& what, float& number) {
    double wide = 0.0;
    read_value(value, what, wide);
    number = static_cast<float>(wide);
}

void read_value(const Value& value, const std::string& what, CRect& rect) {
    constexpr const char* expected = "{left, top, right, bottom} in whole numbers";
    if (!is_list_of_numbers(value, 4)) wrong(what, expected, value);
    std::int32_t* const edges[] = {&rect.left, &rect.top, &rect.right, &rect.bottom};
    for (std::size_t edge = 0; edge < 4; ++edge)
        *edges[edge] = static_cast<std::int32_t>(whole_number(value[edge], what, expected));
}

void read_numbers(const Value& value, const std::string& what, float* numbers, std::size_t count) {
    if (!is_list_of_numbers(value, count))
        wrong(what, ("a list of " + std::to_string(count) + " numbers").c_str(), value);
    for (std::size_t at = 0; at < count; ++at) numbers[at] = static_cast<float>(value[at].get<double>());
}

void read_value(const Value& value, const std::string& what, VEC2& point) {
    float numbers[2];
    read_numbers(value, what, numbers, 2);
    point = {numbers[0], numbers[1]};
}

void read_value(const Value& value, const std::string& what, VEC4& color) {
    float numbers[4];
    read_numbers(value, what, numbers, 4);
    color = {numbers[0], numbers[1], numbers[2], numbers[3]};
}

void read_value(const Value& value, const std::string& what, std::string& text) {
    if (!value.is_string()) wrong(what, "a text", value);
    text = value.get_ref<const std::string&>();
    if (text.find('\0') != std::string::npos) wrong(what, "a text without a zero byte", value);
}

void read_value(const Value& value, const std::string& what, tstringW& text) {
    std::string bytes;
    read_value(value, what, bytes);
    text = from_utf8(bytes);
}

void read_value(const Value& value, const std::string& what, CGuid& id) {
    tstringW text;
    read_value(value, what, text);
    const CGuid read(text.c_str());
    constexpr const wchar_t* no_id = L"00000000-0000-0000-0000-000000000000";
    if (read.is_empty() && text != no_id)
        wrong(what, "an identifier like \"283B689B-6775-0F82-3171-70E93AFF15F6\"", value);
    id = read;
}

Value function_value(int reference) { return Value{{function_key, reference}}; }

int function_reference(const Value& value) {
    if (!value.is_object()) return -1;
    const auto found = value.find(function_key);
    return found == value.end() ? -1 : found->get<int>();
}

std::string json_text(const Value& value) {
    return shortened(value).dump(-1, ' ', false, Value::error_handler_t::replace);
}

std::string short_text(const Value& value) {
    if (value.is_null()) return "nil";
    if (value.is_number_float() && !std::isfinite(value.get<double>()))
        return std::isnan(value.get<double>()) ? "nan" : value.get<double>() > 0 ? "inf" : "-inf";
    std::string text = json_text(value);
    if (text.size() > longest_text) {
        // Not in the middle of a character.
        std::size_t end = longest_text;
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
        text.replace(end, std::string::npos, " ...");
    }
    return text;
}

}  // namespace scenario
