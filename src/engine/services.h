#pragma once

#include <string>

#include "engine/text.h"
#include "platform_types.h"

/// Files and paths.
struct ENGINE_API filefun {
    /// The file name without folders, with or without its extension.
    static std::wstring get_pure_filename(const wchar_t* path, bool keep_extension);
    /// The folder of a path, ending in its separator; empty for a path without a folder.
    static std::wstring get_file_path(const wchar_t* path);
    static bool file_exist(const wchar_t* path);
    /// Makes a folder with all folders above it.
    static void create_path(const wchar_t* path);
};

/// The engine's clock.
struct ENGINE_API time_guard {
    /// Ticks since some moment in the past.
    static unsigned long long get_curr_time_async();
    /// Ticks in a second; above 0.
    static long long s_freq;
};

struct ENGINE_API Math {
    static float Abs(float value);
    static float Pow(float base, float exponent);
};

/// Between wide and narrow text; the narrow one is UTF-8. What can't be converted becomes U+FFFD.
ENGINE_API void WideCharToMultiByte(const std::wstring& wide, std::string& narrow);
ENGINE_API void MultiByteToWideChar(const std::string& narrow, std::wstring& wide);

/// Kind of a log line. The module writes only kind 3.
enum ELogType : int { LOG_FONT = 3 };

/// Writes a log line from a format and its variable argument list. Systems whose argument lists are no plain pointer
/// pass null; `format` is then the finished text, in which a percent sign stands for itself.
ENGINE_API void zov_simple_log(ELogType kind, const wchar_t* format, char* arguments);
