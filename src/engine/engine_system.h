#pragma once

// The engine system library, as far as the module asks for it: the root object, the module base, scene and actors,
// selection, input and mouse tools, scripts, messages, animation, and every number that crosses the boundary.
// Declarations only. Builds on the engine core library and includes nothing else.
//
// The module relies on this order of the engine's calls, all on one thread:
//   1. g_create_module. The module then uses only the static registries (regist_item, AnimSystemLibrary).
//   2. init_3d_environment, once, before any project and any frame; on_register_xfunc, once.
//   3. For a project: on_clean_project; then on_open_project, all items with on_parse and on_ready,
//      on_project_opened; or on_open_old_zov_project.
//   4. render_in_view_2d in every frame, on_size_changed whenever the view has changed.
//   5. prepare_run and after_run in pairs.
//   6. on_save_project ahead of saving the items, for it numbers them.
//   7. All items go with their actors, then the module by its virtual destructor.

#include "engine/animation.h"
#include "engine/engine_core.h"
#include "engine/input.h"
#include "engine/module_base.h"
#include "engine/numbers.h"
#include "engine/scene.h"
#include "engine/script.h"
#include "engine/system.h"
