// Combines square pictures into an icon file, for the program on Windows.
//
// Usage: make_icon ICON PICTURE...

#include <QString>
#include <cstdio>

#include "common/save.h"

int main(int count, char** arguments)
{
    if (count < 3) {
        std::fprintf(stderr, "usage: make_icon ICON PICTURE...\n");
        return 2;
    }
    std::vector<QImage> pictures;
    for (int i = 2; i < count; ++i) {
        pictures.emplace_back(QString::fromLocal8Bit(arguments[i]));
        if (!pictures.back().isNull()) continue;
        std::fprintf(stderr, "make_icon: %s can't be read\n", arguments[i]);
        return 1;
    }
    return tools::save(QString::fromLocal8Bit(arguments[1]), tools::icon(pictures)) ? 0 : 1;
}
