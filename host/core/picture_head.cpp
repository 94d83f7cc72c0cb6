#include "host/core/picture_head.h"

#include <cstring>
#include <string_view>

namespace host {
namespace {

using Bytes = std::span<const std::uint8_t>;

std::uint32_t little_endian(Bytes bytes, std::size_t at, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t byte = count; byte-- > 0;) value = value << 8 | bytes[at + byte];
    return value;
}

std::uint32_t big_endian(Bytes bytes, std::size_t at, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t byte = 0; byte < count; ++byte) value = value << 8 | bytes[at + byte];
    return value;
}

bool stands_at(Bytes bytes, std::size_t at, std::string_view text) {
    return bytes.size() >= at + text.size() && std::memcmp(bytes.data() + at, text.data(), text.size()) == 0;
}

std::optional<PictureHead> png_head(Bytes bytes) {
    if (!stands_at(bytes, 0, "\x89PNG\r\n\x1A\n") || bytes.size() < 24) return {};
    return PictureHead{PictureFormat::PNG, big_endian(bytes, 16, 4), big_endian(bytes, 20, 4)};
}

// The old head holds both in 16 bits, the others in 32, the height negative where rows go downward.
std::optional<PictureHead> bmp_head(Bytes bytes) {
    if (!stands_at(bytes, 0, "BM") || bytes.size() < 26) return {};
    if (little_endian(bytes, 14, 4) == 12)
        return PictureHead{PictureFormat::BMP, little_endian(bytes, 18, 2), little_endian(bytes, 20, 2)};
    const std::uint32_t height = little_endian(bytes, 22, 4);
    return PictureHead{PictureFormat::BMP, little_endian(bytes, 18, 4), height > INT32_MAX ? 0u - height : height};
}

std::optional<PictureHead> webp_head(Bytes bytes) {
    if (!stands_at(bytes, 0, "RIFF") || !stands_at(bytes, 8, "WEBP") || bytes.size() < 30) return {};
    if (stands_at(bytes, 12, "VP8X"))
        return PictureHead{PictureFormat::WEBP, little_endian(bytes, 24, 3) + 1, little_endian(bytes, 27, 3) + 1};
    if (stands_at(bytes, 12, "VP8L")) {
        const std::uint32_t bits = little_endian(bytes, 21, 4);
        return PictureHead{PictureFormat::WEBP, (bits & 0x3FFF) + 1, (bits >> 14 & 0x3FFF) + 1};
    }
    if (stands_at(bytes, 12, "VP8 "))
        return PictureHead{PictureFormat::WEBP, little_endian(bytes, 26, 2) & 0x3FFF,
                           little_endian(bytes, 28, 2) & 0x3FFF};
    return {};
}

// Segments follow each other, each with its length, up to the one that begins a frame.
std::optional<PictureHead> jpeg_head(Bytes bytes) {
    if (!stands_at(bytes, 0, "\xFF\xD8")) return {};
    for (std::size_t at = 2; at + 9 < bytes.size();) {
        if (bytes[at] != 0xFF) {
            ++at;
            continue;
        }
        const std::uint8_t marker = bytes[at + 1];
        const bool has_no_length =
            marker == 0xFF || marker == 0x00 || marker == 0x01 || (marker >= 0xD0 && marker <= 0xD9);
        if (has_no_length) {
            at += marker == 0xFF ? 1 : 2;
            continue;
        }
        const bool begins_frame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (begins_frame)
            return PictureHead{PictureFormat::JPEG, big_endian(bytes, at + 7, 2), big_endian(bytes, at + 5, 2)};
        at += 2 + big_endian(bytes, at + 2, 2);
    }
    return {};
}

// A TGA file has no signature, so its head must make sense: a known kind of picture, a known depth, and as many bytes
// as an uncompressed picture of its size takes.
std::optional<PictureHead> tga_head(Bytes bytes) {
    constexpr std::size_t head = 18;
    if (bytes.size() < head) return {};
    const int kind = bytes[2], depth = bytes[16];
    const PictureHead size{PictureFormat::TGA, little_endian(bytes, 12, 2), little_endian(bytes, 14, 2)};
    const bool compressed = kind >= 9 && kind <= 11;
    const bool known_kind = compressed || (kind >= 1 && kind <= 3);
    const bool known_depth = depth == 8 || depth == 15 || depth == 16 || depth == 24 || depth == 32;
    if (bytes[1] > 1 || !known_kind || !known_depth || size.width == 0 || size.height == 0) return {};
    const auto pixel_bytes = static_cast<std::uint64_t>((depth + 7) / 8);
    if (!compressed && bytes.size() < head + std::uint64_t{size.width} * size.height * pixel_bytes) return {};
    return size;
}

// Chunks follow each other, each with its length, its name and a sum behind it, up to the one that ends the picture.
bool png_ends(Bytes bytes) {
    constexpr std::size_t frame = 12;
    for (std::size_t at = 8; bytes.size() - at >= frame;) {
        const std::uint32_t length = big_endian(bytes, at, 4);
        if (length > bytes.size() - at - frame) return false;
        if (stands_at(bytes, at + 4, "IEND")) return true;
        at += frame + length;
    }
    return false;
}

}  // namespace

bool is_whole(const PictureHead& head, Bytes bytes) { return head.format != PictureFormat::PNG || png_ends(bytes); }

std::optional<PictureHead> picture_head(Bytes bytes) {
    for (const auto head_of : {&png_head, &jpeg_head, &bmp_head, &webp_head, &tga_head})
        if (const auto head = head_of(bytes)) return head;
    return {};
}

}  // namespace host
