#include "animation/keys.h"

#include "layout/persisted_value.h"
#include "module/boundary.h"

namespace {

// A field of a key under the name that an editor shows.
template <class Key, class Value>
struct NamedField {
    const wchar_t* name;
    Value& (*field)(Key&);
};

template <auto Member, class Key>
auto& member(Key& key) {
    return key.*Member;
}

template <class Key>
struct Fields;

template <>
struct Fields<SGuiOffset> {
    static constexpr NamedField<SGuiOffset, VEC2> table[] = {
        {L"偏移", member<&SGuiOffset::m_offset, SGuiOffset>},
        {L"偏移百分比", member<&SGuiOffset::m_offset_percent, SGuiOffset>},
    };
};
template <>
struct Fields<SGuiSize> {
    static constexpr NamedField<SGuiSize, VEC2> table[] = {
        {L"尺寸", member<&SGuiSize::m_size, SGuiSize>},
        {L"尺寸百分比", member<&SGuiSize::m_size_percent, SGuiSize>},
    };
};
template <>
struct Fields<SGuiVisible> {
    static constexpr NamedField<SGuiVisible, int> table[] = {{L"可见性", member<&SGuiVisible::m_visible, SGuiVisible>}};
};
template <>
struct Fields<SGuiAlign> {
    static constexpr NamedField<SGuiAlign, int> table[] = {{L"对齐方式", member<&SGuiAlign::m_align, SGuiAlign>}};
};

template <auto Part>
float& color_part(SGuiColor& key) {
    return key.m_color.*Part;
}
template <>
struct Fields<SGuiColor> {
    static constexpr NamedField<SGuiColor, float> table[] = {
        {L"红", color_part<&VEC4::x>},
        {L"绿", color_part<&VEC4::y>},
        {L"蓝", color_part<&VEC4::z>},
        {L"透明度", color_part<&VEC4::w>},
    };
};

// Pairs are stored as vectors of three; the third number says nothing.
void save_pair(pack_node* node, const char* key, const VEC2& pair) {
    VEC3 value(pair.x, pair.y, 0.0f);
    node->add_property(key, PAK_VEC3, &value);
}

VEC2 read_pair(pack_node* node, const char* key) {
    VEC3 value;
    read_value(node, key, PAK_VEC3, &value);
    return value;
}

void save_values(pack_node* node, SGuiOffset& key) {
    save_pair(node, "offset", key.m_offset);
    save_pair(node, "offset_percent", key.m_offset_percent);
}

void read_values(pack_node* node, SGuiOffset& key) {
    key.m_offset = read_pair(node, "offset");
    key.m_offset_percent = read_pair(node, "offset_percent");
}

void save_values(pack_node* node, SGuiSize& key) {
    save_pair(node, "size", key.m_size);
    save_pair(node, "size_percent", key.m_size_percent);
}

void read_values(pack_node* node, SGuiSize& key) {
    key.m_size = read_pair(node, "size");
    key.m_size_percent = read_pair(node, "size_percent");
}

void save_values(pack_node* node, SGuiVisible& key) { node->add_property("visible", PAK_INT, &key.m_visible); }
void read_values(pack_node* node, SGuiVisible& key) { node->get_property("visible", PAK_INT, &key.m_visible); }

void save_values(pack_node* node, SGuiAlign& key) { node->add_property("align", PAK_INT, &key.m_align); }
void read_values(pack_node* node, SGuiAlign& key) { node->get_property("align", PAK_INT, &key.m_align); }

void save_values(pack_node* node, SGuiColor& key) {
    VEC3 color = key.m_color;
    node->add_property("color", PAK_VEC3, &color);
    node->add_property("alpha", PAK_FLOAT, &key.m_color.w);
}

void read_values(pack_node* node, SGuiColor& key) {
    VEC3 color;
    float alpha = 0.0f;
    read_value(node, "color", PAK_VEC3, &color);
    read_value(node, "alpha", PAK_FLOAT, &alpha);
    key.m_color = {color.x, color.y, color.z, alpha};
}

constexpr const char* time_key = "time";

}  // namespace

IKey::~IKey() = default;

template <class Key>
void KeyWithFields<Key>::create_properties() try {
    for (const auto& row : Fields<Key>::table) add_property(row.name, row.field(static_cast<Key&>(*this)), true);
} catch (...) {
    keep_inside(L"key: create_properties");
}

template <class Key>
void KeyWithFields<Key>::write_properties() try {
    for (const auto& row : Fields<Key>::table) set_property(row.name, row.field(static_cast<Key&>(*this)), true);
} catch (...) {
    keep_inside(L"key: write_properties");
}

template <class Key>
void KeyWithFields<Key>::read_properties() try {
    for (const auto& row : Fields<Key>::table) get_property(row.name, row.field(static_cast<Key&>(*this)));
} catch (...) {
    keep_inside(L"key: read_properties");
}

void IKey::save_to_node(pack_node* node, const save_operation&) { node->add_property(time_key, PAK_FLOAT, &m_time); }
void IKey::on_parse(pack_node* node, const load_operation&) { read_value(node, time_key, PAK_FLOAT, &m_time); }

template <class Key>
void KeyWithFields<Key>::save_to_node(pack_node* node, const save_operation& operation) try {
    IKey::save_to_node(node, operation);
    save_values(node, static_cast<Key&>(*this));
} catch (...) {
    keep_inside(L"key: save_to_node");
}

template <class Key>
void KeyWithFields<Key>::on_parse(pack_node* node, const load_operation& operation) try {
    IKey::on_parse(node, operation);
    read_values(node, static_cast<Key&>(*this));
} catch (...) {
    keep_inside(L"key: on_parse");
}

template class KeyWithFields<SGuiOffset>;
template class KeyWithFields<SGuiSize>;
template class KeyWithFields<SGuiVisible>;
template class KeyWithFields<SGuiAlign>;
template class KeyWithFields<SGuiColor>;
