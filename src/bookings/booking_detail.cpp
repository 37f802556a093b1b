#include "booking_detail.h"

#include "board/booking_buffer.h"
#include "config/loaded_options.h"
#include "storage/recordset.h"
#include "storage/sqlite_db.h"

namespace ksv {
QString textOf(const Recordset& rs, const char* name) {
  const QVariant v = rs.field(QString::fromLatin1(name));
  return v.isNull() ? QString() : v.toString();
}

BookingDetail readBookingDetail(const Recordset& rs, const LoadedOptions& options) {
  BookingDetail d;
  d.Resource = textOf(rs, "Resource");
  d.Nom = textOf(rs, "Nom");
  d.Email = textOf(rs, "Email");
  d.Remarque = textOf(rs, "Remarque");
  d.Dt_Deb = dayOf(rs.field(QStringLiteral("Date_Deb")));
  d.Dt_Fin = dayOf(rs.field(QStringLiteral("Date_Fin")));
  d.NB_Jour = int(d.Dt_Deb.daysTo(d.Dt_Fin));
  d.HowMany = rs.field(QStringLiteral("HowMany")).toInt();
  const int couleur = rs.field(QStringLiteral("Couleur")).toInt();
  if (couleur >= 0 && couleur < 6) {
    d.Lib_Alarm = options.Libelle.value(couleur);
    d.back = options.BookingBack[std::size_t(couleur)];
    d.fore = options.BookingFore[std::size_t(couleur)];
  }
  const QString split = textOf(rs, "Split");
  d.Split = split == QLatin1String("1") || split == QLatin1String("2");
  return d;
}

BookingIdentity identityOf(const Recordset& rs) {
  return {textOf(rs, "Resource"),
          textOf(rs, "Nom"),
          textOf(rs, "GroupId"),
          textOf(rs, "Split"),
          dayOf(rs.field(QStringLiteral("Date_Deb"))),
          dayOf(rs.field(QStringLiteral("Date_Fin"))),
          rs.field(QStringLiteral("Couleur")).toInt()};
}

qint64 locateBooking(Database& db, const BookingIdentity& b) {
  const QVariant id = db.scalar(
      QStringLiteral("SELECT rowid FROM Reservation WHERE Resource = ? AND ifnull(Nom, '') = ? AND GroupId = ? "
                     "AND Split = ? AND substr(Date_Deb, 1, 10) = ? AND substr(Date_Fin, 1, 10) = ? "
                     "ORDER BY rowid LIMIT 1"),
      {b.Resource, b.Nom, b.GroupId, b.Split, b.Date_Deb, b.Date_Fin});
  return id.isNull() ? -1 : id.toLongLong();
}

void saveRemark(Database& db, Recordset& rs, const QString& remark) {
  const BookingIdentity b = identityOf(rs);
  if (rs.isUpdatable()) {
    try {
      rs.setField(QStringLiteral("Remarque"), remark);
      rs.update();
    } catch (...) {
      rs.cancelUpdate();
      throw;
    }
  } else {
    const qint64 id = locateBooking(db, b);
    if (id < 0) return;
    db.execute(QStringLiteral("UPDATE Reservation SET Remarque = ? WHERE rowid = ?"), {remark, id});
  }
  if (b.Split == QLatin1String("0") || b.Split.isEmpty()) return;
  Recordset other = Recordset::openQuery(
      db,
      QStringLiteral("SELECT * FROM Reservation WHERE ifnull(Nom, '') = ? AND Couleur = ? AND GroupId = ? AND "
                     "((Split = '2' AND substr(Date_Deb, 1, 10) = ?) OR (Split = '1' AND substr(Date_Fin, 1, 10) = ?))"),
      {b.Nom, b.Couleur, b.GroupId, b.Date_Fin, b.Date_Deb});
  if (other.isEOF()) return;
  other.setField(QStringLiteral("Remarque"), remark);
  other.update();
}

QStringList printedRemark(const QString& remark) {
  QStringList out;
  if (remark.isEmpty()) return out;
  const QStringList lines = QString(remark).replace(QLatin1String("\r\n"), QLatin1String("\n")).split(QLatin1Char('\n'));
  for (const QString& line : lines) {
    if (line.isEmpty()) {
      out << QStringLiteral(" > ");
      continue;
    }
    for (qsizetype at = 0; at < line.size(); at += 50) out << QStringLiteral(" > ") + line.mid(at, 50);
  }
  return out;
}

}  // namespace ksv
