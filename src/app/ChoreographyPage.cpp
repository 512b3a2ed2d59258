#include "ChoreographyPage.h"

#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

ChoreographyPage::ChoreographyPage(QWidget *parent)
    : QWidget(parent)
    , scrollArea_PDF(new QScrollArea(this))
    , message(new QLabel(scrollArea_PDF))
{
    setObjectName(QStringLiteral("page3_PDF"));
    message->setAlignment(Qt::AlignCenter);
    message->setWordWrap(true);
    scrollArea_PDF->setObjectName(QStringLiteral("scrollArea_PDF"));
    scrollArea_PDF->setFocusPolicy(Qt::NoFocus);
    scrollArea_PDF->setFrameShape(QFrame::NoFrame);
    scrollArea_PDF->setWidgetResizable(true);
    scrollArea_PDF->setWidget(message);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scrollArea_PDF);
}

void ChoreographyPage::scroll(int pixels)
{
    QScrollBar *bar = scrollArea_PDF->verticalScrollBar();
    bar->setValue(bar->value() + pixels);
}

void ChoreographyPage::scrollPages(int pages)
{
    scroll(pages * scrollArea_PDF->verticalScrollBar()->pageStep());
}

void ChoreographyPage::setSongPresent(bool present)
{
    songPresent = present;
    scrollArea_PDF->verticalScrollBar()->setValue(0);
    retranslate();
}

void ChoreographyPage::retranslate()
{
    message->setText(songPresent ? tr("Für diesen Song wurde noch keine Choreografie ausgewählt.")
                                 : QString());
}
