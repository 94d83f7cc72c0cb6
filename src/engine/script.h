#pragma once

#include <vector>

#include "engine/base_item.h"
#include "engine/counted.h"
#include "engine/text.h"
#include "engine/vectors.h"

class XSystem;

/// How a script editor offers a parameter.
enum xparam_hint : int {
    XP_PLAIN = 0,           ///< a value typed in
    XP_CHOICE = 3,          ///< a value chosen from the labels in the parameter's text
    XP_FILE = 0x20001,      ///< the name of a file
    XP_DIALOG = 0x400002,   ///< the name of a dialog
    XP_CONTROL = 0x800002,  ///< the name of a shape
};

/// One parameter of a script function: a value of the kind that its factory chose, and how it is shown. A getter of
/// another kind gives zero or an empty text; a setter of another kind changes nothing.
class ENGINE_API xparam_desc : public IMyCom {
public:
    enum Kind : int { INT, FLOAT, BOOL, STR, VEC, VEC4_ };

    static CMyComPtr<xparam_desc> create_int_param(int value, const wchar_t* text);
    static CMyComPtr<xparam_desc> create_float_param(float value, const wchar_t* text);
    static CMyComPtr<xparam_desc> create_bool_param(int value, const wchar_t* text);
    static CMyComPtr<xparam_desc> create_str_param(const wchar_t* value, const wchar_t* text);
    static CMyComPtr<xparam_desc> create_vec_param(const VEC3& value, const wchar_t* text);
    static CMyComPtr<xparam_desc> create_vec4_param(const VEC4& value, const wchar_t* text);

    int get_INT() const;
    float get_FLOAT() const;
    int get_BOOL() const;
    /// Valid while the parameter is unchanged; never null.
    const wchar_t* get_STR() const;
    VEC3 get_VEC() const;
    VEC4 get_VEC4() const;
    void set_INT(int value);
    void set_FLOAT(float value);
    void set_BOOL(int value);
    void set_STR(const wchar_t* value);
    void set_VEC(const VEC3& value);
    void set_VEC4(const VEC4& value);

    Kind kind = INT;
    /// A title, then, each after a ";", what is offered.
    tstringW text;
    int hint = XP_PLAIN;

private:
    int m_int = 0;
    float m_float = 0.0f;
    tstringW m_str;
    VEC4 m_vec;
};

/// One function that scripts can call.
class ENGINE_API xfunc_desc {
public:
    xfunc_desc();
    xfunc_desc(const xfunc_desc&);
    xfunc_desc& operator=(const xfunc_desc&);
    virtual ~xfunc_desc();

    /// The name by which scripts call it.
    tstringW func_name;
    /// The name and the explanation that the author sees.
    tstringW show_name;
    tstringW description;
    /// The inputs in order; at run time they hold the values of the call.
    std::vector<CMyComPtr<xparam_desc>> params;
    /// Empty for a function that gives nothing.
    CMyComPtr<xparam_desc> ret_param;
    /// The body; gets the descriptor that is being run.
    void (*func)(xfunc_desc*) = nullptr;
    /// Filled by the engine.
    XSystem* system = nullptr;
};

class CScriptManager {
public:
    /// Makes the function callable by scripts; the description and its parameters are the engine's from then on. A
    /// second function of one name takes the place of the first. The category is shown to the author.
    virtual void register_xfun(xfunc_desc function, tstringW category) = 0;

protected:
    ~CScriptManager() = default;
};

/// A script tied to a shape; stored with it as a sub-item.
class ENGINE_API IScriptFunction : public IBaseItem {
public:
    IScriptFunction();
    ~IScriptFunction() override;
    /// Carries the script out to its end.
    virtual void run() = 0;
};
