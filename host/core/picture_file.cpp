#include "host/core/picture_file.h"

#include <SDL2/SDL_image.h>

#include <climits>
#include <cstring>
#include <fstream>
#include <iterator>
#include <system_error>

#include "host/core/project_disk.h"
#include "host/core/sdl_handles.h"

namespace host {
namespace {

using Bytes = std::vector<char>;

// Larger sides are beyond every device; a broken header could ask for all memory.
constexpr int longest_side = 16384;

std::uint64_t next_picture_id() {
    static std::uint64_t last = 0;
    return ++last;
}

Bytes read_bytes(const std::filesystem::path& path) {
    std::error_code error;
    // Opening a folder or a pipe would succeed or wait.
    if (!std::filesystem::is_regular_file(path, error)) return {};
    std::ifstream file(path, std::ios::binary);
    Bytes bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    return bytes.size() > INT_MAX ? Bytes() : bytes;
}

struct Format {
    int (*recognises)(SDL_RWops*);
    SDL_Surface* (*load)(SDL_RWops*);
};

// A TGA file has no signature, so its header must make sense: a known kind of picture, a known depth, and as many bytes
// as an uncompressed picture of its size takes.
int is_tga(SDL_RWops* stream) {
    std::uint8_t header[18];
    const bool complete = SDL_RWread(stream, header, sizeof header, 1) == 1;
    const Sint64 length = SDL_RWsize(stream);
    SDL_RWseek(stream, 0, RW_SEEK_SET);
    if (!complete) return 0;
    const int kind = header[2], depth = header[16];
    const Sint64 width = header[12] | header[13] << 8, height = header[14] | header[15] << 8;
    const bool compressed = kind >= 9 && kind <= 11;
    const bool known_kind = compressed || (kind >= 1 && kind <= 3);
    const bool known_depth = depth == 8 || depth == 15 || depth == 16 || depth == 24 || depth == 32;
    if (header[1] > 1 || !known_kind || !known_depth || width == 0 || height == 0) return 0;
    return compressed || length >= 18 + width * height * ((depth + 7) / 8);
}

constexpr Format formats[] = {
    {IMG_isPNG, IMG_LoadPNG_RW},   {IMG_isJPG, IMG_LoadJPG_RW}, {IMG_isBMP, IMG_LoadBMP_RW},
    {IMG_isWEBP, IMG_LoadWEBP_RW}, {is_tga, IMG_LoadTGA_RW},
};

SdlSurface decode(const Bytes& bytes) {
    if (bytes.empty()) return {};
    SDL_RWops* stream = SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size()));
    if (!stream) return {};
    SdlSurface surface;
    for (const Format& format : formats) {
        if (!format.recognises(stream)) continue;
        surface.reset(format.load(stream));
        break;
    }
    SDL_RWclose(stream);
    return surface;
}

}  // namespace

std::shared_ptr<const Picture> make_clear_picture(unsigned width, unsigned height) {
    auto picture = std::make_shared<Picture>();
    *picture = {next_picture_id(), width, height, {}};
    return picture;
}

std::shared_ptr<const Picture> read_picture(const std::filesystem::path& path) {
    const SdlSurface decoded = decode(read_bytes(path));
    if (!decoded || decoded->w <= 0 || decoded->h <= 0) return nullptr;
    if (decoded->w > longest_side || decoded->h > longest_side) return nullptr;
    const SdlSurface surface(SDL_ConvertSurfaceFormat(decoded.get(), SDL_PIXELFORMAT_ARGB8888, 0));
    if (!surface) return nullptr;
    const auto width = static_cast<std::size_t>(surface->w), height = static_cast<std::size_t>(surface->h);
    auto picture = std::make_shared<Picture>();
    *picture = {next_picture_id(), static_cast<unsigned>(width), static_cast<unsigned>(height), {}};
    picture->argb.resize(width * height);
    const auto pitch = static_cast<std::size_t>(surface->pitch);
    for (std::size_t row = 0; row < height; ++row) {
        const auto* from = static_cast<const std::uint8_t*>(surface->pixels) + row * pitch;
        std::memcpy(picture->argb.data() + row * width, from, width * sizeof(std::uint32_t));
    }
    return picture;
}

namespace {

struct StreamDeleter {
    void operator()(SDL_RWops* stream) const { SDL_FreeRW(stream); }
};
using SdlStream = std::unique_ptr<SDL_RWops, StreamDeleter>;

/// Appends to `bytes`, which has to outlive it, whatever is written to it; can do nothing else.
SdlStream appending_stream(std::string& bytes) {
    SdlStream stream(SDL_AllocRW());
    if (!stream) return stream;
    stream->hidden.unknown.data1 = &bytes;
    stream->write = [](SDL_RWops* self, const void* data, std::size_t size, std::size_t count) {
        static_cast<std::string*>(self->hidden.unknown.data1)->append(static_cast<const char*>(data), size * count);
        return count;
    };
    stream->size = [](SDL_RWops*) -> Sint64 { return -1; };
    stream->seek = [](SDL_RWops*, Sint64, int) -> Sint64 { return -1; };
    stream->read = [](SDL_RWops*, void*, std::size_t, std::size_t) -> std::size_t { return 0; };
    stream->close = [](SDL_RWops*) { return 0; };
    return stream;
}

}  // namespace

bool write_png(const std::string& path, std::vector<std::uint32_t>& argb, int width, std::string& error) {
    const int height = static_cast<int>(argb.size()) / width;
    const SdlSurface surface(SDL_CreateRGBSurfaceWithFormatFrom(
        argb.data(), width, height, 32, width * int{sizeof(std::uint32_t)}, SDL_PIXELFORMAT_RGB888));
    std::string bytes;
    const SdlStream stream = appending_stream(bytes);
    error = "not enough memory";
    const bool good = surface && stream && IMG_SavePNG_RW(surface.get(), stream.get(), 0) == 0 &&
                      replace_file(path, bytes, OldFile::GONE, error);
    if (!good) error = path + ": the picture could not be written: " + error;
    return good;
}

}  // namespace host
