#include "host/core/picture_file.h"

#include <SDL2/SDL_image.h>

#include <cstring>
#include <span>
#include <system_error>

#include "host/core/picture_head.h"
#include "host/core/project_disk.h"
#include "host/core/sdl_handles.h"
#include "host/core/sdl_memory.h"

namespace host {
namespace {

// Larger ones are beyond every device; a few bytes of a broken or hostile head could ask for all memory.
constexpr std::uint64_t longest_side = 16384;
constexpr std::uint64_t most_pixels = std::uint64_t{7680} * 4320;
constexpr Uint32 pixel_format = SDL_PIXELFORMAT_ARGB8888;
constexpr std::size_t most_bytes = std::size_t{256} << 20;

std::uint64_t next_picture_id() {
    static std::uint64_t last = 0;
    return ++last;
}

std::string read_bytes(const std::filesystem::path& path) {
    std::string bytes, ignored;
    std::error_code error;
    // Opening a pipe would wait.
    if (std::filesystem::is_regular_file(path, error)) (void)read_whole_file(path.string(), most_bytes, bytes, ignored);
    return bytes;
}

// By PictureFormat.
constexpr SDL_Surface* (*loaders[])(SDL_RWops*) = {&IMG_LoadPNG_RW, &IMG_LoadJPG_RW, &IMG_LoadBMP_RW, &IMG_LoadWEBP_RW,
                                                   &IMG_LoadTGA_RW};

bool is_small_enough(std::uint64_t width, std::uint64_t height) {
    return width <= longest_side && height <= longest_side && width * height <= most_pixels;
}

SdlSurface decode(const std::string& bytes) {
    const std::span content(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    const auto head = picture_head(content);
    if (!head || !is_small_enough(head->width, head->height) || !is_whole(*head, content)) return {};
    SDL_RWops* stream = SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size()));
    if (!stream) check_sdl_memory();
    if (!stream) return {};
    SdlSurface surface(loaders[static_cast<std::size_t>(head->format)](stream));
    SDL_RWclose(stream);
    if (!surface) check_sdl_memory();
    return surface;
}

// Of the largest pictures there is room for one and a half: those with an opacity, which come from the libraries with
// as many bytes a pixel as ours have, change where they lie.
SdlSurface in_our_format(SdlSurface surface) {
    const SDL_PixelFormat& format = *surface->format;
    const bool is_dense = surface->pitch == surface->w * static_cast<int>(sizeof(std::uint32_t));
    if (is_dense && format.format == SDL_PIXELFORMAT_ABGR8888 && !SDL_MUSTLOCK(surface.get())) {
        const std::span pixels(static_cast<std::uint32_t*>(surface->pixels),
                               static_cast<std::size_t>(surface->w) * static_cast<std::size_t>(surface->h));
        for (std::uint32_t& pixel : pixels) pixel = (pixel & 0xFF00FF00) | (pixel >> 16 & 0xFF) | (pixel & 0xFF) << 16;
        return surface;
    }
    if (is_dense && format.format == pixel_format) return surface;
    // Not mixed with what is there, which is nothing.
    if (SDL_SetSurfaceBlendMode(surface.get(), SDL_BLENDMODE_NONE) != 0) return {};
    return SdlSurface(SDL_ConvertSurfaceFormat(surface.get(), pixel_format, 0));
}

}  // namespace

std::shared_ptr<const Picture> make_clear_picture(unsigned width, unsigned height) {
    auto picture = std::make_shared<Picture>();
    *picture = {next_picture_id(), width, height, {}, {}};
    return picture;
}

std::shared_ptr<const Picture> read_picture(const std::filesystem::path& path) {
    SdlSurface decoded = decode(read_bytes(path));
    if (!decoded || decoded->w <= 0 || decoded->h <= 0) return nullptr;
    const auto width = static_cast<std::size_t>(decoded->w), height = static_cast<std::size_t>(decoded->h);
    if (!is_small_enough(width, height)) return nullptr;
    decoded = in_our_format(std::move(decoded));
    if (!decoded) check_sdl_memory();
    if (!decoded) return nullptr;
    const std::shared_ptr<const SDL_Surface> pixels(std::move(decoded));
    auto picture = std::make_shared<Picture>();
    *picture = {next_picture_id(), static_cast<unsigned>(width), static_cast<unsigned>(height),
                std::span(static_cast<const std::uint32_t*>(pixels->pixels), width * height), pixels};
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
        // No exception may go through the libraries between here and whoever writes.
        try {
            static_cast<std::string*>(self->hidden.unknown.data1)->append(static_cast<const char*>(data), size * count);
            return count;
        } catch (const std::bad_alloc&) {
            return std::size_t{0};
        }
    };
    stream->size = [](SDL_RWops*) -> Sint64 { return -1; };
    stream->seek = [](SDL_RWops*, Sint64, int) -> Sint64 { return -1; };
    stream->read = [](SDL_RWops*, void*, std::size_t, std::size_t) -> std::size_t { return 0; };
    stream->close = [](SDL_RWops*) { return 0; };
    return stream;
}

}  // namespace

namespace {

// Where it runs out of memory the library says that all went well and has written a part or nothing.
bool is_whole_png(const std::string& bytes) {
    const std::span file(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    const auto head = picture_head(file);
    return head && head->format == PictureFormat::PNG && is_whole(*head, file);
}

}  // namespace

bool write_png(const std::string& path, std::vector<std::uint32_t>& argb, int width, std::string& error) {
    const int height = static_cast<int>(argb.size()) / width;
    const SdlSurface surface(SDL_CreateRGBSurfaceWithFormatFrom(
        argb.data(), width, height, 32, width * int{sizeof(std::uint32_t)}, SDL_PIXELFORMAT_RGB888));
    std::string bytes;
    const SdlStream stream = appending_stream(bytes);
    error = "not enough memory";
    const bool good = surface && stream && IMG_SavePNG_RW(surface.get(), stream.get(), 0) == 0 && is_whole_png(bytes) &&
                      replace_file(path, bytes, OldFile::GONE, error);
    if (!good) error = path + ": the picture could not be written: " + error;
    return good;
}

}  // namespace host
