#include <gtest/gtest.h>

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>
#include <QtEndian>
#include <set>

#include "calibration/joycal.h"
#include "debrief/results.h"
#include "flow/intro.h"
#include "gunnery/screen.h"
#include "platform/desktop/desktop_machine.h"
#include "platform/desktop/drawing/drawings.h"
#include "platform/desktop/drawing/pictures.h"
#include "platform/desktop/windows/look.h"
#include "ranges/rauthor.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn {

struct pictures : testing::Test {
    pictures() { pc.working_directory = folder.path().toStdString(); }

    static QByteArray encoded(const QImage& image, const char* format)
    {
        QByteArray bytes;
        QBuffer out(&bytes);
        out.open(QIODevice::WriteOnly);
        EXPECT_TRUE(image.save(&out, format));
        return bytes;
    }
    static QImage plain(int width, int height, const QColor& c = Qt::darkGreen)
    {
        QImage image(width, height, QImage::Format_ARGB32);
        image.fill(c);
        return image;
    }
    void write(const char* name, const QByteArray& bytes)
    {
        QFile f(folder.filePath(name));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    static QSize drawn_from(const picture& p, int size) { return image_for(p, QSize(size, size))->size(); }

    QTemporaryDir folder;
    desktop_machine pc;
};

// An icon file with one image of each size, in the order given.
static QByteArray icon_file(const std::vector<int>& sizes)
{
    QByteArray head, body;
    const auto put = [](QByteArray& to, auto value) {
        value = qToLittleEndian(value);
        to.append(reinterpret_cast<const char*>(&value), sizeof value);
    };
    for (const quint16 v : {quint16{0}, quint16{1}, static_cast<quint16>(sizes.size())}) put(head, v);
    for (const int size : sizes) {
        const QByteArray image =
            pictures::encoded(pictures::plain(size, size, QColor(200, 0, 0, 128)), "PNG");
        for (const int v : {size, size, 0, 0}) head.append(static_cast<char>(v));
        for (const quint16 v : {quint16{1}, quint16{32}}) put(head, v);
        put(head, static_cast<quint32>(image.size()));
        put(head, static_cast<quint32>(6 + 16 * sizes.size() + static_cast<std::size_t>(body.size())));
        body += image;
    }
    return head + body;
}

TEST_F(pictures, are_known_by_their_content_whatever_the_name_and_density)
{
    QImage dense = plain(40, 20);
    dense.setDotsPerMeterX(11811);
    dense.setDotsPerMeterY(11811);
    const std::vector<std::pair<const char*, const char*>> files{
        {"JPG", "range.vrp"}, {"JPG", "range.png"}, {"PNG", "range.bmp"}, {"BMP", "range.jpg"}};
    for (const auto& [format, name] : files) {
        write(name, encoded(dense, format));
        const loaded_picture p = pc.load_picture(name);
        ASSERT_TRUE(p.result) << name << p.reason;
        EXPECT_EQ(p.result->width, 600);
        EXPECT_EQ(p.result->height, 300);
        EXPECT_EQ(p.result->source, name);
    }
    EXPECT_TRUE(pc.load_picture("Range.VRP").result) << "names are found without regard to case";
}

TEST_F(pictures, that_cannot_be_had_say_why)
{
    const auto reason = [&](const char* name) {
        const loaded_picture p = pc.load_picture(name);
        EXPECT_FALSE(p.result);
        return p.reason;
    };
    write("text.bmp", "BM but then just words, and not a picture at all");
    write("empty.png", "");
    QByteArray huge = encoded(plain(8, 8), "BMP");
    qToLittleEndian(qint32{12000}, huge.data() + 18);
    qToLittleEndian(qint32{12000}, huge.data() + 22);
    write("huge.bmp", huge);
    write("stray.jpg", "P3 1 1 255 1 2 3\n");
    write("drawn.vrp", "<svg xmlns='http://www.w3.org/2000/svg' width='2000' height='900'/>");
    EXPECT_EQ(reason("stray.jpg"), "It is not a picture that can be read.") << "though the toolkit could";
    EXPECT_EQ(reason("drawn.vrp"), "It is not a picture that can be read.");
    EXPECT_EQ(reason("absent.jpg"), "The file does not exist.");
    EXPECT_EQ(reason("."), "It is not a file.");
    EXPECT_EQ(reason("text.bmp"), "It is not a picture that can be read.");
    EXPECT_EQ(reason("empty.png"), "It is not a picture that can be read.");
    EXPECT_EQ(reason("huge.bmp"), "The picture is too large.");
}

TEST_F(pictures, that_break_off_are_shown_as_far_as_they_go_or_refused)
{
    QImage noise(64, 64, QImage::Format_RGB32);
    for (int i = 0; i < 64 * 64; ++i) noise.setPixel(i % 64, i / 64, static_cast<uint>(qHash(i)));
    const QByteArray whole = encoded(noise, "JPG");
    write("whole.jpg", whole);
    write("cut.jpg", whole.first(whole.size() / 2));
    write("cut.png", encoded(noise, "PNG").first(4000));
    const auto strip = [&](const char* name, const QRect& r) {
        const loaded_picture p = pc.load_picture(name);
        EXPECT_TRUE(p.result && p.result->height == 64 * 15) << p.reason;
        return p.result ? image_for(*p.result, QSize(64, 64))->copy(r) : QImage();
    };
    const QRect above(0, 8, 64, 1), below(0, 60, 63, 1);
    EXPECT_EQ(strip("cut.jpg", above), strip("whole.jpg", above));
    EXPECT_EQ(strip("cut.jpg", below), strip("cut.jpg", below.translated(1, 0))) << "bare, of one colour";
    EXPECT_EQ(pc.load_picture("cut.png").reason, "It is not a picture that can be read.");
}

// To the last pixel and without a word from the decoder.
TEST_F(pictures, of_the_shipped_ranges_are_whole)
{
    static int complaints;
    complaints = 0;
    const QtMessageHandler before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++complaints; });
    int found = 0;
    for (const QFileInfo& file :
         QDir(VORN_SOURCE_DIR "/data/ranges").entryInfoList({"*.vrp", "*.trp"}, QDir::Files)) {
        QImageReader reader(file.filePath());
        reader.setDecideFormatFromContent(true);
        EXPECT_FALSE(reader.read().isNull()) << file.fileName().toStdString();
        EXPECT_EQ(complaints, 0) << file.fileName().toStdString();
        ++found;
    }
    qInstallMessageHandler(before);
    EXPECT_GE(found, 5);
}

TEST_F(pictures, an_icon_has_its_largest_size_and_is_drawn_from_the_next_that_suffices)
{
    write("target1.ico", icon_file({32, 16, 64, 48}));
    const loaded_picture p = pc.load_picture("target1.ico");
    ASSERT_TRUE(p.result) << p.reason;
    EXPECT_EQ(p.result->width, 960);
    QByteArray cursor = icon_file({32});
    cursor[2] = 2;
    write("target2.ico", cursor);
    EXPECT_TRUE(pc.load_picture("target2.ico").result);
    EXPECT_EQ(drawn_from(*p.result, 11), QSize(16, 16));
    EXPECT_EQ(drawn_from(*p.result, 16), QSize(16, 16));
    EXPECT_EQ(drawn_from(*p.result, 33), QSize(48, 48));
    EXPECT_EQ(drawn_from(*p.result, 200), QSize(64, 64));
    EXPECT_TRUE(image_for(*p.result, QSize(16, 16))->hasAlphaChannel());

    write("huge.ico", icon_file({16, 3000}));   // the second image is larger than the head of the file says
    const loaded_picture without = pc.load_picture("huge.ico");
    ASSERT_TRUE(without.result) << without.reason;
    EXPECT_EQ(drawn_from(*without.result, 48), QSize(16, 16)) << "the rest of it serves";
}

// Whatever a screen names instead of a file is painted, within its place.
TEST(drawings, exist_for_each_name_the_screens_use_and_for_no_other)
{
    desktop_machine pc;
    trainer t(pc);
    const auto painted = [](const std::string& name, const QSize& size) {
        QImage canvas(size, QImage::Format_ARGB32_Premultiplied);
        canvas.fill(Qt::transparent);
        const QImage empty = canvas;
        QPainter p(&canvas);
        draw_picture(p, picture{name, 0, 0, nullptr}, canvas.rect());
        p.end();
        return canvas != empty;
    };
    std::set<std::string> names;
    for (const form* f : {&t.intro.window, &t.startsim.window, &t.simulator.window, &t.thermal.window,
                          &t.results.window, &t.rauthor.window, &t.joycal.window})
        for (const screen_object* o : f->objects)
            if (is_drawing(o->Picture) && names.insert(o->Picture.source).second) {
                EXPECT_TRUE(painted(o->Picture.source, QSize(60, 50))) << o->Picture.source;
            }
    EXPECT_GT(names.size(), 70U);
    EXPECT_FALSE(painted(":nothing", QSize(60, 50)));
    EXPECT_FALSE(painted("", QSize(60, 50)));
}

// Neighbours between two rows of pixels would be paler than those on one.
TEST(drawings, of_a_scale_have_marks_of_one_brightness)
{
    QImage canvas(17, 185, QImage::Format_RGB32);
    canvas.fill(Qt::black);
    QPainter p(&canvas);
    draw_named(p, ":ticks", QRectF(canvas.rect()));
    const int full = qGreen(shade(colour::sight).rgb());
    int marks = 0;
    for (int y = 0; y < canvas.height(); ++y) marks += qGreen(canvas.pixel(8, y)) > full * 9 / 10;
    EXPECT_EQ(marks, 14);
}

// Frames of the explosion before a plain meadow: a flash, a fire, smoke that goes; the hot one in grey.
TEST(explosion, flashes_burns_and_goes_up_in_smoke)
{
    QImage canvas(78, 78, QImage::Format_RGB32);
    const auto share = [&](const char* frame, bool (*is_so)(const QColor&)) {
        canvas.fill(QColor(150, 152, 105));
        QPainter p(&canvas);
        draw_named(p, frame, QRectF(canvas.rect()));
        int found = 0;
        for (int i = 0; i < 78 * 78; ++i) found += is_so(canvas.pixelColor(i % 78, i / 78));
        return found / (78.0 * 78);
    };
    const auto blinding = [](const QColor& c) { return std::min({c.red(), c.green(), c.blue()}) > 215; };
    const auto burning = [](const QColor& c) { return c.red() > 150 && c.red() > c.blue() + 90; };
    const auto smoke = [](const QColor& c) { return c.lightness() < 80 && c.red() < 120; };
    EXPECT_GT(share(":explosion1", blinding), .05);
    EXPECT_LT(share(":explosion5", blinding), .01) << "the flash is over";
    EXPECT_GT(share(":explosion4", burning), .09);
    EXPECT_LT(share(":explosion11", burning), .01) << "the fire is out";
    EXPECT_GT(share(":explosion10", smoke), .2);
    EXPECT_LT(share(":explosion15", smoke), .01);
    EXPECT_LT(share(":hotexplosion4", burning), .01);
    EXPECT_GT(share(":hotexplosion4", [](const QColor& c) { return c.lightness() > 140; }), .1);
}

}   // namespace vorn
