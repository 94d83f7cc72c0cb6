#include "engine/property.h"

CZovProperty::CZovProperty(const wchar_t* name, int& variable, bool editable)
    : m_name(name), m_int(&variable), m_editable(editable) {}
CZovProperty::CZovProperty(const wchar_t* name, float& variable, bool editable)
    : m_name(name), m_float(&variable), m_editable(editable) {}
CZovProperty::CZovProperty(const wchar_t* name, VEC2& variable, bool editable)
    : m_name(name), m_vec2(&variable), m_editable(editable) {}
CZovProperty::~CZovProperty() = default;

void CZovProperty::set_value(const int& value, bool) {
    if (m_int) *m_int = value;
}
void CZovProperty::set_value(const float& value, bool) {
    if (m_float) *m_float = value;
}
void CZovProperty::set_value(const VEC2& value, bool) {
    if (m_vec2) *m_vec2 = value;
}

void CZovProperty::get_value(int& value) const {
    if (m_int) value = *m_int;
}
void CZovProperty::get_value(float& value) const {
    if (m_float) value = *m_float;
}
void CZovProperty::get_value(VEC2& value) const {
    if (m_vec2) value = *m_vec2;
}
