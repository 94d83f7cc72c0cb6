#pragma once

#include "engine/engine_system.h"
#include "layout/item_list.h"
#include "layout/noted.h"

class CSimpleGUIDialog;
class CSimpleGUIManager;

/// Which picture a shape shows; also the index of the picture's weight.
enum TextureMode : int { MODE_NORMAL = 1, MODE_HOVER = 2, MODE_DOWN = 3 };

/// A control: a picture button or a static picture with a line of text, inside a dialog. Its frame is the dialog.
class GUI_API CSimpleGUIShape : public IBaseItem {
public:
    explicit CSimpleGUIShape(CSimpleGUIManager* manager);
    CSimpleGUIShape(const CSimpleGUIShape&);
    CSimpleGUIShape& operator=(const CSimpleGUIShape&);
    ~CSimpleGUIShape() override;

    /// Writes nothing while the shape or its dialog is out of the scene.
    void save_to_node(pack_node* node, const save_operation& operation) override;
    void on_parse(pack_node* node, const load_operation& operation) override;
    /// Enters the manager's list. The parent comes later, when the whole project is read.
    void on_ready() override;

    const CRect& get_rect() const;
    /// Brings the description in force in line with m_rect and the dialog. Without a dialog it does nothing.
    void update_offsets();
    /// Computes m_rect from the description in force and the dialog. Without a dialog it does nothing.
    void update_rect();
    /// Computes the text's anchor. Without a dialog, or with a position that has no anchor, the last one stays.
    void update_fontpos();
    void set_rect(const CRect& rect);
    /// Both keep the shape where it is: they change how its place is described.
    void set_align_type(int align);
    void set_scale_mode(int scale);
    /// Starts the fade to the picture of a mode, unless it is the present one.
    void set_texture_mode(int mode);
    /// Moves the shape on top of another dialog's shapes; its rectangle stays. `dialog` is not null.
    void change_parent_dialog(CSimpleGUIDialog* dialog);

    CSimpleGUIManager* m_manager;
    /// The dialog whose m_shapes holds this shape, or null.
    CSimpleGUIDialog* m_parent_dialog = nullptr;
    /// False while the shape is deleted but can still come back.
    bool m_in_scene = true;
    /// In view pixels, not relative to the dialog. Sizes may be 0 or negative.
    Noted<CRect, CSimpleGUIShape> m_rect;
    /// The rectangle's colour where there is no picture; the tint and opacity of the normal picture.
    VEC4 m_color{1.0f, 1.0f, 1.0f, 0.2f};
    tstringW m_title;
    /// A TextureMode: which picture is wanted.
    Noted<int, CSimpleGUIShape> m_texture_mode = static_cast<int>(MODE_NORMAL);
    /// Weights of the pictures, indexed by mode, index 0 unused: at the last change of mode, and at the last frame.
    float m_fade_start[4] = {};
    float m_fade_now[4] = {};
    /// Seconds of the engine's clock at the last change of mode.
    float m_mode_time;
    CMyComPtr<ITexture> m_texture;
    CMyComPtr<ITexture> m_texture_hover;
    CMyComPtr<ITexture> m_texture_down;
    CMyComPtr<IScriptFunction> m_func_left_down;
    CMyComPtr<IScriptFunction> m_func_left_up;
    CMyComPtr<IScriptFunction> m_func_right_down;
    CMyComPtr<IScriptFunction> m_func_right_up;
    CMyComPtr<IScriptFunction> m_func_middle_down;
    CMyComPtr<IScriptFunction> m_func_middle_up;
    CMyComPtr<IScriptFunction> m_func_mouse_in;
    CMyComPtr<IScriptFunction> m_func_mouse_out;
    /// 0 to 8: the anchor on the dialog. Other values keep the place.
    int m_iAlignType = 0;
    /// The left top corner in pixels from the anchor.
    int m_offsetx = 0;
    int m_offsety = 0;
    /// Not 0: the four fractions are in force, else alignment and offsets.
    int m_bScaleMode = 0;
    /// The edges as fractions of the dialog's width and height.
    float m_left_scaleMode = 0.0f;
    float m_right_scaleMode = 0.0f;
    float m_top_scaleMode = 0.0f;
    float m_bottom_scaleMode = 0.0f;
    /// Which point of the rectangle the text hangs on, and how.
    font_org_position m_font_org_position = FONT_CENTER_MIDDLE;
    /// The text's anchor from the dialog's left top corner; computed anew before each drawing.
    int m_font_pos_x = 0;
    int m_font_pos_y = 0;
    VEC4 m_font_color{1.0f, 1.0f, 1.0f, 1.0f};
    /// The following are truth values.
    int m_font_shadow = 0;
    /// A background picture: under all other shapes of the dialog.
    int m_bk_image = 0;
    /// 1 a static picture, 0 a picture button.
    int m_is_static_pic = 1;
    /// Slot of the global fonts, 0 to 7; any other value draws in the default font.
    int m_font_type = 0;
    /// Place in the dialog as last saved, 0 on top; −1: never numbered.
    int m_order_num = -1;
    /// 0: shown as disabled, runs no script.
    int m_is_usable = 1;
    /// Set by the legacy import for a panel with transparency. Not stored.
    bool m_primary_import = false;
    ListPlaces m_list_places;

    /// How often the noted fields of all shapes were written. Never less than it was.
    static std::uint64_t s_noted_writes;
};
