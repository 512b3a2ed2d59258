#include "SettingsWidgets.h"

#include "Languages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

using Settings::Key;

namespace {

template <typename Widget> Widget *named(const SettingsItem &item, QWidget *parent)
{
    auto *widget = new Widget(parent);
    widget->setObjectName(QLatin1String(item.name));
    widget->setFocusPolicy(Qt::TabFocus);
    return widget;
}

QWidget *makeSpinBox(const SettingsItem &item, QWidget *parent)
{
    auto *box = named<QSpinBox>(item, parent);
    box->setRange(item.minimum, item.maximum);
    box->setSingleStep(item.step);
    box->setButtonSymbols(QAbstractSpinBox::NoButtons);
    box->setAlignment(Qt::AlignRight);
    box->setFocusPolicy(Qt::StrongFocus);
    // A number counts when it is typed to its end; then the keys belong to the window again.
    box->setKeyboardTracking(false);
    return box;
}

QWidget *makeLineEdit(const SettingsItem &item, QWidget *parent)
{
    auto *field = named<QLineEdit>(item, parent);
    field->setFocusPolicy(Qt::StrongFocus);
    if (item.maximum > 0)
        field->setMaxLength(item.maximum);
    if (item.kind == SettingsKind::PasswordEdit)
        field->setEchoMode(QLineEdit::Password);
    return field;
}

QWidget *makeDirectoryField(const SettingsItem &item, QWidget *parent)
{
    auto *field = static_cast<QLineEdit *>(makeLineEdit(item, parent));
    field->setReadOnly(true);
    field->setFocusPolicy(Qt::TabFocus);
    return field;
}

bool isOffered(const SettingsChoice &choice)
{
    return choice.key != Key::Language || Languages::areComplete();
}

QWidget *makeComboBox(const SettingsItem &item, QWidget *parent)
{
    auto *box = named<QComboBox>(item, parent);
    box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    for (const SettingsChoice &choice : settingsChoices()) {
        if (choice.key != item.key || !isOffered(choice))
            continue;
        const QVariant value
            = choice.value ? QVariant(QString::fromUtf8(choice.value)) : QVariant(box->count());
        box->addItem(settingsText(choice.text), value);
        if (choice.picture)
            box->setItemIcon(box->count() - 1,
                             QIcon(Languages::directory() + u'/' + QLatin1String(choice.picture)));
    }
    return box;
}

QWidget *makeTextEdit(const SettingsItem &item, QWidget *parent)
{
    auto *edit = named<QPlainTextEdit>(item, parent);
    edit->setFocusPolicy(Qt::StrongFocus);
    edit->setTabChangesFocus(true);
    edit->setLineWrapMode(QPlainTextEdit::NoWrap);
    return edit;
}

QWidget *makeLabel(const SettingsItem &item, QWidget *parent)
{
    auto *label = named<QLabel>(item, parent);
    label->setFocusPolicy(Qt::NoFocus);
    return label;
}

template <typename Widget> QWidget *make(const SettingsItem &item, QWidget *parent)
{
    return named<Widget>(item, parent);
}

struct Kind
{
    SettingsKind kind;
    QWidget *(*make)(const SettingsItem &item, QWidget *parent);
};

constexpr Kind kinds[] = {
    {SettingsKind::Word, makeLabel},
    {SettingsKind::CheckBox, make<QCheckBox>},
    {SettingsKind::SpinBox, makeSpinBox},
    {SettingsKind::ComboBox, makeComboBox},
    {SettingsKind::LineEdit, makeLineEdit},
    {SettingsKind::PasswordEdit, makeLineEdit},
    {SettingsKind::DirectoryField, makeDirectoryField},
    {SettingsKind::TextEdit, makeTextEdit},
    {SettingsKind::RadioButton, make<QRadioButton>},
    {SettingsKind::Sample, makeLabel},
    {SettingsKind::Button, make<QPushButton>},
    {SettingsKind::InfoButton, make<QPushButton>},
};

void retranslateChoices(Key key, QComboBox *box)
{
    int index = 0;
    for (const SettingsChoice &choice : settingsChoices()) {
        if (choice.key == key && isOffered(choice) && index < box->count())
            box->setItemText(index++, settingsText(choice.text));
    }
}

} // namespace

QWidget *makeSettingsWidget(const SettingsItem &item, QWidget *parent)
{
    for (const Kind &row : kinds) {
        if (row.kind == item.kind)
            return row.make(item, parent);
    }
    return nullptr;
}

void retranslateSettingsWidget(const SettingsItem &item, QWidget *widget)
{
    const QString text = settingsText(item.text);
    if (auto *button = qobject_cast<QAbstractButton *>(widget))
        button->setText(text);
    else if (auto *label = qobject_cast<QLabel *>(widget))
        label->setText(text);
    else if (auto *field = qobject_cast<QLineEdit *>(widget))
        field->setPlaceholderText(text);
    else if (auto *number = qobject_cast<QSpinBox *>(widget))
        number->setSuffix(settingsText(item.suffix));
    else if (auto *box = qobject_cast<QComboBox *>(widget))
        retranslateChoices(*item.key, box);
}

QVariant shownSettingsValue(const SettingsItem &item, const QWidget *widget)
{
    if (const auto *box = qobject_cast<const QCheckBox *>(widget))
        return box->isChecked() != item.inverted;
    if (const auto *number = qobject_cast<const QSpinBox *>(widget))
        return number->value();
    if (const auto *box = qobject_cast<const QComboBox *>(widget))
        return box->currentData();
    if (const auto *field = qobject_cast<const QLineEdit *>(widget))
        return field->text();
    if (const auto *edit = qobject_cast<const QPlainTextEdit *>(widget))
        return edit->toPlainText();
    return {};
}

void showSettingsValue(const SettingsItem &item, QWidget *widget, const QVariant &value)
{
    if (auto *check = qobject_cast<QCheckBox *>(widget))
        check->setChecked(value.toBool() != item.inverted);
    else if (auto *number = qobject_cast<QSpinBox *>(widget))
        number->setValue(value.toInt());
    else if (auto *field = qobject_cast<QLineEdit *>(widget)) {
        field->setText(value.toString());
        if (item.kind == SettingsKind::LineEdit)
            field->setCursorPosition(0);
    } else if (auto *edit = qobject_cast<QPlainTextEdit *>(widget))
        edit->setPlainText(value.toString());
    else if (auto *box = qobject_cast<QComboBox *>(widget)) {
        const bool isText = box->itemData(0).typeId() == QMetaType::QString;
        const int index = isText
                              ? box->findData(value.toString(), Qt::UserRole, Qt::MatchFixedString)
                              : box->findData(value.toInt());
        if (index >= 0)
            box->setCurrentIndex(index);
    }
}
