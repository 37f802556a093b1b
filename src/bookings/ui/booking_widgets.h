#pragma once
// Small pieces the booking dialogs share: colours from the options on widgets,
// a category list in its colours, a calendar that reports the picked day.

#include <functional>
#include <vector>

#include <QComboBox>
#include <QString>
#include <QWidget>

#include "board/cls_calendar.h"
#include "bookings/trous_search.h"

namespace ksv {

class CalendarView;

// "background: ...; color: ..." for a back and text colour of the options.
QString colourStyle(Colour back, Colour fore);

// Fills `list` with the entries, each in its own colours.
void fillCategoryList(QComboBox& list, const std::vector<CategoryItem>& items);

// Colours the closed box only. The box's own menu-like painting of the open
// list takes its text colour from the box's style, so every entry would come
// out in the chosen category's text colour: the list paints its entries as a
// plain view instead, each in the colours of its item.
void styleClosedList(QComboBox& list, Colour back, Colour fore);

// A calendar over [lowest, highest] showing `value`, on a view in `parent`;
// `picked` runs with the new date when a day is clicked.
struct DateCalendar {
  clsCalendar* calendar = nullptr;
  CalendarView* view = nullptr;
};
DateCalendar makeCalendar(const Texts& texts, QWidget* parent, const QString& name, QDate lowest, QDate highest,
                          QDate value, std::function<void(QDate)> picked);

}  // namespace ksv
