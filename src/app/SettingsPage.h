#pragma once

#include <QTabWidget>

class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

// The settings screen: holds the values that the window writes at its end, and signals what acts
// at once.
class SettingsPage : public QTabWidget
{
    Q_OBJECT

public:
    explicit SettingsPage(QWidget *parent = nullptr);

    QString musicDir() const;
    void setMusicDir(const QString &directory);
    // Standard font size in points, 8 to 70.
    int fontSize() const;
    void setFontSize(int points);
    // Largest font of the positions page in points, from 10.
    int maxFontSizePositions() const;
    void setMaxFontSizePositions(int points);
    // Height of the top frame in pixels, 20 to 80. Setting it signals nothing.
    int frameSize() const;
    void setFrameSize(int pixels);
    void retranslate();

Q_SIGNALS:
    // The user has chosen another music directory.
    void musicDirChosen(const QString &directory);
    void fontSizeChanged(int points);
    void maxFontSizePositionsChanged(int points);
    void frameSizeChanged(int pixels);

private:
    QWidget *addPage(const char *name);
    void addRows(QWidget *page);
    void onButtonMusicDir_clicked();

    QLabel *labelMusicDir;
    QLineEdit *lineEditMusicDir;
    QPushButton *buttonMusicDir;
    QLabel *labelFontSize;
    QSpinBox *spinBoxFontSize;
    QLabel *labelMaxFontSize;
    QSpinBox *spinBoxMaxFontSizePositions;
    QLabel *labelFrameSize;
    QSpinBox *spinBoxFrameSize;
};
