// The core library's items, clock, files, texts and properties.

#include <cmath>
#include <cwchar>

#include "platform/platform.h"
#include "scratch_engine/registry.h"

Registry& registry() {
    static Registry the_registry;
    return the_registry;
}

IBaseItem::IBaseItem() = default;
IBaseItem::IBaseItem(const IBaseItem&) = default;
IBaseItem& IBaseItem::operator=(const IBaseItem&) = default;
IBaseItem::~IBaseItem() = default;
void IBaseItem::on_ready() {}
void IBaseItem::prepare_run() {}
void IBaseItem::after_run() {}
IBaseItem* IBaseItem::get_cloned(bool) { return nullptr; }

IBaseDeviceItem::IBaseDeviceItem(IBaseDevice* device) : m_device(device) {}
IBaseDeviceItem::~IBaseDeviceItem() = default;
IDeviceTexture::IDeviceTexture() = default;
IDeviceTexture::~IDeviceTexture() = default;
ITexture::ITexture() = default;
ITexture::~ITexture() = default;

long long time_guard::s_freq = 1'000'000;
unsigned long long time_guard::get_curr_time_async() { return registry().ticks; }

float Math::Abs(float value) { return std::fabs(value); }
float Math::Pow(float base, float exponent) { return std::pow(base, exponent); }

std::wstring filefun::get_pure_filename(const wchar_t* path, bool keep_extension) {
    std::wstring name(path);
    name.erase(0, name.find_last_of(L"/\\") + 1);
    return keep_extension ? name : name.substr(0, name.rfind(L'.'));
}
std::wstring filefun::get_file_path(const wchar_t* path) {
    const std::wstring name(path);
    return name.substr(0, name.find_last_of(L"/\\") + 1);
}
bool filefun::file_exist(const wchar_t* path) { return registry().files.count(path) != 0; }
void filefun::create_path(const wchar_t* path) { registry().published.push_back(std::wstring(L"folder ") + path); }

// Every text of the tests is plain ASCII where these two are asked.
void WideCharToMultiByte(const std::wstring& wide, std::string& narrow) {
    narrow.clear();
    for (wchar_t c : wide) narrow.push_back(static_cast<char>(c));
}
void MultiByteToWideChar(const std::string& narrow, std::wstring& wide) { wide.assign(narrow.begin(), narrow.end()); }

void zov_simple_log(ELogType, const wchar_t* format, char*) { registry().log.emplace_back(format); }

CZovProperty::CZovProperty(const wchar_t* name, int& variable, bool editable)
    : m_name(name), m_int(&variable), m_editable(editable) {}
CZovProperty::CZovProperty(const wchar_t* name, float& variable, bool editable)
    : m_name(name), m_float(&variable), m_editable(editable) {}
CZovProperty::CZovProperty(const wchar_t* name, VEC2& variable, bool editable)
    : m_name(name), m_vec2(&variable), m_editable(editable) {}
CZovProperty::~CZovProperty() = default;

namespace {

template <class T>
void store(T* variable, const T& value) {
    if (variable) *variable = value;
}
template <class T>
void fetch(const T* variable, T& value) {
    if (variable) value = *variable;
}

}  // namespace

void CZovProperty::set_value(const int& value, bool) { store(m_int, value); }
void CZovProperty::set_value(const float& value, bool) { store(m_float, value); }
void CZovProperty::set_value(const VEC2& value, bool) { store(m_vec2, value); }
void CZovProperty::get_value(int& value) const { fetch(m_int, value); }
void CZovProperty::get_value(float& value) const { fetch(m_float, value); }
void CZovProperty::get_value(VEC2& value) const { fetch(m_vec2, value); }

namespace {

bool list_fonts(font_list& list) {
    list = registry().fonts;
    return registry().has_fonts;
}

// Every text of the tests but one is plain ASCII here too.
std::wstring wide_from_big5(const std::string& text) {
    return text == "\xA7\xBA\xC5\xE9" ? L"宋體" : std::wstring(text.begin(), text.end());
}

bool copy_file(const std::wstring& from, const std::wstring& to) {
    if (registry().files.count(from) == 0) return false;
    registry().published.push_back(L"copy " + from + L" " + to);
    return true;
}

}  // namespace

const platform_functions& get_platform_functions() {
    static const platform_functions table{
        .set_hand_cursor = [] { ++registry().hand_cursors; },
        .cursor_position = [] { return registry().cursor; },
        .list_fonts = &list_fonts,
        .wide_from_big5 = &wide_from_big5,
        .show_message = [](const std::wstring& text) { registry().published.push_back(L"box " + text); },
        .copy_file = &copy_file};
    return table;
}
