#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "storage/planning_name.h"
#include "support/scripted_messages.h"

using namespace ksv;

TEST(PlanningName, SplitKeepsTheSeparatorAndDropsThePoint) {
  const PlanningName n = Split_Db_Name("/srv/hotel/Les Tilleuls.2026.ksv");
  EXPECT_EQ(n.dir, "/srv/hotel/");
  EXPECT_EQ(n.stem, "Les Tilleuls.2026");
  EXPECT_EQ(n.ext, "ksv");
  EXPECT_EQ(n.full(), "/srv/hotel/Les Tilleuls.2026.ksv");
  const PlanningName bare = Split_Db_Name("Hotel.ksv");
  EXPECT_EQ(bare.dir, "");
  EXPECT_EQ(bare.stem, "Hotel");
  EXPECT_TRUE(Split_Db_Name("").isEmpty());
  EXPECT_EQ(Split_Db_Name("C:\\Data\\Hotel.ksv").dir, "C:\\Data\\");
}

TEST(PlanningName, ChosenFileChecks) {
  QTemporaryDir dir;
  const QString existing = dir.path() + "/Hotel.ksv";
  QFile(existing).open(QIODevice::WriteOnly);
  const QString missing = dir.path() + "/Other.ksv";
  const Texts texts(0);
  test::ScriptedMessages m;

  EXPECT_EQ(checkChosenPlanning(existing, "", m, texts), existing);
  EXPECT_TRUE(m.shown().empty());

  EXPECT_EQ(checkChosenPlanning(dir.path() + "/notes.txt", "", m, texts), "");
  EXPECT_EQ(m.last().text, "The file - " + dir.path() + "/notes.txt - is not a Planning");
  EXPECT_EQ(m.last().icon, MsgIcon::Critical);

  EXPECT_EQ(checkChosenPlanning(missing, "", m, texts), "");
  EXPECT_EQ(m.last().text, "The Planning - " + missing + " - doesn't exist");

  // The open planning is accepted as it is, even when its file went meanwhile.
  m.clear();
  EXPECT_EQ(checkChosenPlanning(missing, missing, m, texts), missing);
  EXPECT_TRUE(m.shown().empty());

  EXPECT_EQ(checkChosenPlanning("A:\\Hotel.ksv", "", m, texts), "");
  EXPECT_EQ(m.last().text, "Your planning cannot be on a diskette");
}

TEST(PlanningName, SuggestedNamesPurgeLimitAndExampleShift) {
  const PlanningName n = Split_Db_Name("/srv/Hotel.ksv");
  EXPECT_EQ(suggestedCopyName(n, "_BackUp", QDate(2026, 11, 22), Regional::french()), "/srv/Hotel_BackUp22112026.ksv");
  EXPECT_EQ(suggestedCopyName(n, "_Extraction", QDate(2026, 3, 5), Regional::englishUS()),
            "/srv/Hotel_Extraction352026.ksv");

  EXPECT_EQ(purgeLimit(QDate(2026, 11, 22), 3), QDate(2023, 11, 1));
  EXPECT_EQ(purgeLimit(QDate(2028, 2, 29), 1), QDate(2027, 2, 1));
  EXPECT_EQ(purgeLimit(QDate(2026, 1, 1), 0), QDate(2026, 1, 1));

  EXPECT_EQ(exampleShiftDays(QDate(2006, 10, 21)), 0);
  EXPECT_EQ(exampleShiftDays(QDate(2006, 11, 21)), 31);
  EXPECT_EQ(exampleShiftDays(QDate(2026, 11, 22)), 7337);
}
