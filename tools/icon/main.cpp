// Combines square pictures into an icon file for Windows.
//
// Usage: make_icon ICON PICTURE...

#include <QString>

#include "common/save.h"

int main(int count, char** arguments)
{
    if (count < 3) tools::fail("usage: make_icon ICON PICTURE...");
    std::vector<QImage> pictures;
    for (int i = 2; i < count; ++i) {
        pictures.emplace_back(QString::fromLocal8Bit(arguments[i]));
        if (pictures.back().isNull()) tools::fail(QString("can't read ") + arguments[i]);
    }
    tools::save(QString::fromLocal8Bit(arguments[1]), tools::icon(pictures));
}
