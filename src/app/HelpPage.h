#pragma once

#include <QFont>
#include <QList>
#include <QWidget>

class QTabWidget;
class QTextBrowser;

// The help screen: pages of rich text, one a tab, in the language of the default locale. It takes
// no focus; the window hands it what its keys ask for.
class HelpPage : public QWidget
{
    Q_OBJECT

public:
    explicit HelpPage(QWidget *parent = nullptr);

    // Turns to the next tab; the first one comes after the last.
    void nextTab();
    // Rolls the page in view by this many lines: down, or up when negative.
    void scrollBy(int lines);
    // Loads titles and texts anew.
    void retranslate();

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void addPages();
    void fillAbout();
    void fillVersionHistory();
    int tabTextWidth(const QFont &font) const;
    void measureTabs();
    void fitTabs();

    QTabWidget *tabWidgetHelp;
    QList<QTextBrowser *> browsers; // one a tab
    QFont tabFont;                  // of the tabs where there is room enough
    int tabPadding = 0;             // what the tabs take beside their texts, pixels
};
