#pragma once

#include "SettingsItems.h"

#include <QHash>
#include <QTabWidget>
#include <QVariant>

class CopyPage;
class QAbstractButton;
class QButtonGroup;
class QGridLayout;

// The settings screen: holds the values that the window writes at its end, signals what acts at
// once, and shows the texts of the information buttons itself. Tab leads into its fields and
// through them; what a field doesn't need for itself are the window's keys.
class SettingsPage : public QTabWidget
{
    Q_OBJECT

public:
    explicit SettingsPage(QWidget *parent = nullptr);

    // The keys whose values the page holds, in the order in which they are to be set.
    static QList<Settings::Key> keys();
    // What the key's widget shows, in the form in which it is stored; the language as "de" or "en".
    QVariant value(Settings::Key key) const;
    // Shows a value, within what the widget can show, and signals nothing. A value that a combo
    // box doesn't offer leaves it as it is.
    void setValue(Settings::Key key, const QVariant &value);

    // Standard font size in points, 8 to 70. Setting it signals it, as if the user had done so.
    int fontSize() const;
    void setFontSize(int points);
    // Largest font of the positions page in points, from 10.
    int maxFontSizePositions() const;
    // Height of the top frame in pixels, 20 to 80. Setting it signals nothing.
    void setFrameSize(int pixels);
    int frameSize() const;
    // The directory of the song cache, empty while the cache is off.
    void setCacheDir(const QString &directory);
    // The button that looks for an update whatever the versions are.
    void setTestUpdateShown(bool shown);

    void setSystemInfo(const QString &html);
    // The log, a line each.
    void setLog(const QStringList &lines);
    // The user goes through the fields by keys, and is not to be led away from one.
    bool isWorkedByKeys() const;
    void retranslate();

Q_SIGNALS:
    // The user, or setFontSize(), has changed a value.
    void changed(Settings::Key key, const QVariant &value);
    // A number or a choice has been set: nothing more is to be typed there.
    void valueChosen();
    void pressed(SettingsButton button);
    // A button beside a number was pressed; the number has followed, but for the frame's height,
    // which can't be any.
    void stepped(Settings::Key key, int step);
    // The user wants the song cache on or off.
    void cacheToggled(bool on);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    struct Built // an item's widget
    {
        const SettingsItem *item;
        QWidget *widget;
        const char *label; // of its row
        int number;        // of this kind in its row, from 1; 0 for the only one
    };
    struct Place; // where the next widget goes

    void build();
    void addTabPage(Place &place, const SettingsItem &item);
    void addRow(Place &place, const SettingsItem &item, bool stretches);
    void addItem(Place &place, const SettingsItem &item);
    void addCell(QWidget *widget);
    QWidget *withStepButtons(const SettingsItem &item, QWidget *box);
    QAbstractButton *makeStepButton(const SettingsItem &item, const char *ending, int step,
                                    QWidget *parent);
    void buildTextPages();
    void connectItem(const SettingsItem &item, QWidget *widget);
    void connectRadioButton(const SettingsItem &item, QAbstractButton *button);
    void connectTempoChain();
    void tellChange(Settings::Key key);
    void tellChoice(Settings::Key key);
    void enableCloud();
    void checkPartPresets();
    void showInfoOf(const SettingsItem &item);
    void retranslateItem(const Built &built);
    void nameItem(const Built &built, const QString &label);
    void fitDistances();
    void fitSizes();
    void fitNumbers();
    void showSample();
    const Built *builtFor(Settings::Key key) const;
    template <typename Widget> Widget *widgetOf(Settings::Key key) const
    {
        return qobject_cast<Widget *>(builtFor(key)->widget);
    }

    QList<Built> builtItems;
    QHash<int, QButtonGroup *> groups; // by key
    QList<QAbstractButton *> smallButtons;
    QList<QWidget *> cells; // each as high as a field
    QList<QGridLayout *> grids;
    QList<QLayout *> rows;
    CopyPage *systemInfoPage = nullptr;
    CopyPage *logPage = nullptr;
    bool filling = false; // values come from the program
    bool enteredByKeys = false;
};
