#pragma once

#include "engine/engine_system.h"

class CGlobalFontInfo;

/// What is global to all GUI of a project: the duration of fades and the fonts.
class GUI_API CGlobalGUISetting : public IBaseItem {
public:
    explicit CGlobalGUISetting(XSystem* system);
    /// A copy shares the font table with its source, must not outlive it, and does not destroy it.
    CGlobalGUISetting(const CGlobalGUISetting& other);
    CGlobalGUISetting& operator=(const CGlobalGUISetting& other);
    ~CGlobalGUISetting() override;

    void save_to_node(pack_node* node, const save_operation& operation) override;
    void on_parse(pack_node* node, const load_operation& operation) override;
    /// Makes the fonts that on_parse has read. Does not call the base.
    void on_ready() override;
    /// Back to the state of a clean project, with a new font table.
    void set_default();

    /// Seconds of a fade between the pictures of a shape; 0 or less: no fade.
    float m_ani_trans_time;
    /// Never null.
    CGlobalFontInfo* m_font_info;
    XSystem* m_system;

private:
    GUI_LOCAL void replace_font_info(CGlobalFontInfo* font_info, bool owned);
    bool m_owns_font_info = true;
};
