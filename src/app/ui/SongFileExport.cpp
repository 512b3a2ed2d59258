#include "SongFileExport.h"

#include "FileDialogs.h"
#include "FileTools.h"
#include "MessageBoxes.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("SongFileExport", text);
}

// A song's own file, say: what is in it can't be had again.
bool isMusic(const QString &file)
{
    const QFileInfo info(file);
    const QString suffix = info.suffix().toLower();
    return info.exists()
           && QStringList{QStringLiteral("mp3"), QStringLiteral("m4a"), QStringLiteral("flac"),
                          QStringLiteral("ogg")}
                  .contains(suffix);
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
    const QString target = chooseSaveFile(
        parent, translated(QT_TRANSLATE_NOOP("SongFileExport", "Datei exportieren nach")),
        proposal(songFile, tempoText),
        translated(QT_TRANSLATE_NOOP("SongFileExport", "Audio Datei (*.wav *.mp3)")));
    if (!isMusic(target))
        return target;
    showError(translated(QT_TRANSLATE_NOOP("SongFileExport",
                                           "Die Datei<br>%1<br>ist eine Musikdatei und wird nicht "
                                           "überschrieben. Bitte wähle einen anderen Namen."))
                  .arg(fileNameAsHtml(target)));
    return {};
}
