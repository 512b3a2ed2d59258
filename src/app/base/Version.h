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

} // namespace Version
