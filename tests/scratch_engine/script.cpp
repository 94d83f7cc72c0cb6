#include "scratch_engine/script.h"

IScriptFunction::IScriptFunction() = default;
IScriptFunction::~IScriptFunction() = default;

xfunc_desc::xfunc_desc() = default;
xfunc_desc::xfunc_desc(const xfunc_desc&) = default;
xfunc_desc& xfunc_desc::operator=(const xfunc_desc&) = default;
xfunc_desc::~xfunc_desc() = default;

namespace {

CMyComPtr<xparam_desc> param(xparam_desc::Kind kind, const wchar_t* text) {
    CMyComPtr<xparam_desc> made(new xparam_desc);
    made->kind = kind;
    made->text = text;
    return made;
}

}  // namespace

CMyComPtr<xparam_desc> xparam_desc::create_int_param(int value, const wchar_t* text) {
    auto made = param(INT, text);
    made->set_INT(value);
    return made;
}
CMyComPtr<xparam_desc> xparam_desc::create_float_param(float value, const wchar_t* text) {
    auto made = param(FLOAT, text);
    made->set_FLOAT(value);
    return made;
}
CMyComPtr<xparam_desc> xparam_desc::create_bool_param(int value, const wchar_t* text) {
    auto made = param(BOOL, text);
    made->set_BOOL(value);
    return made;
}
CMyComPtr<xparam_desc> xparam_desc::create_str_param(const wchar_t* value, const wchar_t* text) {
    auto made = param(STR, text);
    made->set_STR(value);
    return made;
}
CMyComPtr<xparam_desc> xparam_desc::create_vec_param(const VEC3& value, const wchar_t* text) {
    auto made = param(VEC, text);
    made->set_VEC(value);
    return made;
}
CMyComPtr<xparam_desc> xparam_desc::create_vec4_param(const VEC4& value, const wchar_t* text) {
    auto made = param(VEC4_, text);
    made->set_VEC4(value);
    return made;
}

int xparam_desc::get_INT() const { return kind == INT ? m_int : 0; }
float xparam_desc::get_FLOAT() const { return kind == FLOAT ? m_float : 0.0f; }
int xparam_desc::get_BOOL() const { return kind == BOOL ? m_int : 0; }
const wchar_t* xparam_desc::get_STR() const { return kind == STR ? m_str.c_str() : L""; }
VEC3 xparam_desc::get_VEC() const { return kind == VEC ? VEC3(m_vec) : VEC3(); }
VEC4 xparam_desc::get_VEC4() const { return kind == VEC4_ ? m_vec : VEC4(); }
void xparam_desc::set_INT(int value) {
    if (kind == INT) m_int = value;
}
void xparam_desc::set_FLOAT(float value) {
    if (kind == FLOAT) m_float = value;
}
void xparam_desc::set_BOOL(int value) {
    if (kind == BOOL) m_int = value;
}
void xparam_desc::set_STR(const wchar_t* value) {
    if (kind == STR) m_str = value;
}
void xparam_desc::set_VEC(const VEC3& value) {
    if (kind == VEC) m_vec = {value.x, value.y, value.z, 0.0f};
}
void xparam_desc::set_VEC4(const VEC4& value) {
    if (kind == VEC4_) m_vec = value;
}
