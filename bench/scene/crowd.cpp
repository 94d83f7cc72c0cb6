#include "scene/crowd.h"

#include <algorithm>
#include <filesystem>

#include "engine/numbers.h"
#include "host/core/item_store.h"
#include "host/core/picture_file.h"
#include "layout/anchors.h"

namespace bench {
namespace {

constexpr int columns = 10;
constexpr int text_every = 10;
constexpr int alignments = anchor_count + 1;
constexpr int picture_size = 32;
static_assert(alignments == ALIGN_SCALE + 1);

CGuid identifier(int kind, int number) {
    GUID id{};
    id.Data1 = static_cast<std::uint32_t>(kind);
    for (int byte = 0; byte < 4; ++byte) id.Data4[7 - byte] = static_cast<std::uint8_t>(number >> (byte * 8));
    return id;
}

CRect moved(const CRect& rect, int x, int y) { return {rect.left + x, rect.top + y, rect.right + x, rect.bottom + y}; }

// The description of a place in a frame, whose left top corner is the origin of `rect`, and the same in view pixels.
void set_place(host::ProjectNode& data, int align, const CRect& rect, const CRect& frame) {
    const HalfSteps anchor = anchor_of(align);
    const auto share = [](int part, int whole) { return static_cast<float>(part) / static_cast<float>(whole); };
    data.set("m_rect", moved(rect, frame.left, frame.top));
    data.set("m_iAlignType", align == ALIGN_SCALE ? 0 : align);
    data.set("m_offsetx", rect.left - anchor.x * frame.Width() / 2);
    data.set("m_offsety", rect.top - anchor.y * frame.Height() / 2);
    data.set("m_bScaleMode", host::StoredBool{align == ALIGN_SCALE ? 1 : 0});
    data.set("m_left_scaleMode", share(rect.left, frame.Width()));
    data.set("m_right_scaleMode", share(rect.right, frame.Width()));
    data.set("m_top_scaleMode", share(rect.top, frame.Height()));
    data.set("m_bottom_scaleMode", share(rect.bottom, frame.Height()));
}

CRect dialog_rect(const Crowd& crowd, int number) {
    const CRect first(40, 30, 640, 430);
    return crowd.on_one_spot ? first : moved(first, number * 97 % 1240, number * 61 % 620);
}

CRect shape_rect(int place) {
    constexpr int cell_width = 60;
    constexpr int cell_height = 40;
    const CRect first(2, 2, cell_width - 2, cell_height - 2);
    return moved(first, place % columns * cell_width, place / columns % columns * cell_height);
}

void add_picture(host::ProjectNode& data, const char* key, int number) {
    host::ProjectNode& picture = data.add(key);
    picture.set("type", static_cast<int>(host::ITEM_TYPE_PICTURE));
    picture.set("file_name", tstringW(L"pictures/" + std::to_wstring(number % crowd_pictures) + L".png"));
}

void set_look(host::ProjectNode& data, const Crowd& crowd, int number) {
    const bool has_picture = crowd.pictures == Crowd::BUTTONS || number % 2 == 1;
    const bool is_button = crowd.pictures == Crowd::BUTTONS || (crowd.pictures == Crowd::MIXED && number % 4 == 3);
    data.set("m_color", VEC4(0.5f, 0.6f, 0.7f, 0.8f));
    data.set("m_is_static_pic", host::StoredBool{is_button ? 0 : 1});
    if (number % text_every == 0) data.set("m_title", tstringW(L"welcome 欢迎光临"));
    if (has_picture) add_picture(data, "m_texture", number / 2);
    if (!is_button) return;
    add_picture(data, "m_texture_hover", number / 2 + 1);
    add_picture(data, "m_texture_down", number / 2 + 2);
}

host::ProjectItem dialog_item(const Crowd& crowd, int number) {
    host::ProjectItem item;
    item.type = ITEM_TYPE_DIALOG;
    item.id = identifier(1, number);
    item.name = L"dialog " + std::to_wstring(number);
    const int align = crowd.scaled_dialogs ? ALIGN_SCALE : number % alignments;
    set_place(item.data, align, dialog_rect(crowd, number), {0, 0, crowd_width, crowd_height});
    item.data.set("m_order_num", number);
    return item;
}

host::ProjectItem shape_item(const Crowd& crowd, int number) {
    const int dialog = number / crowd.shapes_in_dialog;
    const int place = number % crowd.shapes_in_dialog;
    host::ProjectItem item;
    item.type = ITEM_TYPE_SHAPE;
    item.id = crowd_shape_id(number);
    item.parent = identifier(1, dialog);
    item.name = crowd_shape_name(number);
    set_place(item.data, (place + place / columns) % alignments, shape_rect(place), dialog_rect(crowd, dialog));
    set_look(item.data, crowd, number);
    item.data.set("m_order_num", crowd.shapes_in_dialog - 1 - place);
    return item;
}

void set_key(host::ProjectNode& key, unsigned track, float share) {
    switch (track) {
        case TRACK_TYPE_OFFSET:
            key.set("offset", VEC3(600 * share, 400 * share, 0));
            key.set("offset_percent", VEC3(share, share, 0));
            break;
        case TRACK_TYPE_SIZE:
            key.set("size", VEC3(60 + 60 * share, 40, 0));
            key.set("size_percent", VEC3(0.1f + 0.1f * share, 0.1f, 0));
            break;
        case TRACK_TYPE_VISIBLE:
            key.set("visible", 1);
            break;
        case TRACK_TYPE_ALIGN:
            key.set("align", share < 0.5f ? 0 : ALIGN_SCALE);
            break;
        default:
            key.set("color", VEC3(share, 1, 1));
            key.set("alpha", 1.0f - share);
    }
}

}  // namespace

std::wstring crowd_shape_name(int number) { return L"shape " + std::to_wstring(number); }

CGuid crowd_shape_id(int number) { return identifier(2, number); }

CGuid crowd_dialog_id(int number) { return identifier(1, number); }

host::ProjectDocument crowd_document(const Crowd& crowd) {
    host::ProjectDocument document;
    for (int number = 0; number < crowd.shapes; ++number) {
        if (number % crowd.shapes_in_dialog == 0)
            document.items.push_back(dialog_item(crowd, number / crowd.shapes_in_dialog));
        document.items.push_back(shape_item(crowd, number));
    }
    return document;
}

host::ProjectNode crowd_keys() {
    host::ProjectNode node("anim_node");
    host::ProjectNode& tracks = node.add("tracks");
    for (unsigned type = TRACK_TYPE_OFFSET; type < TRACK_TYPE_OFFSET + tracks_in_node; ++type) {
        host::ProjectNode& track = tracks.add("track");
        track.set("track_type", static_cast<int>(type));
        host::ProjectNode& keys = track.add("keys");
        for (int at = 0; at < keys_in_track; ++at) {
            host::ProjectNode& key = keys.add("child");
            key.set("time", static_cast<float>(at) * seconds_between_keys);
            set_key(key, type, static_cast<float>(at) / keys_in_track);
        }
    }
    return node;
}

bool write_crowd_pictures(const std::string& project_path, std::string& error) {
    const std::filesystem::path folder = std::filesystem::path(project_path).parent_path() / "pictures";
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    for (int number = 0; number < crowd_pictures; ++number) {
        const auto color = 0xFF000000u | (static_cast<std::uint32_t>(number) * 0x0C1A2Bu);
        std::vector<std::uint32_t> pixels(picture_size * picture_size, color);
        const std::string path = (folder / (std::to_string(number) + ".png")).string();
        if (!host::write_png(path, pixels, picture_size, error)) return false;
    }
    return true;
}

}  // namespace bench
