// The target icons that the trainer ships with.
#include <gtest/gtest.h>

#include <QDir>
#include <QImageReader>
#include <map>

namespace vorn {
namespace {

const QDir folder(VORN_SOURCE_DIR "/data/ranges/target icons");

// The images of an icon file, by their width.
std::map<int, QImage> pictures_of(const QString& name)
{
    QImageReader reader(folder.filePath(name));
    std::map<int, QImage> found;
    for (int i = 0; i < reader.imageCount() && reader.jumpToImage(i); ++i)
        if (const QImage picture = reader.read(); picture.width() == picture.height())
            found[picture.width()] = picture.convertToFormat(QImage::Format_ARGB32);
    return found;
}

// The ground of a thermal range is at most 60 % as bright as white.
void expect_warm_body_with_hot_parts(const QImage& picture)
{
    double warm = 0, hot = 0, body = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb c = picture.pixel(x, y);
            if (qAlpha(c) < 250) continue;
            ++body;
            warm += qRed(c) > 255 * .63;
            hot += qRed(c) > 255 * .87;
        }
    EXPECT_GT(warm / body, .85);
    EXPECT_GT(hot / body, .01);
    EXPECT_LT(hot / body, .5) << "the hull is less hot than tracks, wheels and engine";
}

TEST(shipped_icons, are_whole_and_the_hot_ones_are_grey)
{
    const QStringList names = folder.entryList({"*.ico"});
    EXPECT_GE(names.size(), 18);
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        const bool hot = name.startsWith("thermal") || name.endsWith("_hot.ico");
        std::vector<int> sizes;
        for (const auto& [size, picture] : pictures_of(name)) {
            sizes.push_back(size);
            EXPECT_EQ(picture.allGray(), hot) << size;
            if (hot) expect_warm_body_with_hot_parts(picture);
        }
        EXPECT_EQ(sizes, (std::vector{16, 24, 32, 48, 64, 96, 128, 192, 256}));
    }
}

// Sights and debrief take the middle of the square for the middle of the target.
TEST(shipped_icons, of_the_ranges_fill_their_squares)
{
    for (const char* name : {"target1", "target2", "target3", "thermal1", "thermal2", "thermal3"})
        for (const auto& [size, picture] : pictures_of(QString(name) + ".ico")) {
            SCOPED_TRACE(testing::Message() << name << ' ' << size);
            double across = 0, down = 0, count = 0;
            for (int y = 0; y < size; ++y)
                for (int x = 0; x < size; ++x)
                    if (qAlpha(picture.pixel(x, y)) >= 128) {
                        across += (x + .5) / size;
                        down += (y + .5) / size;
                        ++count;
                    }
            EXPECT_NEAR(across / count, .5, .12);
            EXPECT_NEAR(down / count, .5, .12);
            EXPECT_GT(count / size / size, .4);
        }
}

}   // namespace
}   // namespace vorn
