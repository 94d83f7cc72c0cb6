#include <gtest/gtest.h>

#include "host/core/device.h"
#include "host/core/item_store.h"
#include "host/core/project_tree.h"
#include "host/system/engine.h"

namespace {

using namespace host;

// Has every picture but one.
class PictureDevice final : public Device {
public:
    void end_frame() override {}
    CMyComPtr<IDeviceTexture> create_device_texture_ex(unsigned long, unsigned, unsigned, unsigned, unsigned, unsigned,
                                                       unsigned, unsigned, unsigned, unsigned) override {
        return {};
    }
    void draw_solid_rect(const tagRECT&, const VEC4&, x3d_blend_desc) override {}
    void draw_texture_to_rect(const tagRECT&, CMyComPtr<IDeviceTexture>, const VEC4&, x3d_blend_desc, float,
                              x3d_zfunc) override {}
    void draw_pline_with_pattern(const std::vector<VEC2>&, const VEC4&, float, unsigned long, float,
                                 x3d_blend_desc) override {}
    void draw_text(IBaseFont::Face&, int, int, const VEC4&, const wchar_t*, font_org_position) override {}
    CMyComPtr<IDeviceTexture> make_texture(const std::wstring& path) override {
        return path == L"folder/gone.png" ? CMyComPtr<IDeviceTexture>() : new IDeviceTexture;
    }
};

struct StoredPicture {
    const wchar_t* file;
    int kind;
    int option;
    const wchar_t* id;
};

class Pictures : public testing::Test {
protected:
    Pictures() {
        load.system = &engine;
        load.project_folder = "folder";
        load.warnings = &warnings;
    }
    CMyComPtr<ITexture> read(const StoredPicture& stored) {
        ProjectNode& node = places.add("m_texture");
        node.set("type", static_cast<int>(ITEM_TYPE_PICTURE));
        node.set("file_name", tstringW(stored.file));
        if (stored.kind != 0) node.set("tex_kind", stored.kind);
        if (stored.option != 4) node.set("tex_option", stored.option);
        if (*stored.id) node.set("m_item_id", tstringW(stored.id));
        const CMyComPtr<IBaseItem> item(load_item_from_node("m_texture", &places, load));
        places.begin_again();
        return CMyComPtr<ITexture>(dynamic_cast<ITexture*>(item.get()));
    }

    PictureDevice device;
    Engine engine{device, {}};
    std::vector<std::string> warnings;
    load_operation load;
    ProjectNode places{"shape"};
};

// An editor or a script that takes one picture for another of the same file would change what it did not mean to.
TEST_F(Pictures, OfOneLoadAreOneItemWhereNothingTellsThemApart) {
    const CMyComPtr<ITexture> first = read({L"a.png", 0, 4, L""});
    const wchar_t* const id = L"00000000-0000-0000-0000-000000000001";
    const std::pair<StoredPicture, bool> rows[] = {
        {{L"a.png", 0, 4, L""}, true},  {{L"b.png", 0, 4, L""}, false}, {{L"./a.png", 0, 4, L""}, false},
        {{L"a.png", 1, 4, L""}, false}, {{L"a.png", 0, 5, L""}, false}, {{L"a.png", 0, 4, id}, false},
        {{L"a.png", 0, 4, L""}, true},
    };
    for (const auto& [stored, is_first] : rows) {
        const CMyComPtr<ITexture> picture = read(stored);
        ASSERT_TRUE(picture);
        EXPECT_EQ(picture.get() == first.get(), is_first) << stored.kind << " " << stored.option;
        EXPECT_TRUE(picture->file_name == (std::wstring(stored.file) == L"b.png" ? L"folder/b.png" : L"folder/a.png"));
        EXPECT_EQ(picture->tex_kind, stored.kind);
        EXPECT_EQ(picture->tex_option, stored.option);
        EXPECT_EQ(picture->m_item_id.is_empty(), *stored.id == 0);
    }
    load.pictures.clear();
    EXPECT_NE(read({L"a.png", 0, 4, L""}).get(), first.get()) << "the file may be another one by now";
}

TEST_F(Pictures, ThatAreMissingAreToldForEachPlace) {
    const CMyComPtr<ITexture> first = read({L"gone.png", 0, 4, L""});
    const CMyComPtr<ITexture> second = read({L"gone.png", 0, 4, L""});
    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(warnings.size(), 2u);
    EXPECT_TRUE(first->file_name == L"folder/gone.png");
}

}  // namespace
