#include "host/core/sdl_device.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "host/core/byte_color.h"
#include "host/core/clipping.h"
#include "host/core/patterned_line.h"
#include "host/core/picture_file.h"
#include "host/core/sdl_memory.h"
#include "host/core/sdl_pictures.h"
#include "host/core/sdl_text.h"

namespace host {
namespace {

// Graphics cards hold no larger targets, and the software renderer would take gigabytes for one.
constexpr int longest_view_side = 16384;

bool can_hold(const CRect& view) {
    return !is_empty(view) && view.right <= longest_view_side && view.bottom <= longest_view_side;
}

bool is_software(SDL_Renderer* renderer) {
    SDL_RendererInfo info{};
    SDL_GetRendererInfo(renderer, &info);
    return (info.flags & SDL_RENDERER_SOFTWARE) != 0;
}

SDL_Rect to_sdl(const CRect& rect) { return {rect.left, rect.top, rect.Width(), rect.Height()}; }

void set_draw_color(SDL_Renderer* renderer, const ByteColor& color) {
    SDL_SetRenderDrawBlendMode(renderer, SDL_BLENDMODE_BLEND);
    SDL_SetRenderDrawColor(renderer, color.r, color.g, color.b, color.a);
}

SDL_Vertex to_sdl(const PaintedPoint& corner) {
    const ByteColor color = to_bytes(corner.color);
    return {{corner.x, corner.y}, {color.r, color.g, color.b, color.a}, {0.0f, 0.0f}};
}

bool same_color(const SDL_Vertex& a, const SDL_Vertex& b) {
    return a.color.r == b.color.r && a.color.g == b.color.g && a.color.b == b.color.b && a.color.a == b.color.a;
}

// The software renderer takes two triangles of one colour for a rectangle where they nearly are one, which leaves gaps
// and specks. One step of blue, which nobody sees, keeps it from that.
void make_uneven(SDL_Vertex* triangle) {
    if (!same_color(triangle[0], triangle[1]) || !same_color(triangle[0], triangle[2])) return;
    triangle[0].color.b ^= 1;
}

}  // namespace

std::unique_ptr<SdlDevice> SdlDevice::for_window(SDL_Window* window) {
    constexpr Uint32 ways[] = {SDL_RENDERER_ACCELERATED | SDL_RENDERER_PRESENTVSYNC | SDL_RENDERER_TARGETTEXTURE,
                               SDL_RENDERER_SOFTWARE | SDL_RENDERER_TARGETTEXTURE};
    for (const Uint32 way : ways) {
        SdlRenderer renderer(SDL_CreateRenderer(window, -1, way));
        if (renderer) return std::unique_ptr<SdlDevice>(new SdlDevice(std::move(renderer), {}));
    }
    return nullptr;
}

std::unique_ptr<SdlDevice> SdlDevice::in_memory() {
    SdlSurface surface(SDL_CreateRGBSurfaceWithFormat(0, 1, 1, 32, SDL_PIXELFORMAT_ARGB8888));
    SdlRenderer renderer(surface ? SDL_CreateSoftwareRenderer(surface.get()) : nullptr);
    if (!renderer) return nullptr;
    return std::unique_ptr<SdlDevice>(new SdlDevice(std::move(renderer), std::move(surface)));
}

SdlDevice::SdlDevice(SdlRenderer renderer, SdlSurface surface)
    : m_surface(std::move(surface)),
      m_renderer(std::move(renderer)),
      m_software(is_software(m_renderer.get())),
      m_pictures(std::make_unique<SdlPictures>(m_renderer.get())),
      m_text(std::make_unique<SdlText>(m_renderer.get())) {}

SdlDevice::~SdlDevice() = default;

void SdlDevice::begin_frame(int width, int height) {
    Device::begin_frame(width, height);
    const CRect size(0, 0, view_width(), view_height());
    check_sdl_memory(SDL_SetRenderTarget(m_renderer.get(), nullptr));
    if (!(size == m_frame_size)) {
        m_frame.reset();
        m_frame_size = size;
        if (can_hold(size)) {
            m_frame.reset(SDL_CreateTexture(m_renderer.get(), SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_TARGET,
                                            size.right, size.bottom));
            if (!m_frame) {
                m_frame_size = {};
                check_sdl_memory();
                m_frame_size = size;
            }
        }
    }
    if (!m_frame) return;
    SDL_SetTextureBlendMode(m_frame.get(), SDL_BLENDMODE_NONE);
    check_sdl_memory(SDL_SetRenderTarget(m_renderer.get(), m_frame.get()));
    SDL_SetRenderDrawColor(m_renderer.get(), 0, 0, 0, 255);
    check_sdl_memory(SDL_RenderClear(m_renderer.get()));
}

void SdlDevice::end_frame() {
    check_sdl_memory(SDL_SetRenderTarget(m_renderer.get(), nullptr));
    if (!m_surface) {
        if (m_frame) check_sdl_memory(SDL_RenderCopy(m_renderer.get(), m_frame.get(), nullptr, nullptr));
        SDL_RenderPresent(m_renderer.get());
    }
    m_pictures->next_frame();
    m_text->next_frame();
}

CRect SdlDevice::clip() const {
    if (!m_frame) return {};
    return visible_part(get_current_viewport(), view_width(), view_height());
}

CMyComPtr<IDeviceTexture> SdlDevice::create_device_texture_ex(unsigned long, unsigned width, unsigned height, unsigned,
                                                              unsigned, unsigned, unsigned, unsigned, unsigned,
                                                              unsigned) {
    return m_pictures->make_clear(width, height);
}

CMyComPtr<IDeviceTexture> SdlDevice::make_texture(const std::wstring& path) { return m_pictures->load(path); }

// The engine knows one blend, alpha over what stands there, so the argument decides nothing here and below.
void SdlDevice::draw_solid_rect(const tagRECT& rect, const VEC4& color, x3d_blend_desc) {
    const CRect visible = intersection(rect, clip());
    if (is_empty(visible)) return;
    set_draw_color(m_renderer.get(), to_bytes(color));
    const SDL_Rect target = to_sdl(visible);
    check_sdl_memory(SDL_RenderFillRect(m_renderer.get(), &target));
}

void SdlDevice::draw_texture_to_rect(const tagRECT& rect, CMyComPtr<IDeviceTexture> texture, const VEC4& color,
                                     x3d_blend_desc, float, x3d_zfunc) {
    const CRect visible = clip();
    if (!is_empty(visible)) m_pictures->draw(texture.get(), rect, visible, m_frame_size, color);
}

void SdlDevice::draw_pline_with_pattern(const std::vector<VEC2>& points, const VEC4& color, float width,
                                        unsigned long pattern, float pattern_scale, x3d_blend_desc) {
    const CRect visible = clip();
    if (is_empty(visible)) return;
    const int side = std::clamp(truncated(std::round(double{width})), 1, 64);
    // The pixels around the line's own may reach into the clip where the line itself does not.
    const CRect reach(visible.left - side, visible.top - side, visible.right + side, visible.bottom + side);
    std::vector<SDL_Rect> squares;
    for (const CPoint& pixel : patterned_pixels(points, pattern, pattern_scale, reach)) {
        const CRect square(pixel.x - side / 2, pixel.y - side / 2, pixel.x - side / 2 + side,
                           pixel.y - side / 2 + side);
        const CRect shown = intersection(square, visible);
        if (!is_empty(shown)) squares.push_back(to_sdl(shown));
    }
    if (squares.empty()) return;
    set_draw_color(m_renderer.get(), to_bytes(color));
    check_sdl_memory(SDL_RenderFillRects(m_renderer.get(), squares.data(), static_cast<int>(squares.size())));
}

void SdlDevice::draw_text(IBaseFont::Face& face, int x, int y, const VEC4& color, const wchar_t* text,
                          font_org_position position) {
    const CRect visible = clip();
    if (!text || is_empty(visible)) return;
    const x3d_viewport origin = get_current_viewport();
    m_text->draw(face, std::int64_t{truncated(origin.x)} + x, std::int64_t{truncated(origin.y)} + y, visible, color,
                 text, position);
}

void SdlDevice::draw_triangles(std::span<const PaintedPoint> corners) {
    const CRect visible = clip();
    if (corners.empty() || is_empty(visible)) return;
    std::vector<SDL_Vertex> vertices;
    vertices.reserve(corners.size());
    for (const PaintedPoint& corner : corners) vertices.push_back(to_sdl(corner));
    if (m_software) {
        for (std::size_t i = 0; i + 2 < vertices.size(); i += 3) make_uneven(vertices.data() + i);
    }
    const SDL_Rect clip_rect = to_sdl(visible);
    check_sdl_memory(SDL_RenderSetClipRect(m_renderer.get(), &clip_rect));
    SDL_SetRenderDrawBlendMode(m_renderer.get(), SDL_BLENDMODE_BLEND);
    check_sdl_memory(
        SDL_RenderGeometry(m_renderer.get(), nullptr, vertices.data(), static_cast<int>(vertices.size()), nullptr, 0));
    check_sdl_memory(SDL_RenderSetClipRect(m_renderer.get(), nullptr));
}

void SdlDevice::forget_unused() {
    m_pictures->forget_unused();
    m_text->forget_unused();
}

std::vector<std::uint32_t> SdlDevice::read_pixels() {
    if (!m_frame) return {};
    const auto width = static_cast<std::size_t>(m_frame_size.right);
    std::vector<std::uint32_t> pixels(width * static_cast<std::size_t>(m_frame_size.bottom));
    SDL_Texture* const target = SDL_GetRenderTarget(m_renderer.get());
    check_sdl_memory(SDL_SetRenderTarget(m_renderer.get(), m_frame.get()));
    const int failed = SDL_RenderReadPixels(m_renderer.get(), nullptr, SDL_PIXELFORMAT_ARGB8888, pixels.data(),
                                            m_frame_size.right * int{sizeof(std::uint32_t)});
    check_sdl_memory(SDL_SetRenderTarget(m_renderer.get(), target));
    if (failed) return {};
    // The frame is what one sees; the alpha that blending left in it means nothing.
    for (std::uint32_t& pixel : pixels) pixel |= 0xFF000000u;
    return pixels;
}

bool SdlDevice::save_png(const std::string& path, std::string& error) {
    std::vector<std::uint32_t> pixels = read_pixels();
    if (pixels.empty()) {
        error = "there is no frame to write: the view is empty or too large";
        return false;
    }
    return write_png(path, pixels, m_frame_size.right, error);
}

std::uint64_t SdlDevice::uploads() const { return m_pictures->uploads() + m_text->uploads(); }

}  // namespace host
