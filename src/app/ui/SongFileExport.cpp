#include "SongFileExport.h"

#include "FileDialogs.h"
#include "MessageBoxes.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("SongFileExport", text);
}

} // namespace

QString SongFileExport::proposal(const QString &songFile, const QString &tempoText)
{
    const QFileInfo song(songFile);
    return song.path() + u'/' + song.completeBaseName() + QStringLiteral(" (") + tempoText
           + QStringLiteral(").wav");
}

QString SongFileExport::chooseTarget(QWidget *parent, const QString &songFile,
                                     const QString &tempoText)
{
    if (songFile.isEmpty()) {
        showInfo(translated(QT_TRANSLATE_NOOP("SongFileExport", "Keine Musikdatei ausgewählt.")));
        return {};
    }
    return chooseSaveFile(
        parent, translated(QT_TRANSLATE_NOOP("SongFileExport", "Datei exportieren nach")),
        proposal(songFile, tempoText),
        translated(QT_TRANSLATE_NOOP("SongFileExport", "Audio Datei (*.wav *.mp3)")));
}
