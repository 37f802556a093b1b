#include "worklist_exceptions.h"

#include "board/booking_buffer.h"
#include "core/texts.h"
#include "customers/black_list.h"
#include "storage/recordset.h"
#include "storage/sqlite_db.h"

namespace ksv {
namespace {

enum Reason { LeftNoInvoice, LeftPending, LeavesNoInvoice, LeavesPending, BlackListed, NoResource };

// Every stay row with its identity; `where` narrows it.
Recordset stays(Database& db, const QString& where, const QString& order, const QVariantList& params) {
  return Recordset::openQuery(
      db,
      QStringLiteral("SELECT r.rowid AS Id, r.Resource, r.Nom, r.Email, r.Date_Deb, r.Date_Fin, r.InvNb, r.Split, "
                     "(SELECT count(*) FROM Invoice i WHERE i.InvoiceNb = r.InvNb AND i.Typ = '0') AS Heads, "
                     "(SELECT count(*) FROM Invoice i WHERE i.InvoiceNb = r.InvNb AND i.Typ = '0' "
                     "AND i.\"From\" IS NULL) AS Pending "
                     "FROM Reservation r WHERE r.GroupId = 'C' AND (%1) ORDER BY %2")
          .arg(where, order),
      params);
}

class Collector {
 public:
  explicit Collector(const Texts& texts) : names_(texts.list(txt::ExceptionReasons, 6)) {}

  void add(const Recordset& rs, Reason reason, const QString& detail = QString()) {
    const qint64 id = rs.field(QStringLiteral("Id")).toLongLong();
    qsizetype at = 0;
    while (at < out.size() && out[at].rowId != id) ++at;
    if (at == out.size()) {
      WorklistException e;
      e.rowId = id;
      e.Resource = rs.field(QStringLiteral("Resource")).toString();
      e.Nom = rs.field(QStringLiteral("Nom")).toString();
      e.Email = rs.field(QStringLiteral("Email")).toString();
      e.Date_Deb = dayOf(rs.field(QStringLiteral("Date_Deb")));
      e.Date_Fin = dayOf(rs.field(QStringLiteral("Date_Fin")));
      out << e;
    }
    out[at].reasons << (detail.isEmpty() ? names_[reason] : names_[reason] + QStringLiteral(" : ") + detail);
  }

  QList<WorklistException> out;

 private:
  QStringList names_;
};

}  // namespace

QList<WorklistException> findWorklistExceptions(Database& db, Recordset& blackList, const Texts& texts, QDate today,
                                                QDate arrivalEnd) {
  Collector c(texts);

  Recordset lost = stays(db, QStringLiteral("r.Resource NOT IN (SELECT Resource FROM Resource)"),
                         QStringLiteral("r.Date_Deb, r.Resource"), {});
  for (lost.moveFirst(); !lost.isEOF(); lost.moveNext()) c.add(lost, NoResource);

  // A second part begins on the change of resource: no one arrives then.
  Recordset arriving = stays(db, QStringLiteral("substr(r.Date_Deb, 1, 10) BETWEEN ? AND ? AND r.Split <> '2'"),
                             QStringLiteral("r.Date_Deb, r.Resource"), {today, arrivalEnd});
  for (arriving.moveFirst(); !arriving.isEOF(); arriving.moveNext()) {
    QString remark;
    if (Search_BlackList(blackList, arriving.field(QStringLiteral("Nom")).toString(), remark))
      c.add(arriving, BlackListed, remark.simplified());
  }

  // The first part of a split stay has left, but the stay goes on.
  Recordset left = stays(db,
                         QStringLiteral("substr(r.Date_Fin, 1, 10) <= ? AND r.Split <> '1' "
                                        "AND substr(r.Resource, -1) <> '*'"),
                         QStringLiteral("r.Date_Fin DESC, r.Resource"), {today});
  for (left.moveFirst(); !left.isEOF(); left.moveNext()) {
    const bool leavesToday = dayOf(left.field(QStringLiteral("Date_Fin"))) == today;
    const QVariant invNb = left.field(QStringLiteral("InvNb"));
    if (invNb.isNull() || left.field(QStringLiteral("Heads")).toInt() == 0)
      c.add(left, leavesToday ? LeavesNoInvoice : LeftNoInvoice);
    else if (invNb.toLongLong() < 0 || left.field(QStringLiteral("Pending")).toInt() > 0)
      c.add(left, leavesToday ? LeavesPending : LeftPending);
  }
  return c.out;
}

}  // namespace ksv
