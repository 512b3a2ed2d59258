#pragma once

#include <QSize>
#include <QSizeF>
#include <QString>

// What the support asks for first: the data of the program and of the machine, as a table.

struct SystemFacts
{
    QString operatingSystem;
    QString cpuArchitecture;
    QString buildAbi;
    int memoryMB = 0; // 0 when it can't be told
    QString qtVersion;
    QString version;   // of the program
    QString buildDate; // in its short form
    QString buildTime; // of the compiler's run
    QString stretcherVersion;
    QString tagLibraryVersion;

    QSize screen;    // pixels
    QSizeF screenMm; // empty when the screen doesn't tell
    double logicalDpi = 0.0;
    double physicalDpi = 0.0;

    QSize window;
    int topFrameHeight = 0;
    int bottomFrameHeight = 0;
    int timeDisplayMode = 0;
    // The sides of the large, medium and small buttons in pixels.
    int largeButton = 0;
    int mediumButton = 0;
    int smallButton = 0;

    QString programDir;
    QString musicDir;
    QString cuesheetDir;
    QString playlistDir;
    QString positionsDir;
    QString cacheDir;
    QString languagesDir;
    QString metadataDir;
    QString importDir;
    QString settingsFile;

    int countStart = 0;
    int countEnd = 0;
    int countDownType = 0;
    QString countDownComment;
};

// What doesn't depend on the window: machine, screen, versions and settings.
SystemFacts systemFacts();

// One line of HTML; what isn't known leaves its cell empty.
QString systemInfoHtml(const SystemFacts &facts);
