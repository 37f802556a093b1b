#include "booking_widgets.h"

#include <QStyledItemDelegate>

#include "board/screen_description.h"
#include "board/ui/board_colors.h"
#include "board/ui/calendar_view.h"
#include "board/ui/ecran_dialog.h"

namespace ksv {

QString colourStyle(Colour back, Colour fore) {
  return QStringLiteral("background: %1; color: %2;").arg(bgrColor(int(back)).name(), bgrColor(int(fore)).name());
}

void styleClosedList(QComboBox& list, Colour back, Colour fore) {
  static const QString kOwnColours = QStringLiteral("EntriesInOwnColours");
  if (list.itemDelegate()->objectName() != kOwnColours) {
    auto* delegate = new QStyledItemDelegate(&list);
    delegate->setObjectName(kOwnColours);
    list.setItemDelegate(delegate);
  }
  list.setStyleSheet(QStringLiteral("QComboBox { %1 }").arg(colourStyle(back, fore)));
}

void fillCategoryList(QComboBox& list, const std::vector<CategoryItem>& items) {
  list.clear();
  for (const CategoryItem& item : items) {
    list.addItem(item.name);
    const int at = list.count() - 1;
    list.setItemData(at, bgrColor(int(item.back)), Qt::BackgroundRole);
    list.setItemData(at, bgrColor(int(item.fore)), Qt::ForegroundRole);
  }
}

DateCalendar makeCalendar(const Texts& texts, QWidget* parent, const QString& name, QDate lowest, QDate highest,
                          QDate value, std::function<void(QDate)> picked) {
  ScreenDescription screen;
  EcranDialog::readActualScreen(screen);
  DateCalendar c;
  c.calendar = new clsCalendar(screen, texts, parent);
  c.calendar->setObjectName(name);
  c.calendar->SetDateFrom(lowest);
  c.calendar->SetDateTo(highest);
  c.calendar->SetDate(value);
  c.view = new CalendarView(*c.calendar, parent);
  c.view->setObjectName(name);
  clsCalendar* calendar = c.calendar;
  QObject::connect(calendar, &clsCalendar::Click, parent,
                   [calendar, picked = std::move(picked)] { picked(calendar->GetDate()); });
  return c;
}

}  // namespace ksv
