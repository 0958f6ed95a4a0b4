#include "save.h"

#include <QBuffer>
#include <QDataStream>
#include <QImageWriter>
#include <QSaveFile>
#include <cstdio>

namespace tools {

static QByteArray encoded(const QImage& picture, const char* format, int quality)
{
    QBuffer bytes;
    QImageWriter writer(&bytes, format);
    writer.setQuality(quality);
    writer.setOptimizedWrite(true);
    if (writer.write(picture)) return bytes.data();
    std::fprintf(stderr, "%s\n", qPrintable(writer.errorString()));
    return {};
}

QByteArray jpeg(const QImage& picture, int quality)
{
    return encoded(picture, "jpeg", quality);
}

QByteArray png(const QImage& picture)
{
    constexpr int strongest_compression = 0;
    return encoded(picture, "png", strongest_compression);
}

// An icon file is a directory, followed by a PNG file for each picture.
QByteArray icon(const std::vector<QImage>& pictures)
{
    QByteArray directory, files;
    QDataStream to(&directory, QIODevice::WriteOnly);
    to.setByteOrder(QDataStream::LittleEndian);
    const auto count = static_cast<quint16>(pictures.size());
    to << quint16{0} << quint16{1} << count;
    for (const QImage& picture : pictures) {
        const QByteArray file = png(picture);
        const auto size = static_cast<quint8>(picture.width());   // 0 for 256
        to << size << size << quint16{0} << quint16{1} << quint16{32} << static_cast<quint32>(file.size())
           << static_cast<quint32>(6 + 16 * count + files.size());
        files += file;
    }
    return directory + files;
}

bool save(const QString& file, const QByteArray& bytes)
{
    QSaveFile to(file);
    const bool saved =
        !bytes.isEmpty() && to.open(QIODevice::WriteOnly) && to.write(bytes) == bytes.size() && to.commit();
    if (!saved) std::fprintf(stderr, "can't write %s\n", qPrintable(file));
    return saved;
}

}   // namespace tools
