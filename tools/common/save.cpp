#include "save.h"

#include <QBuffer>
#include <QDataStream>
#include <QImageWriter>
#include <QSaveFile>
#include <cstdio>
#include <cstdlib>

namespace tools {

QByteArray encoded(const QImage& picture, const char* format, int quality)
{
    QBuffer bytes;
    QImageWriter writer(&bytes, format);
    writer.setQuality(quality);
    writer.setOptimizedWrite(true);
    if (!writer.write(picture)) fail(writer.errorString());
    return bytes.data();
}

// An ICO file begins with a table of its pictures. Here each picture is stored as a PNG file.
QByteArray icon(const std::vector<QImage>& pictures)
{
    QByteArray directory, files;
    QDataStream to(&directory, QIODevice::WriteOnly);
    to.setByteOrder(QDataStream::LittleEndian);
    const auto count = static_cast<quint16>(pictures.size());
    to << quint16{0} << quint16{1} << count;
    for (const QImage& picture : pictures) {
        const QByteArray file = encoded(picture, "png");
        const auto size = static_cast<quint8>(picture.width());   // 0 for 256
        to << size << size << quint16{0} << quint16{1} << quint16{32} << static_cast<quint32>(file.size())
           << static_cast<quint32>(6 + 16 * count + files.size());
        files += file;
    }
    return directory + files;
}

void save(const QString& file, const QByteArray& bytes)
{
    QSaveFile to(file);
    if (!to.open(QIODevice::WriteOnly) || to.write(bytes) != bytes.size() || !to.commit())
        fail("can't write " + file + ": " + to.errorString());
}

void fail(const QString& message)
{
    std::fprintf(stderr, "%s\n", qPrintable(message));
    std::exit(1);
}

}   // namespace tools
