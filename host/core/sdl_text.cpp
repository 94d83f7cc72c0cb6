#include "host/core/sdl_text.h"

#include <algorithm>

#include "host/core/byte_color.h"
#include "host/core/sdl_memory.h"
#include "host/core/sdl_pictures.h"
#include "host/core/text_anchor.h"
#include "host/core/text_conversion.h"
#include "host/core/text_runs.h"

namespace host {
namespace {

// 8 million characters laid out, 64 MB of rasterised text, and two seconds of frames for what comes and goes.
constexpr std::size_t most_characters = std::size_t{8} << 20;
constexpr std::size_t most_pixels = std::size_t{16} << 20;
constexpr std::uint64_t frames_kept = 120;
// What an entry costs beside its content, so that a flood of tiny texts finds a limit too.
constexpr std::size_t entry_cost = 256;

// Glyphs are seldom wider than the font is high; this keeps a run's picture within every renderer's textures.
std::size_t longest_run(int font_height) { return static_cast<std::size_t>(std::clamp(4096 / font_height, 1, 256)); }

// Fonts have no glyphs for control characters and would show boxes.
std::string printable(std::wstring_view run) {
    std::wstring text;
    for (wchar_t c : run) {
        if (c == L'\t') {
            text += L"    ";
        } else if (c >= L' ' && c != L'\x7F') {
            text += c;
        }
    }
    return to_utf8(text);
}

int measured_width(TTF_Font* font, std::wstring_view run) {
    int width = 0;
    const int failed = TTF_SizeUTF8(font, printable(run).c_str(), &width, nullptr);
    check_sdl_memory(failed);
    return failed ? 0 : width;
}

}  // namespace

SdlText::SdlText(SDL_Renderer* renderer)
    : m_renderer(renderer), m_layouts(most_characters, frames_kept), m_images(most_pixels, frames_kept) {}

const SdlText::Layout& SdlText::layout_of(const IBaseFont::Face& face, std::wstring_view text) {
    if (const Layout* known = m_layouts.find({face.id, text})) return *known;
    Layout layout{std::make_unique<const std::wstring>(text), {}, {}};
    const TextRuns cut = cut_into_runs(text, longest_run(face.height));
    layout.line_widths.assign(static_cast<std::size_t>(cut.line_count), 0);
    layout.runs.reserve(cut.runs.size());
    for (const TextRun& run : cut.runs) {
        std::int64_t& line_width = layout.line_widths[static_cast<std::size_t>(run.line)];
        const int width = measured_width(face.font, text.substr(run.start, run.length));
        layout.runs.push_back({run.start, run.length, run.line, line_width, width});
        line_width += width;
    }
    const Key key{face.id, *layout.text};
    return m_layouts.add(key, std::move(layout), text.size() + entry_cost);
}

SdlText::Image SdlText::rasterised(const IBaseFont::Face& face, std::wstring_view run) {
    Image image{std::make_unique<const std::wstring>(run), {}};
    const SdlSurface surface(TTF_RenderUTF8_Blended(face.font, printable(run).c_str(), {255, 255, 255, 255}));
    if (!surface) {
        // The library does not always say that it was memory. Only what has nothing to show is remembered as that.
        image.is_known = std::string_view(SDL_GetError()) == "Text has zero width";
        check_sdl_memory();
        SDL_ClearError();
    }
    if (!surface || surface->format->format != SDL_PIXELFORMAT_ARGB8888) return image;
    image.width = surface->w;
    image.height = surface->h;
    image.texture = upload_pixels(m_renderer, static_cast<const std::uint32_t*>(surface->pixels), surface->w,
                                  surface->h, surface->pitch);
    ++m_uploads;
    return image;
}

const SdlText::Image& SdlText::image_of(const IBaseFont::Face& face, std::wstring_view run) {
    if (const Image* known = m_images.find({face.id, run})) return *known;
    Image image = rasterised(face, run);
    static const Image none;
    if (!image.is_known) return none;
    const Key key{face.id, *image.text};
    const std::size_t pixels = static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height);
    return m_images.add(key, std::move(image), pixels + entry_cost);
}

void SdlText::draw(const IBaseFont::Face& face, std::int64_t x, std::int64_t y, const CRect& clip, const VEC4& color,
                   std::wstring_view text, font_org_position position) {
    const ByteColor tint = to_bytes(color);
    if (!face.font || text.empty() || tint.a == 0) return;
    text = text.substr(0, longest_text);
    const Layout& layout = layout_of(face, text);
    const std::int64_t line_height = TTF_FontHeight(face.font), line_skip = TTF_FontLineSkip(face.font);
    const auto lines = static_cast<std::int64_t>(layout.line_widths.size());
    const BlockHeights heights{(lines - 1) * line_skip + line_height, TTF_FontAscent(face.font)};
    const std::int64_t top = y - above_anchor(position, heights);
    // Glyphs may reach beyond the place that the font gives them.
    const std::int64_t overhang = line_height;

    const SDL_Rect clip_rect{clip.left, clip.top, clip.Width(), clip.Height()};
    check_sdl_memory(SDL_RenderSetClipRect(m_renderer, &clip_rect));
    for (const PlacedRun& run : layout.runs) {
        const std::int64_t run_top = top + run.line * line_skip;
        if (run_top >= clip.bottom + overhang) break;
        const std::int64_t line_width = layout.line_widths[static_cast<std::size_t>(run.line)];
        const std::int64_t left = x - left_of_anchor(position, line_width) + run.x;
        if (run_top + line_height + overhang <= clip.top || left >= clip.right + overhang ||
            left + run.width + overhang <= clip.left) {
            continue;
        }
        const Image& image = image_of(face, text.substr(run.start, run.length));
        if (!image.texture) continue;
        SDL_SetTextureColorMod(image.texture.get(), tint.r, tint.g, tint.b);
        SDL_SetTextureAlphaMod(image.texture.get(), tint.a);
        const SDL_Rect target{static_cast<int>(left), static_cast<int>(run_top), image.width, image.height};
        check_sdl_memory(SDL_RenderCopy(m_renderer, image.texture.get(), nullptr, &target));
    }
    check_sdl_memory(SDL_RenderSetClipRect(m_renderer, nullptr));
}

void SdlText::next_frame() {
    m_layouts.next_frame();
    m_images.next_frame();
}

void SdlText::forget_unused() {
    m_layouts.clear();
    m_images.clear();
}

}  // namespace host
