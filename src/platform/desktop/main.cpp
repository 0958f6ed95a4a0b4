#include <QApplication>
#include <QStandardPaths>
#include <QTimer>

#include "flow/intro.h"
#include "platform/desktop/data_directory.h"
#include "platform/desktop/desktop_machine.h"
#include "platform/files.h"
#include "trainer.h"

namespace fs = std::filesystem;

static fs::path own_directory()
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return data.isEmpty() ? fs::path() : vorn::from_utf8(data.toStdString()) / "vorn";
}

// The directory that contains the folder "ranges": the installed one or the user's copy of it, or in a build
// tree that of the sources.
static std::string program_directory([[maybe_unused]] fs::path& installed_data)
{
#ifdef Q_OS_WIN
    return "C:\\Program Files\\V.O.R.N";
#else
    const fs::path program = vorn::from_utf8(QCoreApplication::applicationDirPath().toStdString());
    std::error_code failed;
    const fs::path installed = (program / "../share/vorn").lexically_normal();
    if (fs::is_directory(installed / "ranges", failed)) {
        installed_data = installed;
        return vorn::to_utf8(vorn::data_directory(installed, own_directory()));
    }
    fs::path above = program;
    for (int i = 0; i <= 4; ++i, above = above.parent_path())
        if (fs::is_directory(above / "data/ranges", failed)) return vorn::to_utf8(above / "data");
    return vorn::to_utf8(installed);
#endif
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);   // only the exit buttons end the program
    vorn::desktop_machine machine;
    machine.default_directory = program_directory(machine.installed_data);
    vorn::trainer trainer(machine);
    QTimer::singleShot(0, &app, [&] { machine.run([&] { vorn::start_program(trainer); }); });
    return QApplication::exec();
}
