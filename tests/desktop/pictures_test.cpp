#include <gtest/gtest.h>

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>
#include <QtEndian>

#include "platform/desktop/desktop_machine.h"
#include "platform/desktop/drawings.h"
#include "platform/desktop/pictures.h"

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
    EXPECT_EQ(reason("absent.jpg"), "The file does not exist.");
    EXPECT_EQ(reason("."), "It is not a file.");
    EXPECT_EQ(reason("text.bmp"), "It is not a picture that can be read.");
    EXPECT_EQ(reason("empty.png"), "It is not a picture that can be read.");
    EXPECT_EQ(reason("huge.bmp"), "The picture is too large.");
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

TEST_F(pictures, a_cut_off_photograph_still_has_its_size)
{
    QByteArray photo = encoded(plain(200, 100), "JPG");
    photo.truncate(photo.size() * 3 / 4);
    write("cut.vrp", photo);
    const loaded_picture p = pc.load_picture("cut.vrp");
    ASSERT_TRUE(p.result) << p.reason;
    EXPECT_EQ(p.result->width, 3000);
}

TEST_F(pictures, an_icon_has_its_largest_size_and_is_drawn_from_the_next_that_suffices)
{
    write("target1.ico", icon_file({32, 16, 64, 48}));
    const loaded_picture p = pc.load_picture("target1.ico");
    ASSERT_TRUE(p.result) << p.reason;
    EXPECT_EQ(p.result->width, 960);
    EXPECT_EQ(drawn_from(*p.result, 11), QSize(16, 16));
    EXPECT_EQ(drawn_from(*p.result, 16), QSize(16, 16));
    EXPECT_EQ(drawn_from(*p.result, 33), QSize(48, 48));
    EXPECT_EQ(drawn_from(*p.result, 200), QSize(64, 64));
    EXPECT_TRUE(image_for(*p.result, QSize(16, 16))->hasAlphaChannel());
}

TEST(drawings, exist_for_each_name_the_screens_use_and_for_no_other)
{
    const auto drawn = [](const char* name) {
        QImage canvas(173, 200, QImage::Format_ARGB32_Premultiplied);
        canvas.fill(Qt::transparent);
        QPainter p(&canvas);
        draw_picture(p, picture{name, 0, 0, nullptr}, canvas.rect());
        p.end();
        QImage empty(canvas.size(), canvas.format());
        empty.fill(Qt::transparent);
        return canvas != empty;
    };
    for (const char* name : {":arrow_up", ":arrow_down", ":arrow_left", ":arrow_right", ":lamp_off",
                             ":lamp_main", ":lamp_coax", ":lamp_ready", ":keys", ":title", ":emblem"})
        EXPECT_TRUE(drawn(name)) << name;
    EXPECT_FALSE(drawn(":nothing"));
    EXPECT_FALSE(drawn(""));
}

// The explosion before a plain meadow, from the size it has at the furthest target to that at the nearest on
// a large screen.
struct explosion : testing::TestWithParam<int> {
    const QColor meadow{150, 152, 105};

    QImage shown(const std::string& number, int size = GetParam()) const
    {
        QImage canvas(size, size, QImage::Format_RGB32);
        canvas.fill(meadow);
        QPainter p(&canvas);
        draw_named(p, ":explosion" + number, QRectF(canvas.rect()));
        return canvas;
    }
    QImage shown(int frame) const { return shown(std::to_string(frame)); }

    // The share of all pixels that are so.
    template <class Condition>
    static double share(const QImage& image, const Condition& is_so)
    {
        int found = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) found += is_so(image.pixelColor(x, y));
        return 1.0 * found / (image.width() * image.height());
    }
    static bool blinding(const QColor& c) { return std::min({c.red(), c.green(), c.blue()}) > 215; }
    static bool burning(const QColor& c) { return c.red() > 150 && c.red() > c.blue() + 90; }
    static bool black_smoke(const QColor& c) { return c.lightness() < 80 && c.red() < 120; }

    // The greatest change in any colour of any pixel.
    int change(const QImage& image) const
    {
        int most = 0;
        share(image, [&](const QColor& c) {
            most = std::max({most, std::abs(c.red() - meadow.red()), std::abs(c.green() - meadow.green()),
                             std::abs(c.blue() - meadow.blue())});
            return true;
        });
        return most;
    }
    // How far down the picture its uppermost dark or burning pixel lies, as a share of its height.
    static double top(const QImage& image)
    {
        for (int y = 0; y < image.height(); ++y)
            if (share(image.copy(0, y, image.width(), 1),
                      [](const QColor& c) { return burning(c) || black_smoke(c); }) > 0)
                return 1.0 * y / image.height();
        return 1;
    }
};

TEST_P(explosion, flashes_burns_and_goes_up_in_smoke)
{
    EXPECT_GT(share(shown(1), blinding), .05);
    EXPECT_GT(share(shown(4), burning), .09);
    EXPECT_GT(share(shown(10), black_smoke), .2);

    EXPECT_LT(share(shown(5), blinding), .01) << "the flash is over";
    EXPECT_LT(share(shown(11), burning), .01) << "the fire is out";
    EXPECT_LT(share(shown(2), black_smoke), .02) << "nothing has burnt yet";
    EXPECT_LT(top(shown(10)), top(shown(3)) - .1) << "smoke rises";
    EXPECT_LT(change(shown(14)), 40) << "nearly gone when it is taken away";
    EXPECT_LT(change(shown(15)), 20);
}

TEST(hot_explosion, has_no_colour_and_is_brighter_than_the_ground)
{
    QImage canvas(64, 64, QImage::Format_RGB32);
    canvas.fill(QColor(90, 90, 90));
    QPainter p(&canvas);
    for (const char* frame : {"3", "10"})
        draw_named(p, std::string(":hotexplosion") + frame, QRectF(canvas.rect()));
    EXPECT_TRUE(canvas.allGray());
    EXPECT_GT(qGray(canvas.pixel(32, 40)), 120);
}

TEST_P(explosion, is_never_cut_off_at_the_edge_of_its_square)
{
    for (int frame = 0; frame <= 15; ++frame) {
        QImage image = shown(frame);
        EXPECT_GT(change(image), 0) << frame;
        QPainter(&image).fillRect(image.rect().adjusted(1, 1, -1, -1), meadow);
        EXPECT_EQ(change(image), 0) << frame;
    }
}

TEST_P(explosion, is_shrunk_with_all_its_pixels)
{
    for (const int frame : {1, 4, 10}) {
        const QImage whole =
            shown(std::to_string(frame), 128)
                .scaled(GetParam(), GetParam(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        const QImage small = shown(frame);
        double sum = 0;
        for (int y = 0; y < small.height(); ++y)
            for (int x = 0; x < small.width(); ++x)
                sum += std::abs(small.pixelColor(x, y).red() - whole.pixelColor(x, y).red());
        EXPECT_LT(sum / (small.width() * small.height()), 1.7) << "frame " << frame;
    }
}

TEST_P(explosion, has_no_other_frames)
{
    for (const char* number : {"", "x", "-1", "16", "99999999999"})
        EXPECT_EQ(change(shown(number)), 0) << number;
}

INSTANTIATE_TEST_SUITE_P(sizes, explosion, testing::Values(17, 39, 78, 117));

}   // namespace vorn
