#include "platform/controls/picturebox.h"
#include "platform/desktop/picturefile.h"
#include "support/testfolder.h"

#include <QImage>
#include <QLoggingCategory>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace vorel;
using controls::PictureBox;

namespace {

// Red at the left, blue at the right.
QImage halves(QSize size)
{
    QImage drawn(size, QImage::Format_RGB32);
    drawn.fill(Qt::red);
    QPainter(&drawn).fillRect(size.width() / 2, 0, size.width(), size.height(), Qt::blue);
    return drawn;
}

bool isRed(const QColor &colour)
{
    return colour.red() > 200 && colour.blue() < 60;
}

// The picture as a camera held upright stores it: to be turned by a quarter to the right.
QByteArray turned(QByteArray jpeg)
{
    static const char exif[] = "\xFF\xE1\x00\x22" "Exif\0\0" "MM\0\x2A\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06\0\0\0\0\0\0";
    return jpeg.insert(2, QByteArray(exif, 0x22 + 2));
}

// A head that claims the size, with nothing behind it.
QByteArray bmpHead(qint32 width, qint32 height)
{
    QByteArray head("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0", 18);
    for (const qint32 side : {width, height})
        head.append(reinterpret_cast<const char *>(&side), 4);
    return head + QByteArray("\x01\0\x18\0", 4) + QByteArray(24, '\0');
}

class Pictures : public testing::Test {
protected:
    // The decoders print warnings about damage.
    Pictures() { QLoggingCategory::setFilterRules(u"qt.gui.imageio*=false"_s); }
    ~Pictures() override { QLoggingCategory::setFilterRules({}); }
    QByteArray jpeg(QSize size) const
    {
        EXPECT_TRUE(halves(size).save(folder.path(u"scratch.jpg"_s), "JPG", 95));
        return folder.read(u"scratch.jpg"_s);
    }
    // A small GIF of one blue pixel.
    const QByteArray gif = QByteArray::fromHex("47494638396101000100800000 0000ff000000 2c00000000010001000002024401003b");
    // The same pixel on a larger screen.
    QByteArray gifOfScreen(int width, int height) const
    {
        QByteArray made = gif;
        for (const auto &[at, side] : {std::pair{6, width}, {8, height}}) {
            made[at] = static_cast<char>(side & 0xFF);
            made[at + 1] = static_cast<char>(side >> 8);
        }
        return made;
    }
    const test::TestFolder folder;
};

}

TEST_F(Pictures, FormatsDamageAndSizes)
{
    const QImage small = halves({60, 40});
    for (const QString &name : {u"a.png"_s, u"a.bmp"_s, u"a.jpg"_s})
        ASSERT_TRUE(small.save(folder.path(name)));
    const QByteArray whole = jpeg({600, 400});
    folder.write(u"gif.gif"_s, gif);
    folder.write(u"png.jpg"_s, folder.read(u"a.png"_s));
    folder.write(u"text.jpg"_s, "no picture at all");
    folder.write(u"empty.jpg"_s, {});
    folder.write(u"head.jpg"_s, whole.left(100));
    folder.write(u"half.png"_s, folder.read(u"a.png"_s).left(60));
    folder.write(u"huge.bmp"_s, bmpHead(20000, 10000));
    folder.write(u"turned.jpg"_s, turned(whole));
    folder.write(u"drawing.jpg"_s, "<?xml version=\"1.0\"?><svg xmlns=\"http://www.w3.org/2000/svg\" width=\"60\" height=\"40\"/>");
    folder.write(u"drawing.svg"_s, "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"60\" height=\"40\"/>");
    folder.write(u"packed.jpg"_s, QByteArray::fromHex("1f8b0800000000000003") + "x");
    folder.write(u"wide.gif"_s, gifOfScreen(300, 200));
    folder.write(u"bomb.gif"_s, gifOfScreen(65535, 65535));
    const struct {
        QString name;
        QSize size;
    } cases[] = {
        {u"a.png"_s, {60, 40}},   {u"a.bmp"_s, {60, 40}},  {u"a.jpg"_s, {60, 40}}, {u"A.JPG"_s, {60, 40}},
        {u"gif.gif"_s, {1, 1}},   {u"png.jpg"_s, {60, 40}}, {u"turned.jpg"_s, {400, 600}}, {u"text.jpg"_s, {}},
        {u"empty.jpg"_s, {}},     {u"head.jpg"_s, {}},     {u"half.png"_s, {}},    {u"huge.bmp"_s, {}},
        {u"gone.jpg"_s, {}},      {u"."_s, {}},             {u"wide.gif"_s, {300, 200}},     {u"bomb.gif"_s, {}},
        {u"drawing.jpg"_s, {}},   {u"drawing.svg"_s, {}},  {u"packed.jpg"_s, {}},
    };
    for (const auto &one : cases) {
        PictureBox box(u"picImage"_s);
        QSignalSpy shown(&box, &PictureBox::Shown);
        box.showFile(folder.path(one.name));
        ASSERT_EQ(shown.size(), 1) << qPrintable(one.name);
        EXPECT_EQ(shown[0].value(0).toBool(), one.size.isValid()) << qPrintable(one.name);
        EXPECT_EQ(box.pictureSize(), one.size) << qPrintable(one.name);
    }
    folder.write(u"tall.gif"_s, gifOfScreen(500, 60000));
    const desktop::Picture tall = desktop::readPicture(folder.path(u"tall.gif"_s), {640, 480});
    EXPECT_EQ(tall.size, QSize(500, 60000)) << "the screen's, not the frame's";
    EXPECT_EQ(tall.image.size(), QSize(4, 480));
    const QImage upright = desktop::readPicture(folder.path(u"turned.jpg"_s), {100, 100}).image;
    EXPECT_EQ(upright.height(), 100);
    EXPECT_NEAR(upright.width(), 67, 1);
    EXPECT_TRUE(isRed(upright.pixelColor(33, 10))) << "the left side is the top now";
}

TEST_F(Pictures, ProportionsAreKeptInTheMiddleOfTheBox)
{
    ASSERT_TRUE(halves({60, 40}).save(folder.path(u"a.png"_s)));
    PictureBox box(u"picImage"_s);
    box.resize(300, 400);
    box.showFile(folder.path(u"a.png"_s));
    QImage seen(300, 400, QImage::Format_RGB32);
    seen.fill(Qt::white);
    box.render(&seen, {}, {}, {});
    EXPECT_EQ(seen.pixelColor(150, 90), QColor(Qt::white));
    EXPECT_TRUE(isRed(seen.pixelColor(5, 105)));
    EXPECT_EQ(seen.pixelColor(295, 295), QColor(Qt::blue));
    EXPECT_EQ(seen.pixelColor(150, 310), QColor(Qt::white));
}

TEST_F(Pictures, ALargeOneComesLaterAndOnlyIfStillWanted)
{
    folder.write(u"large.jpg"_s, jpeg({2400, 1600}));
    ASSERT_TRUE(halves({60, 40}).save(folder.path(u"small.png"_s)));
    PictureBox box(u"picImage"_s);
    QSignalSpy shown(&box, &PictureBox::Shown);
    box.showFile(folder.path(u"large.jpg"_s));
    EXPECT_TRUE(box.isDecoding());
    EXPECT_EQ(shown.size(), 0);
    ASSERT_TRUE(shown.wait());
    EXPECT_EQ(box.pictureSize(), QSize(2400, 1600));

    box.showFile(folder.path(u"large.jpg"_s));
    box.showFile(folder.path(u"small.png"_s));
    box.showFile(folder.path(u"large.jpg"_s));
    box.clear();
    auto gone = std::make_unique<PictureBox>(u"picImage"_s);
    gone->showFile(folder.path(u"large.jpg"_s));
    gone.reset();
    PictureBox last(u"picImage"_s);
    QSignalSpy lastShown(&last, &PictureBox::Shown);
    last.showFile(folder.path(u"large.jpg"_s));
    ASSERT_TRUE(lastShown.wait());
    EXPECT_FALSE(box.isShown()) << "cleared while it was decoded";
    EXPECT_EQ(shown.size(), 2);
}

// The head of a real picture, its size written over: 200 megapixels that are not there.
TEST_F(Pictures, TwoHundredMegapixelsNeitherFreezeNorFill)
{
    QByteArray claimed = jpeg({64, 48});
    const qsizetype frame = claimed.indexOf(QByteArray("\xFF\xC0", 2));
    ASSERT_GT(frame, 0);
    claimed.replace(frame + 5, 4, QByteArray("\x2E\xE0\x41\x1B", 4));        // 12000 high, 16667 wide
    folder.write(u"claimed.jpg"_s, claimed);
    QByteArray progressive = claimed;
    progressive[frame + 1] = '\xC2';
    folder.write(u"progressive.jpg"_s, progressive);
    EXPECT_TRUE(desktop::inspectPicture(folder.path(u"claimed.jpg"_s)).large);
    const desktop::Picture read = desktop::readPicture(folder.path(u"claimed.jpg"_s), {1280, 1024});
    EXPECT_LE(read.image.width(), 1280);
    EXPECT_LE(read.image.height(), 1024);
    EXPECT_FALSE(desktop::inspectPicture(folder.path(u"progressive.jpg"_s)).size.isValid()) << "would be held whole";
    folder.write(u"huge.bmp"_s, bmpHead(20000, 10000));
    EXPECT_FALSE(desktop::inspectPicture(folder.path(u"huge.bmp"_s)).size.isValid());
}
