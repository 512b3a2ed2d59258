#include "PlaylistBar.h"

#include "ElidingComboBox.h"
#include "FlowLayout.h"
#include "ThemeContext.h"
#include "Tips.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <iterator>

namespace {

struct ButtonRow
{
    PlaylistTask task;
    const char *name; // of the object, before the letter of the side
    const char *text; // tool tip and accessible name
    const char *key;  // that does the same for the left list; null for none
    const char *picture;
};

constexpr ButtonRow buttonRows[] = {
    {PlaylistTask::Open, "buttonPlaylistOpen",
     QT_TRANSLATE_NOOP("SongListPanel", "Playlist öffnen"), nullptr, "Open"},
    {PlaylistTask::Save, "buttonPlaylistSave",
     QT_TRANSLATE_NOOP("SongListPanel", "Playlist speichern"),
     QT_TRANSLATE_NOOP("SongListPanel", "AltGr+S"), "Save"},
    {PlaylistTask::SaveAs, "buttonPlaylistSaveAs",
     QT_TRANSLATE_NOOP("SongListPanel", "Playlist speichern unter"), nullptr, "Save_As"},
    {PlaylistTask::Remove, "buttonPlaylistRemove",
     QT_TRANSLATE_NOOP("SongListPanel", "Playlist löschen"), nullptr, "Remove"},
    {PlaylistTask::CopyText, "buttonPlaylistCopyBuffer",
     QT_TRANSLATE_NOOP("SongListPanel", "Liste in die Zwischenablage kopieren"), nullptr, "Copy"},
    {PlaylistTask::CopyFiles, "buttonPlaylistExportAllFiles",
     QT_TRANSLATE_NOOP("SongListPanel", "Alle Dateien der Liste in einen Ordner kopieren"), nullptr,
     "Copy_Files"},
    {PlaylistTask::AddSongs, "buttonPlaylistAddEntry",
     QT_TRANSLATE_NOOP("SongListPanel", "Ausgewählte Songs der anderen Liste hinzufügen"),
     QT_TRANSLATE_NOOP("SongListPanel", "AltGr+Einfg"), "Entry_Add"},
    {PlaylistTask::RemoveEntry, "buttonPlaylistEntryRemove",
     QT_TRANSLATE_NOOP("SongListPanel", "Eintrag aus der Liste entfernen"),
     QT_TRANSLATE_NOOP("SongListPanel", "AltGr+Entf"), "Entry_Remove"},
    {PlaylistTask::MoveUp, "buttonPlaylistEntryMoveUp",
     QT_TRANSLATE_NOOP("SongListPanel", "Eintrag nach oben verschieben"), nullptr, "Up"},
    {PlaylistTask::MoveDown, "buttonPlaylistEntryMoveDown",
     QT_TRANSLATE_NOOP("SongListPanel", "Eintrag nach unten verschieben"), nullptr, "Down"},
};

constexpr const char *nonStopText
    = QT_TRANSLATE_NOOP("SongListPanel", "Nach jedem Song den nächsten abspielen");
constexpr const char *listBoxText
    = QT_TRANSLATE_NOOP("SongListPanel", "Schnellzugriff auf die letzten 20 Listen");
constexpr const char *listBoxKey = "O";
constexpr int mostLists = 20;

QString translated(const char *text)
{
    return QCoreApplication::translate("SongListPanel", text);
}

} // namespace

PlaylistBar::PlaylistBar(Side whichSide, QWidget *parent)
    : QWidget(parent)
    , side(whichSide)
    , listBox(new ElidingComboBox(this))
    , buttonLayout(new FlowLayout)
    , info(new QLabel(this))
{
    createListBox();
    createButtons();
    if (side == Side::Left)
        createNonStop();
    info->setObjectName(suffixed("labelPlaylistInfo"));
    info->setWordWrap(true);
    layOut();
    retranslate();
}

QString PlaylistBar::suffixed(const char *name) const
{
    return QLatin1String(name) + (side == Side::Left ? u'L' : u'R');
}

void PlaylistBar::createListBox()
{
    listBox->setObjectName(suffixed("comboBoxPlaylistSelection"));
    listBox->setMaxVisibleItems(mostLists);
    listBox->setFocusPolicy(Qt::NoFocus);
    // The frame may be narrower than the longest name.
    listBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    listBox->setMinimumContentsLength(6);
    connect(listBox, &QComboBox::currentIndexChanged, this, &PlaylistBar::listChosen);
}

void PlaylistBar::createButtons()
{
    for (const ButtonRow &row : buttonRows) {
        QPushButton *button = createButton(suffixed(row.name));
        connect(button, &QPushButton::clicked, this, [this, &row] { Q_EMIT requested(row.task); });
        buttons.append(button);
    }
}

void PlaylistBar::createNonStop()
{
    nonStop = createButton(QStringLiteral("buttonPlaylistNonStop"));
    nonStop->setCheckable(true);
}

QPushButton *PlaylistBar::createButton(const QString &name)
{
    auto *button = new QPushButton(this);
    button->setObjectName(name);
    button->setFocusPolicy(Qt::NoFocus);
    buttonLayout->addWidget(button);
    return button;
}

void PlaylistBar::layOut()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(listBox);
    layout->addLayout(buttonLayout);
    layout->addWidget(info);
}

void PlaylistBar::setLists(const QStringList &names, int current)
{
    const QSignalBlocker silent(listBox);
    listBox->clear();
    listBox->addItems(names);
    listBox->setCurrentIndex(current);
}

void PlaylistBar::setInfo(const QString &text)
{
    info->setText(text);
}

void PlaylistBar::adapt(const PlaylistState &state)
{
    for (qsizetype index = 0; index < buttons.size(); ++index)
        buttons.at(index)->setEnabled(isTaskEnabled(buttonRows[index].task, state));
}

void PlaylistBar::openListBox()
{
    if (listBox->isVisible())
        listBox->showPopup();
}

bool PlaylistBar::isListBoxVisible() const
{
    return listBox->isVisible();
}

bool PlaylistBar::isNonStop() const
{
    return nonStop && nonStop->isChecked();
}

void PlaylistBar::setNonStop(bool wanted)
{
    if (nonStop)
        nonStop->setChecked(wanted);
}

void PlaylistBar::setButtonSize(const QSize &size)
{
    for (QPushButton *button : findChildren<QPushButton *>()) {
        button->setFixedSize(size);
        button->setIconSize(size * 3 / 5);
    }
}

void PlaylistBar::setButtonSpacing(int pixels)
{
    buttonLayout->setSpacing(pixels);
    layout()->setSpacing(pixels);
    layout()->setContentsMargins(pixels / 2, pixels / 2, pixels / 2, pixels / 2);
}

void PlaylistBar::refreshPictures()
{
    for (qsizetype index = 0; index < buttons.size(); ++index)
        buttons.at(index)->setIcon(themeIcon(QLatin1String(buttonRows[index].picture)));
    if (nonStop)
        nonStop->setIcon(themeIcon(QStringLiteral("Non_Stop")));
}

QString PlaylistBar::withKey(const char *text, const char *key) const
{
    const QString tip = translated(text);
    return key && side == Side::Left ? tip + QStringLiteral("       ") + translated(key) : tip;
}

void PlaylistBar::retranslate()
{
    describe(listBox, withKey(listBoxText, listBoxKey));
    for (qsizetype index = 0; index < buttons.size(); ++index)
        describe(buttons.at(index), withKey(buttonRows[index].text, buttonRows[index].key));
    if (nonStop)
        describe(nonStop, withKey(nonStopText, nullptr));
}
