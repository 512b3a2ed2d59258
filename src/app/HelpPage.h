#pragma once

#include <QTabWidget>

class QTextBrowser;

// The help screen: the keys that work, and what the program is.
class HelpPage : public QTabWidget
{
    Q_OBJECT

public:
    explicit HelpPage(QWidget *parent = nullptr);
    void retranslate();

private:
    QTextBrowser *keys;
    QTextBrowser *about;
};
