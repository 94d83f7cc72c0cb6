#pragma once

// The module's face to the engine: the entry point, the life of the manager, the lists through which everything finds
// dialogs and shapes, creation and look-up, the environment setting, project save and load. The manager is one class;
// what it draws, lays out, animates or imports is written in the folder of that subsystem. This header includes the
// contract and the item lists; bodies include whatever they drive.

#include "engine/engine_system.h"
#include "layout/dialog.h"
#include "layout/item_list.h"

class CGlobalGUISetting;
class CMTGUIRun;
class CSimpleGUIAnimNode;
class CSimpleGUIShape;

class GUI_API CSimpleGUIManager : public IBaseModule {
public:
    /// Registers the module's item, node and track types. Touches neither device nor scene: both come later.
    explicit CSimpleGUIManager(XSystem* system);
    CSimpleGUIManager(const CSimpleGUIManager&);
    CSimpleGUIManager& operator=(const CSimpleGUIManager&);

    void process_message(unsigned long id, message_param p1, message_param p2, message_param p3, message_param p4,
                         message_param p5, message_param p6) override;
    /// Items must be gone by then: each holds a plain pointer to the manager. Leaves m_setting to the engine's list of
    /// property items.
    ~CSimpleGUIManager() override;
    tstringW get_name() const override;
    CGuid get_id() const override;
    void init_3d_environment() override;
    void prepare_run() override;
    void after_run() override;
    void on_open_project(pack_node* node, const load_operation& operation) override;
    void on_project_opened() override;
    void on_open_old_zov_project(CPakNode* node) override;
    void on_save_project(pack_node* node, const save_operation& operation) override;
    void on_clean_project() override;
    void render_in_view_2d(const render_context& context) override;
    /// The arguments are not used: the size is that of the engine's client rectangle.
    void on_size_changed(int width, int height) override;
    void on_register_xfunc() override;

    /// A dialog on top of the others, with a default name, an actor, an empty rectangle. The engine owns it. Null, here
    /// and below, where there was no memory.
    CSimpleGUIDialog* create_dialog();
    /// A shape on top of the dialog's others. Null takes the dialog under edit, else the root dialog, which then comes
    /// under edit; with none of these nothing is made and the result is null.
    CSimpleGUIShape* create_shape(CSimpleGUIDialog* dialog);
    /// Makes m_root_dialog: a dialog that covers the view and follows it.
    void create_root_dialog();
    /// Null for none.
    void set_current_edit_dialog(CSimpleGUIDialog* dialog);
    CSimpleGUIDialog* get_editing_dialog() const;

    /// The shape under the mouse as the last move of a run found it, or null. For editors and tools.
    CSimpleGUIShape* get_hover_shape() const;

    /// The first item of that exact name or identifier in its list, or null; removed and hidden ones included.
    CSimpleGUIDialog* get_dialog_by_name(tstringW name) const;
    CSimpleGUIDialog* get_dialog_by_guid(CGuid id) const;
    CSimpleGUIShape* get_shape_by_name(tstringW name) const;
    CSimpleGUIShape* get_shape_by_guid(CGuid id) const;

    /// Conversions between fractions of the frame that the actor's item has and pixels. The frame of a dialog is
    /// m_view_rect. (0, 0) for an actor without such an item or a shape without a dialog.
    VEC2 get_offset_by_percent(VEC2 percent, IActor* actor) const;
    VEC2 get_size_by_percent(VEC2 percent, IActor* actor) const;
    VEC2 get_percent_offset_by_pixel(VEC2 pixel, IActor* actor) const;
    VEC2 get_percent_size_by_pixel(VEC2 pixel, IActor* actor) const;
    /// An offset given under `from_align`, as the offset of the same point under `to_align`.
    VEC2 get_offset_of_dif_align(int to_align, int from_align, CRect frame, VEC2 offset) const;
    /// The rectangle that an element must have when its frame changes from `old_root` to `new_root`.
    CRect resize_rect_according_to_root(CRect rect, CRect old_root, CRect new_root, int align, int scale) const;

    /// Not 0: nothing of the GUI is drawn while the engine is in SYSTEM_STATE_FOUR.
    int m_gui_hidden = 1;
    /// Not 0 between prepare_run and after_run, unless the project is cleaned in between.
    int m_running = 0;
    /// All shapes in the order of creation or loading, all dialogs front to back. Neither owns anything.
    ItemList<CSimpleGUIShape> m_shapes;
    ItemList<CSimpleGUIDialog> m_dialogs;
    /// The root dialog of a legacy project, or null.
    CSimpleGUIDialog* m_root_dialog = nullptr;
    CSimpleGUIDialog* m_editing_dialog = nullptr;
    /// Stands in for a picture without a device side. Made when the first shape is drawn; nothing is drawn into it.
    CMyComPtr<IDeviceTexture> m_shape_target;
    /// Where the pictures of an imported project may lie.
    tstringW m_legacy_texture_folder;
    /// Colour of the veil behind the dialog under edit; its alpha is not used.
    VEC4 m_dim_color{0.0f, 0.0f, 0.0f, 1.0f};
    /// Null until init_3d_environment, and for good where that had no memory. Not owned: the engine keeps it in its
    /// list of property items.
    CGlobalGUISetting* m_setting = nullptr;
    /// The view before its last change; while a project is being opened, the view that it was saved in.
    CRect m_scene_rect;
    /// The view on record, left and top 0.
    CRect m_view_rect;
    /// All GUI animation nodes. Owns nothing.
    ItemList<CSimpleGUIAnimNode> m_anim_nodes;

    /// The one manager; set by the constructor and never cleared.
    static CSimpleGUIManager* m_instance;

    /// A dialog is about to be destroyed: no list and no pointer names it any more.
    GUI_LOCAL void forget_dialog(CSimpleGUIDialog* dialog);

private:
    GUI_LOCAL void register_types();
    /// Takes the mouse tool out of the input chain and destroys it; harmless without one.
    GUI_LOCAL void after_run_tool();
    GUI_LOCAL void number_items();
    GUI_LOCAL void sort_shapes_of(CSimpleGUIDialog& dialog);
    GUI_LOCAL void adopt_shapes();
    /// False when a dialog was never numbered; the order then stays as loaded.
    GUI_LOCAL bool restore_order();
    GUI_LOCAL void align_keys_of_opened_project();
    GUI_LOCAL void rescale_keys_of_dialogs();
    /// Width and height of the frame that the actor's item has. False if it has none.
    GUI_LOCAL bool frame_size_of(IActor* actor, VEC2& size) const;

    /// Dialogs whose order number was taken: in the scene, but not in m_dialogs.
    ItemList<CSimpleGUIDialog> m_unlisted_dialogs{1};

    void render_all_formal_content(const render_context& context);
    GUI_LOCAL void render_dialogs();
    void render_editing_dialog_frame();

    void create_dialog_from_old_zov(CPakNode* node);
    void create_shape_from_old_zov(CPakNode* node, CSimpleGUIDialog* dialog);
    CMyComPtr<ITexture> get_texture_from_old_zov(CPakNode* node);
    void create_primary_dialog_from_old_zov(CPakNode* node);
    void create_primary_shape_from_old_zov(CPakNode* node, CSimpleGUIDialog* dialog);
};

/// The entry point of the library: makes the manager for that engine. The engine owns what it gets and destroys it
/// through the virtual destructor; null if there was no memory.
extern "C" GUI_API void g_create_module(IBaseModule** out, XSystem* system);
