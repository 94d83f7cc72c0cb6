#pragma once

// The two element classes and the arithmetic of their places belong in this folder: what an element stores, where it
// lies in its frame, how it is saved and read. Drawing, mouse and animation keys do not, though the classes declare
// them. Includes the engine's contract and this folder; bodies also include the manager, who keeps the lists.

#include "engine/engine_system.h"
#include "layout/item_list.h"

class CSimpleGUIAnimNode;
class CSimpleGUIManager;
class CSimpleGUIShape;

/// A window of the GUI: a rectangle over the 3D view that holds shapes and clips them. Its frame is the view.
class GUI_API CSimpleGUIDialog : public IBaseItem {
public:
    explicit CSimpleGUIDialog(CSimpleGUIManager* manager);
    CSimpleGUIDialog(const CSimpleGUIDialog&);
    CSimpleGUIDialog& operator=(const CSimpleGUIDialog&);
    /// Its shapes stay alive without a parent; the manager forgets the dialog wherever it names it.
    ~CSimpleGUIDialog() override;

    /// Writes nothing while the dialog is out of the scene.
    void save_to_node(pack_node* node, const save_operation& operation) override;
    void on_parse(pack_node* node, const load_operation& operation) override;
    /// Takes its place in the present view and in the manager's list.
    void on_ready() override;

    const CRect& get_rect() const;
    /// Brings the description in force in line with m_rect. Moves nothing.
    void update_offsets();
    /// Computes m_rect from the description in force and the view, and carries the shapes along.
    void update_rect();
    /// Stores the alignment, whatever its value. The dialog stays where it is until the next update_rect.
    void set_align_type(int align);
    /// Stores the scale switch. The dialog stays where it is until the next update_rect.
    void set_scale_mode(int scale);
    /// Moves the dialog with its shapes. With `keep_keys` the animation keys of the shapes are left for later.
    void set_rect(const CRect& rect, bool keep_keys);
    /// Lays out every shape anew.
    void update_child_poses();
    /// Draws the dialog, clipped to its rectangle; see src/render.
    void render_in_view();

    /// Of this dialog, in drawing order: the back lies on top. Owns nothing.
    ItemList<CSimpleGUIShape> m_shapes{1};
    CSimpleGUIManager* m_manager;
    XSystem* m_system;
    /// In view pixels. Sizes may be 0 or negative: scripts may store any rectangle.
    CRect m_rect;
    /// False while the dialog is deleted but can still come back: not drawn, not saved, but laid out.
    bool m_in_scene = true;
    /// 0 to 8: the anchor in the view. Other values keep the place.
    int m_iAlignType = 0;
    /// The left top corner in pixels from the anchor.
    int m_offsetx = 0;
    int m_offsety = 0;
    /// Not 0: the four fractions are in force, else alignment and offsets.
    int m_bScaleMode = 0;
    /// The edges as fractions of the view's width and height.
    float m_left_scaleMode = 0.0f;
    float m_right_scaleMode = 0.0f;
    float m_top_scaleMode = 0.0f;
    float m_bottom_scaleMode = 0.0f;
    /// Place among the dialogs as last saved, 0 on top; −1: never numbered.
    int m_order_num = -1;
    /// m_rect at the last adjustment of the shapes' animation keys.
    CRect m_last_rect;
    /// A shape names this dialog as its parent without standing in m_shapes: its order number was taken.
    bool m_has_unlisted_shapes = false;
    ListPlaces m_list_places;

private:
    void render_shape_texture(CSimpleGUIShape* shape);
    GUI_LOCAL void render_shapes();
    GUI_LOCAL void render_shape_text(CSimpleGUIShape* shape);
    GUI_LOCAL void render_shape_fade(CSimpleGUIShape* shape);
    /// The picture of a mode as it stands, also when empty; the normal one for any mode but 2 and 3.
    CMyComPtr<ITexture> get_shape_texture_by_mode(CSimpleGUIShape* shape, int mode);
    void resize_shape_animnode_key();
    /// The shape that the node animates if it is one of this dialog, else null.
    CSimpleGUIShape* get_animnode_related_shape_in_me(CSimpleGUIAnimNode* node);
};
