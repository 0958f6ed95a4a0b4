#include <QApplication>
#include <QStandardPaths>
#include <QTimer>

#include "flow/boxes.h"
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

static fs::path usual_directory([[maybe_unused]] const fs::path& program)
{
#ifdef Q_OS_WIN
    return "C:\\Program Files\\V.O.R.N";
#else
    return (program / "../share/vorn").lexically_normal();
#endif
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);   // only end_program ends the program
    vorn::desktop_machine machine;
    const fs::path program = vorn::from_utf8(QCoreApplication::applicationDirPath().toStdString());
    const vorn::data_place data = vorn::find_data(program, usual_directory(program), own_directory());
    machine.installed_data = data.installed;
    machine.default_directory = vorn::to_utf8(data.used);
    vorn::trainer trainer(machine);
    machine.open_manual = [&trainer] { vorn::openhelp(trainer); };
    QTimer::singleShot(0, &app, [&] { machine.run([&] { vorn::start_program(trainer); }); });
    return QApplication::exec();
}
