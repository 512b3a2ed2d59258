#include "ChoreographyPage.h"

#include <QLabel>
#include <QVBoxLayout>

ChoreographyPage::ChoreographyPage(QWidget *parent)
    : QWidget(parent)
    , message(new QLabel(this))
{
    setObjectName(QStringLiteral("page3_PDF"));
    message->setAlignment(Qt::AlignCenter);
    message->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(message);
}

void ChoreographyPage::setSongPresent(bool present)
{
    songPresent = present;
    retranslate();
}

void ChoreographyPage::retranslate()
{
    message->setText(songPresent ? tr("Für diesen Song wurde noch keine Choreografie ausgewählt.")
                                 : QString());
}
