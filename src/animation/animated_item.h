#pragma once

// A dialog or a shape as an animation sees it: what the two have in common, fetched once per step.

#include "layout/anchors.h"
#include "layout/dialog.h"
#include "layout/shape.h"
#include "module/manager.h"

struct AnimatedItem {
    CSimpleGUIDialog* dialog = nullptr;
    CSimpleGUIShape* shape = nullptr;
    /// In which its anchors lie: the view on record for a dialog, the parent for a shape.
    CRect frame;
    /// A shape without a dialog: there is nothing that it could be laid out in.
    bool has_frame = false;

    bool exists() const { return dialog || shape; }

    const CRect& rect() const { return dialog ? dialog->get_rect() : shape->get_rect(); }
    int scale_mode() const { return dialog ? dialog->m_bScaleMode : shape->m_bScaleMode; }
    int align_type() const { return dialog ? dialog->m_iAlignType : shape->m_iAlignType; }
    /// As one number, that of the scale mode included.
    int alignment() const { return scale_mode() ? ALIGN_SCALE : align_type(); }
    VEC2 offset() const {
        return dialog ? VEC2(static_cast<float>(dialog->m_offsetx), static_cast<float>(dialog->m_offsety))
                      : VEC2(static_cast<float>(shape->m_offsetx), static_cast<float>(shape->m_offsety));
    }
    VEC2 size() const { return {static_cast<float>(rect().Width()), static_cast<float>(rect().Height())}; }
    VEC2 near_fractions() const {
        return dialog ? VEC2(dialog->m_left_scaleMode, dialog->m_top_scaleMode)
                      : VEC2(shape->m_left_scaleMode, shape->m_top_scaleMode);
    }
    VEC2 far_fractions() const {
        return dialog ? VEC2(dialog->m_right_scaleMode, dialog->m_bottom_scaleMode)
                      : VEC2(shape->m_right_scaleMode, shape->m_bottom_scaleMode);
    }

    void set_alignment(int align) {
        if (dialog) {
            set_on(*dialog, align);
        } else {
            set_on(*shape, align);
        }
    }
    void set_rect(const CRect& place) {
        if (dialog) {
            dialog->set_rect(place, false);
        } else {
            shape->set_rect(place);
        }
    }

private:
    template <class Element>
    static void set_on(Element& element, int align) {
        element.set_scale_mode(align == ALIGN_SCALE ? 1 : 0);
        if (align != ALIGN_SCALE) element.set_align_type(align);
    }
};

/// What the actor carries; an item that exists() not for a null actor and for items of other classes.
inline AnimatedItem animated_item(const CSimpleGUIManager& manager, IActor* actor) {
    AnimatedItem found;
    IBaseItem* item = actor ? actor->get_item() : nullptr;
    if (!item) return found;
    if (item->get_type() == ITEM_TYPE_DIALOG) {
        found.dialog = static_cast<CSimpleGUIDialog*>(item);
        found.frame = manager.m_view_rect;
        found.has_frame = true;
    } else if (item->get_type() == ITEM_TYPE_SHAPE) {
        found.shape = static_cast<CSimpleGUIShape*>(item);
        if (const CSimpleGUIDialog* parent = found.shape->m_parent_dialog) {
            found.frame = parent->m_rect;
            found.has_frame = true;
        }
    }
    return found;
}
