#pragma once

#include <QDateTime>

#include <functional>

// The time of day as the program's rules see it: whatever depends on today asks here, so that a
// test can turn it.
namespace Clock {

QDateTime now();
QDate today();
// An empty function gives the system's clock back.
void setClock(const std::function<QDateTime()> &clock);

} // namespace Clock
