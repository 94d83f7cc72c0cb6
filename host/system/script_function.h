#pragma once

#include <string>

#include "engine/script.h"
#include "host/core/item_store.h"
#include "host/system/script_manager.h"

namespace host {

/// A Lua text tied to an event of an item; stored with it.
class LuaScript final : public IScriptFunction, public PlacedItem {
public:
    /// Null as manager: the script runs nowhere.
    explicit LuaScript(ScriptManager* manager);

    void save_to_node(pack_node* node, const save_operation& operation) override;
    void on_parse(pack_node* node, const load_operation& operation) override;
    void run() override;
    void set_place(const CGuid& owner_id, const tstringW& owner_name, const std::string& key) override;

    /// The Lua text.
    tstringW text;

private:
    ScriptManager* m_manager;
    ScriptPlace m_place;
};

/// Registers scripts as a kind of item.
void register_script_items();

}  // namespace host
