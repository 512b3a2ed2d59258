#pragma once

#include <QDate>
#include <QDialog>

class QCalendarWidget;

// Asks for a span of dates, both ends included, in two calendars of which each bounds the other.
class DateRange : public QDialog
{
    Q_OBJECT

public:
    // The dates are where it begins and, when it is closed, what was chosen; both are invalid when
    // it was closed in any other way than by its default button. They outlive the dialog.
    DateRange(QDate *from, QDate *to, QWidget *parent = nullptr);

    QCalendarWidget *fromCalendar() const { return first; }
    QCalendarWidget *toCalendar() const { return last; }

    void done(int result) override;

private:
    QWidget *makeButtons();
    void layOut();
    void connectCalendars();
    void fitToScreen();

    QDate *fromDate;
    QDate *toDate;
    QCalendarWidget *first;
    QCalendarWidget *last;
};

// Asks in the middle of the active window, and returns when the user has answered.
void askDateRange(QDate *from, QDate *to, QWidget *parent);
