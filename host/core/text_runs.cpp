#include "host/core/text_runs.h"

namespace host {
namespace {

std::size_t run_length(std::wstring_view rest, std::size_t longest) {
    if (rest.size() <= longest) return rest.size();
    const std::size_t blank = rest.substr(0, longest).rfind(L' ');
    return blank == std::wstring_view::npos ? longest : blank + 1;
}

}  // namespace

TextRuns cut_into_runs(std::wstring_view text, std::size_t longest_run) {
    text = text.substr(0, longest_text);
    TextRuns result{{}, 0};
    for (std::size_t start = 0; start <= text.size(); ++result.line_count) {
        std::size_t end = text.find(L'\n', start);
        if (end == std::wstring_view::npos) end = text.size();
        std::wstring_view rest = text.substr(start, end - start);
        if (!rest.empty() && rest.back() == L'\r') rest.remove_suffix(1);
        for (std::size_t at = start; !rest.empty();) {
            const std::size_t length = run_length(rest, longest_run);
            result.runs.push_back({at, length, result.line_count});
            rest.remove_prefix(length);
            at += length;
        }
        start = end + 1;
    }
    return result;
}

}  // namespace host
