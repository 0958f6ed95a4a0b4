#include <set>

#include "gunnery/sight.h"
#include "platform/desktop/drawing/drawings.h"
#include "platform/desktop/drawing/look.h"
#include "trainer_fixture.h"

namespace vorn::desktop_tests {

struct pictures : trainer_test {
    // An icon file with images of these sizes, in this order.
    static QByteArray icon_file(const std::vector<int>& sizes)
    {
        QByteArray file, images;
        QDataStream out(&file, QIODevice::WriteOnly);
        out.setByteOrder(QDataStream::LittleEndian);
        out << quint16{0} << quint16{1} << static_cast<quint16>(sizes.size());
        for (const int size : sizes) {
            const QByteArray image = encoded(plain_image(size, size, QColor(200, 0, 0, 128)), "PNG");
            const auto side = static_cast<quint8>(size);
            const auto offset =
                6 + 16 * static_cast<quint32>(sizes.size()) + static_cast<quint32>(images.size());
            out << side << side << quint16{0} << quint16{1} << quint16{32}
                << static_cast<quint32>(image.size()) << offset;
            images += image;
        }
        return file + images;
    }
    static QSize size_drawn_at(const picture& p, int size) { return image_for(p, QSize(size, size))->size(); }
};

TEST_F(pictures, a_twin_of_exactly_twice_the_size_is_drawn_where_the_picture_is_too_small)
{
    write("valley.vrp", encoded(plain_image(40, 20), "PNG"));
    const auto loaded = [&](const QString& more_twins = {}) {
        return *read_picture("valley.vrp", folder.filePath("valley.vrp").toStdString(), more_twins).result;
    };
    EXPECT_EQ(size_drawn_at(loaded(), 80), QSize(40, 20)) << "without a twin";
    write("valley@2x.vrp", encoded(plain_image(80, 40), "JPEG"));
    const picture valley = loaded();
    EXPECT_TRUE(valley.width == 40 * twips_per_pixel && valley.height == 20 * twips_per_pixel);
    EXPECT_EQ(image_for(valley, QSize(40, 20))->size(), QSize(40, 20)) << "not larger than the picture";
    EXPECT_EQ(size_drawn_at(valley, 60), QSize(80, 40));
    EXPECT_EQ(image_for(valley, QSize(60, 30))->depth(), 24) << "to save memory";
    write("valley@2x.vrp", encoded(plain_image(80, 40), "PNG").left(60));
    EXPECT_EQ(size_drawn_at(loaded(), 60), QSize(40, 20)) << "a damaged twin";
    write("valley@2x.vrp", encoded(plain_image(81, 40), "PNG"));
    EXPECT_EQ(size_drawn_at(loaded(), 60), QSize(40, 20)) << "a twin of another size";
    write("installed/valley@2x.vrp", encoded(plain_image(80, 40), "PNG"));
    EXPECT_EQ(size_drawn_at(loaded(folder.filePath("installed")), 60), QSize(80, 40));
}

TEST_F(pictures, are_recognised_by_content)
{
    QImage dense = plain_image(40, 20);
    dense.setDotsPerMeterX(11811);
    dense.setDotsPerMeterY(11811);
    const std::vector<std::pair<const char*, const char*>> files{
        {"JPG", "range.vrp"}, {"JPG", "range.png"}, {"PNG", "range.bmp"}, {"BMP", "range.jpg"}};
    for (const auto& [format, name] : files) {
        write(name, encoded(dense, format));
        const loaded_picture p = pc.load_picture(name);
        ASSERT_TRUE(p.result) << name << p.reason;
        EXPECT_TRUE(p.result->width == 600 && p.result->height == 300);
        EXPECT_EQ(p.result->source, name);
    }
    EXPECT_TRUE(pc.load_picture("Range.VRP").result) << "names are not case-sensitive";
}

TEST_F(pictures, that_cannot_be_loaded_give_a_reason)
{
    const auto reason = [&](const char* name) {
        const loaded_picture p = pc.load_picture(name);
        EXPECT_FALSE(p.result);
        return p.reason;
    };
    QByteArray huge = encoded(plain_image(8, 8), "BMP");
    qToLittleEndian(qint32{12000}, huge.data() + 18);
    qToLittleEndian(qint32{12000}, huge.data() + 22);
    write("huge.bmp", huge);
    EXPECT_EQ(reason("huge.bmp"), "The picture is too large.");
    EXPECT_EQ(reason("absent.jpg"), "The file does not exist.");
    EXPECT_EQ(reason("."), "It is not a file.");
    QByteArray jpeg = encoded(plain_image(8, 8), "JPG");
    write("cut.jpg", jpeg.left(100));
    EXPECT_EQ(reason("cut.jpg"), "It is not a picture that can be read.");
    jpeg.replace(jpeg.indexOf("\xff\xc0") + 5, 4, "\xea\x60\xea\x60");   // 60000 x 60000
    write("huge.jpg", jpeg);
    EXPECT_EQ(reason("huge.jpg"), "The picture is too large.");
    // Qt can read the last two, but the program doesn't support their formats.
    for (const char* bytes : {"", "BM and then text", "P3 1 1 255 1 2 3\n",
                              "<svg xmlns='http://www.w3.org/2000/svg' width='2000' height='900'/>"}) {
        write("other.jpg", bytes);
        EXPECT_EQ(reason("other.jpg"), "It is not a picture that can be read.") << bytes;
    }
}

TEST_F(pictures, that_are_truncated_are_shown_in_part_or_refused)
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
    EXPECT_EQ(strip("cut.jpg", below), strip("cut.jpg", below.translated(1, 0)))
        << "the missing part has one colour";
    EXPECT_EQ(pc.load_picture("cut.png").reason, "It is not a picture that can be read.");
}

TEST_F(pictures, icons_are_drawn_from_the_smallest_sufficient_image)
{
    write("target1.ico", icon_file({32, 16, 64, 48}));
    const loaded_picture p = pc.load_picture("target1.ico");
    ASSERT_TRUE(p.result) << p.reason;
    EXPECT_EQ(p.result->width, 960);
    QByteArray cursor = icon_file({32});
    cursor[2] = 2;
    write("target2.ico", cursor);
    EXPECT_TRUE(pc.load_picture("target2.ico").result);
    for (const auto& [side, drawn] : {std::pair{11, 16}, {16, 16}, {33, 48}, {200, 64}})
        EXPECT_EQ(size_drawn_at(*p.result, side), QSize(drawn, drawn)) << side;
    EXPECT_TRUE(image_for(*p.result, QSize(16, 16))->hasAlphaChannel());

    write("huge.ico", icon_file({16, 3000}));   // 3000 is larger than an icon's directory can record
    const loaded_picture without = pc.load_picture("huge.ico");
    ASSERT_TRUE(without.result) << without.reason;
    EXPECT_EQ(size_drawn_at(*without.result, 48), QSize(16, 16)) << "the other image is used";
}

TEST_F(pictures, are_drawn_for_each_built_in_name_that_a_screen_uses)
{
    const auto painted = [](const std::string& name) {
        QImage canvas(60, 50, QImage::Format_ARGB32_Premultiplied);
        canvas.fill(Qt::transparent);
        const QImage empty = canvas;
        QPainter p(&canvas);
        draw_picture(p, picture{name, 0, 0, nullptr}, canvas.rect());
        p.end();
        return canvas != empty;
    };
    std::set<std::string> names;
    for (const form* f : forms(t))
        for (const screen_object* o : f->objects)
            if (is_drawing(o->Picture) && names.insert(o->Picture.source).second) {
                EXPECT_TRUE(painted(o->Picture.source)) << o->Picture.source;
            }
    EXPECT_GT(names.size(), 70U);
    EXPECT_FALSE(painted(":nothing") || painted(""));
}

// A mark that covers two rows of pixels partly would be paler than one that covers a whole row.
TEST(drawings, the_marks_of_a_scale_are_equally_bright)
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

// The left column is shorter than the right one, but both begin at the same height and have the same figures.
TEST(drawings, the_lowest_figure_of_a_scale_is_not_cut)
{
    const auto lowest_row = [](const char* name, const area& column) {
        QImage canvas(120, 840, QImage::Format_RGB32);
        canvas.fill(Qt::black);
        QPainter p(&canvas);
        draw_picture(p, {.source = name, .pixels = nullptr},
                     QRectF(20, 0, column.Width / 5, column.Height / 5).toRect());
        int lowest = 0;
        for (int y = 0; y < canvas.height(); ++y)
            for (int x = 0; x < canvas.width(); ++x)
                if (qGreen(canvas.pixel(x, y)) > 150) lowest = y;
        return lowest;
    };
    EXPECT_NEAR(lowest_row(":scale_left", figures_left), lowest_row(":scale_right", figures_right), 1);
}

}   // namespace vorn::desktop_tests
