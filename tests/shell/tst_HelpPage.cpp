#include "HelpPage.h"
#include "TestMain.h"
#include "Theme.h"

#include <QApplication>
#include <QLocale>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTextTable>

namespace {

constexpr const char *languages[] = {"de", "en"};

constexpr const char *files[]
    = {"intro", "first-steps", "changes", "keys", "columns", "problems", "versions", "about"};

// German key names and labels, and what the English page calls them.
constexpr const char *englishWords[][2] = {
    {"Strg", "Ctrl"},
    {"Umschalt", "Shift"},
    {"Entf", "Del"},
    {"Einfg", "Ins"},
    {"Bild↑", "PgUp"},
    {"Bild↓", "PgDn"},
    {"Pos1", "Home"},
    {"Ende", "End"},
    {"Medientaste Wiedergabe/Pause", "media key Play/Pause"},
    {"Medientaste Wiedergabe", "media key Play"},
    {"Medientaste Stopp", "media key Stop"},
    {"Medientaste Pause", "media key Pause"},
    {"Medientaste Nächster Titel", "media key Next"},
    {"Medientaste Voriger Titel", "media key Previous"},
    {"Menütaste", "Menu key"},
    {"Hilfe", "Help"},
    {"überall", "everywhere"},
    {"alle anderen", "all others"},
    {"Musik", "Music"},
    {"Positionen", "Positions"},
    {"Choreografie", "Choreography"},
};

// Every key of the window: what the user presses, the screens where it works. A star: further
// modifiers don't matter.
constexpr const char *everywhere = "überall";
constexpr const char *music = "Musik";
constexpr const char *positions = "Positionen";
constexpr const char *choreography = "Choreografie";
constexpr const char *help = "Hilfe";
constexpr const char *songScreens = "Musik, Positionen, Choreografie";
constexpr const char *keys[][2] = {
    {"F1 *", everywhere},
    {"F2 *", everywhere},
    {"F3 *", everywhere},
    {"F4 *", everywhere},
    {"F5 *", everywhere},
    {"F8 *", everywhere},
    {"F9 *", everywhere},
    {"F10 *", everywhere},
    {"F11 *", everywhere},
    {"F12 *", everywhere},
    {"Esc *", everywhere},
    {"Esc *", music},
    {"Strg+Tab *", everywhere},
    {"Strg+Umschalt+Tab", everywhere},
    {"Return *", music},
    {"Return *", "alle anderen"},
    {"AltGr+Einfg", everywhere},
    {"Entf", music},
    {"AltGr+Entf", everywhere},
    {"AltGr+Pos1", songScreens},
    {"AltGr+Ende", songScreens},
    {"Pos1", music},
    {"Ende", music},
    {"Pos1", positions},
    {"Ende", positions},
    {"Pos1", choreography},
    {"Ende", choreography},
    {"Pos1", help},
    {"Ende", help},
    {"↑", music},
    {"↓", music},
    {"↑", positions},
    {"↓", positions},
    {"↑", choreography},
    {"↓", choreography},
    {"↑", help},
    {"↓", help},
    {"Umschalt+↑", music},
    {"Umschalt+↓", music},
    {"AltGr+↑", songScreens},
    {"AltGr+↓", songScreens},
    {"Bild↑", music},
    {"Bild↓", music},
    {"Bild↑", positions},
    {"Bild↓", positions},
    {"Bild↑", choreography},
    {"Bild↓", choreography},
    {"Bild↑", help},
    {"Bild↓", help},
    {"Menütaste *", everywhere},
    {"AltGr+Bild↑", songScreens},
    {"AltGr+Bild↓", songScreens},
    {"← *", everywhere},
    {"→ *", everywhere},
    {"Alt++", everywhere},
    {"+", everywhere},
    {"Alt+−", everywhere},
    {"−", everywhere},
    {"Strg+, *", everywhere},
    {"Strg+. *", everywhere},
    {"1 … 9, 0 *", everywhere},
    {"Strg+1 … 9, 0 *", everywhere},
    {"A", everywhere},
    {"Strg+A", everywhere},
    {"Strg+Umschalt+A", everywhere},
    {"B *", everywhere},
    {"C", everywhere},
    {"Strg+D *", music},
    {"E", music},
    {"E", positions},
    {"F", music},
    {"Strg+F", music},
    {"L", songScreens},
    {"M", everywhere},
    {"Strg+M *", everywhere},
    {"Strg+O *", everywhere},
    {"O *", everywhere},
    {"P", everywhere},
    {"Umschalt+P", everywhere},
    {"Strg+P *", positions},
    {"R", music},
    {"Strg+R *", music},
    {"R", positions},
    {"S", everywhere},
    {"AltGr+S", everywhere},
    {"T", positions},
    {"Strg+X *", everywhere},
    {"W", positions},
    {"Medientaste Wiedergabe *", everywhere},
    {"Medientaste Stopp *", everywhere},
    {"Medientaste Pause *", everywhere},
    {"Medientaste Nächster Titel *", everywhere},
    {"Medientaste Voriger Titel *", everywhere},
    {"Medientaste Wiedergabe/Pause *", everywhere},
};

// Every shortcut of the menus and the beginning of the entry's text.
constexpr const char *menuEntries[][2] = {
    {"E", "Tag-Bearbeitung ..."},
    {"Strg+R", "Dateien neu einlesen"},
    {"R", "Alle Filter zurücksetzen"},
    {"Alt+W", "Spaltenbreiten anpassen"},
    {"X", "Angezeigte Liste exportieren (Titel, Interpret, Album)"},
    {"Umschalt+X", "Angezeigte Liste exportieren (Alle sichtbaren Spalten)"},
    {"Strg+C", "Musikdatei kopieren"},
    {"Strg+D", "Musikdatei(en) duplizieren/kopieren ..."},
    {"Strg+M", "Musikdatei(en) umbenennen/verschieben ..."},
    {"Alt+E", "Musikdatei(en) konvertieren ..."},
    {"Alt+I", "Musikdatei(en) importieren ..."},
    {"E", "Positionen bearbeiten ..."},
    {"Strg+Umschalt+C", "Alle Positionen kopieren"},
    {"Strg+C", "Position kopieren"},
    {"Strg+V", "Position einfügen"},
    {"Strg+Umschalt+E", "Choreografie exportieren ..."},
    {"Strg+Umschalt+I", "Choreografie importieren ..."},
    {"Alt+R", "Choreografie entfernen ..."},
    {"Strg+C", "Choreografie kopieren"},
    {"Strg+E", "Positionen exportieren ..."},
    {"Strg+I", "Positionen importieren ..."},
    {"Strg+H", "Ersetzen ..."},
    {"T", "Zeiten verschieben ..."},
    {"F", "Positionen formatieren ..."},
    {"Alt+C", "Countdown bearbeiten ..."},
    {"Strg+S", "Verschiedene Positionen anzeigen ..."},
    {"V", "Eventliste anzeigen ..."},
    {"Strg+P", "Spalte mit Parts anzeigen"},
    {"Strg+B", "Spalte mit Beats anzeigen"},
    {"Strg+T", "Spalte mit Zeitpunkt anzeigen"},
    {"Strg+O", "Abspielfortschritt"},
    {"Entf", "Löschen ..."},
    {"Strg+X", "Beenden"},
};

constexpr const char *columns[][2] = {
    {"Titel", "Title"},
    {"Auswahl", "Selection"},
    {"Künstler", "Artist"},
    {"Level", "Level"},
    {"BPM", "BPM"},
    {"Index", "Index"},
    {"Kommentar", "Comment"},
    {"Genre", "Genre"},
    {"Jahr", "Year"},
    {"Länge", "Length"},
    {"Positionen J/N", "Positions Y/N"},
    {"Choreografie J/N", "Choreography Y/N"},
    {"Choreograf", "Choreographer"},
    {"Dateidatum", "File date"},
    {"Verzeichnis", "Directory"},
    {"Letztes Tempo", "Last tempo"},
    {"Bewertung", "Rating"},
    {"Besitzer", "Owner"},
    {"Angepasst von", "Adapted by"},
    {"Event Anzahl", "Event count"},
    {"Event Datum", "Event date"},
    {"Event Kategorie", "Event category"},
    {"Event", "Event"},
    {"Album", "Album"},
    {"Track-Nr.", "Track no."},
    {"Positionen", "Positions"},
    {"Pfad", "Path"},
    {"Cloud ID", "Cloud ID"},
    {"Version Choreografie", "Choreography version"},
    {"Version Positionen", "Positions version"},
    {"Datei beschreibbar", "File writable"},
    {"Countdown J/N", "Countdown Y/N"},
    {"ISWC Nummer", "ISWC number"},
};

QString plain(QString text)
{
    return text.replace(QChar(QChar::Nbsp), QLatin1Char(' ')).simplified();
}

// Rows of a document's tables with so many columns, without their headings.
QList<QStringList> tableRows(const QTextBrowser *browser, int columnCount)
{
    QList<QStringList> rows;
    for (const QTextFrame *frame : browser->document()->rootFrame()->childFrames()) {
        const auto *table = qobject_cast<const QTextTable *>(frame);
        if (!table || table->columns() != columnCount)
            continue;
        for (int row = 1; row < table->rows(); ++row) {
            QStringList cells;
            for (int column = 0; column < columnCount; ++column) {
                QTextCursor cell = table->cellAt(row, column).firstCursorPosition();
                cell.setPosition(table->cellAt(row, column).lastPosition(),
                                 QTextCursor::KeepAnchor);
                cells.append(plain(cell.selectedText()));
            }
            rows.append(cells);
        }
    }
    return rows;
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

QString inLanguage(const QString &language, QString german)
{
    if (language == QLatin1String("en"))
        for (const auto &words : englishWords)
            german.replace(QString::fromUtf8(words[0]), QString::fromUtf8(words[1]));
    return german;
}

QString source(const QString &language, const char *name)
{
    QFile file(QStringLiteral(":/Help/%1/%2.html").arg(language, QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class TestHelpPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setLanguage(QStringLiteral("de")); }
    void cleanup() { qApp->setStyleSheet({}); }

    void tabsStandInOrder();
    void everyTabHasText_data() { languageRows(); }
    void everyTabHasText();
    void everyKeyIsTold_data() { languageRows(); }
    void everyKeyIsTold();
    void everyMenuShortcutIsTold();
    void everyColumnIsTold_data() { languageRows(); }
    void everyColumnIsTold();
    void aboutNamesTheVersion_data() { dateRows(); }
    void aboutNamesTheVersion();
    void versionHistoryIsFilledOnEntering_data() { dateRows(); }
    void versionHistoryIsFilledOnEntering();
    void noPlaceholderIsLeft_data() { languageRows(); }
    void noPlaceholderIsLeft();
    void otherLanguagesReadEnglish();
    void languageSwitchReloads();
    void languagesHaveTheSameStructure_data();
    void languagesHaveTheSameStructure();
    void textsLeaveTheLookToTheTheme_data() { languageRows(); }
    void textsLeaveTheLookToTheTheme();
    void nextTabWraps();
    void scrollsByLines();
    void takesNoFocus();
    void everythingHasAName();
    void fitsASmallScreen_data();
    void fitsASmallScreen();
    void unseenPagesWaitForTheirFont();

private:
    static void languageRows();
    static void dateRows();
    static void setLanguage(const QString &code) { QLocale::setDefault(QLocale(code)); }
    static QTextBrowser *browser(const HelpPage &page, const char *name)
    {
        return page.findChild<QTextBrowser *>(QLatin1String(name));
    }
};

void TestHelpPage::languageRows()
{
    QTest::addColumn<QString>("language");
    for (const char *language : languages)
        QTest::newRow(language) << QString::fromLatin1(language);
}

void TestHelpPage::dateRows()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("longDate");
    QTest::addColumn<QString>("shortDate");
    QTest::newRow("German") << "de_DE"
                            << "06 Dez. 2024"
                            << "06.12.2024";
    QTest::newRow("Austrian") << "de_AT"
                              << "06 Dez. 2024"
                              << "06 Dez. 2024";
    QTest::newRow("English") << "en_US"
                             << "06 Dec 2024"
                             << "12/06/2024";
    QTest::newRow("British") << "en_GB"
                             << "06 Dec 2024"
                             << "06 Dec 2024";
}

void TestHelpPage::tabsStandInOrder()
{
    const HelpPage page;
    QCOMPARE(page.objectName(), QStringLiteral("page5_Help"));
    const auto *tabs = page.findChild<QTabWidget *>(QStringLiteral("tabWidgetHelp"));
    QVERIFY(tabs);
    QStringList names;
    QStringList titles;
    for (int tab = 0; tab < tabs->count(); ++tab) {
        names.append(tabs->widget(tab)->objectName());
        titles.append(tabs->tabText(tab));
    }
    QCOMPARE(names, QStringList({QStringLiteral("tabIntro"), QStringLiteral("tabFirstSteps"),
                                 QStringLiteral("tabChanges"), QStringLiteral("tabKeys"),
                                 QStringLiteral("tabLibraryColumns"), QStringLiteral("tabProblems"),
                                 QStringLiteral("tabRevision"), QStringLiteral("tabAbout")}));
    QCOMPARE(titles, QStringList({QStringLiteral("Einführung"), QStringLiteral("Bedienung"),
                                  QStringLiteral("Umstieg"), QStringLiteral("Tastaturbelegung"),
                                  QStringLiteral("Tabellenspalten / Felder"),
                                  QStringLiteral("Problembehandlung"), QStringLiteral("Versionen"),
                                  QStringLiteral("Über Tarvelo")}));
    QCOMPARE(tabs->currentIndex(), 0);
}

void TestHelpPage::everyTabHasText()
{
    QFETCH(QString, language);
    setLanguage(language);
    const HelpPage page;
    const auto *tabs = page.findChild<QTabWidget *>();
    for (int tab = 0; tab < tabs->count(); ++tab) {
        const auto *text = tabs->widget(tab)->findChild<QTextBrowser *>();
        QVERIFY2(text->toPlainText().size() > 400, qPrintable(tabs->tabText(tab)));
        QVERIFY(text->isReadOnly());
    }
}

void TestHelpPage::everyKeyIsTold()
{
    QFETCH(QString, language);
    setLanguage(language);
    const HelpPage page;
    QStringList told;
    for (const QStringList &row : tableRows(browser(page, "textBrowserKeys"), 3)) {
        told.append(row.at(0) + QStringLiteral(" | ") + row.at(1));
        QVERIFY2(!row.at(2).isEmpty(), qPrintable(told.last()));
    }
    QStringList expected;
    for (const auto &key : keys)
        expected.append(inLanguage(language, QString::fromUtf8(key[0])) + QStringLiteral(" | ")
                        + inLanguage(language, QString::fromUtf8(key[1])));
    QCOMPARE(sorted(told), sorted(expected));
}

void TestHelpPage::everyMenuShortcutIsTold()
{
    const HelpPage page;
    const QList<QStringList> rows = tableRows(browser(page, "textBrowserKeys"), 2);
    for (const auto &entry : menuEntries) {
        const auto tells = [&entry](const QStringList &row) {
            return row.at(0) == QString::fromUtf8(entry[0])
                   && row.at(1).startsWith(QString::fromUtf8(entry[1]));
        };
        QVERIFY2(std::any_of(rows.cbegin(), rows.cend(), tells), entry[1]);
    }
}

void TestHelpPage::everyColumnIsTold()
{
    QFETCH(QString, language);
    setLanguage(language);
    const HelpPage page;
    QStringList told;
    for (const QStringList &row : tableRows(browser(page, "textBrowserLibraryColumns"), 3)) {
        told.append(row.at(0));
        QVERIFY2(!row.at(1).isEmpty() && !row.at(2).isEmpty(), qPrintable(row.at(0)));
    }
    QStringList expected;
    for (const auto &column : columns)
        expected.append(QString::fromUtf8(column[language == QLatin1String("en") ? 1 : 0]));
    QCOMPARE(expected.size(), 33);
    QCOMPARE(sorted(told), sorted(expected));
}

void TestHelpPage::aboutNamesTheVersion()
{
    QFETCH(QString, locale);
    QFETCH(QString, longDate);
    setLanguage(locale);
    const HelpPage page;
    const QString about = browser(page, "textBrowserAbout")->toPlainText();
    QVERIFY2(about.startsWith(QStringLiteral("Tarvelo 8\n")), qPrintable(about));
    QVERIFY2(about.contains(longDate), qPrintable(about));
    for (const char *part : {"Qt", "TagLib", "SoundTouch", "Noto"})
        QVERIFY2(about.contains(QLatin1String(part)), part);
}

void TestHelpPage::versionHistoryIsFilledOnEntering()
{
    QFETCH(QString, locale);
    QFETCH(QString, shortDate);
    setLanguage(locale);
    HelpPage page;
    const QTextBrowser *history = browser(page, "textEditVersionHistory");
    QVERIFY(history->toPlainText().contains(QStringLiteral("RELEASE_DATE")));
    QVERIFY(history->toPlainText().contains(QStringLiteral("RELEASE_NAME")));
    for (int entered = 0; entered < 2; ++entered) {
        page.show();
        QVERIFY2(history->toPlainText().contains(shortDate), qPrintable(history->toPlainText()));
        QVERIFY(!history->toPlainText().contains(QStringLiteral("RELEASE_")));
        page.hide();
    }
}

void TestHelpPage::noPlaceholderIsLeft()
{
    QFETCH(QString, language);
    setLanguage(language);
    HelpPage page;
    page.show();
    for (const QTextBrowser *text : page.findChildren<QTextBrowser *>())
        for (const char *placeholder : {"VERSION", "DATE", "EDITION", "RELEASE_"})
            QVERIFY2(!text->toPlainText().contains(QLatin1String(placeholder)), placeholder);
}

void TestHelpPage::otherLanguagesReadEnglish()
{
    setLanguage(QStringLiteral("fr_FR"));
    const HelpPage page;
    QVERIFY(browser(page, "textBrowserIntro")
                ->toPlainText()
                .startsWith(QStringLiteral("Welcome to Tarvelo")));
}

void TestHelpPage::languageSwitchReloads()
{
    HelpPage page;
    page.show();
    const auto begins = [&page](const char *name, const QString &text) {
        return browser(page, name)->toPlainText().startsWith(text);
    };
    QVERIFY(begins("textBrowserIntro", QStringLiteral("Willkommen bei Tarvelo")));
    setLanguage(QStringLiteral("en"));
    page.retranslate();
    QVERIFY(begins("textBrowserIntro", QStringLiteral("Welcome to Tarvelo")));
    QVERIFY(begins("textBrowserAbout", QStringLiteral("Tarvelo 8\n“Rocking Chair”, 06 Dec 2024")));
    QVERIFY(begins("textEditVersionHistory", QStringLiteral("Versions\nVersion 8 “Rocking Chair”\n"
                                                            "Released on 12/06/2024.")));
    setLanguage(QStringLiteral("de"));
    page.retranslate();
    QVERIFY(begins("textBrowserAbout", QStringLiteral("Tarvelo 8\n„Rocking Chair“, 06 Dez. 2024")));
}

void TestHelpPage::languagesHaveTheSameStructure_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : files)
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestHelpPage::languagesHaveTheSameStructure()
{
    QFETCH(QString, name);
    static const QRegularExpression element(
        QStringLiteral("</?(h[1-3]|table|tr|t[hd]|[uo]l|li|p)\\b"));
    QStringList structures;
    for (const char *language : languages) {
        QStringList found;
        for (const auto &match :
             element.globalMatch(source(QLatin1String(language), qPrintable(name))))
            found.append(match.captured(1));
        QVERIFY(found.count(QStringLiteral("h1")) == 2);
        structures.append(found.join(QLatin1Char(' ')));
    }
    QCOMPARE(structures.at(1), structures.at(0));
}

void TestHelpPage::textsLeaveTheLookToTheTheme()
{
    QFETCH(QString, language);
    static const QRegularExpression look(
        QStringLiteral("color|style=|<font|font-|<img|class=|border="));
    for (const char *name : files)
        QVERIFY2(!source(language, name).contains(look), name);
}

void TestHelpPage::nextTabWraps()
{
    HelpPage page;
    const auto *tabs = page.findChild<QTabWidget *>();
    for (int tab = 1; tab < tabs->count(); ++tab) {
        page.nextTab();
        QCOMPARE(tabs->currentIndex(), tab);
    }
    page.nextTab();
    QCOMPARE(tabs->currentIndex(), 0);
}

void TestHelpPage::scrollsByLines()
{
    HelpPage page;
    page.resize(800, 400);
    page.show();
    const QScrollBar *bar = browser(page, "textBrowserIntro")->verticalScrollBar();
    page.scrollBy(3);
    QCOMPARE(bar->value(), 3 * bar->singleStep());
    page.scrollBy(-1);
    QCOMPARE(bar->value(), 2 * bar->singleStep());
    page.nextTab();
    page.scrollBy(1);
    QCOMPARE(bar->value(), 2 * bar->singleStep());
    QVERIFY(browser(page, "textBrowserFirstSteps")->verticalScrollBar()->value() > 0);
}

void TestHelpPage::takesNoFocus()
{
    HelpPage page;
    page.show();
    QCOMPARE(page.focusPolicy(), Qt::NoFocus);
    for (const QWidget *child : page.findChildren<QWidget *>())
        QVERIFY2(child->focusPolicy() == Qt::NoFocus, child->metaObject()->className());
    QTest::mouseClick(browser(page, "textBrowserIntro")->viewport(), Qt::LeftButton);
    QVERIFY(!page.focusWidget());
}

void TestHelpPage::everythingHasAName()
{
    const HelpPage page;
    const auto *tabs = page.findChild<QTabWidget *>();
    QVERIFY(!tabs->accessibleName().isEmpty());
    for (int tab = 0; tab < tabs->count(); ++tab) {
        QCOMPARE(tabs->widget(tab)->accessibleName(), tabs->tabText(tab));
        QCOMPARE(tabs->widget(tab)->findChild<QTextBrowser *>()->accessibleName(),
                 tabs->tabText(tab));
    }
}

void TestHelpPage::fitsASmallScreen_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("fontSize");
    QTest::addColumn<bool>("inView");
    // 14 points is what a screen of 768 lines begins with.
    for (const char *language : languages)
        for (const int fontSize : {14, 21})
            for (const bool inView : {false, true})
                QTest::addRow("%s %d %s", language, fontSize, inView ? "in view" : "before")
                    << QString::fromLatin1(language) << fontSize << inView;
}

void TestHelpPage::fitsASmallScreen()
{
    QFETCH(QString, language);
    QFETCH(int, fontSize);
    QFETCH(bool, inView);
    setLanguage(language);
    HelpPage page;
    page.resize(1024, 640);
    page.setVisible(inView);
    qApp->setStyleSheet(filledStyleSheet(styleSheetText(themeNamed({})), {.fontSize = fontSize}));
    page.show();
    auto *tabs = page.findChild<QTabWidget *>();
    const QTabBar *bar = tabs->tabBar();
    QVERIFY2(bar->tabRect(bar->count() - 1).right() < page.width(),
             qPrintable(QString::number(bar->tabRect(bar->count() - 1).right())));
    QVERIFY(bar->font().pointSize() >= 10);
    for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        const auto *text = tabs->currentWidget()->findChild<QTextBrowser *>();
        QTRY_VERIFY(text->verticalScrollBar()->maximum() > 0);
        QCOMPARE(text->document()->defaultFont().pointSize(), fontSize);
        QTRY_VERIFY2(text->horizontalScrollBar()->maximum() == 0, qPrintable(text->objectName()));
    }
}

void TestHelpPage::unseenPagesWaitForTheirFont()
{
    HelpPage page;
    page.show();
    page.nextTab();
    const QTextDocument *unseen = browser(page, "textBrowserIntro")->document();
    const QTextDocument *seen = browser(page, "textBrowserFirstSteps")->document();
    const QFont before = unseen->defaultFont();
    qApp->setStyleSheet(QStringLiteral("QWidget { font-size: 33pt; }"));
    QCOMPARE(seen->defaultFont().pointSize(), 33);
    QCOMPARE(unseen->defaultFont(), before);
    page.findChild<QTabWidget *>()->setCurrentIndex(0);
    QCOMPARE(unseen->defaultFont().pointSize(), 33);
}

TARVELO_TEST_MAIN(TestHelpPage, QApplication)
#include "tst_HelpPage.moc"
