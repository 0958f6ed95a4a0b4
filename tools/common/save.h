// Encodes pictures and writes files.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <vector>

namespace tools {

// `quality`: 1 to 100 for a "jpeg"; 0 for a "png", which is made as small as possible.
QByteArray encoded(const QImage&, const char* format, int quality = 0);
// An icon file (.ico) of square pictures with sides of at most 256 pixels.
QByteArray icon(const std::vector<QImage>&);

// Creates or replaces the file.
void save(const QString& file, const QByteArray& bytes);

// Prints a message on the standard error stream and ends the program, as the functions above do on an error.
[[noreturn]] void fail(const QString& message);

}   // namespace tools
