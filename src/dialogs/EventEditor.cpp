#include "EventEditor.h"

#include "DanceEvent.h"
#include "EventRules.h"
#include "Settings.h"

#include <QComboBox>
#include <QCompleter>
#include <QDateTimeEdit>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSettings>

using Settings::Key;

namespace {

constexpr QSize largestSize(600, 600);
constexpr int smallestFont = 6; // points

// For widgets that have a label beside them.
void nameFor(QWidget *field, QLabel *label, const QString &text)
{
    label->setText(text);
    field->setAccessibleName(text.chopped(1));
}

// A font's size in points, and that of the arrows, which follows it as in the whole program.
QString sheetFor(int points)
{
    return QStringLiteral("QWidget { font-size: %1pt; } QComboBox { icon-size: %2px; }"
                          "QComboBox::drop-down, QAbstractSpinBox::up-button,"
                          "QAbstractSpinBox::down-button { width: %2px; }"
                          "QComboBox::down-arrow, QAbstractSpinBox::up-arrow,"
                          "QAbstractSpinBox::down-arrow { width: %3px; height: %3px; }")
        .arg(points)
        .arg(points * 5 / 3)
        .arg(points / 2);
}

QValidator *allowing(const char *expression, QObject *parent)
{
    return new QRegularExpressionValidator(QRegularExpression(QLatin1String(expression)), parent);
}

} // namespace

EventEditor::EventEditor(QWidget *parent, const std::shared_ptr<DanceEvent> &event, bool showDate,
                         const QStringList &eventCategories, bool showTempo, int bpm)
    : QDialog(parent)
    , danceEvent(event)
    , tempoShown(showTempo)
    , songBpm(bpm)
    , labelTimeEdit(new QLabel(this))
    , dateTimeEdit(new QDateTimeEdit(this))
    , labelCategory(new QLabel(this))
    , comboBoxCategory(new QComboBox(this))
    , labelEvent(new QLabel(this))
    , lineEditEvent(new QLineEdit(this))
    , labelTempo(new QLabel(this))
    , lineEditTempoPercent(new QLineEdit(this))
    , labelPercent(new QLabel(this))
    , lineEditTempoBpm(new QLineEdit(this))
    , labelBpm(new QLabel(this))
    , buttonOK(new QPushButton(this))
    , buttonCloseWindow(new QPushButton(this))
{
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    nameWidgets();
    layOut();
    retranslate();
    offerCategories(eventCategories);
    for (QWidget *widget : std::initializer_list<QWidget *>{labelTimeEdit, dateTimeEdit})
        widget->setVisible(showDate);
    for (QWidget *widget : std::initializer_list<QWidget *>{
             labelTempo, lineEditTempoPercent, labelPercent, lineEditTempoBpm, labelBpm})
        widget->setVisible(showTempo);
    connectWidgets();
    fill();
    fitFont();
    setMaximumSize(largestSize);
    restoreGeometry(Settings::value(Key::EventEditorGeometry).toByteArray());
}

EventEditor::~EventEditor()
{
    Settings::setValue(Key::EventEditorGeometry, saveGeometry());
    Settings::instance()->sync();
}

void EventEditor::nameWidgets()
{
    setObjectName(QStringLiteral("EventEditor"));
    labelTimeEdit->setObjectName(QStringLiteral("labelTimeEdit"));
    dateTimeEdit->setObjectName(QStringLiteral("dateTimeEdit"));
    labelCategory->setObjectName(QStringLiteral("labelCategory"));
    comboBoxCategory->setObjectName(QStringLiteral("comboBoxCategory"));
    labelEvent->setObjectName(QStringLiteral("labelEvent"));
    lineEditEvent->setObjectName(QStringLiteral("lineEditEvent"));
    labelTempo->setObjectName(QStringLiteral("labelTempo"));
    lineEditTempoPercent->setObjectName(QStringLiteral("lineEditTempoPercent"));
    labelPercent->setObjectName(QStringLiteral("labelPercent"));
    lineEditTempoBpm->setObjectName(QStringLiteral("lineEditTempoBpm"));
    labelBpm->setObjectName(QStringLiteral("labelBpm"));
    buttonOK->setObjectName(QStringLiteral("buttonOK"));
    buttonCloseWindow->setObjectName(QStringLiteral("buttonCloseWindow"));
}

void EventEditor::layOut()
{
    constexpr int fewestLetters = 8;
    dateTimeEdit->setDisplayFormat(QStringLiteral("dd.MM.yyyy HH:mm:ss"));
    // Else the longest category of the library would tell how wide the window is.
    comboBoxCategory->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    comboBoxCategory->setMinimumContentsLength(fewestLetters);
    auto *grid = new QGridLayout(this);
    grid->setColumnStretch(1, 1);
    grid->addWidget(labelTimeEdit, 0, 0);
    grid->addWidget(dateTimeEdit, 0, 1);
    grid->addWidget(labelCategory, 1, 0);
    grid->addWidget(comboBoxCategory, 1, 1);
    grid->addWidget(labelEvent, 2, 0);
    grid->addWidget(lineEditEvent, 2, 1);
    addTempo(grid, 3);
    grid->setRowStretch(4, 1);
    addButtons(grid, 5);
}

void EventEditor::addTempo(QGridLayout *grid, int row)
{
    // What it comes to is told, not typed.
    lineEditTempoBpm->setReadOnly(true);
    lineEditTempoBpm->setFocusPolicy(Qt::ClickFocus);
    for (QLineEdit *number : {lineEditTempoPercent, lineEditTempoBpm})
        number->setAlignment(Qt::AlignRight);
    auto *line = new QHBoxLayout;
    line->addWidget(lineEditTempoPercent, 1);
    line->addWidget(labelPercent);
    line->addWidget(lineEditTempoBpm, 1);
    line->addWidget(labelBpm);
    grid->addWidget(labelTempo, row, 0);
    grid->addLayout(line, row, 1);
}

void EventEditor::addButtons(QGridLayout *grid, int row)
{
    buttonOK->setDefault(true);
    buttonCloseWindow->setAutoDefault(false);
    auto *line = new QHBoxLayout;
    line->addStretch(1);
    line->addWidget(buttonOK);
    line->addWidget(buttonCloseWindow);
    grid->addLayout(line, row, 0, 1, 2);
}

// Categories are listed with commas between them elsewhere, so none may hold one. A tab in a tempo
// would cut the event's line in the file.
void EventEditor::offerCategories(const QStringList &eventCategories)
{
    comboBoxCategory->setEditable(true);
    comboBoxCategory->setInsertPolicy(QComboBox::NoInsert);
    // Else "training" would turn into "Training" by itself.
    comboBoxCategory->completer()->setCaseSensitivity(Qt::CaseSensitive);
    comboBoxCategory->addItems(eventCategories);
    if (comboBoxCategory->findText(tr("Training")) < 0)
        comboBoxCategory->addItems(
            {tr("Convention"), tr("Training"), tr("Special"), tr("Vorbereitung")});
    comboBoxCategory->setValidator(allowing("[^,]+", this));
    lineEditTempoPercent->setValidator(allowing("[^\\t\\n]*", this));
}

void EventEditor::connectWidgets()
{
    connect(lineEditTempoPercent, &QLineEdit::textChanged, this, &EventEditor::showBpm);
    connect(buttonOK, &QPushButton::clicked, this, &EventEditor::onButtonOK_clicked);
    connect(buttonCloseWindow, &QPushButton::clicked, this,
            &EventEditor::onButtonCloseWindow_clicked);
}

void EventEditor::fill()
{
    dateTimeEdit->setDateTime(danceEvent->getDate());
    filledDate = dateTimeEdit->dateTime();
    comboBoxCategory->setCurrentText(danceEvent->getCategory());
    lineEditEvent->setText(danceEvent->getName());
    lineEditTempoPercent->setText(danceEvent->getTempo());
    showBpm();
}

void EventEditor::showBpm()
{
    const QString percent = lineEditTempoPercent->text();
    lineEditTempoBpm->setText(tempoShown ? eventTempoBpm(percent, songBpm) : QString());
}

void EventEditor::retranslate()
{
    setWindowTitle(tr("Event Editor"));
    nameFor(dateTimeEdit, labelTimeEdit, tr("Datum & Uhrzeit:"));
    nameFor(comboBoxCategory, labelCategory, tr("Kategorie:"));
    nameFor(lineEditEvent, labelEvent, tr("Event:"));
    labelTempo->setText(tr("Tempo:"));
    lineEditTempoPercent->setAccessibleName(tr("Tempo in Prozent"));
    lineEditTempoBpm->setAccessibleName(tr("Tempo in BPM"));
    labelPercent->setText(QStringLiteral("%"));
    labelBpm->setText(QStringLiteral("BPM"));
    buttonOK->setText(tr("OK"));
    buttonCloseWindow->setText(tr("Abbrechen"));
}

bool EventEditor::isSmallEnough() const
{
    for (QLayout *inner : findChildren<QLayout *>())
        inner->invalidate();
    const QSize needed = layout()->totalMinimumSize();
    return needed.width() <= largestSize.width() && needed.height() <= largestSize.height();
}

void EventEditor::fitFont()
{
    ensurePolished();
    for (int points = font().pointSize() - 1; points >= smallestFont && !isSmallEnough(); --points)
        setStyleSheet(sheetFor(points));
}

void EventEditor::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}

void EventEditor::onButtonOK_clicked()
{
    const QDateTime date = dateTimeEdit->dateTime();
    danceEvent->setCategory(comboBoxCategory->currentText());
    danceEvent->setName(lineEditEvent->text());
    danceEvent->setDate(date == filledDate ? danceEvent->getDate() : date);
    danceEvent->setTempo(lineEditTempoPercent->text());
    accept();
}

void EventEditor::onButtonCloseWindow_clicked()
{
    reject();
}
