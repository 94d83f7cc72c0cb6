// The crowd as a library shows it that keeps its widgets, one vertex buffer for each texture of a layer, and draws into
// nothing. Without text: the work of the others does not hang on it.

#include <MyGUI.h>
#include <MyGUI_DataMemoryStream.h>
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <memory>
#include <string>

#include "measure.h"
#include "peers/flat_crowd.h"

namespace {

class NullTexture final : public MyGUI::ITexture {
public:
    explicit NullTexture(std::string name) : m_name(std::move(name)) {}
    const std::string& getName() const override { return m_name; }
    void createManual(int, int, MyGUI::TextureUsage, MyGUI::PixelFormat) override {}
    void loadFromFile(const std::string&) override {}
    void saveToFile(const std::string&) override {}
    void setShader(const std::string&) override {}
    void destroy() override {}
    void* lock(MyGUI::TextureUsage) override { return m_pixels; }
    void unlock() override {}
    bool isLocked() const override { return false; }
    int getWidth() const override { return 32; }
    int getHeight() const override { return 32; }
    MyGUI::PixelFormat getFormat() const override { return MyGUI::PixelFormat::R8G8B8A8; }
    MyGUI::TextureUsage getUsage() const override { return MyGUI::TextureUsage::Default; }
    size_t getNumElemBytes() const override { return 4; }

private:
    std::string m_name;
    unsigned char m_pixels[32 * 32 * 4] = {};
};

class MemoryBuffer final : public MyGUI::IVertexBuffer {
public:
    void setVertexCount(size_t count) override { m_vertices.resize(count); }
    size_t getVertexCount() const override { return m_vertices.size(); }
    MyGUI::Vertex* lock() override { return m_vertices.data(); }
    void unlock() override {}

private:
    std::vector<MyGUI::Vertex> m_vertices;
};

class NullRenderer final : public MyGUI::RenderManager, public MyGUI::IRenderTarget {
public:
    NullRenderer() { set_size(bench::crowd_width, bench::crowd_height); }
    MyGUI::IVertexBuffer* createVertexBuffer() override { return new MemoryBuffer; }
    void destroyVertexBuffer(MyGUI::IVertexBuffer* buffer) override { delete buffer; }
    MyGUI::ITexture* createTexture(const std::string& name) override {
        return (m_textures[name] = std::make_unique<NullTexture>(name)).get();
    }
    void destroyTexture(MyGUI::ITexture* texture) override { m_textures.erase(std::string(texture->getName())); }
    MyGUI::ITexture* getTexture(const std::string& name) override {
        const auto known = m_textures.find(name);
        return known == m_textures.end() ? nullptr : known->second.get();
    }
    const MyGUI::IntSize& getViewSize() const override { return m_size; }
    MyGUI::VertexColourType getVertexFormat() const override { return MyGUI::VertexColourType::ColourABGR; }
    void setViewSize(int width, int height) override {
        set_size(width, height);
        onResizeView(m_size);
    }
    void registerShader(const std::string&, const std::string&, const std::string&) override {}

    void begin() override {}
    void end() override {}
    void doRender(MyGUI::IVertexBuffer*, MyGUI::ITexture*, size_t count) override { vertices += count; }
    const MyGUI::RenderTargetInfo& getInfo() const override { return m_info; }

    void frame() {
        onFrameEvent(1.0f / 60.0f);
        onRenderToTarget(this, false);
    }
    std::size_t vertices = 0;

private:
    void set_size(int width, int height) {
        m_size = {width, height};
        m_info.maximumDepth = 1.0f;
        m_info.aspectCoef = static_cast<float>(height) / static_cast<float>(width);
        m_info.pixScaleX = 1.0f / static_cast<float>(width);
        m_info.pixScaleY = 1.0f / static_cast<float>(height);
    }
    MyGUI::IntSize m_size;
    MyGUI::RenderTargetInfo m_info;
    std::map<std::string, std::unique_ptr<NullTexture>> m_textures;
};

class MemoryFiles final : public MyGUI::DataManager {
public:
    MyGUI::IDataStream* getData(const std::string& name) const override {
        const auto file = files.find(name);
        if (file == files.end()) return nullptr;
        auto* bytes = reinterpret_cast<unsigned char*>(const_cast<char*>(file->second.data()));
        return new MyGUI::DataMemoryStream(bytes, file->second.size());
    }
    void freeData(MyGUI::IDataStream* stream) override { delete stream; }
    bool isDataExist(const std::string& name) const override { return files.count(name) != 0; }
    const MyGUI::VectorString& getDataListNames(const std::string&) const override { return m_none; }
    const std::string& getDataPath(const std::string& name) const override { return name; }

    std::map<std::string, std::string> files;

private:
    MyGUI::VectorString m_none;
};

std::string picture_name(int picture) { return picture < 0 ? "plain" : "picture" + std::to_string(picture); }

std::string skins() {
    std::string xml = "<?xml version=\"1.0\"?>\n<MyGUI type=\"Resource\" version=\"1.1\">\n";
    for (int picture = -1; picture < bench::crowd_pictures; ++picture) {
        const std::string name = picture_name(picture);
        xml += "<Resource type=\"ResourceSkin\" name=\"" + name + "\" size=\"32 32\" texture=\"" + name +
               "\"><BasisSkin type=\"SubSkin\" offset=\"0 0 32 32\" align=\"Stretch\">"
               "<State name=\"normal\" offset=\"0 0 32 32\"/></BasisSkin></Resource>\n";
    }
    return xml + "</MyGUI>\n";
}

constexpr const char* layers =
    "<?xml version=\"1.0\"?>\n<MyGUI type=\"Layer\" version=\"1.2\">"
    "<Layer name=\"Main\" type=\"OverlappedLayer\"><Property key=\"Pick\" value=\"true\"/></Layer></MyGUI>\n";

std::string position(const CRect& rect, const CRect& frame) {
    return std::to_string(rect.left - frame.left) + " " + std::to_string(rect.top - frame.top) + " " +
           std::to_string(rect.Width()) + " " + std::to_string(rect.Height());
}

std::string layout_of(const std::vector<bench::FlatDialog>& dialogs) {
    constexpr const char* aligns[] = {"Left Top",       "HCenter Top", "Right Top",    "Right VCenter", "Right Bottom",
                                      "HCenter Bottom", "Left Bottom", "Left VCenter", "Center",        "Stretch"};
    std::string xml = "<?xml version=\"1.0\"?>\n<MyGUI type=\"Layout\" version=\"3.2.0\">\n";
    for (const bench::FlatDialog& dialog : dialogs) {
        xml += "<Widget type=\"Widget\" skin=\"plain\" layer=\"Main\" align=\"Stretch\" position=\"" +
               position(dialog.rect, {}) + "\">\n";
        for (const bench::FlatShape& shape : dialog.shapes)
            xml += "<Widget type=\"Button\" skin=\"" + picture_name(shape.picture) + "\" align=\"" +
                   aligns[shape.align] + "\" position=\"" + position(shape.rect, dialog.rect) + "\"/>\n";
        xml += "</Widget>\n";
    }
    return xml + "</MyGUI>\n";
}

constexpr const char* layout_name = "crowd.layout";

// One for the whole program: the library is a set of singletons.
class Library {
public:
    static Library& get() {
        static Library library;
        return library;
    }
    void set_crowd(int shapes) { files.files[layout_name] = layout_of(bench::flat_crowd(shapes)); }
    // Parsed anew each time, as a file that is opened is.
    MyGUI::VectorWidgetPtr open() {
        MyGUI::ResourceManager::getInstance().removeByName(layout_name);
        return MyGUI::LayoutManager::getInstance().loadLayout(layout_name);
    }
    void close(MyGUI::VectorWidgetPtr& widgets) { MyGUI::LayoutManager::getInstance().unloadLayout(widgets); }

private:
    Library() {
        log.setSTDOutputEnabled(false);
        files.files = {{"skins.xml", skins()}, {"layers.xml", layers}};
        gui.initialise("");
        MyGUI::ResourceManager::getInstance().load("layers.xml");
        for (int picture = -1; picture < bench::crowd_pictures; ++picture)
            renderer.createTexture(picture_name(picture));
        MyGUI::ResourceManager::getInstance().load("skins.xml");
        renderer.setViewSize(bench::crowd_width, bench::crowd_height);
    }
    ~Library() { gui.shutdown(); }

public:
    MyGUI::LogManager log;
    NullRenderer renderer;
    MemoryFiles files;
    MyGUI::Gui gui;
};

class Opened {
public:
    explicit Opened(const benchmark::State& state) {
        library.set_crowd(static_cast<int>(state.range(0)));
        widgets = library.open();
        library.renderer.frame();
        const std::size_t before = library.renderer.vertices;
        library.renderer.frame();
        // Six corners for each rectangle.
        drawn = static_cast<double>(library.renderer.vertices - before) / 6;
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    ~Opened() { library.close(widgets); }

    Library& library = Library::get();
    MyGUI::VectorWidgetPtr widgets;
    double drawn = 0;
};

void still(benchmark::State& state) {
    Opened opened(state);
    state.counters["draw_calls"] = opened.drawn;
    for (auto _ : state) opened.library.renderer.frame();
    bench::report(state, static_cast<double>(state.range(0)),
                  "a whole frame from vertex buffers that are kept; no text");
}

void fading(benchmark::State& state) {
    Opened opened(state);
    int moment = 0;
    for (auto _ : state) {
        ++moment;
        for (MyGUI::Widget* dialog : opened.widgets) {
            for (std::size_t at = 0; at < dialog->getChildCount(); ++at)
                dialog->getChildAt(at)->setAlpha(0.5f + 0.01f * static_cast<float>(moment % 32));
        }
        opened.library.renderer.frame();
    }
    bench::report(state, static_cast<double>(state.range(0)),
                  "every widget gets a new alpha, then a frame; one layer; no text");
}

void resize(benchmark::State& state) {
    Opened opened(state);
    int width = bench::crowd_width;
    for (auto _ : state) opened.library.renderer.setViewSize(width ^= 64, bench::crowd_height);
    bench::report(state, static_cast<double>(state.range(0)),
                  "a new view size; every window stretched, widgets aligned in it");
}

void move(benchmark::State& state, int distance) {
    Opened opened(state);
    int x = 400;
    for (auto _ : state) MyGUI::InputManager::getInstance().injectMouseMove(x ^= distance, 300, 0);
    bench::report(state, static_cast<double>(state.range(0)),
                  "a mouse move to the topmost widget under it, and no other");
}

void open(benchmark::State& state) {
    Library& library = Library::get();
    library.set_crowd(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        MyGUI::VectorWidgetPtr widgets;
        state.SetIterationTime(bench::seconds_of([&] { widgets = library.open(); }));
        library.close(widgets);
    }
    bench::report(state, static_cast<double>(state.range(0)),
                  "a layout parsed and its widgets made; four properties a widget");
}

void close(benchmark::State& state) {
    Library& library = Library::get();
    library.set_crowd(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        MyGUI::VectorWidgetPtr widgets = library.open();
        state.SetIterationTime(bench::seconds_of([&] { library.close(widgets); }));
    }
    bench::report(state, static_cast<double>(state.range(0)), "all widgets of the layout destroyed");
}

double bytes_in_use() {
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

double bytes_of_crowd(int shapes) {
    Library& library = Library::get();
    library.set_crowd(shapes);
    library.renderer.frame();
    const double before = bytes_in_use();
    MyGUI::VectorWidgetPtr widgets = library.open();
    library.renderer.frame();
    MyGUI::ResourceManager::getInstance().removeByName(layout_name);
    return bytes_in_use() - before;
}

// In a process of its own: the library keeps the vertices of widgets that are gone for those to come.
void memory(benchmark::State& state) {
    double bytes = 0;
    for (auto _ : state) {
        int ends[2];
        if (pipe(ends) != 0) return state.SkipWithError("no pipe");
        const pid_t child = fork();
        if (child == 0) {
            const double found = bytes_of_crowd(static_cast<int>(state.range(0)));
            _exit(write(ends[1], &found, sizeof found) == sizeof found ? 0 : 1);
        }
        if (read(ends[0], &bytes, sizeof bytes) != sizeof bytes) return state.SkipWithError("no figure");
        waitpid(child, nullptr, 0);
        ::close(ends[0]);
        ::close(ends[1]);
    }
    state.counters["bytes_per_element"] = bytes / static_cast<double>(state.range(0));
    state.SetLabel("heap that the open layout holds after its first frame, vertices included, as malloc counts it");
}

const bool added = [] {
    // Ahead of the others, so that the library is new in each child.
    benchmark::RegisterBenchmark("memory:MyGUI", memory)->Apply(bench::crowd_sizes)->Iterations(1);
    benchmark::RegisterBenchmark("compose_still:MyGUI", still)->Apply(bench::crowd_sizes);
    benchmark::RegisterBenchmark("compose_fading:MyGUI", fading)->Apply(bench::crowd_sizes);
    benchmark::RegisterBenchmark("resize:MyGUI", resize)->Apply(bench::crowd_sizes);
    benchmark::RegisterBenchmark("move_still:MyGUI", move, 1)->Apply(bench::crowd_sizes);
    benchmark::RegisterBenchmark("move_changed:MyGUI", move, 256)->Apply(bench::crowd_sizes);
    benchmark::RegisterBenchmark("open:MyGUI", open)->Apply(bench::crowd_sizes)->UseManualTime()->Iterations(1);
    benchmark::RegisterBenchmark("close:MyGUI", close)->Apply(bench::crowd_sizes)->UseManualTime()->Iterations(1);
    return true;
}();

}  // namespace
