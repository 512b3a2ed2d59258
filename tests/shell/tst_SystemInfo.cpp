#include "Log.h"
#include "SettingsPage.h"
#include "SystemInfo.h"
#include "TestMain.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextEdit>

using Settings::Key;

// The two tabs that support asks for.
class TestSystemInfo : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareSample(); }
    void init() { prepareWindow(); }
    void cleanup() { dropWindow(); }

    void rowsInTheirOrder();
    void whatIsNotKnownIsEmpty();
    void textsAreNoHtml();
    void ofThisMachine();
    void tabShowsTheWindow();
    void tabIsFilledAnewEachTime();
    void copiedAsATable();
    void logIsShownAndCopied();
    void logWithTheLoggingOff();
    void emptyLog();
    void missingLog();
    void longLog();

private:
    void openTab(SettingsTab tab);
    QTextEdit *info() const { return find<QTextEdit>("textEditSystemInfo"); }
    QTextEdit *log() const { return find<QTextEdit>("textEditLog"); }
    static bool writeLog(const QByteArray &content);
};

void TestSystemInfo::openTab(SettingsTab tab)
{
    window->showScreen(SettingsScreen);
    find<SettingsPage>("tabWidgetSettings")->setCurrentIndex(static_cast<int>(tab));
}

bool TestSystemInfo::writeLog(const QByteArray &content)
{
    QFile file(Log::logFileName());
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

namespace {

SystemFacts someFacts()
{
    SystemFacts facts;
    facts.operatingSystem = u"Gamma OS 3"_qs;
    facts.cpuArchitecture = u"x86_64"_qs;
    facts.buildAbi = u"x86_64-little_endian-lp64"_qs;
    facts.memoryMB = 16000;
    facts.qtVersion = u"6.4.2"_qs;
    facts.version = u"8.0.0"_qs;
    facts.buildDate = u"06.12.2024"_qs;
    facts.buildTime = u"Dec  6 2024 12:00:00"_qs;
    facts.stretcherVersion = u"2.3.2"_qs;
    facts.tagLibraryVersion = u"1.13.0"_qs;
    facts.screen = QSize(1920, 1080);
    facts.screenMm = QSizeF(509.0, 286.0);
    facts.logicalDpi = 96.0;
    facts.physicalDpi = 101.6;
    facts.window = QSize(1440, 810);
    facts.topFrameHeight = 50;
    facts.bottomFrameHeight = 70;
    facts.timeDisplayMode = 3;
    facts.largeButton = 50;
    facts.mediumButton = 40;
    facts.smallButton = 30;
    facts.programDir = u"/opt/tarvelo"_qs;
    facts.musicDir = u"/music"_qs;
    facts.cuesheetDir = u"/sheets"_qs;
    facts.playlistDir = u"/lists"_qs;
    facts.positionsDir = u"/positions"_qs;
    facts.cacheDir = u"/tmp/Tarvelo"_qs;
    facts.languagesDir = u"/opt/tarvelo/Languages"_qs;
    facts.metadataDir = u"/meta"_qs;
    facts.importDir = u"/import"_qs;
    facts.settingsFile = u"/home/x/Tarvelo.conf"_qs;
    facts.countStart = 9;
    facts.countEnd = 0;
    facts.countDownType = 1;
    facts.countDownComment = u"Start %1"_qs;
    return facts;
}

// Label and value of each row.
QStringList rowsOf(const QString &html)
{
    static const QRegularExpression row(
        u"<tr><td align=\"right\">(.*?)</td><td>&nbsp;</td><td>(.*?)</td></tr>"_qs);
    QStringList result;
    for (auto match = row.globalMatch(html); match.hasNext();) {
        const auto found = match.next();
        result.append(found.captured(1) + u' ' + found.captured(2));
    }
    return result;
}

} // namespace

void TestSystemInfo::rowsInTheirOrder()
{
    const QString html = systemInfoHtml(someFacts());
    QVERIFY(!html.contains(u'\n'));
    const QStringList expected{
        u"Betriebssystem: Gamma OS 3"_qs,
        u"Architektur: x86_64, x86_64-little_endian-lp64"_qs,
        u"Systemspeicher: 16000 MB"_qs,
        u"QT: 6.4.2"_qs,
        u"Tarvelo: 8.0.0 (06.12.2024)"_qs,
        u"Build: Dec  6 2024 12:00:00"_qs,
        u"Soundtouch: 2.3.2"_qs,
        u"TagLib: 1.13.0"_qs,
        u"Bildschirm: 1920 x 1080 (509 mm x 286 mm, 23.0&quot;)"_qs,
        u"Fenster: 1440 x 810"_qs,
        u"Logical dpi: 96"_qs,
        u"Physical dpi: 101.6"_qs,
        u"Frame Top Höhe: 50"_qs,
        u"Frame Bottom Höhe: 70"_qs,
        u"Zeitanzeige: 3"_qs,
        u"Programmverzeichnis: /opt/tarvelo"_qs,
        u"Musikverzeichnis: /music"_qs,
        u"Cuesheetverzeichnis: /sheets"_qs,
        u"Playlistverzeichnis: /lists"_qs,
        u"Positionsverzeichnis: /positions"_qs,
        u"Cacheverzeichnis: /tmp/Tarvelo"_qs,
        u"Sprachverzeichnis: /opt/tarvelo/Languages"_qs,
        u"Metadatenverzeichnis: /meta"_qs,
        u"Importverzeichnis: /import"_qs,
        u"Big Buttons: 50 px (1.25 cm)"_qs,
        u"Mid Buttons: 40 px (1.00 cm)"_qs,
        u"Sml Buttons: 30 px (0.75 cm)"_qs,
        u"Settings: /home/x/Tarvelo.conf"_qs,
        u"Countdown Vorgabe: Start 9, Ende 0, Typ: 1, Kommentar: Start %1"_qs,
    };
    QCOMPARE(rowsOf(html), expected);
}

void TestSystemInfo::whatIsNotKnownIsEmpty()
{
    const QStringList rows = rowsOf(systemInfoHtml({}));
    QCOMPARE(rows.size(), 29);
    QVERIFY(rows.contains(u"Systemspeicher: "_qs));
    QVERIFY(rows.contains(u"Musikverzeichnis: "_qs));
    QVERIFY(rows.contains(u"Big Buttons: 0 px"_qs));
    QVERIFY(!rows.join(u' ').contains(u"nan"_qs) && !rows.join(u' ').contains(u"inf"_qs));
}

void TestSystemInfo::textsAreNoHtml()
{
    SystemFacts facts = someFacts();
    facts.musicDir = u"/a <b>&amp;</b>"_qs;
    QVERIFY(rowsOf(systemInfoHtml(facts))
                .contains(u"Musikverzeichnis: /a &lt;b&gt;&amp;amp;&lt;/b&gt;"_qs));
}

void TestSystemInfo::ofThisMachine()
{
    Settings::setValue(Key::MetadataDir, u"/meta"_qs);
    Settings::setValue(Key::SongFileImportDir, u"/import"_qs);
    const SystemFacts facts = systemFacts();
    QVERIFY(facts.memoryMB > 100);
    QCOMPARE(facts.qtVersion, QLatin1String(QT_VERSION_STR));
    static const QRegularExpression numbers(u"^\\d+\\.\\d+(\\.\\d+)?$"_qs);
    QVERIFY(numbers.match(facts.stretcherVersion).hasMatch());
    QVERIFY(numbers.match(facts.tagLibraryVersion).hasMatch());
    QCOMPARE(facts.metadataDir, u"/meta"_qs);
    QCOMPARE(facts.importDir, u"/import"_qs);
    QCOMPARE(facts.countStart, 9);
    QCOMPARE(facts.countDownComment, u"Start"_qs);
    QCOMPARE(facts.settingsFile, Settings::instance()->fileName());
    static const QRegularExpression built(u"\\d\\d:\\d\\d:\\d\\d$"_qs);
    QVERIFY(built.match(facts.buildTime).hasMatch());
}

void TestSystemInfo::tabShowsTheWindow()
{
    useLibrary();
    Settings::setValue(Key::FrameHeight, 50);
    start();
    openTab(SettingsTab::SystemInfo);
    QVERIFY(info()->isReadOnly());
    const QString text = info()->toPlainText();
    for (const QString &part :
         {u"Frame Top Höhe:"_qs, u"50"_qs, u"70"_qs, music->path(),
          u"%1 x %2"_qs.arg(window->width()).arg(window->height()), u"40 px ("_qs})
        QVERIFY2(text.contains(part), qPrintable(part));
}

void TestSystemInfo::tabIsFilledAnewEachTime()
{
    useLibrary();
    start();
    openTab(SettingsTab::SystemInfo);
    QVERIFY(!info()->toPlainText().contains(u"/somewhere/new"_qs));
    window->showScreen(LibraryScreen);
    Settings::setValue(Key::MetadataDir, u"/somewhere/new"_qs);
    window->showScreen(SettingsScreen);
    QVERIFY(info()->toPlainText().contains(u"/somewhere/new"_qs));
}

void TestSystemInfo::copiedAsATable()
{
    useLibrary();
    start();
    openTab(SettingsTab::SystemInfo);
    find<QPushButton>("buttonCopySysInfo")->click();
    const QString copied = QGuiApplication::clipboard()->text();
    QCOMPARE(copied, info()->toMarkdown());
    QVERIFY(copied.contains(u'|'));
    QVERIFY(copied.contains(u"Betriebssystem:"_qs));
}

void TestSystemInfo::logIsShownAndCopied()
{
    useLibrary();
    start();
    QVERIFY(writeLog("first\nsecond <b>&amp;\n\numlaut \xC3\xA4\n"));
    openTab(SettingsTab::Log);
    QVERIFY(log()->isReadOnly());
    QVERIFY(log()->toPlainText().startsWith(u"first\nsecond <b>&amp;\n\numlaut ä"_qs));
    find<QPushButton>("buttonCopyLog")->click();
    QCOMPARE(QGuiApplication::clipboard()->text(), log()->toPlainText());
}

void TestSystemInfo::logWithTheLoggingOff()
{
    useLibrary();
    start();
    QVERIFY(!Settings::value(Key::LoggingEnabled).toBool());
    QVERIFY(writeLog("from before\n"));
    openTab(SettingsTab::Log);
    QVERIFY(log()->toPlainText().startsWith(u"from before"_qs));
}

void TestSystemInfo::emptyLog()
{
    useLibrary();
    start();
    QVERIFY(writeLog("old\n"));
    openTab(SettingsTab::Log);
    QVERIFY(!log()->toPlainText().isEmpty());
    window->showScreen(LibraryScreen);
    QVERIFY(writeLog(""));
    window->showScreen(SettingsScreen);
    QVERIFY(log()->toPlainText().isEmpty());
}

void TestSystemInfo::missingLog()
{
    useLibrary();
    start();
    QVERIFY(writeLog("old\n"));
    openTab(SettingsTab::Log);
    QVERIFY(QFile::remove(Log::logFileName()));
    openTab(SettingsTab::Common);
    openTab(SettingsTab::Log);
    QVERIFY(log()->toPlainText().isEmpty());
}

void TestSystemInfo::longLog()
{
    useLibrary();
    start();
    QByteArray lines;
    for (int i = 0; i < 20000; ++i)
        lines += "line " + QByteArray::number(i) + '\n';
    QVERIFY(writeLog(lines));
    openTab(SettingsTab::Log);
    QVERIFY(log()->toPlainText().startsWith(u"line 0\n"_qs));
    QVERIFY(log()->toPlainText().contains(u"line 19999"_qs));
}

TARVELO_TEST_MAIN(TestSystemInfo, QApplication)
#include "tst_SystemInfo.moc"
