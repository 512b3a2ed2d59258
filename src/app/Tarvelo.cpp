#include "Tarvelo.h"

#include "Log.h"
#include "SongStore.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QtDebug>

namespace {

QStringList &fontFamilies()
{
    static QStringList families;
    return families;
}

} // namespace

Tarvelo::Tarvelo(QObject *parent)
    : QObject(parent)
    , songManager(std::make_unique<SongManager>())
    , player(std::make_unique<Player>())
{
    createSongStores();
    QCoreApplication::setOrganizationName(QStringLiteral("Tarvelo Soft"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("tarvelo.example"));
    QCoreApplication::setApplicationName(QStringLiteral("Tarvelo"));
    loadSymbolFont();
    Log::startLogging();
}

Tarvelo::~Tarvelo()
{
    destroySongStores();
    player.reset();
    songManager.reset();
}

QString Tarvelo::about() const
{
    return QStringLiteral("Tarvelo V2.02 22.11.2015");
}

const QStringList &Tarvelo::symbolFontFamilies()
{
    return fontFamilies();
}

void Tarvelo::loadSymbolFont()
{
    const int id
        = QFontDatabase::addApplicationFont(QStringLiteral(":/NotoSansSymbols2-Regular.ttf"));
    qDebug() << "Load Font =" << id;
    if (id >= 0)
        fontFamilies() = QFontDatabase::applicationFontFamilies(id);
}

void Tarvelo::rescan()
{
    player->setSong({});
    songManager->loadAllLists();
}

void Tarvelo::rescanPlaylists()
{
    songManager->loadPlaylists();
}
