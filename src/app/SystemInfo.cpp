#include "SystemInfo.h"

#include "BuildTime.h"
#include "Languages.h"
#include "LibraryVersions.h"
#include "Platform.h"
#include "Settings.h"
#include "Version.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QSysInfo>

#include <cmath>

using Settings::Key;

namespace {

constexpr double mmPerInch = 25.4;
constexpr double cmPerInch = 2.54;

struct Row
{
    const char *label;
    QString (*value)(const SystemFacts &facts);
};

QString memory(const SystemFacts &facts)
{
    return facts.memoryMB > 0 ? QStringLiteral("%1 MB").arg(facts.memoryMB) : QString();
}

QString pixels(const QSize &size)
{
    return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height());
}

QString screen(const SystemFacts &facts)
{
    if (facts.screenMm.isEmpty())
        return pixels(facts.screen);
    const double diagonal = std::hypot(facts.screenMm.width(), facts.screenMm.height());
    return pixels(facts.screen)
           + QStringLiteral(" (%1 mm x %2 mm, %3\")")
                 .arg(facts.screenMm.width(), 0, 'f', 0)
                 .arg(facts.screenMm.height(), 0, 'f', 0)
                 .arg(diagonal / mmPerInch, 0, 'f', 1);
}

QString side(int px, const SystemFacts &facts)
{
    const QString text = QStringLiteral("%1 px").arg(px);
    if (!(facts.physicalDpi > 0.0))
        return text;
    return text + QStringLiteral(" (%1 cm)").arg(px / facts.physicalDpi * cmPerInch, 0, 'f', 2);
}

QString countDown(const SystemFacts &facts)
{
    return QStringLiteral("Start %1, Ende %2, Typ: %3, Kommentar: %4")
        .arg(QString::number(facts.countStart), QString::number(facts.countEnd),
             QString::number(facts.countDownType), facts.countDownComment);
}

using Facts = const SystemFacts &;

// Support reads them, whatever the language on show: they have no translations.
constexpr Row rows[] = {
    {"Betriebssystem:", [](Facts f) { return f.operatingSystem; }},
    {"Architektur:",
     [](Facts f) { return QStringLiteral("%1, %2").arg(f.cpuArchitecture, f.buildAbi); }},
    {"Systemspeicher:", memory},
    {"QT:", [](Facts f) { return f.qtVersion; }},
    {"Tarvelo:", [](Facts f) { return QStringLiteral("%1 (%2)").arg(f.version, f.buildDate); }},
    {"Build:", [](Facts f) { return f.buildTime; }},
    {"Soundtouch:", [](Facts f) { return f.stretcherVersion; }},
    {"TagLib:", [](Facts f) { return f.tagLibraryVersion; }},
    {"Bildschirm:", screen},
    {"Fenster:", [](Facts f) { return pixels(f.window); }},
    {"Logical dpi:", [](Facts f) { return QString::number(f.logicalDpi); }},
    {"Physical dpi:", [](Facts f) { return QString::number(f.physicalDpi); }},
    {"Frame Top Höhe:", [](Facts f) { return QString::number(f.topFrameHeight); }},
    {"Frame Bottom Höhe:", [](Facts f) { return QString::number(f.bottomFrameHeight); }},
    {"Zeitanzeige:", [](Facts f) { return QString::number(f.timeDisplayMode); }},
    {"Programmverzeichnis:", [](Facts f) { return f.programDir; }},
    {"Musikverzeichnis:", [](Facts f) { return f.musicDir; }},
    {"Cuesheetverzeichnis:", [](Facts f) { return f.cuesheetDir; }},
    {"Playlistverzeichnis:", [](Facts f) { return f.playlistDir; }},
    {"Positionsverzeichnis:", [](Facts f) { return f.positionsDir; }},
    {"Cacheverzeichnis:", [](Facts f) { return f.cacheDir; }},
    {"Sprachverzeichnis:", [](Facts f) { return f.languagesDir; }},
    {"Metadatenverzeichnis:", [](Facts f) { return f.metadataDir; }},
    {"Importverzeichnis:", [](Facts f) { return f.importDir; }},
    {"Big Buttons:", [](Facts f) { return side(f.largeButton, f); }},
    {"Mid Buttons:", [](Facts f) { return side(f.mediumButton, f); }},
    {"Sml Buttons:", [](Facts f) { return side(f.smallButton, f); }},
    {"Settings:", [](Facts f) { return f.settingsFile; }},
    {"Countdown Vorgabe:", countDown},
};

void readScreen(SystemFacts &facts)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    facts.screen = screen->size();
    facts.screenMm = screen->physicalSize();
    facts.logicalDpi = screen->logicalDotsPerInch();
    facts.physicalDpi = screen->physicalDotsPerInch();
}

void readSettings(SystemFacts &facts)
{
    facts.musicDir = Settings::musicDir();
    facts.cuesheetDir = Settings::cuesheetDir();
    facts.playlistDir = Settings::playlistDir();
    facts.positionsDir = Settings::posImExDir();
    facts.cacheDir = Settings::cacheDir();
    facts.metadataDir = Settings::value(Key::MetadataDir).toString();
    facts.importDir = Settings::value(Key::SongFileImportDir).toString();
    facts.settingsFile = Settings::instance()->fileName();
    facts.countStart = Settings::value(Key::CountDownCountStart).toInt();
    facts.countEnd = Settings::value(Key::CountDownCountEnd).toInt();
    facts.countDownType = Settings::value(Key::CountDownType).toInt();
    facts.countDownComment = Settings::value(Key::CountDownComment).toString();
}

} // namespace

SystemFacts systemFacts()
{
    SystemFacts facts;
    facts.operatingSystem = QSysInfo::prettyProductName();
    facts.cpuArchitecture = QSysInfo::currentCpuArchitecture();
    facts.buildAbi = QSysInfo::buildAbi();
    facts.memoryMB = Platform::totalMemoryMB();
    facts.qtVersion = QStringLiteral(QT_VERSION_STR);
    facts.version = Version::number().toString();
    facts.buildDate = Version::buildDate(QStringLiteral("S"));
    facts.buildTime = buildTime();
    facts.stretcherVersion = stretcherVersion();
    facts.tagLibraryVersion = tagLibraryVersion();
    facts.programDir = QCoreApplication::applicationDirPath();
    facts.languagesDir = Languages::directory();
    readScreen(facts);
    readSettings(facts);
    return facts;
}

QString systemInfoHtml(const SystemFacts &facts)
{
    QString html = QStringLiteral("<table>");
    for (const Row &row : rows)
        html += QStringLiteral("<tr><td align=\"right\">") + QString::fromUtf8(row.label)
                + QStringLiteral("</td><td>&nbsp;</td><td>") + row.value(facts).toHtmlEscaped()
                + QStringLiteral("</td></tr>");
    return html + QStringLiteral("</table>");
}
