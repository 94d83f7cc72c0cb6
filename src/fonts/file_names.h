#pragma once

#include <vector>

#include "engine/text.h"

enum class FontFileKind { SINGLE, COLLECTION };

/// The names that a font file declares, read as a file of that kind, in order and with repetitions. Nothing for a file
/// that can't be read. A file is read once in a process, and again only when its size or its time has changed.
std::vector<tstringW> names_of_file(const tstringW& path, FontFileKind kind);

/// The same without a look at what is known already.
std::vector<tstringW> read_names_of_file(const tstringW& path, FontFileKind kind);
