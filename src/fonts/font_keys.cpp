#include "fonts/font_keys.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "fonts/logfont.h"

namespace {

// The numbers of a record in file order. A byte field is stored as the little-endian word that begins at its place, so
// a stored word holds the field in its low byte and three neighbours above it; reading puts all four bytes back. The
// order of the keys therefore decides what a missing key leaves behind.
struct WordKey {
    const char* suffix;
    std::size_t offset;
};
constexpr WordKey word_keys[] = {
    {"lfHeight", offsetof(LOGFONTW, lfHeight)},
    {"lfWidth", offsetof(LOGFONTW, lfWidth)},
    {"lfEscapement", offsetof(LOGFONTW, lfEscapement)},
    {"lfOrientation", offsetof(LOGFONTW, lfOrientation)},
    {"lfWeight", offsetof(LOGFONTW, lfWeight)},
    {"lfItalic", offsetof(LOGFONTW, lfItalic)},
    {"lfUnderline", offsetof(LOGFONTW, lfUnderline)},
    {"lfStrikeOut", offsetof(LOGFONTW, lfStrikeOut)},
    {"lfCharSet", offsetof(LOGFONTW, lfCharSet)},
    {"lfOutPrecision", offsetof(LOGFONTW, lfOutPrecision)},
    {"lfClipPrecision", offsetof(LOGFONTW, lfClipPrecision)},
    {"lfQuality", offsetof(LOGFONTW, lfQuality)},
    {"lfPitchAndFamily_fix", offsetof(LOGFONTW, lfPitchAndFamily)},
};

std::string key_of(int slot, const char* suffix) {
    return "m_gui_logfonts_for_loading" + std::to_string(slot) + suffix;
}

constexpr const char* face_suffix = "lfFaceName";
constexpr const char* file_suffix = "FontFileName";

// Words are stored little-endian whatever the machine, as the record lies in memory on the systems that define it.
std::int32_t word_at(const LOGFONTW& record, std::size_t offset) {
    std::int32_t word;
    std::memcpy(&word, reinterpret_cast<const unsigned char*>(&record) + offset, sizeof word);
    return word;
}

void set_word(LOGFONTW& record, std::size_t offset, std::int32_t word) {
    std::memcpy(reinterpret_cast<unsigned char*>(&record) + offset, &word, sizeof word);
}

}  // namespace

void save_logfont(pack_node* node, int slot, const LOGFONTW& record, const tstringW& file_name) {
    for (const WordKey& key : word_keys) {
        std::int32_t word = word_at(record, key.offset);
        node->add_property(key_of(slot, key.suffix).c_str(), PAK_INT, &word);
    }
    node->add_string_property(key_of(slot, face_suffix).c_str(), face_name(record));
    node->add_string_property(key_of(slot, file_suffix).c_str(), file_name);
}

void read_logfont(pack_node* node, int slot, LOGFONTW& record, tstringW& file_name) {
    for (const WordKey& key : word_keys) {
        std::int32_t word = 0;
        if (node->get_property(key_of(slot, key.suffix).c_str(), PAK_INT, &word)) set_word(record, key.offset, word);
    }
    tstringW face;
    node->get_string_property(key_of(slot, face_suffix).c_str(), face);
    set_face_name(record, face);
    node->get_string_property(key_of(slot, file_suffix).c_str(), file_name);
}
