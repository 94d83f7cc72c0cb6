#include "host/core/sdl_pictures.h"

#include <algorithm>
#include <utility>

#include "host/core/byte_color.h"
#include "host/core/clipping.h"
#include "host/core/picture_scaling.h"
#include "host/core/sdl_memory.h"

namespace host {
namespace {

// 256 MB of pixels at most, and two seconds of frames for what comes and goes.
constexpr std::size_t most_pixels = std::size_t{64} << 20;
constexpr std::uint64_t frames_kept = 120;

class SdlTexture : public IDeviceTexture {
public:
    explicit SdlTexture(std::shared_ptr<const Picture> shown) : picture(std::move(shown)) {
        width = picture->width;
        height = picture->height;
    }
    const std::shared_ptr<const Picture> picture;
};

}  // namespace

SdlTexturePtr upload_pixels(SDL_Renderer* renderer, const std::uint32_t* argb, int width, int height, int pitch_bytes) {
    SdlTexturePtr texture(
        SDL_CreateTexture(renderer, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STATIC, width, height));
    if (!texture || SDL_UpdateTexture(texture.get(), nullptr, argb, pitch_bytes) != 0) {
        check_sdl_memory();
        return {};
    }
    SDL_SetTextureBlendMode(texture.get(), SDL_BLENDMODE_BLEND);
    SDL_SetTextureScaleMode(texture.get(), SDL_ScaleModeLinear);
    return texture;
}

SdlPictures::SdlPictures(SDL_Renderer* renderer) : m_renderer(renderer), m_textures(most_pixels, frames_kept) {
    SDL_GetRendererInfo(renderer, &m_info);
    m_software = (m_info.flags & SDL_RENDERER_SOFTWARE) != 0;
}

std::size_t SdlPictures::KeyHash::operator()(const Key& key) const {
    std::size_t hash = key.picture;
    for (std::int32_t part : {key.width, key.height, key.part.left, key.part.top, key.part.right, key.part.bottom}) {
        hash = joined_hash(hash, static_cast<std::size_t>(part));
    }
    return hash;
}

CMyComPtr<IDeviceTexture> SdlPictures::load(const std::wstring& path) {
    std::shared_ptr<const Picture> picture = m_store.get(path);
    if (!picture) return {};
    return new SdlTexture(std::move(picture));
}

CMyComPtr<IDeviceTexture> SdlPictures::make_clear(unsigned width, unsigned height) {
    return new SdlTexture(make_clear_picture(width, height));
}

// The software renderer's own stretching shifts pictures that are cut by a dialog's edge and fills all memory with one
// that is larger than the view, so it gets pictures in their final size. A graphics card stretches exactly by itself.
SdlPictures::Key SdlPictures::stretched(const Picture& picture, const CRect& rect, const CRect& view) const {
    if (!m_software) {
        const auto limit = [](unsigned size, int most) {
            return static_cast<std::int32_t>(most > 0 ? std::min(size, static_cast<unsigned>(most)) : size);
        };
        const std::int32_t width = limit(picture.width, m_info.max_texture_width);
        const std::int32_t height = limit(picture.height, m_info.max_texture_height);
        return {picture.id, width, height, CRect(0, 0, width, height)};
    }
    const std::int32_t width = rect.Width(), height = rect.Height();
    const CRect whole(0, 0, width, height);
    if (width / 2 <= view.right && height / 2 <= view.bottom) return {picture.id, width, height, whole};
    const CRect shown = intersection(rect, view);
    const CRect part(saturated(std::int64_t{shown.left} - rect.left), saturated(std::int64_t{shown.top} - rect.top),
                     saturated(std::int64_t{shown.right} - rect.left),
                     saturated(std::int64_t{shown.bottom} - rect.top));
    return {picture.id, width, height, intersection(part, whole)};
}

SDL_Texture* SdlPictures::texture_for(const Picture& picture, const Key& key) {
    if (const SdlTexturePtr* known = m_textures.find(key)) return known->get();
    if (is_empty(key.part)) return nullptr;
    const std::vector<std::uint32_t> pixels = scaled_pixels(picture, key.width, key.height, key.part);
    const int width = key.part.Width(), height = key.part.Height();
    ++m_uploads;
    return m_textures
        .add(key, upload_pixels(m_renderer, pixels.data(), width, height, width * int{sizeof(std::uint32_t)}),
             pixels.size())
        .get();
}

void SdlPictures::draw(const IDeviceTexture* texture, const CRect& rect, const CRect& clip, const CRect& view,
                       const VEC4& color) {
    const auto* ours = dynamic_cast<const SdlTexture*>(texture);
    const ByteColor tint = to_bytes(color);
    if (!ours || ours->picture->argb.empty() || tint.a == 0 || is_empty(intersection(rect, clip))) return;
    const Key key = stretched(*ours->picture, rect, view);
    SDL_Texture* image = texture_for(*ours->picture, key);
    if (!image) return;
    SDL_SetTextureColorMod(image, tint.r, tint.g, tint.b);
    SDL_SetTextureAlphaMod(image, tint.a);
    const SDL_Rect clip_rect{clip.left, clip.top, clip.Width(), clip.Height()};
    check_sdl_memory(SDL_RenderSetClipRect(m_renderer, &clip_rect));
    if (m_software) {
        const SDL_Rect target{saturated(std::int64_t{rect.left} + key.part.left),
                              saturated(std::int64_t{rect.top} + key.part.top), key.part.Width(), key.part.Height()};
        check_sdl_memory(SDL_RenderCopy(m_renderer, image, nullptr, &target));
    } else {
        const SDL_FRect target{static_cast<float>(rect.left), static_cast<float>(rect.top),
                               static_cast<float>(rect.Width()), static_cast<float>(rect.Height())};
        check_sdl_memory(SDL_RenderCopyF(m_renderer, image, nullptr, &target));
    }
    check_sdl_memory(SDL_RenderSetClipRect(m_renderer, nullptr));
}

void SdlPictures::next_frame() {
    m_textures.next_frame();
    m_store.next_frame();
}

void SdlPictures::forget_unused() {
    m_textures.clear();
    m_store.forget_unused();
}

}  // namespace host
