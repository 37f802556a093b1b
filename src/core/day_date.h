#pragma once
// Dates as whole calendar days, and their texts: the six-digit forms of the ini
// file and the locale's short and long dates.

#include <optional>

#include <QDate>
#include <QString>

#include "regional.h"

namespace ksv {

// Differences as the system counts them: days, and calendar-month or
// calendar-year boundaries crossed (the day of the month does not matter).
int daysBetween(QDate from, QDate to);
int monthsBetween(QDate from, QDate to);
int yearsBetween(QDate from, QDate to);

// Two-digit years fall in the fixed window 1930..2029.
int expandTwoDigitYear(int yy);

// Builds a date the way the system's DateSerial does: a month or day beyond its
// range rolls over into the next month or year (month 13 is January next year,
// day 0 the last day of the month before). Two-digit years use the window.
QDate dateSerial(int year, int month, int day);

// "yymmdd", the date form of the ini file; an empty or malformed text has no date.
QString toYymmdd(QDate date);
std::optional<QDate> fromYymmdd(const QString& text);
// "ddmmyy", kept by the results' reset key only.
QString toDdmmyy(QDate date);
std::optional<QDate> fromDdmmyy(const QString& text);

// The locale's short and long date texts.
QString shortDateText(QDate date, const Regional& regional);
QString longDateText(QDate date, const Regional& regional);

// Reads a date typed in the order of the locale's short format (separators
// '/', '-', '.' or blank, two- or four-digit year), or ISO "yyyy-mm-dd".
std::optional<QDate> parseDate(const QString& text, const Regional& regional);
bool isDate(const QString& text, const Regional& regional);

}  // namespace ksv
