#include "HelpPage.h"

#include "Version.h"

#include <QAbstractButton>
#include <QEvent>
#include <QFile>
#include <QLocale>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTextTable>
#include <QVBoxLayout>

namespace {

enum Page {
    IntroPage,
    FirstStepsPage,
    ChangesPage,
    KeysPage,
    ColumnsPage,
    ProblemsPage,
    VersionsPage,
    AboutPage,
};

struct PageRow
{
    const char *tab;
    const char *browser;
    const char *title;
    const char *file; // base name in the directory of the language
};

constexpr PageRow pages[] = {
    {"tabIntro", "textBrowserIntro", QT_TRANSLATE_NOOP("HelpPage", "Einführung"), "intro"},
    {"tabFirstSteps", "textBrowserFirstSteps", QT_TRANSLATE_NOOP("HelpPage", "Bedienung"),
     "first-steps"},
    {"tabChanges", "textBrowserChanges", QT_TRANSLATE_NOOP("HelpPage", "Umstieg"), "changes"},
    {"tabKeys", "textBrowserKeys", QT_TRANSLATE_NOOP("HelpPage", "Tastaturbelegung"), "keys"},
    {"tabLibraryColumns", "textBrowserLibraryColumns",
     QT_TRANSLATE_NOOP("HelpPage", "Tabellenspalten / Felder"), "columns"},
    {"tabProblems", "textBrowserProblems", QT_TRANSLATE_NOOP("HelpPage", "Problembehandlung"),
     "problems"},
    {"tabRevision", "textEditVersionHistory", QT_TRANSLATE_NOOP("HelpPage", "Versionen"),
     "versions"},
    {"tabAbout", "textBrowserAbout", QT_TRANSLATE_NOOP("HelpPage", "Über Tarvelo"), "about"},
};
constexpr int pageCount = static_cast<int>(std::size(pages));

// Empty when there is no such page: the tab then shows nothing.
QString pageText(const char *name)
{
    const char *language = QLocale().language() == QLocale::German ? "de" : "en";
    QFile file(
        QStringLiteral(":/Help/%1/%2.html").arg(QLatin1String(language), QLatin1String(name)));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}

// Laid out text costs at each change of theme or font, even unseen: while hidden, a page keeps its
// text and waits for the next time it is shown.
class HelpBrowser : public QTextBrowser
{
public:
    HelpBrowser(const char *name, QWidget *parent)
        : QTextBrowser(parent)
    {
        setObjectName(QLatin1String(name));
        setFocusPolicy(Qt::NoFocus);
        setTextInteractionFlags(Qt::TextSelectableByMouse);
        document()->setDefaultStyleSheet(
            QStringLiteral("h2 { margin-top: 24px; } h3 { margin-top: 16px; margin-bottom: 4px; }"
                           "p { margin-bottom: 8px; } li { margin-bottom: 4px; }"
                           "th { text-align: left; }"));
    }

protected:
    void changeEvent(QEvent *event) override
    {
        if (event->type() != QEvent::FontChange || (isVisible() && hasNewFont()))
            QTextBrowser::changeEvent(event);
    }

    void showEvent(QShowEvent *event) override
    {
        if (hasNewFont())
            document()->setDefaultFont(font());
        QTextBrowser::showEvent(event);
    }

private:
    bool hasNewFont() const { return document()->defaultFont() != font(); }
};

void replaceAll(QTextDocument *document, const QString &placeholder, const QString &text)
{
    QTextCursor found = document->find(placeholder, 0, QTextDocument::FindCaseSensitively);
    while (!found.isNull()) {
        found.insertText(text);
        found = document->find(placeholder, found, QTextDocument::FindCaseSensitively);
    }
}

// Thin lines in a grey that stands out a little from any ground: the texts name no colours.
void styleTables(QTextDocument *document)
{
    for (QTextFrame *frame : document->rootFrame()->childFrames()) {
        auto *table = qobject_cast<QTextTable *>(frame);
        if (!table)
            continue;
        QTextTableFormat format = table->format();
        format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
        format.setBorder(1);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(QColor(128, 128, 128, 96));
        format.setBorderCollapse(true);
        format.setCellPadding(6);
        format.setCellSpacing(0);
        format.setTopMargin(8);
        format.setBottomMargin(8);
        table->setFormat(format);
    }
}

} // namespace

HelpPage::HelpPage(QWidget *parent)
    : QWidget(parent)
    , tabWidgetHelp(new QTabWidget(this))
{
    setObjectName(QStringLiteral("page5_Help"));
    tabWidgetHelp->setObjectName(QStringLiteral("tabWidgetHelp"));
    tabWidgetHelp->setFocusPolicy(Qt::NoFocus);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tabWidgetHelp);
    addPages();
    for (auto *button : tabWidgetHelp->tabBar()->findChildren<QAbstractButton *>())
        button->setFocusPolicy(Qt::NoFocus);
    retranslate();
}

void HelpPage::addPages()
{
    for (const PageRow &page : pages) {
        auto *tab = new QWidget(tabWidgetHelp);
        tab->setObjectName(QLatin1String(page.tab));
        auto *layout = new QVBoxLayout(tab);
        layout->setContentsMargins(0, 0, 0, 0);
        browsers.append(new HelpBrowser(page.browser, tab));
        layout->addWidget(browsers.last());
        tabWidgetHelp->addTab(tab, QString());
    }
}

void HelpPage::nextTab()
{
    tabWidgetHelp->setCurrentIndex((tabWidgetHelp->currentIndex() + 1) % tabWidgetHelp->count());
}

void HelpPage::scrollBy(int lines)
{
    QScrollBar *bar = browsers.at(tabWidgetHelp->currentIndex())->verticalScrollBar();
    const qint64 place = bar->value() + qint64{lines} * bar->singleStep();
    bar->setValue(static_cast<int>(qBound(qint64{0}, place, qint64{bar->maximum()})));
}

void HelpPage::retranslate()
{
    tabWidgetHelp->setAccessibleName(tr("Hilfe"));
    for (int page = 0; page < pageCount; ++page) {
        const QString title = tr(pages[page].title);
        tabWidgetHelp->setTabText(page, title);
        tabWidgetHelp->widget(page)->setAccessibleName(title);
        browsers.at(page)->setAccessibleName(title);
        browsers.at(page)->setHtml(pageText(pages[page].file));
        styleTables(browsers.at(page)->document());
    }
    fillAbout();
    if (isVisible())
        fillVersionHistory();
    measureTabs();
}

void HelpPage::fillAbout()
{
    QTextDocument *about = browsers.at(AboutPage)->document();
    replaceAll(about, QStringLiteral("VERSION"), Version::shortText());
    replaceAll(about, QStringLiteral("DATE"), Version::buildDate(QStringLiteral("L")));
    replaceAll(about, QStringLiteral("EDITION"), Version::releaseName());
}

void HelpPage::fillVersionHistory()
{
    QTextDocument *history = browsers.at(VersionsPage)->document();
    replaceAll(history, QStringLiteral("RELEASE_DATE"), Version::buildDate(QStringLiteral("S")));
    replaceAll(history, QStringLiteral("RELEASE_NAME"), Version::releaseName());
}

int HelpPage::tabTextWidth(const QFont &font) const
{
    int sum = 0;
    for (int tab = 0; tab < tabWidgetHelp->count(); ++tab)
        sum += QFontMetrics(font).horizontalAdvance(tabWidgetHelp->tabText(tab));
    return sum;
}

void HelpPage::measureTabs()
{
    QTabBar *bar = tabWidgetHelp->tabBar();
    bar->setStyleSheet({});
    tabFont = bar->font();
    tabPadding = bar->sizeHint().width() - tabTextWidth(tabFont);
    fitTabs();
}

// All tabs stay in sight: where the font is too wide for the window, theirs gets smaller.
void HelpPage::fitTabs()
{
    constexpr int smallest = 8; // points
    QFont font = tabFont;
    while (tabTextWidth(font) + tabPadding > width() && font.pointSize() > smallest)
        font.setPointSize(font.pointSize() - 1);
    const QString sheet
        = font == tabFont ? QString()
                          : QStringLiteral("QTabBar { font-size: %1pt; }").arg(font.pointSize());
    if (tabWidgetHelp->tabBar()->styleSheet() != sheet)
        tabWidgetHelp->tabBar()->setStyleSheet(sheet);
}

void HelpPage::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        measureTabs();
}

void HelpPage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitTabs();
}

void HelpPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    fillVersionHistory();
    // Only now do the tabs have the theme's font, if it came while they were hidden.
    measureTabs();
}
