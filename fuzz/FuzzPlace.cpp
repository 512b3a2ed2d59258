#include "FuzzPlace.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

namespace {

const QTemporaryDir &temporary()
{
    static const QTemporaryDir made(QDir(QStringLiteral("/dev/shm")).exists()
                                        ? QStringLiteral("/dev/shm/tarvelo-fuzz")
                                        : QString());
    return made;
}

bool moveIn()
{
    const QByteArray home = temporary().path().toUtf8();
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(name, home);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    return temporary().isValid();
}

} // namespace

QString FuzzPlace::directory()
{
    static const bool movedIn = moveIn();
    if (!movedIn)
        std::abort();
    return temporary().path() + u'/';
}

void FuzzPlace::write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        std::abort();
}
