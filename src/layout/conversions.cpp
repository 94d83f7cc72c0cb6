// The manager's conversions between pixels and fractions: fetch the frame, hand over to the arithmetic.

#include "layout/placement.h"
#include "layout/rounding.h"
#include "layout/shape.h"
#include "module/manager.h"

namespace {

VEC2 size_of(const CRect& rect) { return {static_cast<float>(rect.Width()), static_cast<float>(rect.Height())}; }

}  // namespace

bool CSimpleGUIManager::frame_size_of(IActor* actor, VEC2& size) const {
    IBaseItem* item = actor ? actor->get_item() : nullptr;
    if (!item) return false;
    if (item->get_type() == ITEM_TYPE_DIALOG) {
        size = size_of(m_view_rect);
        return true;
    }
    if (item->get_type() != ITEM_TYPE_SHAPE) return false;
    const CSimpleGUIDialog* dialog = static_cast<CSimpleGUIShape*>(item)->m_parent_dialog;
    if (dialog) size = size_of(dialog->m_rect);
    return dialog != nullptr;
}

VEC2 CSimpleGUIManager::get_offset_by_percent(VEC2 percent, IActor* actor) const {
    VEC2 frame;
    if (!frame_size_of(actor, frame)) return {};
    return {frame.x * percent.x, frame.y * percent.y};
}

VEC2 CSimpleGUIManager::get_size_by_percent(VEC2 percent, IActor* actor) const {
    return get_offset_by_percent(percent, actor);
}

VEC2 CSimpleGUIManager::get_percent_offset_by_pixel(VEC2 pixel, IActor* actor) const {
    VEC2 frame;
    if (!frame_size_of(actor, frame)) return {};
    return {fraction(pixel.x, frame.x), fraction(pixel.y, frame.y)};
}

VEC2 CSimpleGUIManager::get_percent_size_by_pixel(VEC2 pixel, IActor* actor) const {
    return get_percent_offset_by_pixel(pixel, actor);
}

VEC2 CSimpleGUIManager::get_offset_of_dif_align(int to_align, int from_align, CRect frame, VEC2 offset) const {
    return offset_under_alignment(to_align, from_align, size_of(frame), offset);
}

CRect CSimpleGUIManager::resize_rect_according_to_root(CRect rect, CRect old_root, CRect new_root, int align,
                                                       int scale) const {
    return resized_rect(rect, old_root, new_root, align, scale);
}
