// The fuzzer of the help viewer: any bytes as its file, laid out in its window off screen.
#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <cstdint>

#include "platform/desktop/dialogs/help.h"
#include "platform/desktop/windows/look.h"

namespace {

struct viewer {
    int count = 1;
    char name[10] = "fuzz_help";
    char* words[2] = {name, nullptr};
    QApplication app{count, words};
    QTemporaryDir folder;
    vorn::help_window window{vorn::window_icon()};
};

}   // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static viewer& v = *new viewer;   // outlives all, or it would go after the fonts that it needs
    const QString name = v.folder.filePath("vorn.HLP");
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly)) return 0;
    file.write(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    file.close();
    v.window.open_file(name.toStdString());
    QCoreApplication::processEvents();
    return 0;
}
