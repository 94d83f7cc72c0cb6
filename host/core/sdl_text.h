#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/rect.h"
#include "host/core/font_face.h"
#include "host/core/frame_cache.h"
#include "host/core/sdl_handles.h"

namespace host {

/// The texts of one renderer. A stretch of text is rasterised once in white and tinted when it is drawn; what lies
/// outside the clip is never rasterised, so a text may be far longer than a texture can be.
class SdlText {
public:
    /// The renderer must outlive it.
    explicit SdlText(SDL_Renderer* renderer);

    /// x and y are the anchor in view pixels. `clip` lies in the view and is not empty.
    void draw(const IBaseFont::Face& face, std::int64_t x, std::int64_t y, const CRect& clip, const VEC4& color,
              std::wstring_view text, font_org_position position);
    void next_frame();
    void forget_unused();
    std::uint64_t uploads() const { return m_uploads; }

private:
    // The text is a view into the entry's own copy.
    struct Key {
        std::uint64_t face;
        std::wstring_view text;
        bool operator==(const Key&) const = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key& key) const {
            return joined_hash(std::hash<std::wstring_view>()(key.text), key.face);
        }
    };
    // Moving an entry must not move its text.
    using OwnText = std::unique_ptr<const std::wstring>;

    struct PlacedRun {
        std::size_t start, length;
        int line;
        /// From the line's left end, in pixels.
        std::int64_t x;
        std::int64_t width;
    };
    struct Layout {
        OwnText text;
        std::vector<PlacedRun> runs;
        std::vector<std::int64_t> line_widths;
    };
    struct Image {
        OwnText text;
        /// Empty where nothing is to be seen, as of blanks.
        SdlTexturePtr texture;
        int width = 0;
        int height = 0;
        /// False for what could not be made now and may be another time.
        bool is_known = true;
    };

    const Layout& layout_of(const IBaseFont::Face& face, std::wstring_view text);
    const Image& image_of(const IBaseFont::Face& face, std::wstring_view run);
    Image rasterised(const IBaseFont::Face& face, std::wstring_view run);

    SDL_Renderer* m_renderer;
    FrameCache<Key, Layout, KeyHash> m_layouts;
    FrameCache<Key, Image, KeyHash> m_images;
    std::uint64_t m_uploads = 0;
};

}  // namespace host
