#include "Languages.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>

QString Languages::directory()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/Languages");
}

bool Languages::areComplete()
{
    return QDir(directory()).entryList({QStringLiteral("Tarvelo_*.qm")}, QDir::Files).size() == 2;
}

void Languages::setLanguage(const QString &code)
{
    if (code == current)
        return;
    current = code;
    QLocale::setDefault(QLocale(code));
    replace(program, QStringLiteral("Tarvelo_%1.qm").arg(code));
    replace(toolkit, QStringLiteral("qt_%1.qm").arg(code));
}

void Languages::replace(QTranslator &translator, const QString &fileName)
{
    QCoreApplication::removeTranslator(&translator);
    if (translator.load(fileName, directory()))
        QCoreApplication::installTranslator(&translator);
}
