#include "engine/script.h"
#include "host/system/write_watch.h"

namespace host {
namespace {

WriteWatch* innermost = nullptr;

}  // namespace

WriteWatch::WriteWatch(const xparam_desc* watched) : m_watched(watched), m_outer(innermost) { innermost = this; }
WriteWatch::~WriteWatch() { innermost = m_outer; }

void WriteWatch::tell(const xparam_desc* param) {
    for (WriteWatch* watch = innermost; watch; watch = watch->m_outer)
        if (watch->m_watched == param) watch->m_written = true;
}

namespace {

CMyComPtr<xparam_desc> make_param(xparam_desc::Kind kind, const wchar_t* text) {
    CMyComPtr<xparam_desc> param(new xparam_desc);
    param->kind = kind;
    param->text = text ? text : L"";
    return param;
}

}  // namespace
}  // namespace host

CMyComPtr<xparam_desc> xparam_desc::create_int_param(int value, const wchar_t* text) {
    auto param = host::make_param(INT, text);
    param->m_int = value;
    return param;
}
CMyComPtr<xparam_desc> xparam_desc::create_float_param(float value, const wchar_t* text) {
    auto param = host::make_param(FLOAT, text);
    param->m_float = value;
    return param;
}
CMyComPtr<xparam_desc> xparam_desc::create_bool_param(int value, const wchar_t* text) {
    auto param = host::make_param(BOOL, text);
    param->m_int = value;
    return param;
}
CMyComPtr<xparam_desc> xparam_desc::create_str_param(const wchar_t* value, const wchar_t* text) {
    auto param = host::make_param(STR, text);
    param->m_str = value ? value : L"";
    return param;
}
CMyComPtr<xparam_desc> xparam_desc::create_vec_param(const VEC3& value, const wchar_t* text) {
    auto param = host::make_param(VEC, text);
    param->m_vec = {value.x, value.y, value.z, 0.0f};
    return param;
}
CMyComPtr<xparam_desc> xparam_desc::create_vec4_param(const VEC4& value, const wchar_t* text) {
    auto param = host::make_param(VEC4_, text);
    param->m_vec = value;
    return param;
}

int xparam_desc::get_INT() const { return kind == INT ? m_int : 0; }
float xparam_desc::get_FLOAT() const { return kind == FLOAT ? m_float : 0.0f; }
int xparam_desc::get_BOOL() const { return kind == BOOL ? m_int : 0; }
const wchar_t* xparam_desc::get_STR() const { return kind == STR ? m_str.c_str() : L""; }
VEC3 xparam_desc::get_VEC() const { return kind == VEC ? VEC3(m_vec) : VEC3(); }
VEC4 xparam_desc::get_VEC4() const { return kind == VEC4_ ? m_vec : VEC4(); }

void xparam_desc::set_INT(int value) {
    if (kind != INT) return;
    m_int = value;
    host::WriteWatch::tell(this);
}
void xparam_desc::set_FLOAT(float value) {
    if (kind != FLOAT) return;
    m_float = value;
    host::WriteWatch::tell(this);
}
void xparam_desc::set_BOOL(int value) {
    if (kind != BOOL) return;
    m_int = value;
    host::WriteWatch::tell(this);
}
void xparam_desc::set_STR(const wchar_t* value) {
    if (kind != STR) return;
    // By way of a copy: the value may be the parameter's own text.
    m_str = tstringW(value ? value : L"");
    host::WriteWatch::tell(this);
}
void xparam_desc::set_VEC(const VEC3& value) {
    if (kind != VEC) return;
    m_vec = {value.x, value.y, value.z, 0.0f};
    host::WriteWatch::tell(this);
}
void xparam_desc::set_VEC4(const VEC4& value) {
    if (kind != VEC4_) return;
    m_vec = value;
    host::WriteWatch::tell(this);
}

xfunc_desc::xfunc_desc() = default;
xfunc_desc::xfunc_desc(const xfunc_desc&) = default;
xfunc_desc& xfunc_desc::operator=(const xfunc_desc&) = default;
xfunc_desc::~xfunc_desc() = default;

IScriptFunction::IScriptFunction() = default;
IScriptFunction::~IScriptFunction() = default;
