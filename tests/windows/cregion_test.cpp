#include "controls/cRegion.h"

#include "windows/Gui.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <string>
#include <vector>

namespace {

// The list of rectangles that a shape is made from.
std::vector<RECT> ReadShape(const std::string& name) {
    std::ifstream in(std::string(ZC_SOURCE_DIR) + "/data/shapes/" + name + ".tsv");
    std::vector<RECT> rectangles;
    RECT r{};
    while (in >> r.left >> r.top >> r.right >> r.bottom) rectangles.push_back(r);
    return rectangles;
}

RECT Box(const cRegion& region) {
    RECT box{};
    GetRgnBox(region.hRgn(), &box);
    return box;
}

void ExpectBox(LONG left, LONG top, LONG right, LONG bottom, const RECT& box) {
    EXPECT_EQ(left, box.left);
    EXPECT_EQ(top, box.top);
    EXPECT_EQ(right, box.right);
    EXPECT_EQ(bottom, box.bottom);
}

// Points of the area in which region and rectangles disagree; scale is how many pixels of
// the region one of the list's is long and wide.
int Differences(const cRegion& region, const std::vector<RECT>& rectangles, int scale) {
    const RECT box = Box(region);
    const int width = box.right + 4, height = box.bottom + 4;
    std::vector<char> wanted(static_cast<std::size_t>(width) * height);
    for (const RECT& r : rectangles)
        for (LONG y = r.top * scale; y < r.bottom * scale && y < height; ++y)
            for (LONG x = r.left * scale; x < r.right * scale && x < width; ++x)
                wanted[static_cast<std::size_t>(y) * width + x] = 1;
    int differences = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if ((PtInRegion(region.hRgn(), x, y) != 0) !=
                (wanted[static_cast<std::size_t>(y) * width + x] != 0))
                ++differences;
    return differences;
}

std::vector<char> MakeBlock(const std::vector<RECT>& rectangles) {
    RGNDATAHEADER header{};
    header.dwSize = sizeof header;
    header.iType = RDH_RECTANGLES;
    header.nCount = static_cast<DWORD>(rectangles.size());
    header.nRgnSize = static_cast<DWORD>(rectangles.size() * sizeof(RECT));
    std::vector<char> block(sizeof header + rectangles.size() * sizeof(RECT));
    std::memcpy(block.data(), &header, sizeof header);
    std::memcpy(block.data() + sizeof header, rectangles.data(), rectangles.size() * sizeof(RECT));
    return block;
}

// Hands the block to MakeRegion with its end at the end of the readable memory: a read
// beyond it ends the test program.
class Guarded {
public:
    explicit Guarded(const std::vector<char>& block) : m_Size(block.size()) {
        SYSTEM_INFO system;
        GetSystemInfo(&system);
        const std::size_t page = system.dwPageSize;
        const std::size_t pages = (m_Size + page - 1) / page * page;
        m_Memory = static_cast<char*>(VirtualAlloc(nullptr, pages + page, MEM_RESERVE, PAGE_NOACCESS));
        if (pages) VirtualAlloc(m_Memory, pages, MEM_COMMIT, PAGE_READWRITE);
        m_Block = m_Memory + pages - m_Size;
        if (m_Size) std::memcpy(m_Block, block.data(), m_Size);
    }
    ~Guarded() { VirtualFree(m_Memory, 0, MEM_RELEASE); }
    Guarded(const Guarded&) = delete;
    Guarded& operator=(const Guarded&) = delete;

    bool Accepted(int dpi = 96) const {
        HRGN region = MakeRegion(m_Block, m_Size, dpi);
        if (region) DeleteObject(region);
        return region != nullptr;
    }

private:
    std::size_t m_Size;
    char* m_Memory;
    char* m_Block;
};

const std::vector<RECT> kThree = {{4, 0, 20, 1}, {2, 1, 22, 3}, {0, 3, 24, 30}};

template <class Value>
std::vector<char> With(std::vector<char> block, std::size_t at, Value value) {
    std::memcpy(block.data() + at, &value, sizeof value);
    return block;
}

TEST(Region, TheThreeShapesHaveTheirRectanglesAndBoxes) {
    cRegion region;
    EXPECT_EQ(nullptr, region.hRgn());
    ASSERT_TRUE(region.RegionFromResource(101, u"CUSTOM"));
    ExpectBox(1, 1, 368, 308, Box(region)); // 367 by 307
    EXPECT_EQ(100u, ReadShape("shape-101").size());
    EXPECT_EQ(0, Differences(region, ReadShape("shape-101"), 1));
    ASSERT_TRUE(region.RegionFromResource(102, u"CUSTOM"));
    EXPECT_EQ(96u, ReadShape("shape-102").size());
    EXPECT_EQ(0, Differences(region, ReadShape("shape-102"), 1));
    ASSERT_TRUE(region.RegionFromResource(103, u"CUSTOM"));
    EXPECT_EQ(13u, ReadShape("shape-103").size());
    EXPECT_EQ(0, Differences(region, ReadShape("shape-103"), 1));
    ExpectBox(0, 0, 520, 440, Box(region));
}

TEST(Region, CornersOfTheMainWindowAreCutAt96Dpi) {
    cRegion region;
    ASSERT_TRUE(region.RegionFromResource(101, u"CUSTOM", 96));
    const HRGN shape = region.hRgn();
    EXPECT_FALSE(PtInRegion(shape, 28, 1));
    EXPECT_TRUE(PtInRegion(shape, 29, 1));
    EXPECT_TRUE(PtInRegion(shape, 352, 1));
    EXPECT_FALSE(PtInRegion(shape, 353, 1));
    EXPECT_FALSE(PtInRegion(shape, 100, 0));
    EXPECT_FALSE(PtInRegion(shape, 24, 2));
    EXPECT_TRUE(PtInRegion(shape, 25, 2));
    EXPECT_FALSE(PtInRegion(shape, 0, 150));
    EXPECT_FALSE(PtInRegion(shape, 368, 150));
}

TEST(Region, CornersOfTheMainWindowHaveFinerStepsAt192Dpi) {
    cRegion region;
    ASSERT_TRUE(region.RegionFromResource(101, u"CUSTOM", 192));
    const HRGN shape = region.hRgn();
    EXPECT_FALSE(PtInRegion(shape, 61, 2));
    EXPECT_TRUE(PtInRegion(shape, 62, 2));
    EXPECT_FALSE(PtInRegion(shape, 55, 3));
    EXPECT_TRUE(PtInRegion(shape, 56, 3));
    EXPECT_EQ(0, Differences(region, ReadShape("shape-101-192dpi"), 1));
    ASSERT_TRUE(region.RegionFromResource(102, u"CUSTOM", 192));
    EXPECT_EQ(0, Differences(region, ReadShape("shape-102-192dpi"), 1));
    ASSERT_TRUE(region.RegionFromResource(103, u"CUSTOM", 192));
    EXPECT_EQ(0, Differences(region, ReadShape("shape-103-192dpi"), 1));
}

TEST(Region, ABlockIsScaledByItsEdges) {
    const auto block = MakeBlock(kThree);
    HRGN twice = MakeRegion(block.data(), block.size(), 192);
    ASSERT_NE(nullptr, twice);
    for (int y = -1; y < 64; ++y)
        for (int x = -1; x < 52; ++x) {
            bool wanted = false;
            for (const RECT& r : kThree)
                wanted = wanted || (x >= 2 * r.left && x < 2 * r.right && y >= 2 * r.top && y < 2 * r.bottom);
            ASSERT_EQ(wanted, PtInRegion(twice, x, y) != 0) << x << ", " << y;
        }
    DeleteObject(twice);

    // At 120 DPI the rows of one pixel end at 1.25, 3.75 and 37.5: no gap opens between them.
    HRGN larger = MakeRegion(block.data(), block.size(), 120);
    ASSERT_NE(nullptr, larger);
    RECT box{};
    GetRgnBox(larger, &box);
    ExpectBox(0, 0, 30, 38, box);
    for (int y = 0; y < 38; ++y) EXPECT_TRUE(PtInRegion(larger, 15, y)) << y;
    EXPECT_FALSE(PtInRegion(larger, 4, 0)); // left edges at 5, 2.5 and 0
    EXPECT_TRUE(PtInRegion(larger, 5, 0));
    EXPECT_FALSE(PtInRegion(larger, 2, 1));
    EXPECT_TRUE(PtInRegion(larger, 3, 1));
    EXPECT_FALSE(PtInRegion(larger, 2, 3));
    EXPECT_TRUE(PtInRegion(larger, 0, 4));
    DeleteObject(larger);
}

TEST(Region, WithoutAFinerDrawing192DpiScalesToo) {
    // Of this type there is none with 192 behind it.
    cRegion region;
    ASSERT_TRUE(region.RegionFromResource(103, u"CUSTOM192", 192));
    ExpectBox(0, 0, 2080, 1760, Box(region));
}

TEST(Region, AMissingResourceLeavesTheOldRegion) {
    cRegion region;
    EXPECT_FALSE(region.RegionFromResource(104, u"CUSTOM"));
    EXPECT_EQ(nullptr, region.hRgn());
    ASSERT_TRUE(region.RegionFromResource(103, u"CUSTOM"));
    const HRGN before = region.hRgn();
    EXPECT_FALSE(region.RegionFromResource(104, u"CUSTOM"));
    EXPECT_FALSE(region.RegionFromResource(103, u"NOTHING"));
    EXPECT_FALSE(region.RegionFromResource(1, u""));
    EXPECT_EQ(before, region.hRgn());
    ExpectBox(0, 0, 520, 440, Box(region));
}

TEST(Region, AResourceThatIsNoRegionIsRefused) {
    cRegion region;
    EXPECT_FALSE(region.RegionFromResource(1, u"#24")); // the manifest
    EXPECT_EQ(nullptr, region.hRgn());
}

TEST(Region, TruncatedBlocksAreRefusedAtEveryLength) {
    const auto whole = MakeBlock(kThree);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(Guarded({whole.begin(), whole.begin() + static_cast<long>(size)}).Accepted()) << size;
    EXPECT_TRUE(Guarded(whole).Accepted());
    auto longer = whole;
    longer.resize(whole.size() + 5);
    EXPECT_TRUE(Guarded(longer).Accepted());
}

TEST(Region, BlocksThatLieAboutTheirCountAreRefused) {
    const auto whole = MakeBlock(kThree);
    for (DWORD count :
         {4u, 5u, 1000u, 0x0FFFFFFFu, 0x10000000u, 0x10000003u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu})
        EXPECT_FALSE(Guarded(With(whole, offsetof(RGNDATAHEADER, nCount), count)).Accepted()) << count;
    EXPECT_FALSE(Guarded(With(whole, offsetof(RGNDATAHEADER, nCount), DWORD{0})).Accepted());
    // A smaller number takes that many.
    EXPECT_TRUE(Guarded(With(whole, offsetof(RGNDATAHEADER, nCount), DWORD{2})).Accepted());
}

TEST(Region, ASizeThatTheHeaderGivesIsNotBelieved) {
    const auto whole = MakeBlock(kThree);
    for (DWORD size : {0u, 16u, 0x7FFFFFFFu, 0xFFFFFFFFu})
        EXPECT_TRUE(Guarded(With(whole, offsetof(RGNDATAHEADER, nRgnSize), size)).Accepted()) << size;
    for (DWORD size : {0u, 31u, 33u, 48u, 0xFFFFFFFFu})
        EXPECT_FALSE(Guarded(With(whole, offsetof(RGNDATAHEADER, dwSize), size)).Accepted()) << size;
    for (DWORD kind : {0u, 2u, 0xFFFFFFFFu})
        EXPECT_FALSE(Guarded(With(whole, offsetof(RGNDATAHEADER, iType), kind)).Accepted()) << kind;
}

TEST(Region, RectanglesWithoutAnInsideOrBeyondAllScreensAreRefused) {
    for (RECT bad :
         {RECT{5, 5, 5, 9}, RECT{5, 5, 9, 5}, RECT{9, 5, 5, 9}, RECT{5, 9, 9, 5}, RECT{0, 0, 0x7FFFFFFF, 1},
          RECT{static_cast<LONG>(0x80000000), 0, 1, 1}, RECT{0, 0, 1, 0x7FFFFFFF}}) {
        const auto block = MakeBlock({{0, 0, 1, 1}, bad});
        EXPECT_FALSE(Guarded(block).Accepted(96));
        EXPECT_FALSE(Guarded(block).Accepted(192));
    }
}

class RegionOfWindow : public testing::Test {
protected:
    void SetUp() override { m_Window = gui::MakeWindow(nullptr, {50, 50, 420, 360}); }
    void TearDown() override { DestroyWindow(m_Window); }

    HWND m_Window = nullptr;
};

TEST_F(RegionOfWindow, ApplyShapesTheWindowWithACopy) {
    HRGN of = CreateRectRgn(0, 0, 0, 0);
    {
        cRegion region;
        ASSERT_TRUE(region.RegionFromResource(101, u"CUSTOM"));
        ASSERT_TRUE(region.Apply(m_Window));
        EXPECT_NE(ERROR, GetWindowRgn(m_Window, of));
        EXPECT_TRUE(EqualRgn(of, region.hRgn()));
    }
    // Its own region is gone with it, the window's is not.
    EXPECT_NE(ERROR, GetWindowRgn(m_Window, of));
    RECT box{};
    GetRgnBox(of, &box);
    ExpectBox(1, 1, 368, 308, box);
    // What lies outside belongs to nobody: the mouse goes through.
    EXPECT_EQ(m_Window, WindowFromPoint({50 + 29, 50 + 1}));
    EXPECT_NE(m_Window, WindowFromPoint({50 + 28, 50 + 1}));
    EXPECT_EQ(m_Window, WindowFromPoint({50 + 352, 50 + 1}));
    EXPECT_NE(m_Window, WindowFromPoint({50 + 353, 50 + 1}));
    DeleteObject(of);
}

TEST_F(RegionOfWindow, ApplyWithoutARegionMakesItPlainAgain) {
    cRegion region;
    ASSERT_TRUE(region.RegionFromResource(101, u"CUSTOM"));
    ASSERT_TRUE(region.Apply(m_Window));
    cRegion none;
    EXPECT_TRUE(none.Apply(m_Window));
    HRGN of = CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(ERROR, GetWindowRgn(m_Window, of));
    DeleteObject(of);
}

TEST_F(RegionOfWindow, ApplyToAHandleThatIsNoWindowFails) {
    cRegion region;
    ASSERT_TRUE(region.RegionFromResource(103, u"CUSTOM"));
    EXPECT_FALSE(region.Apply(nullptr));
}

} // namespace
