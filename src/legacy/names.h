#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

// The names that mean something in a legacy tree, beside the keys.

/// A stage that only ever showed how far the loading was.
inline constexpr std::wstring_view LEGACY_LOADING_STAGE = L"加载页面";
/// The stage that every project had, used or not.
inline constexpr std::wstring_view LEGACY_MAIN_STAGE = L"主页面";
/// Actor name of the dialog that takes the controls which stand in none.
inline constexpr const wchar_t* LEGACY_ROOT_DIALOG = L"根界面";

/// Children of a stage that are no panels of its GUI: two that the old editor itself drew on, and two keys.
inline constexpr std::wstring_view legacy_stage_extras[] = {L"绘图区", L"桌面", L"stage_name", L"stage_type"};

constexpr bool is_legacy_panel(std::wstring_view name) {
    return std::find(std::begin(legacy_stage_extras), std::end(legacy_stage_extras), name) ==
           std::end(legacy_stage_extras);
}
