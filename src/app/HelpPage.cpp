#include "HelpPage.h"

#include "Version.h"

#include <QLocale>
#include <QTextBrowser>

namespace {

struct KeyHelp
{
    const char *keys;
    const char *effect;
};

constexpr KeyHelp keyHelp[] = {
    {"F1 … F5", QT_TRANSLATE_NOOP("HelpPage", "Bildschirm wählen")},
    {"↑ ↓ PgUp PgDn Home End", QT_TRANSLATE_NOOP("HelpPage", "Song oder Position wählen")},
    {"Return", QT_TRANSLATE_NOOP("HelpPage", "Song laden und seine Positionen zeigen; zurück")},
    {"P", QT_TRANSLATE_NOOP("HelpPage", "Musikwiedergabe starten")},
    {"A", QT_TRANSLATE_NOOP("HelpPage", "Musikwiedergabe pausieren, fortsetzen")},
    {"S", QT_TRANSLATE_NOOP("HelpPage", "Musikwiedergabe stoppen")},
    {"+ −", QT_TRANSLATE_NOOP("HelpPage", "Tempo um ein Prozent schneller, langsamer")},
    {"← →", QT_TRANSLATE_NOOP("HelpPage", "Fünf Sekunden zurück, vor")},
    {"1 … 9, 0", QT_TRANSLATE_NOOP("HelpPage", "Part 1 bis 10 spielen; mit Strg Part 11 bis 20")},
    {"W", QT_TRANSLATE_NOOP("HelpPage", "Positionen in voller Breite oder als ganzer Text")},
    {"Ctrl+P, Ctrl+B, Ctrl+T",
     QT_TRANSLATE_NOOP("HelpPage", "Spalte der Parts, der Beats, der Zeitpunkte zeigen")},
    {"Ctrl+R", QT_TRANSLATE_NOOP("HelpPage", "Dateien neu einlesen (Musik)")},
    {"Ctrl+X", QT_TRANSLATE_NOOP("HelpPage", "Beenden")},
};

QTextBrowser *readOnlyPage(QWidget *parent)
{
    auto *page = new QTextBrowser(parent);
    page->setFocusPolicy(Qt::NoFocus);
    return page;
}

} // namespace

HelpPage::HelpPage(QWidget *parent)
    : QTabWidget(parent)
    , keys(readOnlyPage(this))
    , about(readOnlyPage(this))
{
    setObjectName(QStringLiteral("page5_Help"));
    setFocusPolicy(Qt::NoFocus);
    addTab(keys, QString());
    addTab(about, QString());
    retranslate();
}

void HelpPage::retranslate()
{
    setTabText(0, tr("Tastaturbelegung"));
    setTabText(1, tr("Über Tarvelo"));
    QString rows;
    for (const KeyHelp &help : keyHelp)
        rows += QStringLiteral("<tr><td><b>%1</b></td><td>%2</td></tr>")
                    .arg(QString::fromUtf8(help.keys).toHtmlEscaped(),
                         tr(help.effect).toHtmlEscaped());
    keys->setHtml(QStringLiteral("<table cellpadding=\"6\">%1</table>").arg(rows));
    about->setHtml(tr("<h2>Tarvelo %1</h2><p>Ein mp3-Spieler für Clogging-Lehrer.</p><p>%2</p>")
                       .arg(Version::shortText(),
                            QLocale().toString(Version::date(), QStringLiteral("dd MMM yyyy"))));
}
