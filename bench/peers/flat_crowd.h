#pragma once

// The crowd as bare rectangles, for libraries that know nothing of this system.

#include <string>
#include <vector>

#include "scene/crowd.h"

namespace bench {

struct FlatShape {
    CRect rect;
    /// 0 to 15, or -1 for a plain rectangle.
    int picture;
    bool has_text;
    int align;
};
struct FlatDialog {
    CRect rect;
    std::vector<FlatShape> shapes;
};

/// Of the crowd with static pictures; rectangles in view pixels.
inline std::vector<FlatDialog> flat_crowd(int shapes) {
    std::vector<FlatDialog> dialogs;
    for (host::ProjectItem& item : crowd_document({.shapes = shapes, .pictures = Crowd::STATIC}).items) {
        CRect rect;
        item.data.get_property("m_rect", PAK_RECT, &rect);
        if (item.parent.is_empty()) {
            dialogs.push_back({rect, {}});
            continue;
        }
        const int number = static_cast<int>(dialogs.back().shapes.size());
        const bool has_picture = item.data.child("m_texture") != nullptr;
        int align = 0;
        item.data.get_property("m_iAlignType", PAK_INT, &align);
        dialogs.back().shapes.push_back(
            {rect, has_picture ? number / 2 % crowd_pictures : -1, item.data.find("m_title") != nullptr, align});
    }
    return dialogs;
}

}  // namespace bench
