#include "Library.h"

#include <SongStore.h>

#include <QGuiApplication>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

// The files alone: the cache and the connection belong to the user's own settings.
void createTagStoreOnly()
{
    createSongStores();
    songStores()->slot[SongStoreDatabaseSlot].reset();
    songStores()->slot[SongStoreCacheSlot].reset();
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    QTextStream errors(stderr);
    if (arguments.size() != 2) {
        errors << u"tarvelo-demo DIRECTORY: writes a small library of invented songs there.\n"_s;
        return 2;
    }
    createTagStoreOnly();
    const QString failure = Demo::writeLibrary(arguments.at(1), Demo::songs());
    destroySongStores();
    if (!failure.isEmpty())
        errors << failure << u"\n"_s;
    return failure.isEmpty() ? 0 : 1;
}
