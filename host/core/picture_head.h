#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace host {

enum class PictureFormat { PNG, JPEG, BMP, WEBP, TGA };

struct PictureHead {
    PictureFormat format;
    std::uint32_t width;
    std::uint32_t height;
};

/// What the head of a picture file promises, by the content whatever the name says; nothing where the bytes are no
/// picture. To be asked ahead of decoding: a few bytes can promise more than all memory holds.
std::optional<PictureHead> picture_head(std::span<const std::uint8_t> bytes);

/// False for a PNG file whose parts reach behind its end: decoding one may wait for the rest for ever. The decoders of
/// the other formats end where the file does.
bool is_whole(const PictureHead& head, std::span<const std::uint8_t> bytes);

}  // namespace host
