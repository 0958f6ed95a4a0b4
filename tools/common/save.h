// Encodes pictures and writes files.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <vector>

namespace tools {

QByteArray jpeg(const QImage&, int quality);   // 1 to 100
QByteArray png(const QImage&);                 // as small as the library makes it
// An icon file (.ico) of square pictures with sides of at most 256 pixels.
QByteArray icon(const std::vector<QImage>&);

// Replaces the file. False, with a message on the standard error stream, when that fails.
bool save(const QString& file, const QByteArray& bytes);

}   // namespace tools
