#include "SettingsPage.h"

#include "CopyPage.h"
#include "MessageBoxes.h"
#include "PartPresets.h"
#include "SettingsWidgets.h"
#include "Tips.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSpinBox>
#include <QTextDocument>

#include <algorithm>

using Settings::Key;

namespace {

// The form's own choice stands, whatever is stored.
bool isNeverFilled(Key key)
{
    return key == Key::PositionAlignment;
}

bool isTypedInto(const QObject *widget)
{
    const auto *field = qobject_cast<const QLineEdit *>(widget);
    return qobject_cast<const QSpinBox *>(widget) || qobject_cast<const QPlainTextEdit *>(widget)
           || (field && !field->isReadOnly());
}

// Keys by which somebody without a mouse works a widget that nothing is typed into.
bool isOwnKey(const QKeyEvent &event)
{
    constexpr Qt::Key own[]
        = {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Up, Qt::Key_Down};
    return !event.modifiers().testFlag(Qt::ControlModifier)
           && std::find(std::begin(own), std::end(own), event.key()) != std::end(own);
}

QString withoutColon(QString label)
{
    if (label.endsWith(u':'))
        label.chop(1);
    return label;
}

} // namespace

QList<Key> SettingsPage::keys()
{
    QList<Key> result;
    for (const SettingsItem &item : settingsItems()) {
        if (item.key && !isNeverFilled(*item.key) && !result.contains(*item.key))
            result.append(*item.key);
    }
    // The upper one of two limits goes first: the lower one is kept below it.
    std::reverse(result.begin(), result.end());
    return result;
}

const SettingsPage::Built *SettingsPage::builtFor(Key key) const
{
    const auto found = std::find_if(builtItems.cbegin(), builtItems.cend(),
                                    [key](const Built &built) { return built.item->key == key; });
    return found == builtItems.cend() ? nullptr : &*found;
}

QVariant SettingsPage::value(Key key) const
{
    if (const QButtonGroup *group = groups.value(static_cast<int>(key)))
        return group->checkedId();
    const Built *built = builtFor(key);
    return built ? shownSettingsValue(*built->item, built->widget) : QVariant();
}

void SettingsPage::setValue(Key key, const QVariant &value)
{
    const QScopedValueRollback<bool> quiet(filling, true);
    if (const QButtonGroup *group = groups.value(static_cast<int>(key))) {
        if (QAbstractButton *button = group->button(value.toInt()))
            button->setChecked(true);
    } else if (const Built *built = builtFor(key)) {
        showSettingsValue(*built->item, built->widget, value);
    }
    if (key == Key::CacheDir)
        setCacheDir(value.toString());
}

int SettingsPage::fontSize() const
{
    return value(Key::FontSize).toInt();
}

void SettingsPage::setFontSize(int points)
{
    widgetOf<QSpinBox>(Key::FontSize)->setValue(points);
}

int SettingsPage::maxFontSizePositions() const
{
    return value(Key::MaxFontSizeLyrics).toInt();
}

int SettingsPage::frameSize() const
{
    return value(Key::FrameHeight).toInt();
}

void SettingsPage::setFrameSize(int pixels)
{
    setValue(Key::FrameHeight, pixels);
    fitDistances();
}

void SettingsPage::setCacheDir(const QString &directory)
{
    widgetOf<QLineEdit>(Key::CacheDir)->setText(directory);
    findChild<QCheckBox *>(QStringLiteral("checkBoxUseCache"))->setChecked(!directory.isEmpty());
    findChild<QPushButton *>(QStringLiteral("buttonChangeCacheDir"))
        ->setEnabled(!directory.isEmpty());
}

void SettingsPage::setTestUpdateShown(bool shown)
{
    findChild<QPushButton *>(QStringLiteral("buttonTestUpdate"))->setVisible(shown);
}

void SettingsPage::setSystemInfo(const QString &html)
{
    systemInfoPage->setHtml(html);
}

void SettingsPage::setLog(const QStringList &lines)
{
    QString html;
    for (const QString &line : lines)
        html += line.toHtmlEscaped() + QStringLiteral("<br>");
    logPage->setHtml(html);
}

bool SettingsPage::isWorkedByKeys() const
{
    const QWidget *focus = QApplication::focusWidget();
    return enteredByKeys && focus && isAncestorOf(focus);
}

void SettingsPage::tellChange(Key key)
{
    if (!filling)
        Q_EMIT changed(key, value(key));
}

void SettingsPage::tellChoice(Key key)
{
    if (filling)
        return;
    Q_EMIT changed(key, value(key));
    Q_EMIT valueChosen();
}

// Each limit keeps the ones beside it on their side.
void SettingsPage::connectTempoChain()
{
    constexpr Key chain[] = {Key::Tempo12, Key::Tempo23, Key::Tempo34, Key::Tempo45};
    for (std::size_t i = 1; i < std::size(chain); ++i) {
        auto *lower = widgetOf<QSpinBox>(chain[i - 1]);
        auto *upper = widgetOf<QSpinBox>(chain[i]);
        connect(lower, &QSpinBox::valueChanged, upper, &QSpinBox::setMinimum);
        connect(upper, &QSpinBox::valueChanged, lower, &QSpinBox::setMaximum);
    }
}

void SettingsPage::enableCloud()
{
    const bool on = value(Key::CloudOn).toBool();
    for (const Built &built : std::as_const(builtItems)) {
        if (built.item->needsCloud)
            built.widget->setEnabled(on);
    }
}

void SettingsPage::checkPartPresets()
{
    auto *edit = widgetOf<QPlainTextEdit>(Key::UserDefPartPresets);
    const PartPresets::Checked checked = PartPresets::check(edit->toPlainText());
    if (checked.text == edit->toPlainText())
        return;
    const int position = edit->textCursor().position();
    // What was stored is nobody's slip of the hand.
    if (!filling) {
        if (checked.tooMany)
            showError(tr("Max. %1 Einträge erlaubt!").arg(PartPresets::mostEntries));
        for (int i = 0; i < checked.tooLong; ++i)
            showError(tr("Max. %1 Buchstaben pro Eintrag!").arg(PartPresets::mostLetters));
    }
    const QSignalBlocker quiet(edit);
    edit->setPlainText(checked.text);
    QTextCursor cursor = edit->textCursor();
    cursor.setPosition(std::min(position, static_cast<int>(checked.text.size())));
    edit->setTextCursor(cursor);
}

void SettingsPage::showInfoOf(const SettingsItem &item)
{
    QString text = settingsText(item.info);
    for (const int argument : item.arguments) {
        if (argument != 0)
            text = text.arg(argument);
    }
    showInfo(text);
}

void SettingsPage::retranslate()
{
    setAccessibleName(tr("Einstellungen"));
    int tab = 0;
    for (const SettingsItem &item : settingsItems()) {
        if (item.kind == SettingsKind::Tab)
            setTabText(tab++, settingsText(item.text));
    }
    setTabText(static_cast<int>(SettingsTab::SystemInfo), tr("Systeminformation"));
    setTabText(static_cast<int>(SettingsTab::Log), tr("Protokoll"));
    systemInfoPage->retranslate(tr("Systeminformation"));
    logPage->retranslate(tr("Protokoll"));
    {
        const QScopedValueRollback<bool> quiet(filling, true);
        for (const Built &built : std::as_const(builtItems))
            retranslateItem(built);
    }
    fitSizes();
}

void SettingsPage::retranslateItem(const Built &built)
{
    if (built.item->kind == SettingsKind::Row) {
        qobject_cast<QLabel *>(built.widget)->setText(settingsText(built.label));
        return;
    }
    retranslateSettingsWidget(*built.item, built.widget);
    QString label = withoutColon(settingsText(built.label));
    if (built.number > 0)
        label += QStringLiteral(" %1").arg(built.number);
    nameItem(built, label);
}

// What a screen reader tells of a widget: what it is for, by the label of its row.
void SettingsPage::nameItem(const Built &built, const QString &label)
{
    const QString text = settingsText(built.item->text);
    const bool hasOwnText = qobject_cast<QAbstractButton *>(built.widget) && !text.isEmpty();
    if (built.item->kind == SettingsKind::InfoButton)
        describe(built.widget, tr("Information: %1").arg(label));
    else if (hasOwnText)
        built.widget->setAccessibleName(label.isEmpty() ? text
                                                        : label + QStringLiteral(": ") + text);
    else
        built.widget->setAccessibleName(label);
    if (built.item->kind != SettingsKind::SpinBox)
        return;
    const QString name = QLatin1String(built.item->name).mid(QLatin1String("spinBox").size());
    auto *minus = findChild<QAbstractButton *>(QStringLiteral("button%1Minus").arg(name));
    auto *plus = findChild<QAbstractButton *>(QStringLiteral("button%1Plus").arg(name));
    const bool isFont = built.item->key == Key::FontSize;
    const bool isFrame = built.item->key == Key::FrameHeight;
    const QString gap(7, u' ');
    describe(minus, tr("%1 verringern").arg(label)
                        + (isFont    ? gap + tr("Alt+-")
                           : isFrame ? gap + tr("Strg+,")
                                     : QString()));
    describe(plus, tr("%1 erhöhen").arg(label)
                       + (isFont    ? gap + tr("Alt++")
                          : isFrame ? gap + tr("Strg+.")
                                    : QString()));
}

void SettingsPage::fitDistances()
{
    // A quarter of a medium button, which is 4/5 of the frame.
    const int step = std::max(4, frameSize() / 5);
    for (QGridLayout *grid : std::as_const(grids)) {
        grid->setContentsMargins(2 * step, step, 2 * step, step);
        grid->setHorizontalSpacing(2 * step);
        grid->setVerticalSpacing(step);
    }
    for (QLayout *row : std::as_const(rows))
        row->setSpacing(step);
}

// The small buttons follow the text, and in a row everything is as high as its fields.
void SettingsPage::fitSizes()
{
    auto *field = widgetOf<QSpinBox>(Key::FontSize);
    field->ensurePolished();
    const QFontMetrics metrics = field->fontMetrics();
    const int side = metrics.height();
    for (QAbstractButton *button : std::as_const(smallButtons))
        button->setFixedSize(side, side);
    for (QWidget *cell : std::as_const(cells))
        cell->setMinimumHeight(field->sizeHint().height());
    auto *presets = widgetOf<QPlainTextEdit>(Key::UserDefPartPresets);
    const int margins = 2 * (static_cast<int>(presets->document()->documentMargin()) + 6);
    presets->setFixedSize(metrics.horizontalAdvance(QStringLiteral("MMMMMMM")) + margins + 2 * side,
                          PartPresets::mostEntries * metrics.lineSpacing() + margins);
    fitNumbers();
    showSample();
}

// Limits that move would make the boxes jump.
void SettingsPage::fitNumbers()
{
    const auto widthOf = [this](Key key) {
        auto *box = widgetOf<QSpinBox>(key);
        box->ensurePolished();
        return box->sizeHint().width();
    };
    const int limitWidth = widthOf(Key::Tempo45);
    for (const Key key : {Key::Tempo12, Key::Tempo23, Key::Tempo34})
        widgetOf<QSpinBox>(key)->setFixedWidth(limitWidth);
    widgetOf<QSpinBox>(Key::MaxFontSizeLyrics)->setFixedWidth(widthOf(Key::TempoDefault5));
}

void SettingsPage::showSample()
{
    const QString sheet = QStringLiteral("font-size: %1pt;").arg(maxFontSizePositions());
    auto *sample = findChild<QLabel *>(QStringLiteral("labelLoremIpsum"));
    if (sample->styleSheet() != sheet)
        sample->setStyleSheet(sheet);
}

bool SettingsPage::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            enteredByKeys = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
    }
    // The page scrolls; a number that happens to lie under the mouse stays.
    if (event->type() == QEvent::Wheel && !qobject_cast<QPlainTextEdit *>(watched)) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::KeyPress && !isTypedInto(watched)
        && !qobject_cast<QLineEdit *>(watched) && !isOwnKey(*static_cast<QKeyEvent *>(event))) {
        QCoreApplication::sendEvent(window(), event);
        event->accept();
        return true;
    }
    return QTabWidget::eventFilter(watched, event);
}

void SettingsPage::changeEvent(QEvent *event)
{
    QTabWidget::changeEvent(event);
    const bool looksDifferent
        = event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange;
    if (looksDifferent && isVisible())
        fitSizes();
}

void SettingsPage::showEvent(QShowEvent *event)
{
    QTabWidget::showEvent(event);
    fitSizes();
}

// Ctrl+Tab is the window's.
void SettingsPage::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
}
