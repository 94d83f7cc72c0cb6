#include "module/manager.h"

#include "animation/anim_node.h"
#include "animation/track.h"
#include "interaction/run_tool.h"
#include "layout/shape.h"
#include "module/boundary.h"
#include "module/module_state.h"
#include "module/setting.h"

CSimpleGUIManager* CSimpleGUIManager::m_instance = nullptr;
CSimpleGUIManager* s_gui_manager = nullptr;
XSystem* s_gui_system = nullptr;
CMTGUIRun* s_run_tool = nullptr;
int s_dialog_name_count = 0;
int s_shape_name_count = 0;

namespace {

template <class Item>
IBaseItem* create_item(XSystem*) try {
    return new Item(CSimpleGUIManager::m_instance);
} catch (...) {
    keep_inside(L"an item");
    return nullptr;
}

IAnimNode* create_anim_node(XSystem*, unsigned type, const CGuid& item_id) try {
    if (type != ANIM_NODE_TYPE_GUI) return nullptr;
    return new CSimpleGUIAnimNode(item_id, CSimpleGUIManager::m_instance);
} catch (...) {
    keep_inside(L"an animation node");
    return nullptr;
}

// The item types, under the names that the author sees.
struct ItemType {
    unsigned long number;
    const wchar_t* name;
    item_creator creator;
};
constexpr ItemType item_types[] = {
    {ITEM_TYPE_DIALOG, L"GUI窗口", create_item<CSimpleGUIDialog>},
    {ITEM_TYPE_SHAPE, L"GUI形状", create_item<CSimpleGUIShape>},
};

// Messages carry a list of actors; what is not an item of this module is passed over.
template <class Visit>
void for_each_item(message_param list, Visit visit) {
    const auto* actors = reinterpret_cast<const std::list<IActor*>*>(list);
    if (!actors) return;
    for (IActor* actor : *actors) {
        if (IBaseItem* item = actor ? actor->get_item() : nullptr) visit(item);
    }
}

}  // namespace

CSimpleGUIManager::CSimpleGUIManager(XSystem* system) : IBaseModule(system) {
    // First, for without the memory for it there is no manager.
    register_types();
    m_instance = this;
    s_gui_manager = this;
    s_gui_system = m_system;
}

CSimpleGUIManager::CSimpleGUIManager(const CSimpleGUIManager&) = default;
CSimpleGUIManager& CSimpleGUIManager::operator=(const CSimpleGUIManager&) = default;

CSimpleGUIManager::~CSimpleGUIManager() {
    // An engine that closes in the middle of a run would leave the tool in its input chain, walking lists that are
    // gone.
    if (s_run_tool && s_run_tool->belongs_to(this)) after_run_tool();
    m_dialogs.clear();
    m_shapes.clear();
    m_anim_nodes.clear();
}

void CSimpleGUIManager::register_types() {
    std::set<unsigned long> animated_items;
    for (const ItemType& type : item_types) {
        CSceneManager::regist_item(type.number, type.name, type.creator, ITEM_FLAGS);
        animated_items.insert(type.number);
    }
    std::vector<unsigned> tracks;
    for (const TrackType& track : track_types) tracks.push_back(track.number);
    AnimSystemLibrary::register_node_creator_by_type(ANIM_NODE_TYPE_GUI, L"GUI控件节点", create_anim_node, tracks,
                                                     animated_items);
    for (const TrackType& track : track_types) {
        AnimSystemLibrary::register_track_creator_by_type(track.number, track.name, create_track, 0);
    }
}

tstringW CSimpleGUIManager::get_name() const {
    try {
        return L"CSimpleGUIManager";
    } catch (...) {
        keep_inside(L"get_name");
        return {};
    }
}

CGuid CSimpleGUIManager::get_id() const { return CGuid(L"283B689B-6775-0F82-3171-70E93AFF15F6"); }

void CSimpleGUIManager::init_3d_environment() try {
    const CMyComPtr<CGlobalGUISetting> setting(new CGlobalGUISetting(m_system));
    m_system->m_scene_manager->add_property_item(setting.get(), L"GUI界面环境设置");
    m_setting = setting.get();
} catch (...) {
    keep_inside(L"init_3d_environment");
}

void CSimpleGUIManager::prepare_run() try {
    m_running = 1;
    for (CSimpleGUIShape* shape : m_shapes) {
        if (!shape) continue;
        // The normal picture stands at its full weight at once; the others stay as the last run left them.
        shape->m_fade_now[MODE_NORMAL] = shape->m_color.w;
        shape->m_fade_start[MODE_NORMAL] = shape->m_color.w;
    }
    // A second prepare_run without an after_run would otherwise leave a tool in the input chain that nobody destroys.
    if (s_run_tool) after_run_tool();
    s_run_tool = new CMTGUIRun(m_system, this);
    m_system->m_input_manager->add_listener(s_run_tool, RUN_TOOL_PRIORITY);
    m_system->request_view_update();
} catch (...) {
    keep_inside(L"prepare_run");
    m_running = 0;
    after_run_tool();
}

void CSimpleGUIManager::after_run() try {
    m_running = 0;
    after_run_tool();
    m_system->request_view_update();
} catch (...) {
    keep_inside(L"after_run");
}

void CSimpleGUIManager::after_run_tool() {
    m_system->m_input_manager->remove_listener(s_run_tool);
    delete s_run_tool;
    s_run_tool = nullptr;
}

void CSimpleGUIManager::process_message(unsigned long id, message_param p1, message_param, message_param, message_param,
                                        message_param, message_param) {
    if (id != MSG_ACTORS_REMOVED && id != MSG_ACTORS_RESTORED) return;
    const bool in_scene = id == MSG_ACTORS_RESTORED;
    for_each_item(p1, [&](IBaseItem* item) {
        if (auto* dialog = dynamic_cast<CSimpleGUIDialog*>(item)) {
            dialog->m_in_scene = in_scene;
            if (!in_scene && dialog == get_editing_dialog()) set_current_edit_dialog(nullptr);
        } else if (auto* shape = dynamic_cast<CSimpleGUIShape*>(item)) {
            shape->m_in_scene = in_scene;
        }
    });
}

void CSimpleGUIManager::forget_dialog(CSimpleGUIDialog* dialog) {
    m_dialogs.remove(dialog);
    m_unlisted_dialogs.remove(dialog);
    if (m_editing_dialog == dialog) m_editing_dialog = nullptr;
    if (m_root_dialog == dialog) m_root_dialog = nullptr;
}
