#pragma once

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

// A home of its own for each test program: settings, log, cache and trash of the user who runs
// the tests stay untouched. Made before the application object; also the working directory.
class TestHome
{
public:
    TestHome()
    {
        const auto set = [this](const char *variable, const QString &path) {
            QDir().mkpath(path);
            qputenv(variable, QFile::encodeName(path));
        };
        set("HOME", home.path());
        set("XDG_CONFIG_HOME", home.filePath(QStringLiteral(".config")));
        set("XDG_DATA_HOME", home.filePath(QStringLiteral(".local/share")));
        set("XDG_CACHE_HOME", home.filePath(QStringLiteral(".cache")));
        QDir::setCurrent(home.path());
    }

private:
    QTemporaryDir home;
};

#define TARVELO_TEST_MAIN(TestClass, Application)                                                  \
    int main(int argc, char *argv[])                                                               \
    {                                                                                              \
        TestHome home;                                                                             \
        Application application(argc, argv);                                                       \
        TestClass test;                                                                            \
        return QTest::qExec(&test, argc, argv);                                                    \
    }

// Where the real music of others lies; empty when this machine has none: such a test skips.
inline QString corpusDirectory()
{
    return qEnvironmentVariable("TARVELO_CORPUS");
}
