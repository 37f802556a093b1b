#include "printed_board.h"

#include <map>

#include "board_drawing.h"
#include "core/day_date.h"
#include "core/regional.h"
#include "core/texts.h"
#include "storage/planning_session.h"

namespace ksv {

namespace {

constexpr int kWeek = 7;

struct Stay {
  QDate first;  // arrival
  QDate last;   // leaving day: its night is not the stay's
  QString text;
};

QDate dayOf(const QVariant& v) { return v.typeId() == QMetaType::QDateTime ? v.toDateTime().date() : v.toDate(); }

}  // namespace

QList<PrintedList> printedBoard(SessionObjects& objects, QDate from, QDate to, const Texts& texts,
                                const Regional& regional) {
  QList<PrintedList> sheets;
  if (!from.isValid() || !to.isValid() || to < from) return sheets;

  QStringList resources;
  Recordset& rr = objects.RQ_Resource;
  rr.requery();
  for (rr.moveFirst(); !rr.isEOF(); rr.moveNext()) resources << rr.field(QStringLiteral("Resource")).toString();

  std::map<QString, QList<Stay>> stays;
  Recordset& rs = objects.Reservation;
  rs.requery();
  // Group header rows hold no room, so they never reach a line.
  for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) {
    const Stay stay{dayOf(rs.field(QStringLiteral("Date_Deb"))), dayOf(rs.field(QStringLiteral("Date_Fin"))),
                    BoardDrawing::labelText(rs)};
    if (stay.first > to || stay.last <= from) continue;
    stays[rs.field(QStringLiteral("Resource")).toString()] << stay;
  }

  for (QDate week = from; week <= to; week = week.addDays(kWeek)) {
    const QDate end = std::min(week.addDays(kWeek - 1), to);
    PrintedList sheet;
    sheet.ownPage = true;
    sheet.heading = texts.withName(txt::PrintBoardHeading, shortDateText(week, regional) + QStringLiteral(" - ") +
                                                               shortDateText(end, regional));
    sheet.titles << texts.get(txt::ResourceTitle);
    sheet.widths << 3;
    for (QDate d = week; d <= end; d = d.addDays(1)) {
      sheet.titles << regional.locale.toString(d, QStringLiteral("ddd d"));
      sheet.widths << 2;
    }
    for (const QString& resource : resources) {
      QStringList row{resource};
      const QList<Stay>& here = stays[resource];
      for (QDate d = week; d <= end; d = d.addDays(1)) {
        QStringList names;
        for (const Stay& s : here)
          if (s.first <= d && d < s.last) names << s.text;
        row << names.join(QLatin1Char('\n'));
      }
      sheet.rows << row;
    }
    sheets << sheet;
  }
  return sheets;
}

}  // namespace ksv
