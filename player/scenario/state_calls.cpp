// What holds at the moment: the view, the lists, and what stands where.

#include "animation/anim_node.h"
#include "module/setting.h"
#include "player/scenario/calls.h"

namespace scenario {

namespace {

Value name_of(const IBaseItem* item) { return item && item->m_actor ? value_of(item->m_actor->get_name()) : Value(); }

template <class Item>
Value names_of(const ItemList<Item>& items) {
    Value names = Value::array();
    for (const Item* item : items)
        if (item) names.push_back(name_of(item));
    return names;
}

// An item out of the scene still has its name.
Value node_name(const Scenario& scenario, CAnimNodeBase* node) {
    const CGuid id = node->get_internal_item_id();
    const host::Actor* actor = scenario.engine.scene().find_any(id);
    return actor ? value_of(actor->get_name()) : value_of(id);
}

Value animation_of(const Scenario& scenario, const host::Animation& animation) {
    const anim_info& info = animation.info();
    Value nodes = Value::array();
    for (const auto& node : animation.nodes()) nodes.push_back(node_name(scenario, node.get()));
    return {{"name", value_of(animation.name())},
            {"length", value_of(info.length)},
            {"rate", value_of(info.rate)},
            {"mode_flag", info.mode_flag},
            {"mode_count", info.mode_count},
            {"factor", value_of(info.factor)},
            {"nodes", nodes}};
}

void add_name(Value& state, const char* key, const IBaseItem* item) {
    const Value name = name_of(item);
    if (!name.is_null()) state[key] = name;
}

Results state(Scenario& scenario, const Arguments&) {
    const CSimpleGUIManager& manager = scenario.manager();
    Value shown = Value::object();
    shown["client"] = value_of(scenario.engine.get_client_rect());
    shown["m_view_rect"] = value_of(manager.m_view_rect);
    shown["m_scene_rect"] = value_of(manager.m_scene_rect);
    shown["m_gui_hidden"] = manager.m_gui_hidden;
    shown["m_running"] = manager.m_running;
    shown["m_ani_trans_time"] = value_of(manager.m_setting->m_ani_trans_time);
    shown["legacy_folder"] = value_of(manager.m_legacy_texture_folder);
    shown["sample_flag"] = scenario.engine.m_sample_view_flag;
    add_name(shown, "editing", manager.get_editing_dialog());
    add_name(shown, "root", manager.m_root_dialog);
    add_name(shown, "hover", manager.get_hover_shape());
    shown["dialogs"] = names_of(manager.m_dialogs);
    shown["shapes"] = names_of(manager.m_shapes);
    shown["children"] = Value::object();
    for (const CSimpleGUIDialog* dialog : manager.m_dialogs)
        if (dialog && dialog->m_actor)
            shown["children"][name_of(dialog).get<std::string>()] = names_of(dialog->m_shapes);
    shown["nodes"] = Value::array();
    for (CSimpleGUIAnimNode* node : manager.m_anim_nodes)
        if (node) shown["nodes"].push_back(node_name(scenario, node));
    shown["animations"] = Value::array();
    for (const auto& animation : scenario.engine.animations().all())
        shown["animations"].push_back(animation_of(scenario, *animation));
    return shown;
}

constexpr HostFunction functions[] = {{"state", &state}};

}  // namespace

std::span<const HostFunction> state_calls() { return functions; }

}  // namespace scenario
