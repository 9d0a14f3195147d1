// The store of pictures.
#include "controls/McImageList.h"

#include "support/Failure.h"
#include "windows/FormTest.h"

namespace {

TEST(McImageList, NumbersItsPictures) {
    McImageList images;
    EXPECT_EQ(images.ImageCount(), 0);
    images.AddNewImage(Picture::FromResource(u"task-text"));
    images.AddNewImage(Picture());
    EXPECT_EQ(images.ImageCount(), 2);
    EXPECT_EQ(images.Image(0).Size().cx, 16);
    EXPECT_TRUE(images.Image(1).Empty());
    images.Image(1, images.Image(0));
    EXPECT_EQ(images.ListImages()[1], images.Image(0));
    EXPECT_EQ(images.CurrentImage(), 0);
    images.CurrentImage(1);
    EXPECT_EQ(images.CurrentImage(), 1);
}

TEST(McImageList, ANumberOutOfRangeIsFailure9) {
    McImageList images;
    images.AddNewImage(Picture());
    for (const int index : {-1, 1, 100'000}) {
        EXPECT_EQ(FailureNumber([&] { images.Image(index); }), 9);
        EXPECT_EQ(FailureNumber([&] { images.Image(index, Picture()); }), 9);
        EXPECT_EQ(FailureNumber([&] { images.CurrentImage(index); }), 9);
    }
    EXPECT_EQ(images.CurrentImage(), 0);
}

struct Built {
    Form Window;
    McImageList Images;
    explicit Built(std::u16string_view properties) {
        m_Layout = u"form\nf\t\tfrmA\tform\t\t\t3000\t3000\t\t\t\n"
                   u"f\tfrmA\tImages\tMcImageList\t0\t0\t0\t0\t\t\t" +
                   std::u16string(properties) + u"\n";
        Window.Bind(u"Images", Images).Create(m_Layout);
    }

private:
    std::u16string m_Layout;
};

TEST(McImageList, ItsPicturesComeWithTheForm) {
    const Built built(u"ImageCount=2; Images0=task-text; Images1=task-word; CurrentImage=1");
    EXPECT_EQ(built.Images.ImageCount(), 2);
    EXPECT_FALSE(built.Images.Image(0).Empty());
    EXPECT_NE(built.Images.Image(0), built.Images.Image(1));
    EXPECT_EQ(built.Images.CurrentImage(), 1);
}

TEST(McImageList, DamagedPropertiesAreRefused) {
    EXPECT_EQ(FailureNumber([] { Built(u"ImageCount=1; Images1=task-text"); }), 9);
    EXPECT_EQ(FailureNumber([] { Built(u"ImageCount=-1"); }), 9);
    EXPECT_EQ(FailureNumber([] { Built(u"ImageCount=1; Images0=no-such-picture"); }), 13);
    EXPECT_EQ(FailureNumber([] { Built(u"ImageCount=1; Imagesx=task-text"); }), 13);
}

} // namespace
