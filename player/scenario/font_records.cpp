#include "player/scenario/font_records.h"

#include "fonts/logfont.h"

namespace scenario {

namespace {

struct NumberField {
    const char* name;
    std::int32_t LOGFONTW::*member;
};
constexpr NumberField numbers[] = {
    {"height", &LOGFONTW::lfHeight},           {"width", &LOGFONTW::lfWidth},   {"escapement", &LOGFONTW::lfEscapement},
    {"orientation", &LOGFONTW::lfOrientation}, {"weight", &LOGFONTW::lfWeight},
};

struct ByteField {
    const char* name;
    std::uint8_t LOGFONTW::*member;
};
constexpr ByteField bytes[] = {
    {"italic", &LOGFONTW::lfItalic},
    {"underline", &LOGFONTW::lfUnderline},
    {"strikeout", &LOGFONTW::lfStrikeOut},
    {"charset", &LOGFONTW::lfCharSet},
    {"outprecision", &LOGFONTW::lfOutPrecision},
    {"clipprecision", &LOGFONTW::lfClipPrecision},
    {"quality", &LOGFONTW::lfQuality},
    {"pitch", &LOGFONTW::lfPitchAndFamily},
};

}  // namespace

Value value_of(const LOGFONTW& record) {
    Value table = {{"face", value_of(face_name(record))}};
    for (const NumberField& field : numbers) table[field.name] = record.*field.member;
    for (const ByteField& field : bytes) table[field.name] = record.*field.member;
    return table;
}

LOGFONTW font_record(const Value& table, const std::string& what) {
    LOGFONTW record{};
    Fields fields(table, what);
    tstringW face;
    if (fields.read("face", face)) set_face_name(record, face);
    for (const NumberField& field : numbers) {
        int number = 0;
        if (fields.read(field.name, number)) record.*field.member = number;
    }
    for (const ByteField& field : bytes) {
        int number = 0;
        if (fields.read(field.name, number)) record.*field.member = static_cast<std::uint8_t>(number);
    }
    fields.finish();
    return record;
}

}  // namespace scenario
