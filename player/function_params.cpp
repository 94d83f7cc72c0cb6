// How the parameters of script functions are named and told.

#include <algorithm>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>

#include "host/core/text_conversion.h"
#include "player/function_reference.h"

namespace player {

namespace {

// Indexed by xparam_desc::Kind.
constexpr std::string_view lua_types[] = {"integer", "number", "boolean", "string", "vec3", "vec4"};

struct NamedTitle {
    std::wstring_view title;
    const char* name;
};

// Lua names are Latin and titles Chinese, so each title has its word here. One that has none is called by its type.
constexpr NamedTitle named_titles[] = {
    {L"类别", "mode"},
    {L"左上角X/左上角Y", "left_top"},
    {L"左下角X/左下角Y", "right_bottom"},  // of a rectangle, whatever its title says
    {L"是否开启窗口范围限制？", "limit"},
    {L"移动对齐点", "point"},
    {L"相对坐标点：x/y", "origin"},
    {L"位置：x/y", "position"},
    {L"对话框矩形", "rect"},
    {L"标尺窗口", "ruler"},
    {L"对齐方式", "align"},
    {L"被调整窗口", "moved"},
    {L"输入(左/上/右/下)", "rect"},
    {L"膨胀(左/上/右/下)", "margins"},
    {L"变量1", "x"},
    {L"变量2", "y"},
    {L"变量3", "z"},
    {L"位置", "layer"},
    {L"采样点", "sample"},
    {L"坐标系", "space"},
    {L"X方向偏移", "dx"},
    {L"Y方向偏移", "dy"},
    {L"控件矩形", "rect"},
    {L"基准中心", "base"},
    {L"尺寸[长/宽]", "size"},
    {L"标题", "title"},
    {L"是否可用", "usable"},
    {L"是否窗口底图", "background"},
    {L"排布方式", "text_align"},
    {L"全局字体", "font"},
    {L"字体颜色(区间0~1)[r/g/b/a]", "color"},
    {L"是否渲染阴影", "shadow"},
    {L"类型", "kind"},
    {L"背景颜色(区间0~1)[r/g/b/a]", "color"},
    {L"贴图类型", "slot"},
};

struct NamedHint {
    int hint;
    const char* name;
};
constexpr NamedHint named_hints[] = {{XP_FILE, "file"}, {XP_DIALOG, "dialog"}, {XP_CONTROL, "control"}};

// The pieces between semicolons, without spaces around them. The first is the title.
std::vector<std::wstring_view> pieces_of(std::wstring_view text) {
    std::vector<std::wstring_view> pieces;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find(L';', from), text.size());
        std::wstring_view piece = text.substr(from, end - from);
        piece.remove_prefix(std::min(piece.find_first_not_of(L' '), piece.size()));
        pieces.push_back(piece.substr(0, piece.find_last_not_of(L' ') + 1));
        from = end + 1;
    }
    return pieces;
}

std::string name_of(const xparam_desc& param, std::wstring_view title) {
    for (const NamedTitle& row : named_titles)
        if (row.title == title) return row.name;
    for (const NamedHint& row : named_hints)
        if (row.hint == param.hint) return row.name;
    return std::string(lua_type_of(param));
}

ParamView view_of(const xparam_desc& param) {
    const std::vector<std::wstring_view> pieces = pieces_of(param.text);
    ParamView view{name_of(param, pieces[0]), lua_type_of(param), one_line(std::wstring(pieces[0])), {}};
    for (std::size_t at = 1; at < pieces.size(); ++at) {
        const std::size_t equals = pieces[at].find(L'=');
        if (equals != std::wstring_view::npos) view.choices.push_back(to_utf8(pieces[at].substr(0, equals)));
        view.text += (at == 1 ? ": " : ", ") + one_line(std::wstring(pieces[at]));
    }
    return view;
}

}  // namespace

std::string_view lua_type_of(const xparam_desc& param) { return lua_types[param.kind]; }

std::string one_line(const tstringW& text) {
    std::string line = to_utf8(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return line;
}

std::string default_of(const xparam_desc& param) {
    const auto number = [](float value) {
        std::string text = nlohmann::json(value).dump();
        return text.ends_with(".0") ? text.substr(0, text.size() - 2) : text;
    };
    const VEC3 v3 = param.get_VEC();
    const VEC4 v4 = param.get_VEC4();
    switch (param.kind) {
        case xparam_desc::INT:
            return std::to_string(param.get_INT());
        case xparam_desc::FLOAT:
            return number(param.get_FLOAT());
        case xparam_desc::BOOL:
            return param.get_BOOL() ? "true" : "false";
        case xparam_desc::STR:
            return '"' + one_line(param.get_STR()) + '"';
        case xparam_desc::VEC:
            return "{" + number(v3.x) + ", " + number(v3.y) + ", " + number(v3.z) + "}";
        case xparam_desc::VEC4_:
            return "{" + number(v4.x) + ", " + number(v4.y) + ", " + number(v4.z) + ", " + number(v4.w) + "}";
    }
    return {};
}

std::vector<ParamView> params_of(const xfunc_desc& function) {
    std::vector<ParamView> views;
    std::map<std::string, int> used;
    for (const auto& param : function.params) {
        views.push_back(view_of(*param));
        const int times = ++used[views.back().name];
        if (times > 1) views.back().name += std::to_string(times);
    }
    return views;
}

std::string signature_of(const host::RegisteredFunction& function) {
    std::string text = function.name + "(";
    const char* separator = "";
    for (const ParamView& param : params_of(function.desc)) {
        text += separator + param.name;
        separator = ", ";
    }
    return text + ")";
}

}  // namespace player
