// The crowd as an immediate-mode library shows it: as bare draw lists, and as windows of buttons. Nothing is kept
// between frames, so that a moved mouse costs a whole frame.

#include <imgui.h>

#include "measure.h"
#include "peers/flat_crowd.h"

namespace {

using bench::FlatDialog;
using bench::FlatShape;

constexpr const char* text = "welcome 1234";

ImVec2 corner(int x, int y) { return {static_cast<float>(x), static_cast<float>(y)}; }
ImVec2 begin_of(const CRect& rect) { return corner(rect.left, rect.top); }
ImVec2 end_of(const CRect& rect) { return corner(rect.right, rect.bottom); }
ImTextureID picture_of(const FlatShape& shape) {
    return reinterpret_cast<ImTextureID>(std::intptr_t{shape.picture + 2});
}

class Context {
public:
    Context() {
        ImGui::CreateContext();
        ImGuiIO& io = ImGui::GetIO();
        io.IniFilename = nullptr;
        io.DisplaySize = corner(bench::crowd_width, bench::crowd_height);
        io.BackendFlags |= ImGuiBackendFlags_RendererHasVtxOffset;
        unsigned char* pixels = nullptr;
        int width = 0;
        int height = 0;
        io.Fonts->GetTexDataAsRGBA32(&pixels, &width, &height);
        io.Fonts->SetTexID(reinterpret_cast<ImTextureID>(std::intptr_t{1}));
    }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    ~Context() { ImGui::DestroyContext(); }
};

template <class Draw>
void frame(Draw draw) {
    ImGui::GetIO().DeltaTime = 1.0f / 60.0f;
    ImGui::NewFrame();
    draw();
    ImGui::Render();
    benchmark::DoNotOptimize(ImGui::GetDrawData()->TotalVtxCount);
}

void draw_lists(const std::vector<FlatDialog>& dialogs, int layers, ImU32 color) {
    ImDrawList& list = *ImGui::GetBackgroundDrawList();
    for (const FlatDialog& dialog : dialogs) {
        list.PushClipRect(begin_of(dialog.rect), end_of(dialog.rect), true);
        for (const FlatShape& shape : dialog.shapes) {
            for (int layer = 0; layer < layers; ++layer) {
                if (shape.picture < 0 && layers == 1)
                    list.AddRectFilled(begin_of(shape.rect), end_of(shape.rect), color);
                else
                    list.AddImage(picture_of(shape), begin_of(shape.rect), end_of(shape.rect), {0, 0}, {1, 1},
                                  color + static_cast<ImU32>(layer));
            }
            if (shape.has_text) list.AddText(begin_of(shape.rect), color, text);
        }
        list.PopClipRect();
    }
}

void widgets(const std::vector<FlatDialog>& dialogs) {
    int id = 0;
    for (const FlatDialog& dialog : dialogs) {
        ImGui::SetNextWindowPos(begin_of(dialog.rect));
        ImGui::SetNextWindowSize(corner(dialog.rect.Width(), dialog.rect.Height()));
        ImGui::PushID(++id);
        char name[32];
        std::snprintf(name, sizeof name, "dialog %d", id);
        ImGui::Begin(name, nullptr, ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoSavedSettings);
        for (const FlatShape& shape : dialog.shapes) {
            ImGui::SetCursorScreenPos(begin_of(shape.rect));
            const ImVec2 size = corner(shape.rect.Width(), shape.rect.Height());
            ImGui::PushID(++id);
            if (shape.picture < 0)
                ImGui::Button(shape.has_text ? text : "##", size);
            else
                ImGui::ImageButton(picture_of(shape), size, {0, 0}, {1, 1}, 0);
            ImGui::PopID();
        }
        ImGui::End();
        ImGui::PopID();
    }
}

enum Way { DRAW_LISTS, DRAW_LISTS_FADING, WIDGETS, WIDGETS_AND_MOUSE };

void show(benchmark::State& state, Way way, const char* includes) {
    const Context context;
    const std::vector<FlatDialog> dialogs = bench::flat_crowd(static_cast<int>(state.range(0)));
    unsigned moment = 0;
    const auto next = [&] {
        ++moment;
        if (way == WIDGETS_AND_MOUSE) ImGui::GetIO().MousePos = corner(400 + (moment % 2 == 0 ? 0 : 256), 300);
        frame([&] {
            if (way == WIDGETS || way == WIDGETS_AND_MOUSE) return widgets(dialogs);
            draw_lists(dialogs, way == DRAW_LISTS ? 1 : 3, IM_COL32(128, 160, 176, 128 + moment % 64));
        });
    };
    for (int warm = 0; warm < 3; ++warm) next();
    for (auto _ : state) next();
    bench::report(state, static_cast<double>(state.range(0)), includes);
}

void add(const char* name, Way way, const char* includes) {
    benchmark::RegisterBenchmark(name, show, way, includes)->Apply(bench::crowd_sizes);
}

const bool added = [] {
    add("compose_still:Dear ImGui (draw lists)", DRAW_LISTS,
        "a whole frame of rectangles, images and text to draw data");
    add("compose_still:Dear ImGui (widgets)", WIDGETS, "a whole frame of windows with buttons and image buttons");
    add("compose_fading:Dear ImGui (draw lists)", DRAW_LISTS_FADING, "a whole frame, three images a button, and text");
    add("move_still:Dear ImGui (widgets)", WIDGETS_AND_MOUSE,
        "a frame of widgets, the one answer to a mouse move there is");
    add("move_changed:Dear ImGui (widgets)", WIDGETS_AND_MOUSE, "the same");
    return true;
}();

}  // namespace
