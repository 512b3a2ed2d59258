#include "CopyPage.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHideEvent>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

CopyPage::CopyPage(const char *pageName, const char *textName, const char *buttonName, CopyAs form,
                   QWidget *parent)
    : QWidget(parent)
    , copyAs(form)
    , text(new QTextEdit(this))
    , button(new QPushButton(this))
{
    setObjectName(QLatin1String(pageName));
    text->setObjectName(QLatin1String(textName));
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    button->setObjectName(QLatin1String(buttonName));
    button->setFocusPolicy(Qt::TabFocus);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(button, 0, Qt::AlignLeft);
    connect(button, &QPushButton::clicked, this, &CopyPage::copy);
}

void CopyPage::setHtml(const QString &html)
{
    text->setHtml(html);
}

void CopyPage::retranslate(const QString &title)
{
    text->setAccessibleName(title);
    button->setText(tr("Kopieren"));
    button->setAccessibleName(tr("%1 kopieren").arg(title));
}

void CopyPage::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    // The window itself may have been minimised: then it comes back as it was.
    if (!event->spontaneous())
        text->clear();
}

void CopyPage::copy() const
{
    QGuiApplication::clipboard()->setText(copyAs == CopyAs::Markdown ? text->toMarkdown()
                                                                     : text->toPlainText());
}
