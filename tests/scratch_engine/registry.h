#pragma once

// What the static operations of the contract note down. Tests read it; nothing clears it but a new engine.

#include <set>
#include <string>
#include <vector>

#include "engine/engine_system.h"
#include "platform/platform.h"

struct Registry {
    struct Item {
        unsigned long type;
        tstringW name;
        item_creator creator;
        unsigned long flags;
    };
    struct Node {
        unsigned type;
        tstringW name;
        anim_node_creator creator;
        std::vector<unsigned> tracks;
        std::set<unsigned long> items;
    };
    struct Track {
        unsigned type;
        tstringW name;
        track_creator creator;
        unsigned long flags;
    };
    std::vector<Item> items;
    std::vector<Node> nodes;
    std::vector<Track> tracks;
    /// "item", "node" or "track" for each registration, in order.
    std::vector<std::string> order;
    std::set<std::wstring> files;
    std::vector<std::wstring> log;
    unsigned long long ticks = 0;
    int hand_cursors = 0;
    /// What the cursor answers.
    CPoint cursor;
    font_list fonts;
    bool has_fonts = true;
    /// What was published, as "folder PATH", "copy FROM TO" and "box TEXT". Only `files` can be copied.
    std::vector<std::wstring> published;
};
Registry& registry();
