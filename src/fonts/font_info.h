#pragma once

// The eight global fonts of a project: the slots and how they are stored, the road from a logical font to a font, the
// names that font files declare, publishing. Shapes know slot numbers only. Includes the contract alone.

#include <map>
#include <vector>

#include "engine/engine_system.h"

class GUI_API CGlobalFontInfo {
public:
    static constexpr int slot_count = 8;

    /// All slots hold the engine's default font. Without an engine or a default font the table has no slots, and
    /// saving and on_ready do nothing.
    explicit CGlobalFontInfo(XSystem* system);
    /// A copy shares the fonts with its source, must not outlive it, and destroys none of them.
    CGlobalFontInfo(const CGlobalFontInfo& other);
    CGlobalFontInfo& operator=(const CGlobalFontInfo& other);
    /// Destroys the fonts that the table made, and lowers the engine's sample flag if the table raised it.
    ~CGlobalFontInfo();

    void save_to_node(pack_node* node, const save_operation& operation);
    /// Reads the records; makes no font.
    void on_parse(pack_node* node);
    /// Makes the fonts of the records. Stops at the first that can't be made: it and all later slots stay as they were.
    void on_ready();

    /// Puts the font of the record into a slot, `number` 1 to 8. True if a font was made. With `loading` a font that
    /// the system lacks is looked for beside the project, without it the sample shows for two seconds.
    bool change_font(const LOGFONTW& record, int number, bool loading);
    void copy_all_fontfile_to_texture_folder();
    /// Draws the sample text or the reason of a failure in the middle of the view, and ends the display in time.
    void debug_draw_font();

    /// The record and the file of a font of this table. The default font, null and unknown fonts give the default
    /// record and "Default".
    LOGFONTW get_logfont_by_font(IBaseFont* font) const;
    tstringW get_fontpath_by_font(IBaseFont* font) const;
    /// The font of a slot, or null for a number outside 0 to 7. The table owns it.
    GUI_LOCAL IBaseFont* font_of_slot(int slot) const;
    /// All slots hold the engine's default font again. Asks for no memory.
    GUI_LOCAL void empty_slots();

    bool generate_fontname_fontpath_map();
    void scan_TTF_OTF_file_for_name(tstringW path);
    void scan_TTC_file_for_name(tstringW path);
    /// The path of a font name, or empty. Leaves the outcome in m_font_status.
    tstringW search_fontpath(tstringW name);
    /// The font for the record, or null; `path` becomes its file. "Default" gives the engine's default font.
    IBaseFont* create_font_from_logfont(const LOGFONTW& record, tstringW& path);
    /// A font of this table, `size` in pixels, or null if there is no such file.
    IBaseFont* create_font_from_path(tstringW path, unsigned size);
    /// `length` in bytes. Does not take over the memory.
    IBaseFont* create_font_from_mem(void* memory, int length, int height);

    /// debug_draw_font is to run in every frame.
    bool m_show_font_sample = false;
    /// 8 entries once built, each the engine's default font or one of m_created_fonts.
    std::vector<IBaseFont*> m_gui_fonts;
    /// This table raised m_sample_view_flag and must lower it again.
    bool m_raised_view_flag = false;
    XSystem* m_system;
    std::map<IBaseFont*, LOGFONTW> m_logfont_by_font;
    std::map<IBaseFont*, tstringW> m_fontpath_by_font;
    /// Every known font name with its file. Exact and case-sensitive.
    std::map<tstringW, tstringW> m_fontname_fontpath_map;
    /// What debug_draw_font draws with. Not owned.
    IBaseFont* m_last_font = nullptr;
    /// What debug_draw_font draws unless empty: the outcome of the last search or failed creation.
    tstringW m_font_status;
    /// Stands for the engine's default font.
    LOGFONTW m_default_logfont{};
    /// Every font made by this table, which owns them.
    std::vector<IBaseFont*> m_created_fonts;
    LOGFONTW m_gui_logfonts_for_loading[slot_count]{};
    /// As read from the project; only loading looks at them.
    tstringW m_font_file_names[slot_count];

private:
    GUI_LOCAL const tstringW* find_fontpath(const tstringW& name);
    GUI_LOCAL IBaseFont* font_of_record(const LOGFONTW& record, tstringW& path);
    GUI_LOCAL IBaseFont* font_of_file(const tstringW& path, unsigned size);
    GUI_LOCAL IBaseFont* keep(IBaseFont* font);
    GUI_LOCAL IBaseFont* create_font_beside_project(const LOGFONTW& record, int slot);
    GUI_LOCAL void drop_font(IBaseFont* font);
    GUI_LOCAL void show_sample();
    GUI_LOCAL void lower_view_flag();
    bool m_owns_fonts = true;
};
