#pragma once

#include "engine/text.h"
#include "engine/vectors.h"
#include "platform_types.h"

/// A named property bound to a variable of one of three kinds. The variable must outlive it.
class ENGINE_API CZovProperty {
public:
    CZovProperty(const wchar_t* name, int& variable, bool editable);
    CZovProperty(const wchar_t* name, float& variable, bool editable);
    CZovProperty(const wchar_t* name, VEC2& variable, bool editable);
    virtual ~CZovProperty();

    /// Writes and reads the bound variable. A value of another kind than the variable's is passed over.
    void set_value(const int& value, bool notify);
    void set_value(const float& value, bool notify);
    void set_value(const VEC2& value, bool notify);
    void get_value(int& value) const;
    void get_value(float& value) const;
    void get_value(VEC2& value) const;

    const tstringW& get_name() const { return m_name; }
    bool is_editable() const { return m_editable; }

private:
    tstringW m_name;
    int* m_int = nullptr;
    float* m_float = nullptr;
    VEC2* m_vec2 = nullptr;
    bool m_editable;
};
