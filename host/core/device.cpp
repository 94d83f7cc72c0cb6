#include "host/core/device.h"

#include <algorithm>

#include "host/core/sdl_memory.h"

namespace host {

Device::Device() { keep_room_for_sdl_errors(); }
Device::~Device() = default;

void Device::begin_frame(int width, int height) {
    m_view_width = std::max(width, 0);
    m_view_height = std::max(height, 0);
    m_viewport = {};
    m_viewport.width = static_cast<float>(m_view_width);
    m_viewport.height = static_cast<float>(m_view_height);
}

x3d_viewport Device::get_current_viewport() const { return m_viewport; }
void Device::set_view_port(x3d_viewport viewport) { m_viewport = viewport; }
void Device::draw_triangles(std::span<const PaintedPoint>) {}

}  // namespace host
