#pragma once

#include <QDate>
#include <QString>
#include <QVersionNumber>

// The product's version and build date, stated here alone.
namespace Version {

// 8.0.0
QVersionNumber number();
QDate date();
// The version without its trailing zero segments: "8".
QString shortText();
// Version and date in plain numbers: "8.0.0 2024-12-6".
QString logText();
// The date for people, in the default locale's language: format "S" is short, as in 06.12.2024,
// any other long, as in 06 Dez. 2024. A language for which no short form is laid down gets the
// long one.
QString buildDate(const QString &format);
// What this release is called.
QString releaseName();

} // namespace Version
