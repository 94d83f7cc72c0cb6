// Making, reading, changing and ending items.

#include "player/scenario/calls.h"

#include "host/core/text_conversion.h"
#include "player/scenario/item_fields.h"
#include "player/scenario/scenario_script.h"

namespace scenario {

namespace {

const char* kind_of(const IActor& actor) {
    const unsigned long type = actor.get_item() ? actor.get_item()->get_type() : 0;
    return type == ITEM_TYPE_DIALOG ? "dialog" : type == ITEM_TYPE_SHAPE ? "shape" : "other";
}

Value name_or_nil(const IBaseItem* item) {
    return item && item->m_actor ? value_of(item->m_actor->get_name()) : Value();
}

void set_flags(host::Actor& actor, Fields& fields) {
    tstringW name;
    CGuid id;
    bool visible = true;
    int flag = 0;
    if (fields.read("name", name)) actor.set_name(name.c_str(), true);
    if (fields.read("id", id)) actor.set_id(id);
    if (fields.read("visible", visible)) actor.set_visible(visible);
    if (fields.read("flag", flag)) actor.set_flag(flag);
}

void move(CSimpleGUIDialog& dialog, const CRect& rect, bool keep_keys) { dialog.set_rect(rect, keep_keys); }
void move(CSimpleGUIShape& shape, const CRect& rect, bool) { shape.set_rect(rect); }

template <class Item>
void place(Item& item, Fields& fields) {
    CRect rect;
    int number = 0;
    bool scale = false;
    if (fields.read("rect", rect)) move(item, rect, false);
    if (fields.read("align", number)) item.set_align_type(number);
    if (fields.read("scale", scale)) item.set_scale_mode(scale ? 1 : 0);
}

// As a script function does it: the device side is tried at once, and a missing picture stays without one.
void set_pictures(Scenario& scenario, CSimpleGUIShape& shape, Fields pictures) {
    for (const PictureSlot& slot : picture_slots) {
        if (!pictures.has(slot.name)) continue;
        shape.*slot.member = {};
        if (pictures.get(slot.name) == false) continue;
        tstringW path;
        read_value(pictures.get(slot.name), pictures.where(slot.name), path);
        CMyComPtr<ITexture> texture = scenario.engine.m_resource_manager->load_texture_from_file(path.c_str());
        texture->tex_kind = 0;
        texture->file_name = path;
        texture->tex_option = 4;
        texture->create_device_texture(scenario.engine.render_device);
        shape.*slot.member = texture;
    }
    pictures.finish();
}

void set_shape_parts(Scenario& scenario, CSimpleGUIShape& shape, Fields& fields) {
    if (fields.has("textures")) set_pictures(scenario, shape, fields.table("textures"));
    if (fields.has("scripts")) set_scripts(scenario, shape, fields.table("scripts"));
}

Value loaded_pictures_of(const CSimpleGUIShape& shape) {
    Value loaded = Value::object();
    for (const PictureSlot& slot : picture_slots) {
        ITexture* texture = (shape.*slot.member).get();
        loaded[slot.name] = texture && texture->get_device_texture();
    }
    return loaded;
}

// What making a dialog and making a shape have in common, once the item is there.
template <class Item>
Value finish_making(Item& item, Fields& fields) {
    place(item, fields);
    if (fields.has("fields")) {
        Fields members = fields.table("fields");
        write_members(item, members);
        members.finish();
    }
    fields.finish();
    return value_of(item.m_actor->get_name());
}

Results make_dialog(Scenario& scenario, const Arguments& arguments) {
    Fields fields = arguments.fields(0, "dialog");
    CSimpleGUIDialog* dialog = scenario.manager().create_dialog();
    set_flags(static_cast<host::Actor&>(*dialog->m_actor), fields);
    return finish_making(*dialog, fields);
}

Results make_shape(Scenario& scenario, const Arguments& arguments) {
    Fields fields = arguments.fields(0, "shape");
    const Value& parent = fields.get("dialog");
    CSimpleGUIDialog* dialog = parent.is_null() ? nullptr : &scenario.dialog_named(parent, fields.where("dialog"));
    CSimpleGUIShape* shape = scenario.manager().create_shape(dialog);
    if (!shape) throw Failure(arguments.function() + ": no dialog given, none under edit, and no root dialog");
    // The name first: scripts are told whose they are.
    set_flags(static_cast<host::Actor&>(*shape->m_actor), fields);
    set_shape_parts(scenario, *shape, fields);
    return finish_making(*shape, fields);
}

Results make_root(Scenario& scenario, const Arguments&) {
    scenario.manager().create_root_dialog();
    return name_or_nil(scenario.manager().m_root_dialog);
}

Results get(Scenario& scenario, const Arguments& arguments) {
    const host::Actor* actor = scenario.find_actor(arguments.get<std::string>(0, "name"));
    if (!actor) return Value();
    Value shown = Value::object();
    if (const CSimpleGUIDialog* dialog = scenario.dialog_of(actor)) shown = members_of(*dialog);
    if (const CSimpleGUIShape* shape = scenario.shape_of(actor)) {
        shown = members_of(*shape);
        shown["textures"] = pictures_of(*shape);
        shown["loaded"] = loaded_pictures_of(*shape);
        shown["scripts"] = scripts_of(*shape);
        const Value parent = name_or_nil(shape->m_parent_dialog);
        if (!parent.is_null()) shown["parent"] = parent;
    }
    shown["name"] = value_of(actor->get_name());
    shown["id"] = value_of(actor->get_id());
    shown["kind"] = kind_of(*actor);
    shown["visible"] = actor->is_visible();
    shown["flag"] = actor->get_flag();
    return shown;
}

void change_dialog(CSimpleGUIDialog& dialog, Fields& fields) {
    write_members(dialog, fields);
    place(dialog, fields);
    CRect rect;
    if (fields.read("keep_rect", rect)) move(dialog, rect, true);
}

void change_shape(Scenario& scenario, CSimpleGUIShape& shape, Fields& fields) {
    write_members(shape, fields);
    set_shape_parts(scenario, shape, fields);
    if (fields.has("parent"))
        shape.change_parent_dialog(&scenario.dialog_named(fields.get("parent"), fields.where("parent")));
    place(shape, fields);
    int mode = 0;
    if (fields.read("mode", mode)) shape.set_texture_mode(mode);
}

// In this order whatever the order in the table, which Lua does not keep: members, actor, parent, place, picture.
Results set(Scenario& scenario, const Arguments& arguments) {
    host::Actor& actor = scenario.actor_named(arguments.at(0), arguments.where(0, "name"));
    Fields fields = arguments.fields(1, "fields");
    set_flags(actor, fields);
    if (CSimpleGUIDialog* dialog = scenario.dialog_of(&actor)) change_dialog(*dialog, fields);
    if (CSimpleGUIShape* shape = scenario.shape_of(&actor)) change_shape(scenario, *shape, fields);
    fields.finish();
    return {};
}

Results update(Scenario& scenario, const Arguments& arguments) {
    const host::Actor& actor = scenario.actor_named(arguments.at(0), arguments.where(0, "name"));
    const auto what = arguments.get<std::string>(1, "what");
    CSimpleGUIDialog* dialog = scenario.dialog_of(&actor);
    CSimpleGUIShape* shape = scenario.shape_of(&actor);
    if (dialog && what == "rect") return dialog->update_rect(), Results();
    if (dialog && what == "offsets") return dialog->update_offsets(), Results();
    if (dialog && what == "children") return dialog->update_child_poses(), Results();
    if (shape && what == "rect") return shape->update_rect(), Results();
    if (shape && what == "offsets") return shape->update_offsets(), Results();
    if (shape && what == "fontpos") return shape->update_fontpos(), Results();
    throw Failure(arguments.where(1, "what") + " must be \"rect\", \"offsets\", \"fontpos\" (shapes) or \"children\" " +
                  "(dialogs), " + short_text(arguments.at(1)) + " given for a " + kind_of(actor));
}

template <class Item>
Results id_of(const Item* item) {
    return item ? value_of(item->m_actor->get_id()) : Value();
}

Results find(Scenario& scenario, const Arguments& arguments) {
    const auto kind = arguments.get<std::string>(0, "kind");
    if (kind != "dialog" && kind != "shape")
        throw Failure(arguments.where(0, "kind") + " must be \"dialog\" or \"shape\"");
    const CSimpleGUIManager& manager = scenario.manager();
    if (arguments.at(1).is_string()) {
        const auto name = arguments.get<tstringW>(1, "name");
        return kind == "dialog" ? id_of(manager.get_dialog_by_name(name)) : id_of(manager.get_shape_by_name(name));
    }
    Fields key = arguments.fields(1, "key");
    CGuid id;
    if (!key.read("id", id)) throw Failure(key.where("id") + " is missing");
    key.finish();
    return kind == "dialog" ? id_of(manager.get_dialog_by_guid(id)) : id_of(manager.get_shape_by_guid(id));
}

using Conversion = VEC2 (CSimpleGUIManager::*)(VEC2, IActor*) const;
constexpr struct {
    const char* name;
    Conversion convert;
} conversions[] = {
    {"offset_by_percent", &CSimpleGUIManager::get_offset_by_percent},
    {"size_by_percent", &CSimpleGUIManager::get_size_by_percent},
    {"percent_offset", &CSimpleGUIManager::get_percent_offset_by_pixel},
    {"percent_size", &CSimpleGUIManager::get_percent_size_by_pixel},
};

Results convert(Scenario& scenario, const Arguments& arguments) {
    IActor* actor = arguments.has(0) ? &scenario.actor_named(arguments.at(0), arguments.where(0, "name")) : nullptr;
    const auto how = arguments.get<std::string>(1, "how");
    for (const auto& conversion : conversions)
        if (how == conversion.name)
            return value_of((scenario.manager().*conversion.convert)(arguments.get<VEC2>(2, "point"), actor));
    throw Failure(arguments.where(1, "how") + ": there is no conversion \"" + how + "\"");
}

Results remove(Scenario& scenario, const Arguments& arguments) {
    const CallLog::Mute mute(scenario.log);
    scenario.engine.scene().remove(scenario.actors_named(arguments.at(0), arguments.where(0, "names")));
    return {};
}

Results restore(Scenario& scenario, const Arguments& arguments) {
    const CallLog::Mute mute(scenario.log);
    scenario.engine.scene().restore(scenario.actors_named(arguments.at(0), arguments.where(0, "names")));
    return {};
}

Results message(Scenario& scenario, const Arguments& arguments) {
    const CallLog::Mute mute(scenario.log);
    const int id = arguments.get<int>(0, "id");
    std::list<IActor*> actors;
    if (arguments.has(1)) actors = scenario.actors_named(arguments.at(1), arguments.where(1, "names"));
    const auto list = arguments.has(1) ? reinterpret_cast<message_param>(&actors) : message_param{0};
    scenario.engine.messages().send_msg(static_cast<unsigned long>(id), list, 0, 0, 0, 0, 0);
    return {};
}

Results destroy(Scenario& scenario, const Arguments& arguments) {
    const CallLog::Mute mute(scenario.log);
    scenario.engine.scene().delete_actor_alone(&scenario.actor_named(arguments.at(0), arguments.where(0, "name")));
    return {};
}

constexpr HostFunction functions[] = {
    {"dialog", &make_dialog}, {"shape", &make_shape}, {"root", &make_root},  {"get", &get},       {"set", &set},
    {"update", &update},      {"find", &find},        {"convert", &convert}, {"remove", &remove}, {"restore", &restore},
    {"message", &message},    {"destroy", &destroy},
};

}  // namespace

std::span<const HostFunction> item_calls() { return functions; }

}  // namespace scenario
