#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace host {

/// Colours of a picture in main memory. Never changes once it is shared.
struct Picture {
    /// Differs between all pictures of a program, also those that are gone, so that caches may keep it.
    std::uint64_t id = 0;
    unsigned width = 0;
    unsigned height = 0;
    /// Row by row from the top, 0xAARRGGBB, colours not multiplied by alpha. Empty for a picture that is all clear.
    std::span<const std::uint32_t> argb;
    /// In which they lie; null where they are somebody else's.
    std::shared_ptr<const void> pixels;
};

/// A picture of nothing.
std::shared_ptr<const Picture> make_clear_picture(unsigned width, unsigned height);

/// PNG, JPEG, BMP, TGA or WebP, known by the content whatever the name says. Null if the file is missing or is none.
std::shared_ptr<const Picture> read_picture(const std::filesystem::path& path);

/// `argb` row by row from the top, alpha not written; as many pixels as whole rows of that width. `path` is UTF-8.
/// False and a reason if the file could not be written.
bool write_png(const std::string& path, std::vector<std::uint32_t>& argb, int width, std::string& error);

}  // namespace host
