#pragma once
// A planning on disk with its tables and stored queries, a fixed today, and
// short ways to add resources and bookings and read rows back.

#include <gtest/gtest.h>

#include <QDate>
#include <QTemporaryDir>
#include <QVariant>

#include "core/clock.h"
#include "core/texts.h"
#include "support/scripted_messages.h"
#include "storage/query_command.h"
#include "storage/schema.h"
#include "storage/sqlite_db.h"
#include "storage/stored_queries.h"

inline void PrintTo(const QString& text, std::ostream* os) { *os << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QStringList& texts, std::ostream* os) {
  *os << '{';
  for (const QString& t : texts) *os << " \"" << t.toStdString() << '"';
  *os << " }";
}

namespace ksv::test {

inline QDate day(int d, int m = 7) { return QDate(2024, m, d); }

class BookingPlanning : public ::testing::Test {
 protected:
  // Today: Saturday 15 June 2024.
  static QDate today() { return QDate(2024, 6, 15); }

  void SetUp() override {
    ASSERT_TRUE(dir_.isValid());
    db_.open(dir_.path() + "/test.ksv", Database::OpenMode::Create);
    createPlanningTables(db_);
    createStoredQueries(db_);
  }

  void resource(const QString& name, int color, int order) {
    insertRow(db_, "Resource", {{"Resource", name}, {"Color", color}, {"Order", order}});
  }
  qint64 booking(const QString& resource, QDate first, QDate last, const QString& nom, QVariantMap more = {}) {
    more.insert("Resource", resource);
    more.insert("Date_Deb", first);
    more.insert("Date_Fin", last);
    more.insert("Nom", nom);
    if (!more.contains("GroupId")) more.insert("GroupId", "C");
    return insertRow(db_, "Reservation", more);
  }
  // One column of a booking row straight from the file, "<null>" for Null.
  QString stored(qint64 rowid, const QString& column) {
    const QVariant v = db_.scalar(QStringLiteral("SELECT \"%1\" FROM Reservation WHERE rowid = ?").arg(column), {rowid});
    return v.isNull() ? QStringLiteral("<null>") : v.toString();
  }
  qlonglong bookingCount() { return db_.scalar("SELECT count(*) FROM Reservation").toLongLong(); }
  // The rows as "Nom/Resource/Date_Deb/Date_Fin/Split/InvNb" in stored order.
  QStringList rows() {
    QStringList out;
    Statement st = db_.prepare(
        "SELECT Nom, Resource, Date_Deb, Date_Fin, Split, ifnull(InvNb, '<null>') FROM Reservation ORDER BY rowid");
    while (st.step()) {
      QStringList parts;
      for (int i = 0; i < 6; ++i) parts << st.column(i).toString();
      out << parts.join('/');
    }
    return out;
  }

  QTemporaryDir dir_;
  Database db_;
  FixedClock clock_{today()};
  ScriptedMessages messages_;
  Texts texts_;
};

}  // namespace ksv::test
