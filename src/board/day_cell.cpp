#include "day_cell.h"

#include "core/texts.h"
#include "storage/planning_session.h"
#include "storage/recordset.h"

namespace ksv {
namespace {

QDate dateOf(const QVariant& v) { return v.typeId() == QMetaType::QDateTime ? v.toDateTime().date() : v.toDate(); }
bool notARoom(const QString& name) { return name.endsWith(QLatin1Char('*')); }

}  // namespace

InfoJourCounts countDay(QDate DayDate, Recordset& RQ_Resource, Recordset& view) {
  InfoJourCounts c;
  RQ_Resource.requery();
  for (RQ_Resource.moveFirst(); !RQ_Resource.isEOF(); RQ_Resource.moveNext()) {
    if (!notARoom(RQ_Resource.field(QStringLiteral("Resource")).toString())) ++c.free;
  }
  if (!view.isOpen()) return c;
  const int keep = view.absolutePosition();
  for (view.moveFirst(); !view.isEOF(); view.moveNext()) {
    if (notARoom(view.field(QStringLiteral("Resource")).toString())) {
      --c.free;
      continue;
    }
    const QDate first = dateOf(view.field(QStringLiteral("Date_Deb")));
    const QDate last = dateOf(view.field(QStringLiteral("Date_Fin")));
    if (last < DayDate || first > DayDate) continue;
    const int howMany = view.field(QStringLiteral("HowMany")).toInt();
    if (last == DayDate) {
      ++c.released;
      c.leaving += howMany;
    } else if (first == DayDate) {
      ++c.alloted;
      c.arriving += howMany;
    } else {
      --c.free;
      ++c.occupied;
      c.present += howMany;
    }
  }
  if (keep > 0) view.setAbsolutePosition(keep);
  return c;
}

QString InfoJourText(const InfoJourCounts& c, const Texts& texts) {
  const QString dashes(40, QLatin1Char('-'));
  const auto line = [&](int text, int n) { return texts.get(text) + QString::number(n); };
  return QStringList{line(txt::InfoFreeRooms, c.free),
                     line(txt::InfoOccupiedRooms, c.occupied),
                     dashes,
                     line(txt::InfoReleasedRooms, c.released),
                     line(txt::InfoAllotedRooms, c.alloted),
                     dashes,
                     line(txt::InfoCustomersPresent, c.present),
                     line(txt::InfoCustomersLeaving, c.leaving),
                     line(txt::InfoCustomersArriving, c.arriving)}
      .join(QLatin1Char('\n'));
}

void D_ChangeColor(SessionObjects& objects, QDate DayDate, int color, QDate ViewFirst, QDate ViewLast) {
  if (!objects.RQ_DayColor) return;
  objects.RQ_DayColor->setParameters({ViewFirst, ViewLast});
  objects.DayColor = objects.RQ_DayColor->openRecordset();
  Recordset& rs = objects.DayColor;
  for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) {
    if (dateOf(rs.field(QStringLiteral("IdDay"))) != DayDate) continue;
    if (color == 0) {
      rs.deleteRecord();
    } else {
      rs.setField(QStringLiteral("Color"), color);
      rs.update();
    }
    return;
  }
  if (color == 0) return;
  rs.addNew();
  rs.setField(QStringLiteral("IdDay"), DayDate);
  rs.setField(QStringLiteral("Color"), color);
  rs.update();
}

}  // namespace ksv
