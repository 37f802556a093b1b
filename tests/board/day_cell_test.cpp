#include <gtest/gtest.h>

#include "board/day_cell.h"
#include "core/texts.h"
#include "support/test_planning.h"

using namespace ksv;

namespace {

Recordset viewOf(test::TestPlanning& p, QDate first, QDate last) {
  QueryCommand& cmd = *p.objects().RQ_Reservation;
  QVariantList params{first, last};
  Recordset& rs = p.objects().RQ_Resource;
  rs.requery();
  for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) params << rs.field("Resource");
  while (params.size() < cmd.parameterCount()) params << QString();
  cmd.setParameters(params);
  return cmd.openRecordset();
}

TEST(InfoJour, CountsRoomsAndCustomersOfADay) {
  test::TestPlanning p;
  for (const char* r : {"R1", "R2", "R3", "R4", "Extra*"}) p.addResource(r, 0, 1);
  const QDate day(2025, 3, 10);
  p.addBooking("R1", QDate(2025, 3, 8), QDate(2025, 3, 12), "Present");  // HowMany 1
  p.db().execute("UPDATE Reservation SET HowMany = 3");
  p.addBooking("R2", QDate(2025, 3, 5), day, "Leaving");
  p.addBooking("R3", day, QDate(2025, 3, 14), "Arriving");
  p.addBooking("R4", QDate(2025, 3, 1), QDate(2025, 3, 9), "Gone");
  p.addBooking("Extra*", QDate(2025, 3, 20), QDate(2025, 3, 21), "Cot");
  Recordset view = viewOf(p, QDate(2025, 3, 1), QDate(2025, 3, 31));

  const InfoJourCounts c = countDay(day, p.objects().RQ_Resource, view);
  EXPECT_EQ(c.free, 4 - 1 - 1);  // the present stay and the "*" row, whatever its dates
  EXPECT_EQ(c.occupied, 1);
  EXPECT_EQ(c.present, 3);
  EXPECT_EQ(c.released, 1);
  EXPECT_EQ(c.leaving, 1);
  EXPECT_EQ(c.alloted, 1);
  EXPECT_EQ(c.arriving, 1);

  const QStringList lines = InfoJourText(c, Texts(0)).split('\n');
  ASSERT_EQ(lines.size(), 9);
  EXPECT_EQ(lines[0], "Free rooms = 2");
  EXPECT_EQ(lines[2], QString(40, '-'));
  EXPECT_EQ(lines[4], "Alloted rooms = 1");
  EXPECT_EQ(lines[6], "Customers present = 3");
}

TEST(DayColour, OneRowPerDaySetChangedAndRemoved) {
  test::TestPlanning p;
  const QDate day(2025, 3, 10), first(2025, 3, 1), last(2025, 3, 31);
  const auto rows = [&] { return p.db().scalar("SELECT COUNT(*) FROM DayColor").toInt(); };
  D_ChangeColor(p.objects(), day, 0, first, last);
  EXPECT_EQ(rows(), 0);
  D_ChangeColor(p.objects(), day, 2, first, last);
  D_ChangeColor(p.objects(), day, 4, first, last);
  EXPECT_EQ(rows(), 1);
  EXPECT_EQ(p.db().scalar("SELECT Color FROM DayColor").toInt(), 4);
  D_ChangeColor(p.objects(), day.addDays(1), 1, first, last);
  D_ChangeColor(p.objects(), day, 0, first, last);
  EXPECT_EQ(rows(), 1);
  EXPECT_EQ(p.db().scalar("SELECT IdDay FROM DayColor").toString(), "2025-03-11");
}

}  // namespace
