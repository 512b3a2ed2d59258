#pragma once

#include <QWidget>

class QPushButton;
class QTextEdit;

// A text for the support, with a button that copies it whole to the clipboard. The text is there
// only while the page is open: laid out text costs at each change of theme or font.
class CopyPage : public QWidget
{
    Q_OBJECT

public:
    enum class CopyAs { PlainText, Markdown };

    CopyPage(const char *pageName, const char *textName, const char *buttonName, CopyAs form,
             QWidget *parent = nullptr);

    void setHtml(const QString &html);
    void retranslate(const QString &title);

protected:
    void hideEvent(QHideEvent *event) override;

private:
    void copy() const;

    const CopyAs copyAs;
    QTextEdit *text;
    QPushButton *button;
};
