#include <gtest/gtest.h>

#include <QApplication>

// Not reported as leaks: memory that fontconfig and D-Bus keep until the process ends.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer calls it by this name
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\nleak:libdbus\n";
}

// Otherwise the sanitizer crashes with some sets of libraries, when it looks for leaks at the end.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" const char* __asan_default_options()
{
    return "intercept_tls_get_addr=0";
}

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR");
    if (!scale.isEmpty() && app.devicePixelRatio() != scale.toDouble())
        qFatal("The device pixel ratio is %g.", app.devicePixelRatio());
    return RUN_ALL_TESTS();
}
