#include <map>
#include <set>

#include <QDate>

#include "core/clock.h"
#include "example_fixture.h"
#include "storage/connecting.h"
#include "storage/query_command.h"
#include "storage/recordset.h"

using namespace ksv;

namespace {

struct Booking {
  QString resource, nom, split, groupId;
  QDate first, last;
  int couleur = 0;
  qint64 groupNb = 0;
  QVariant invNb;
};

class ExamplePlanning : public test::ExampleFixture {
 protected:
  QList<Booking> bookings(Database& db, const QString& where = QStringLiteral("1")) {
    QList<Booking> out;
    Statement st = db.prepare(
        "SELECT Resource, Nom, Split, GroupId, Date_Deb, Date_Fin, Couleur, GroupNb, InvNb FROM Reservation WHERE " +
        where + " ORDER BY rowid");
    while (st.step())
      out << Booking{st.column(0).toString(),
                     st.column(1).toString(),
                     st.column(2).toString(),
                     st.column(3).toString(),
                     QDate::fromString(st.column(4).toString(), Qt::ISODate),
                     QDate::fromString(st.column(5).toString(), Qt::ISODate),
                     st.column(6).toInt(),
                     st.column(7).toLongLong(),
                     st.column(8)};
    return out;
  }
  QStringList column(Database& db, const QString& sql) {
    QStringList out;
    Statement st = db.prepare(sql);
    while (st.step()) out << st.column(0).toString();
    return out;
  }
  int count(Database& db, const QString& sql) { return db.scalar(sql).toInt(); }
};

TEST_F(ExamplePlanning, OpensAsACurrentPlanningWithItsQueries) {
  ConnectResult c = Connecting(example(), 'C', messages, texts);
  ASSERT_TRUE(c) << c.detail.toStdString();
  Database& db = c.connection->db();
  EXPECT_EQ(db.scalar("SELECT Version FROM DataBaseInfo").toString(), "5.20");
  EXPECT_EQ(count(db, "SELECT count(*) FROM DataBaseInfo"), 1);
  EXPECT_EQ(count(db, "SELECT count(*) FROM Header"), 1);
  EXPECT_EQ(count(db, "SELECT count(*) FROM KsvQueries"), 69);
  EXPECT_EQ(db.scalar("PRAGMA integrity_check").toString(), "ok");
  EXPECT_TRUE(messages.shown().empty());
}



TEST_F(ExamplePlanning, NoRoomSleepsTwoPartiesOnOneNight) {
  Database db = open();
  std::map<QString, QList<Booking>> byResource;
  for (const Booking& b : bookings(db, "GroupId = 'C'")) byResource[b.resource] << b;
  for (auto& [resource, list] : byResource) {
    std::sort(list.begin(), list.end(), [](const Booking& a, const Booking& b) { return a.first < b.first; });
    for (int i = 1; i < list.size(); ++i)
      EXPECT_GE(list[i].first, list[i - 1].last)
          << resource.toStdString() << ": " << list[i - 1].nom.toStdString() << " leaves on "
          << list[i - 1].last.toString(Qt::ISODate).toStdString() << ", " << list[i].nom.toStdString()
          << " arrives on " << list[i].first.toString(Qt::ISODate).toStdString();
  }
}

TEST_F(ExamplePlanning, SplitPartsFindEachOther) {
  Database db = open();
  const QList<Booking> all = bookings(db, "GroupId = 'C'");
  int pairs = 0, inGroup = 0;
  for (const Booking& one : all) {
    if (one.split != "1") continue;
    SCOPED_TRACE(one.nom.toStdString());
    // The partner as the board finds it: same name, state and kind, starting
    // on the day the first part ends.
    QList<Booking> partners;
    for (const Booking& two : all)
      if (two.split == "2" && two.nom == one.nom && two.couleur == one.couleur && two.groupId == one.groupId &&
          two.first == one.last)
        partners << two;
    ASSERT_EQ(partners.size(), 1);
    EXPECT_EQ(partners[0].groupNb, one.groupNb);
    EXPECT_EQ(partners[0].invNb, one.invNb);
    ++pairs;
    if (one.groupNb != 0) ++inGroup;
  }
  EXPECT_GE(pairs, 3);
  EXPECT_GE(inGroup, 1) << "a group member split in two";
  EXPECT_EQ(count(db, "SELECT count(*) FROM Reservation WHERE Split = '2'"), pairs) << "no second part alone";
}

TEST_F(ExamplePlanning, ACustomerGroupAndAnAgentGroupWithTheirMembers) {
  Database db = open();
  const QList<Booking> headers = bookings(db, "GroupId <> 'C'");
  ASSERT_EQ(headers.size(), 2);
  std::set<QString> kinds;
  FixedClock clock(QDate(2006, 10, 21));
  for (const Booking& h : headers) {
    SCOPED_TRACE(h.nom.toStdString());
    kinds.insert(h.groupId);
    EXPECT_EQ(h.split, "3");
    EXPECT_TRUE(h.resource.trimmed().isEmpty()) << "a header occupies no resource";
    EXPECT_GT(h.groupNb, 0);
    // The queries the group dialog uses find the header and its members.
    QueryCatalogue catalogue(db, clock);
    QueryCommand users = catalogue.command("RQ_GroupUsers");
    users.setParameter(0, h.groupNb);
    Recordset members = users.openRecordset();
    EXPECT_GE(members.recordCount(), 3);
    for (members.moveFirst(); !members.isEOF(); members.moveNext()) {
      // Members keep the group's period: the rule the group dialog checks.
      const QString split = members.field("Split").toString();
      if (split != "2") {
        EXPECT_EQ(members.field("Date_Deb").toDate(), h.first);
      }
      if (split != "1") {
        EXPECT_EQ(members.field("Date_Fin").toDate(), h.last);
      }
    }
    QueryCommand responsible = catalogue.command("RQ_GroupResponsible");
    responsible.setParameter(0, h.groupNb);
    EXPECT_EQ(responsible.openRecordset().recordCount(), 1);
  }
  EXPECT_EQ(kinds, (std::set<QString>{"A", "L"}));
  EXPECT_EQ(count(db, "SELECT count(*) FROM Reservation WHERE GroupId = 'C' AND GroupNb <> 0 AND GroupNb NOT IN "
                      "(SELECT GroupNb FROM Reservation WHERE GroupId <> 'C')"),
            0)
      << "no member without its header";
  EXPECT_GE(count(db, "SELECT MaxGroupNb FROM DataBaseInfo"), count(db, "SELECT max(GroupNb) FROM Reservation"));
  EXPECT_EQ(count(db, "SELECT count(*) FROM Reservation WHERE GroupNb IS NULL"), 0);
}


TEST_F(ExamplePlanning, EveryInvoiceLinkResolvesAndTheCountersAgree) {
  Database db = open();
  // One head row per invoice.
  EXPECT_EQ(count(db, "SELECT count(*) FROM (SELECT InvoiceNb FROM Invoice GROUP BY InvoiceNb "
                      "HAVING sum(Typ = '0') <> 1)"),
            0);
  // Every booking's link reaches a head row; every invoice of a booking is reached.
  EXPECT_EQ(count(db, "SELECT count(*) FROM Reservation WHERE InvNb IS NOT NULL AND InvNb NOT IN "
                      "(SELECT InvoiceNb FROM Invoice WHERE Typ = '0')"),
            0);
  EXPECT_EQ(count(db, "SELECT count(*) FROM Invoice WHERE Typ = '0' AND AddUp = 'N' AND InvoiceNb NOT IN "
                      "(SELECT InvNb FROM Reservation WHERE InvNb IS NOT NULL)"),
            0);
  EXPECT_EQ(count(db, "SELECT count(*) FROM Invoice WHERE Typ = '0' AND AddUp = 'Y' AND InvoiceNb IN "
                      "(SELECT InvNb FROM Reservation WHERE InvNb IS NOT NULL)"),
            0)
      << "a cash sale has no booking";
  // Waiting numbers are negative with no posting date; posted ones positive with one.
  EXPECT_GE(count(db, "SELECT count(*) FROM Invoice WHERE Typ = '0' AND InvoiceNb < 0"), 3);
  EXPECT_GE(count(db, "SELECT count(*) FROM Invoice WHERE Typ = '0' AND InvoiceNb > 0"), 3);
  EXPECT_EQ(count(db, "SELECT count(*) FROM Invoice WHERE Typ = '0' AND (InvoiceNb < 0) = (\"From\" IS NOT NULL)"), 0);
  EXPECT_EQ(count(db, "SELECT count(*) FROM Invoice WHERE Typ = '0' AND AddUp = 'Y'"), 2) << "a cash sale of each kind";
  EXPECT_EQ(count(db, "SELECT MaxInvNb FROM DataBaseInfo"), count(db, "SELECT max(InvoiceNb) FROM Invoice"));
  EXPECT_LE(count(db, "SELECT MaxWaitNb FROM DataBaseInfo"), count(db, "SELECT min(InvoiceNb) FROM Invoice"));
  EXPECT_EQ(count(db, "SELECT count(DISTINCT InvoiceNb) FROM Invoice WHERE InvoiceNb = 0"), 0);
}

TEST_F(ExamplePlanning, InvoiceSumsFollowTheirLines) {
  Database db = open();
  // Balance of the amount lines (kinds up to "3"): zero on a posted invoice,
  // the head row's figure (a single float) on a pending one.
  Statement heads = db.prepare(
      "SELECT h.InvoiceNb, h.PriceNotIncluded, h.UPriceIncluded, "
      "(SELECT total(PriceNotIncluded) FROM Invoice l WHERE l.InvoiceNb = h.InvoiceNb AND l.Typ IN ('1','2','3')), "
      "(SELECT total(-PriceNotIncluded) FROM Invoice l WHERE l.InvoiceNb = h.InvoiceNb AND l.Typ = '3') "
      "FROM Invoice h WHERE h.Typ = '0'");
  while (heads.step()) {
    const int number = heads.column(0).toInt();
    SCOPED_TRACE(number);
    const double balance = heads.column(3).toDouble();
    if (number > 0) {
      EXPECT_NEAR(balance, 0.0, 0.005);
      EXPECT_NEAR(heads.column(2).toDouble(), heads.column(4).toDouble(), 0.005) << "what was paid";
    } else {
      EXPECT_EQ(heads.column(1).toDouble(), double(float(balance)));
      EXPECT_GT(balance, 0.0);
    }
  }
  // The account counters hold what the saved and posted lines brought them:
  // the line's price, or its included part when the price is zero.
  std::map<QString, double> posted, pending;
  Statement lines = db.prepare(
      "SELECT l.Typ, l.Lib, abs(CASE WHEN l.PriceNotIncluded <> 0 THEN l.PriceNotIncluded ELSE l.UPriceIncluded END), "
      "l.InvoiceNb > 0 FROM Invoice l WHERE l.Typ IN ('1','2','3')");
  while (lines.step()) {
    QString name = lines.column(1).toString().section(" [", 0, 0);
    if (lines.column(0).toString() == "2") name = name.mid(4);
    (lines.column(3).toInt() ? posted : pending)[name] += lines.column(2).toDouble();
  }
  int accounts = 0;
  Statement sums = db.prepare(
      "SELECT Designation, Day, Month, Year, Day_NC, Month_NC, Year_NC FROM Designation UNION ALL "
      "SELECT Modification, Day, Month, Year, Day_NC, Month_NC, Year_NC FROM Modification UNION ALL "
      "SELECT Payment, Day, Month, Year, Day_NC, Month_NC, Year_NC FROM Payment");
  while (sums.step()) {
    const QString name = sums.column(0).toString();
    SCOPED_TRACE(name.toStdString());
    EXPECT_NEAR(sums.column(3).toDouble(), posted[name], 0.0001);
    EXPECT_NEAR(sums.column(6).toDouble(), pending[name], 0.0001);
    EXPECT_LE(sums.column(1).toDouble(), sums.column(2).toDouble());
    EXPECT_LE(sums.column(2).toDouble(), sums.column(3).toDouble());
    ++accounts;
  }
  EXPECT_GT(accounts, 10);
  for (const auto& [name, amount] : posted) EXPECT_TRUE(amount == 0 || db.scalar(
      "SELECT count(*) FROM (SELECT Designation n FROM Designation UNION ALL SELECT Modification FROM Modification "
      "UNION ALL SELECT Payment FROM Payment) WHERE n = ?", {name}).toInt() == 1) << name.toStdString();
}

}  // namespace
