#pragma once

#include <QString>
#include <QTranslator>

// The languages of the program: German, in which its texts are written, and English, both from
// translation files in the directory "Languages" beside the program.
class Languages
{
public:
    // Where the translation files are looked for.
    static QString directory();
    // Whether the translation files of both languages are there.
    static bool areComplete();

    // "de" or "en"; makes the language's locale the default one. Nothing happens for the language
    // in force. Texts without a file stay in German.
    void setLanguage(const QString &code);
    const QString &language() const { return current; }

private:
    static void replace(QTranslator &translator, const QString &fileName);

    QString current;
    QTranslator program;
    QTranslator toolkit;
};
