#pragma once
// The board on paper: a housekeeping sheet for each week of a range of days,
// each resource on a line in board order and, under each day, the stay that
// sleeps there that night, named as its label on the board.

#include <QDate>
#include <QList>

#include "customers/printed_list.h"

namespace ksv {

class Texts;
struct Regional;
struct SessionObjects;

// One sheet per seven days from `from` to `to`, both printed; the last sheet
// may be shorter. Stays that overlap share their cell, one name a line.
QList<PrintedList> printedBoard(SessionObjects& objects, QDate from, QDate to, const Texts& texts,
                                const Regional& regional);

}  // namespace ksv
