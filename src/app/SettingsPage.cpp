#include "SettingsPage.h"

#include "FileDialogs.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>

namespace {

QSpinBox *spinBox(QWidget *parent, const char *name, int minimum, int maximum)
{
    auto *box = new QSpinBox(parent);
    box->setObjectName(QLatin1String(name));
    box->setRange(minimum, maximum);
    box->setAlignment(Qt::AlignRight);
    box->setFocusPolicy(Qt::ClickFocus);
    // A number counts when it is typed to its end; then the keys belong to the window again.
    box->setKeyboardTracking(false);
    return box;
}

} // namespace

SettingsPage::SettingsPage(QWidget *parent)
    : QTabWidget(parent)
    , labelMusicDir(new QLabel(this))
    , lineEditMusicDir(new QLineEdit(this))
    , buttonMusicDir(new QPushButton(this))
    , labelFontSize(new QLabel(this))
    , spinBoxFontSize(spinBox(this, "spinBoxFontSize", 8, 70))
    , labelMaxFontSize(new QLabel(this))
    , spinBoxMaxFontSizePositions(spinBox(this, "spinBoxMaxFontSizePositions", 10, 999))
    , labelFrameSize(new QLabel(this))
    , spinBoxFrameSize(spinBox(this, "spinBoxFrameSize", 20, 80))
{
    setObjectName(QStringLiteral("tabWidgetSettings"));
    setFocusPolicy(Qt::NoFocus);
    addRows(addPage("tabCommon"));
    retranslate();
    connect(buttonMusicDir, &QPushButton::clicked, this, &SettingsPage::onButtonMusicDir_clicked);
    connect(spinBoxFontSize, &QSpinBox::valueChanged, this, &SettingsPage::fontSizeChanged);
    connect(spinBoxMaxFontSizePositions, &QSpinBox::valueChanged, this,
            &SettingsPage::maxFontSizePositionsChanged);
    connect(spinBoxFrameSize, &QSpinBox::valueChanged, this, &SettingsPage::frameSizeChanged);
}

// A page that is larger than the window scrolls: it doesn't make the window grow.
QWidget *SettingsPage::addPage(const char *name)
{
    auto *area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    auto *page = new QWidget(area);
    page->setObjectName(QLatin1String(name));
    area->setWidget(page);
    addTab(area, QString());
    return page;
}

void SettingsPage::addRows(QWidget *page)
{
    lineEditMusicDir->setObjectName(QStringLiteral("lineEditMusicDir"));
    lineEditMusicDir->setReadOnly(true);
    lineEditMusicDir->setFocusPolicy(Qt::NoFocus);
    buttonMusicDir->setObjectName(QStringLiteral("buttonMusicDir"));
    buttonMusicDir->setFocusPolicy(Qt::NoFocus);
    spinBoxFrameSize->setSingleStep(5);
    spinBoxFrameSize->setSuffix(QStringLiteral(" px"));
    auto *grid = new QGridLayout(page);
    grid->setColumnStretch(1, 1);
    grid->addWidget(labelMusicDir, 0, 0);
    grid->addWidget(lineEditMusicDir, 0, 1);
    grid->addWidget(buttonMusicDir, 0, 2);
    grid->addWidget(labelFontSize, 1, 0);
    grid->addWidget(spinBoxFontSize, 1, 1, Qt::AlignLeft);
    grid->addWidget(labelFrameSize, 2, 0);
    grid->addWidget(spinBoxFrameSize, 2, 1, Qt::AlignLeft);
    grid->addWidget(labelMaxFontSize, 3, 0);
    grid->addWidget(spinBoxMaxFontSizePositions, 3, 1, Qt::AlignLeft);
    grid->setRowStretch(4, 1);
}

void SettingsPage::retranslate()
{
    setTabText(0, tr("Allgemein"));
    labelMusicDir->setText(tr("Musikverzeichnis:"));
    buttonMusicDir->setText(tr("Bearbeiten ..."));
    labelFontSize->setText(tr("Schriftgröße:"));
    labelFrameSize->setText(tr("Rahmengröße:"));
    labelMaxFontSize->setText(tr("Max. Schriftgröße Positionsanzeige:"));
}

void SettingsPage::onButtonMusicDir_clicked()
{
    const QString directory
        = chooseDirectory(this, tr("Verzeichnis mit Musik auswählen:"), musicDir());
    if (directory.isEmpty())
        return;
    setMusicDir(directory);
    Q_EMIT musicDirChosen(directory);
}

QString SettingsPage::musicDir() const
{
    return lineEditMusicDir->text();
}

void SettingsPage::setMusicDir(const QString &directory)
{
    lineEditMusicDir->setText(directory);
}

int SettingsPage::fontSize() const
{
    return spinBoxFontSize->value();
}

void SettingsPage::setFontSize(int points)
{
    spinBoxFontSize->setValue(points);
}

int SettingsPage::maxFontSizePositions() const
{
    return spinBoxMaxFontSizePositions->value();
}

void SettingsPage::setMaxFontSizePositions(int points)
{
    spinBoxMaxFontSizePositions->setValue(points);
}

int SettingsPage::frameSize() const
{
    return spinBoxFrameSize->value();
}

void SettingsPage::setFrameSize(int pixels)
{
    const QSignalBlocker quiet(spinBoxFrameSize);
    spinBoxFrameSize->setValue(pixels);
}
