#include "TableModelFixture.h"

#include "Settings.h"

#include <QAbstractItemModelTester>
#include <QFileInfo>
#include <QLocale>

using namespace Qt::StringLiterals;

void TableModelFixture::prepareModel()
{
    music = std::make_unique<QTemporaryDir>();
    Settings::setValue(Settings::Key::MusicDir, music->path());
    manager = std::make_unique<SongManager>();
    model = std::make_unique<SongListTableModel>(manager.get());
    SongListTableModel::setHighIntermediateName({});
    new QAbstractItemModelTester(
        model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest, model.get());
    QLocale::setDefault(QLocale(u"de"_s));
}

void TableModelFixture::dropModel()
{
    model.reset();
    manager.reset();
}

SongPtr TableModelFixture::song(const QString &name)
{
    const QString path = music->filePath(name);
    manager->addSong(path);
    return manager->getSong(path);
}

void TableModelFixture::show(const QString &letters)
{
    const PlaylistPtr list(new PlaylistFile(manager.get()));
    for (const QChar letter : letters)
        list->add(song(letter).data()->getFilename());
    model->setPlaylist(list);
}

QString TableModelFixture::letters(const PlaylistPtr &list) const
{
    QString names;
    for (const SongPtr &entry : list->songs())
        names.append(QFileInfo(entry->getFilename()).fileName());
    return names;
}

std::unique_ptr<QMimeData> TableModelFixture::drag(const SongListTableModel &from,
                                                   const QList<int> &rows) const
{
    QModelIndexList indexes;
    for (const int row : rows) {
        for (int column = 0; column < from.columnCount(); ++column)
            indexes.append(from.index(row, column));
    }
    return std::unique_ptr<QMimeData>(from.mimeData(indexes));
}
