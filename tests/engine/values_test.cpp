#include <gtest/gtest.h>

#include <cstdint>

#include "engine/engine_core.h"

TEST(Text, FormatsWhatIsLongerThanAnyFirstBufferAndWhatIsChinese) {
    tstringW text;
    EXPECT_EQ(&text, &text.Format(L"图片按钮%d", 12));
    EXPECT_EQ(text, L"图片按钮12");
    const std::wstring dots(5000, L'口');
    EXPECT_EQ(text.Format(L"%ls|%d", dots.c_str(), -7), dots + L"|-7");
    EXPECT_EQ(text.Format(L"%d%%", 5), L"5%");
}

TEST(Text, FindsByIndexAndMinusOne) {
    const tstringW text(L"窗口a窗口");
    EXPECT_EQ(text.Find(L"口"), 1);
    EXPECT_EQ(text.Find(L"x"), -1);
    EXPECT_EQ(text.find_first_of(L'口', 2), 4);
    EXPECT_EQ(text.find_first_of(L'口', 5), -1);
    EXPECT_EQ(text.find_first_of(L'窗', -3), 0);
    EXPECT_EQ(text.find_first_of(L'窗', 99), -1);
    EXPECT_EQ(text.size(), 5);
}

TEST(Text, ReplacesEachOccurrenceOnce) {
    tstringW text(L"aaa");
    EXPECT_EQ(text.Replace(L"a", L"aa"), 3);
    EXPECT_EQ(text, L"aaaaaa");
    EXPECT_EQ(text.Replace(L"", L"x"), 0);
    EXPECT_EQ(text.Replace(L"aaaa", L""), 1);
    EXPECT_EQ(text, L"aa");
    // Scripts may give megabytes; this has to take milliseconds, not minutes.
    tstringW long_text(std::wstring(1 << 21, L'a'));
    EXPECT_EQ(long_text.Replace(L"a", L"bb"), 1 << 21);
    EXPECT_EQ(long_text.size(), 1 << 22);
}

TEST(Text, CutsPartsToWhatThereIs) {
    const tstringW text(L"abcd");
    EXPECT_EQ(text.substr(1, 2), L"bc");
    EXPECT_EQ(text.substr(2, -1), L"cd");
    EXPECT_EQ(text.substr(2, 99), L"cd");
    EXPECT_EQ(text.substr(9, 1), L"");
    EXPECT_EQ(tstringW(L"x").to_string(INT32_MIN), L"-2147483648");
}

TEST(Guid, GoesThroughTextInTheByteOrderOfARecord) {
    const CGuid id(GUID{0x283B689B, 0x6775, 0x0F82, {0x31, 0x71, 0x70, 0xE9, 0x3A, 0xFF, 0x15, 0xF6}});
    EXPECT_TRUE(CGuid(L"283B689B-6775-0F82-3171-70E93AFF15F6") == id);
    EXPECT_TRUE(CGuid(L"283b689b-6775-0f82-3171-70e93aff15f6") == id);
    EXPECT_EQ(id.to_text(), L"283B689B-6775-0F82-3171-70E93AFF15F6");
}

TEST(Guid, IsEmptyForAnyOtherText) {
    for (const wchar_t* text : {L"", L"283B689B", L"283B689B-6775-0F82-3171-70E93AFF15F6 ",
                                L"{83B689B-6775-0F82-3171-70E93AFF15F6", L"283B689B-6775-0F82-3171-70E93AFF15FG",
                                L"283B689B067750F82-3171-70E93AFF15F6x", L"283B-689B-6775-0F82-3171-70E93AFF15F"}) {
        EXPECT_TRUE(CGuid(text).is_empty()) << testing::PrintToString(std::wstring(text));
    }
}

namespace {

// Notes its own end, and what another pointer held at that moment.
struct Counted : IMyCom {
    explicit Counted(int& ended) : ends(ended) {}
    ~Counted() override { ++ends; }
    void on_before_release() override { ++farewells; }
    int& ends;
    static inline int farewells = 0;
};

struct AsksAtItsEnd : IMyCom {
    ~AsksAtItsEnd() override { was_replaced = slot->get() != this; }
    CMyComPtr<IMyCom>* slot = nullptr;
    static inline bool was_replaced = false;
};

}  // namespace

TEST(CountedPointer, DestroysAtTheLastRelease) {
    int ended = 0;
    Counted::farewells = 0;
    {
        CMyComPtr<Counted> a(new Counted(ended));
        CMyComPtr<Counted> b = a;
        const CMyComPtr<IMyCom> base = b;
        CMyComPtr<Counted>& same = a;
        a = same;
        b = {};
        a = CMyComPtr<Counted>();
        EXPECT_TRUE(!a);
        EXPECT_EQ(ended, 0);
        b = CMyComPtr<Counted>(std::move(a));
        EXPECT_FALSE(b);
    }
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(Counted::farewells, 1);
}

TEST(CountedPointer, CopyingAnObjectDoesNotCopyItsCount) {
    int ended = 0;
    const CMyComPtr<Counted> a(new Counted(ended));
    { const CMyComPtr<Counted> copy(new Counted(*a)); }
    EXPECT_EQ(ended, 1);
}

TEST(CountedPointer, HoldsTheNewObjectBeforeTheOldOneEnds) {
    CMyComPtr<IMyCom> slot(new AsksAtItsEnd);
    static_cast<AsksAtItsEnd*>(slot.get())->slot = &slot;
    slot = CMyComPtr<IMyCom>(new IMyCom);
    EXPECT_TRUE(AsksAtItsEnd::was_replaced);
}

TEST(Rectangle, SaturatesItsSize) {
    EXPECT_EQ(CRect(INT32_MIN, 0, INT32_MAX, 0).Width(), INT32_MAX);
    EXPECT_EQ(CRect(0, INT32_MAX, 0, INT32_MIN).Height(), INT32_MIN);
    EXPECT_EQ(CRect(10, 20, 4, 21).Width(), -6);
}

TEST(Rectangle, HoldsItsNearEdgesOnly) {
    const CRect rect(10, 20, 30, 40);
    EXPECT_TRUE(contains(rect, CPoint(10, 20)));
    EXPECT_TRUE(contains(rect, CPoint(29, 39)));
    EXPECT_FALSE(contains(rect, CPoint(30, 25)));
    EXPECT_FALSE(contains(rect, CPoint(15, 40)));
    EXPECT_FALSE(contains(CRect(10, 20, 10, 40), CPoint(10, 25)));
    EXPECT_FALSE(contains(CRect(30, 40, 10, 20), CPoint(15, 25)));
}

TEST(Vectors, ActMemberByMember) {
    VEC4 v(1, 2, 3, 4);
    v += VEC4(10, 20, 30, 40);
    v -= VEC4(1, 1, 1, 1);
    EXPECT_TRUE(v == VEC4(10, 21, 32, 43));
    EXPECT_FALSE(v == VEC4(10, 21, 32, 44));
    EXPECT_TRUE(v - VEC4(0, 1, 2, 3) == VEC4(10, 20, 30, 40));
    const VEC3 color = v;
    const VEC2 pair = color;
    EXPECT_FLOAT_EQ(color.z, 32.0f);
    EXPECT_FLOAT_EQ((pair - VEC2(1, 1)).y, 20.0f);
}

TEST(Blend, PutsItsLastArgumentFirst) {
    EXPECT_EQ(x3d_blend_desc(1, 2, 3, 4, 5, 6, 7, 8).members, (std::array<std::int32_t, 8>{8, 1, 2, 3, 4, 5, 6, 7}));
}
