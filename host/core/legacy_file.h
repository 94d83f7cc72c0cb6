#pragma once

// The file of a legacy project: read only. The format is described in docs/legacy-file.md.

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/core/legacy_tree.h"

namespace host {

/// Null: `error` is one line, "FILE:LINE: reason".
std::unique_ptr<LegacyProject> read_legacy(const std::string& path, std::string& error);
/// The same from text; `path` stands for the file in errors and is what the project says of its file.
std::unique_ptr<LegacyProject> parse_legacy(std::string_view text, const std::string& path, std::string& error);

/// Whether the file is, or was to be, one of these rather than a project of the present format.
bool is_legacy_file(const std::string& path);

/// "0A0b" as two bytes; empty for no pairs of hexadecimal digits.
std::optional<std::string> parse_hex(std::string_view text);
std::string format_hex(std::string_view bytes);

}  // namespace host
