#pragma once

// What the module has once for the whole process. The engine calls it on one thread, so nothing here is guarded.

class CMTGUIRun;
class CSimpleGUIManager;
class XSystem;

/// The manager and its engine, for the script functions, which get neither.
extern CSimpleGUIManager* s_gui_manager;
extern XSystem* s_gui_system;

/// The mouse tool while a project runs, else null.
extern CMTGUIRun* s_run_tool;

/// The numbers in the default names of the next dialog and shape. A number is never given back.
extern int s_dialog_name_count;
extern int s_shape_name_count;
