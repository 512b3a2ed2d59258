#include "PositionsHeader.h"

#include "Level.h"
#include "Song.h"
#include "TimeTexts.h"

#include <QCoreApplication>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("PositionsHeader", text);
}

// An elided text loses its markup, so that no tag is cut in two.
QString choreographerText(const Song &song, const Elide &elide)
{
    const QString by = translated(QT_TRANSLATE_NOOP("PositionsHeader", "ang. von"));
    const QString choreographer = song.getChoreographer();
    const QString adapter = song.getAdaptedBy();
    const QString plain = adapter.isEmpty() ? choreographer
                                            : choreographer + QStringLiteral(", ") + by
                                                  + QLatin1Char(' ') + adapter;
    const QString elided = elide(plain);
    if (elided != plain || adapter.isEmpty())
        return elided.toHtmlEscaped();
    return QStringLiteral("%1, <small>%2</small> %3")
        .arg(choreographer.toHtmlEscaped(), by, adapter.toHtmlEscaped());
}

} // namespace

PositionsHeader positionsHeader(const Song &song, const QString &levelName, bool moreInfo,
                                const Elide &elide)
{
    PositionsHeader header;
    const QString level = displayedLevel(song.getLevel(), levelName);
    header.title = QStringLiteral("%1 - %2 (%3)")
                       .arg(song.getTitle(), song.getArtist(), durationText(song.getPlayLength()));
    header.windowTitle
        = QStringLiteral("%1 - %2 - %3 - Tarvelo").arg(song.getTitle(), song.getArtist(), level);
    if (!moreInfo)
        return header;
    const bool hasLevel = !level.isEmpty();
    const bool hasChoreographer = !song.getChoreographer().isEmpty();
    const bool both = hasLevel && hasChoreographer;
    header.infoLabels
        = (hasLevel ? translated(QT_TRANSLATE_NOOP("PositionsHeader", "Level:")) : QString())
          + (both ? QStringLiteral("\n") : QString())
          + (hasChoreographer ? translated(QT_TRANSLATE_NOOP("PositionsHeader", "Choreograf:"))
                              : QString());
    const QString choreographer = choreographerText(song, elide);
    header.infoValues
        = level.toHtmlEscaped()
          + (hasLevel && !choreographer.isEmpty() ? QStringLiteral("<br>") : QString())
          + choreographer;
    return header;
}
