#include "SongStoreDatabase.h"

#include <QCoreApplication>
#include <QDir>
#include <QSqlDatabase>
#include <QSqlError>
#include <QtDebug>

SongStoreDatabase::SongStoreDatabase()
{
    const QString path = QDir::tempPath() + QStringLiteral("/Tarvelo/cache.db");
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    database.setDatabaseName(path);
    if (database.open())
        return;
    qDebug() << "Nix mit Database " << database.lastError();
    qDebug() << "File = " << path;
    qDebug() << QSqlDatabase::drivers();
}

SongStoreDatabase::~SongStoreDatabase()
{
    // At the very end of the process the list of connections is gone already.
    if (QCoreApplication::instance())
        QSqlDatabase::removeDatabase(QLatin1String(QSqlDatabase::defaultConnection));
}

bool SongStoreDatabase::load(Song &, const QFileInfo &)
{
    return false;
}

bool SongStoreDatabase::save(Song &)
{
    return false;
}

bool SongStoreDatabase::remove(const Song &)
{
    return false;
}
