#pragma once

#include <cstdint>
#include <string>

#include "engine/device.h"
#include "engine/rect.h"
#include "host/core/frame_cache.h"
#include "host/core/picture_store.h"
#include "host/core/sdl_handles.h"

namespace host {

/// A texture for the renderer from 0xAARRGGBB pixels, blended by alpha when drawn. Empty if the renderer refuses.
SdlTexturePtr upload_pixels(SDL_Renderer* renderer, const std::uint32_t* argb, int width, int height, int pitch_bytes);

/// The pictures of one renderer. A picture in main memory is the truth; what the renderer holds of it is made when it
/// is first drawn and goes when it is not drawn for some time.
class SdlPictures {
public:
    /// The renderer must outlive it.
    explicit SdlPictures(SDL_Renderer* renderer);

    /// Empty if there is no picture in that file.
    CMyComPtr<IDeviceTexture> load(const std::wstring& path);
    /// A clear texture of that size.
    CMyComPtr<IDeviceTexture> make_clear(unsigned width, unsigned height);
    /// Stretched over `rect`, drawn within `clip`, which lies in the view and is not empty.
    void draw(const IDeviceTexture* texture, const CRect& rect, const CRect& clip, const CRect& view,
              const VEC4& color);
    void next_frame();
    void forget_unused();
    std::uint64_t uploads() const { return m_uploads; }

private:
    // One picture at one size, or the part of it that the view shows.
    struct Key {
        std::uint64_t picture;
        std::int32_t width, height;
        CRect part;
        bool operator==(const Key&) const = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key& key) const;
    };
    Key stretched(const Picture& picture, const CRect& rect, const CRect& view) const;
    SDL_Texture* texture_for(const Picture& picture, const Key& key);

    SDL_Renderer* m_renderer;
    SDL_RendererInfo m_info{};
    bool m_software;
    PictureStore m_store;
    FrameCache<Key, SdlTexturePtr, KeyHash> m_textures;
    std::uint64_t m_uploads = 0;
};

}  // namespace host
