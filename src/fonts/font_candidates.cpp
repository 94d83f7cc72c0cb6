#include "fonts/font_candidates.h"

#include <cwctype>
#include <set>

#include "fonts/logfont.h"

namespace {

// Descending and blind to case: longer names come before their own beginnings, the empty word last, so that the most
// special style is tried first.
struct CandidateOrder {
    bool operator()(const std::wstring& a, const std::wstring& b) const { return folded(b) < folded(a); }

private:
    static std::wstring folded(std::wstring text) {
        for (wchar_t& c : text) c = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(c)));
        return text;
    }
};
using font_candidate_set = std::set<std::wstring, CandidateOrder>;

struct WeightWords {
    int weight;
    font_candidate_set words;
};

font_candidate_set weight_words(int weight) {
    static const WeightWords table[] = {
        {250, {L"ExtraLight", L""}},
        {300, {L"Light", L""}},
        {400, {L"Regular", L"Medium", L""}},
        {500, {L"Medium", L""}},
        {600, {L"Semibold", L"Bold", L""}},
        {700, {L"old", L"Bold", L"Black", L""}},
        {900, {L"Heavy", L""}},
    };
    for (const WeightWords& row : table) {
        if (row.weight == weight) return row.words;
    }
    return {L"Regular", L""};
}

font_candidate_set italic_words(bool italic) {
    if (!italic) return {L""};
    return {L"Slanted", L"Oblique", L"Italic", L"Itali", L"It", L""};
}

font_candidate_set base_names(const std::wstring& face) {
    return {face, face.substr(0, face.find(L" Regular")), face + L"ensed"};
}

std::wstring joined(std::wstring name, const std::wstring& word) {
    return word.empty() ? name : name.append(L" ").append(word);
}

}  // namespace

std::vector<std::wstring> font_candidates(const LOGFONTW& record) {
    if (face_name(record) == default_font_name) return {};
    const font_candidate_set bases = base_names(face_name(record));
    std::vector<std::wstring> names;
    for (const std::wstring& weight : weight_words(record.lfWeight)) {
        for (const std::wstring& italic : italic_words(record.lfItalic != 0)) {
            for (const std::wstring& base : bases) names.push_back(joined(joined(base, weight), italic));
        }
    }
    const std::wstring& shortest = *bases.rbegin();
    names.push_back(shortest);
    names.push_back(shortest + L" Regular");
    return names;
}
