#include "ListFilesCopy.h"

#include "FileDialogs.h"
#include "FileTools.h"
#include "MessageBoxes.h"
#include "PlatformFiles.h"
#include "ProgressDisplay.h"
#include "SameFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>

namespace {

constexpr qint64 pieceBytes = 256 * 1024;

QString translated(const char *text)
{
    return QCoreApplication::translate("ListFilesCopy", text);
}

// Music may be playing: a slow stick must not hold up the window.
bool copyContent(QFile &from, QFile &to)
{
    while (!from.atEnd()) {
        const QByteArray piece = from.read(pieceBytes);
        if (piece.isEmpty() || to.write(piece) != piece.size() || !to.flush())
            return false;
        QCoreApplication::processEvents();
    }
    return from.error() == QFileDevice::NoError;
}

bool copyFile(const QString &source, const QString &target)
{
    QFile from(source);
    QTemporaryFile to(QFileInfo(target).path() + QStringLiteral("/.copy-XXXXXX"));
    if (!from.open(QIODevice::ReadOnly) || !to.open() || !copyContent(from, to))
        return false;
    const QString name = to.fileName();
    to.setPermissions(from.permissions());
    to.close();
    to.setAutoRemove(!Platform::renameOver(name, target));
    return !to.autoRemove();
}

bool isToGoOn(const QString &source, const QString &target)
{
    return askYesNo(
        translated(QT_TRANSLATE_NOOP(
                       "ListFilesCopy",
                       "<p>Das Kopieren der Datei <br>%1<br>nach<br>%2<br>hat nicht "
                       "funktioniert!</p>Mögliche Ursachen:<ul><li>Die Datei ist von einem anderen "
                       "Programm geöffnet</li><li>Es ist kein Speicher mehr frei</li><li>Es gibt "
                       "keine Schreibberechtigung</li></ul>Willst Du mit den übrigen Dateien "
                       "weitermachen?"))
            .arg(fileNameAsHtml(source), fileNameAsHtml(target)));
}

} // namespace

void copyListFiles(QWidget *window, const QStringList &files)
{
    if (files.isEmpty())
        return;
    const QString directory = chooseDirectory(
        window, translated(QT_TRANSLATE_NOOP("ListFilesCopy", "Zielverzeichnis auswählen")),
        QDir::homePath());
    if (directory.isEmpty())
        return;
    int copied = 0;
    {
        ProgressDisplay progress(window, static_cast<int>(files.size()), false, true);
        progress.show();
        progress.setText(translated(QT_TRANSLATE_NOOP("ListFilesCopy", "Kopiere Dateien ...")));
        for (const QString &source : files) {
            const QString target = directory + u'/' + QFileInfo(source).fileName();
            const bool isWanted = QFileInfo::exists(source) && !isSameFile(source, target);
            if (isWanted && copyFile(source, target))
                ++copied;
            else if (isWanted && !isToGoOn(source, target))
                break;
            progress.updateProgress();
            if (progress.isCanceled())
                break;
        }
    }
    if (copied > 0)
        showInfo(translated(QT_TRANSLATE_NOOP("ListFilesCopy", "%1 Dateien erfolgreich kopiert."))
                     .arg(copied));
}
