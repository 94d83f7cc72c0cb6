#pragma once

// The records of the Windows interface that the engine's contract speaks of, from the system itself.

#include <cstdint>

// Its macros of these names would reach into every file that includes the contract.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#undef near
#undef far

/// What other libraries may link against. A library is built with those of its own defined as an export.
#ifndef ENGINE_API
#define ENGINE_API __declspec(dllimport)
#endif
#ifndef GUI_API
#define GUI_API __declspec(dllimport)
#endif
/// A part of an exported class that is nobody else's business. The class goes out as a whole here.
#define GUI_LOCAL

static_assert(sizeof(LOGFONTW) == 92, "projects store words of this record");
