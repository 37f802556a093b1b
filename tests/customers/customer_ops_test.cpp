#include <QFile>

#include "support/customer_planning.h"
#include "customers/customer_ops.h"
#include "storage/recordset.h"

using namespace ksv;

namespace {

class CustomerOps : public test::CustomerPlanning {};

QStringList lines(const QList<CustomerRow>& rows) {
  QStringList out;
  for (const auto& r : rows) out << r.Nom + "|" + r.Email + "|" + r.Remarque;
  return out;
}

}  // namespace

TEST_F(CustomerOps, ListsCustomersWithGroupLeadersAndAgentsApart) {
  booking("Martin", "m@x.fr", "Quiet room");
  booking("Agence Sud", QVariant(), "Tour operator", "A");
  booking("Club Alpin", QVariant(), QVariant(), "L");
  booking("Bernard");
  EXPECT_EQ(lines(Dessin_Customer(context(), kRQ_Customer)),
            (QStringList{"Bernard||", "Club Alpin||", "Martin|m@x.fr|Quiet room"}));
  EXPECT_EQ(lines(Dessin_Customer(context(), kRQ_Agent)), QStringList{"Agence Sud||Tour operator"});
  EXPECT_TRUE(Customer_Search(context(), "MARTIN"));
  // Every booking counts, whichever list the dialog would open.
  EXPECT_TRUE(Customer_Search(context(), "agence sud"));
  EXPECT_TRUE(Customer_Search(context(), "Club Alpin "));
  EXPECT_FALSE(Customer_Search(context(), "Mart"));
  EXPECT_EQ(texts.get(customerSearchWarning(kRQ_Agent)),
            "You already have an agent with the same name\r\nDo you want to consult the agents list ?");
}

TEST_F(CustomerOps, ModifyChangesOnlyTheRowsOfTheSameLine) {
  booking("Martin", "m@x.fr", "Quiet room");
  booking("Martin", "m@x.fr", "Late arrival");
  booking("Martin", "m@x.fr", "Quiet room");
  booking("Dubois", "m@x.fr", "Quiet room");
  const int changed = Customer_Modify(context(), {"Martin", "m@x.fr", "Quiet room"}, {"Martin", "new@x.fr", "Quiet room"});
  EXPECT_EQ(changed, 2);
  EXPECT_EQ(bookings(), (QStringList{"Martin|new@x.fr|Quiet room", "Martin|m@x.fr|Late arrival",
                                     "Martin|new@x.fr|Quiet room", "Dubois|m@x.fr|Quiet room"}));
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(CustomerOps, OneLineOfTheListIsEveryRowOfItWhateverTheCase) {
  booking("Mr Casse", "c@x.fr", "Quiet");
  booking("MR CASSE", "C@X.FR", "quiet");
  booking("Mr Cassé", "c@x.fr", "Quiet");
  ASSERT_EQ(lines(Dessin_Customer(context(), kRQ_Customer)).size(), 2) << "the file shows the first two as one line";
  EXPECT_EQ(Customer_Modify(context(), {"Mr Casse", "c@x.fr", "Quiet"}, {"Mr Casse", "new@x.fr", "Quiet"}), 2);
  EXPECT_EQ(bookings(), (QStringList{"Mr Casse|new@x.fr|Quiet", "Mr Casse|new@x.fr|Quiet", "Mr Cassé|c@x.fr|Quiet"}));
}

TEST_F(CustomerOps, UnifyTakesNamesAndEmailsThatDifferInCaseAsOne) {
  booking("Mr Casse", "c@x.fr", "Quiet");
  booking("MR CASSE", "C@X.FR", "Sea view");
  messages.answer(MsgAnswer::Yes);
  Customer_Merge(context(), kRQ_Customer, MergeChoice::Leave);
  const QStringList rows = bookings();
  ASSERT_EQ(rows.size(), 2);
  for (const QString& row : rows) {
    const QStringList parts = row.split('|');
    EXPECT_EQ(parts[1].toLower(), "c@x.fr");
    EXPECT_EQ(parts[2].split("\r\n").size(), 2) << row.toStdString();
  }
  Recordset R_TB = Recordset::openTable(db, "Reservation");
  EXPECT_EQ(Customer_Merge_Update(R_TB, "mr casse", "d@x.fr", "Gone"), 2);
}

TEST_F(CustomerOps, ModifyReadsNullAsEmptyAndEditsAGroupLeader) {
  booking("Club Alpin", QVariant(), QVariant(), "L");
  booking("Club Alpin", "", "");
  EXPECT_EQ(Customer_Modify(context(), {"Club Alpin", "", ""}, {"Club Alpin Annecy", "c@a.fr", "Group of 12"}), 2);
  EXPECT_EQ(bookings(), (QStringList{"Club Alpin Annecy|c@a.fr|Group of 12", "Club Alpin Annecy|c@a.fr|Group of 12"}));
}

TEST_F(CustomerOps, ModifyOfAMissingLineSaysSoAndWritesNothing) {
  booking("Martin", "m@x.fr", "Quiet room");
  EXPECT_EQ(Customer_Modify(context(), {"Martin", "", "Quiet room"}, {"X", "", ""}), 0);
  EXPECT_EQ(messages.texts(), QStringList{"The customer cannot be found"});
  EXPECT_EQ(bookings(), QStringList{"Martin|m@x.fr|Quiet room"});
}

TEST_F(CustomerOps, ModifyRefusedByTheStoreLeavesEveryRowAsItWas) {
  booking("Martin", "m@x.fr", "Quiet room");
  booking("Martin", "m@x.fr", "Quiet room");
  // 26 characters: longer than the Nom column takes.
  EXPECT_ANY_THROW(Customer_Modify(context(), {"Martin", "m@x.fr", "Quiet room"},
                                   {QString(26, 'M'), "m@x.fr", "Quiet room"}));
  EXPECT_EQ(bookings(), (QStringList{"Martin|m@x.fr|Quiet room", "Martin|m@x.fr|Quiet room"}));
}

TEST_F(CustomerOps, UnifyDropsARemarkAlreadyInTheGroupedText) {
  booking("Martin", "m@x.fr", "Quiet room\r\n");
  booking("Martin", QVariant(), "Quiet room");
  booking("Martin", "m@x.fr", "Late arrival");
  booking("Petit", "p@x.fr", "Alone");
  messages.answer(MsgAnswer::Yes);
  const MergeCounts counts = Customer_Merge(context(), kRQ_Customer, MergeChoice::Leave);
  EXPECT_EQ(counts.updated, 1);
  const QStringList rows = bookings();
  for (int i = 0; i < 3; ++i) {
    const QStringList parts = rows[i].split('|');
    EXPECT_EQ(parts[1], "m@x.fr");
    const QStringList pieces = parts[2].split("\r\n");
    EXPECT_EQ(pieces.size(), 2) << parts[2].toStdString();
    EXPECT_TRUE(pieces.contains("Quiet room") && pieces.contains("Late arrival"));
  }
  EXPECT_EQ(rows[3], "Petit|p@x.fr|Alone");
  EXPECT_EQ(messages.texts().mid(1), (QStringList{"Don't group (number of times) : 0", "Cut the end (number of times) : 0"}));
}

TEST_F(CustomerOps, UnifyKeepsTheLongerOfTwoRemarksWhereOneHoldsTheOther) {
  booking("Martin", "m@x.fr", "Quiet");
  booking("Martin", "m@x.fr", "Quiet room");
  booking("Martin", "m@x.fr", "Sea view");
  messages.answer(MsgAnswer::Yes);
  Customer_Merge(context(), kRQ_Customer, MergeChoice::Leave);
  const QStringList pieces = bookings().first().split('|')[2].split("\r\n");
  EXPECT_EQ(pieces.size(), 2) << pieces.join(" / ").toStdString();
  EXPECT_TRUE(pieces.contains("Quiet room") && pieces.contains("Sea view"));
}

TEST_F(CustomerOps, UnifySaysWhatItWillChangeAndNoLeavesAll) {
  booking("Martin", "m@x.fr", "Quiet");
  booking("Martin", "m@x.fr", "Sea view");
  booking("Martin", "m@x.fr", "Sea view");
  booking("Petit", "", "A");
  booking("Petit", "p@x.fr", "A");
  booking("Zola", "z@x.fr", "Alone");
  const QStringList original = bookings();
  messages.answer(MsgAnswer::No);
  EXPECT_EQ(Customer_Merge(context(), kRQ_Customer, MergeChoice::Leave).updated, 0);
  ASSERT_EQ(messages.shown().size(), 1u) << "no counts after No";
  // Every Martin row and Petit's row without an e-mail: 2 customers, 4 bookings.
  EXPECT_EQ(messages.last().text, "Unify will change the e-mail or the remark of 2 customers, on 4 bookings.\r\n\r\n"
                                  "Do you want to continue ?");
  EXPECT_EQ(messages.last().preselected, MsgAnswer::No);
  EXPECT_EQ(bookings(), original);
}

TEST_F(CustomerOps, UnifyGivesAnEmailToTheRowsWithout) {
  booking("Martin", QVariant(), "Quiet room");
  booking("Martin", "m@x.fr", "Quiet room");
  messages.answer(MsgAnswer::Yes);
  Customer_Merge(context(), kRQ_Customer, MergeChoice::Leave);
  EXPECT_EQ(bookings(), (QStringList{"Martin|m@x.fr|Quiet room", "Martin|m@x.fr|Quiet room"}));
}

TEST_F(CustomerOps, TwoRunsOfOneNameEndWithTheSecondRunOnAllTheirRows) {
  booking("Martin", "a@x.fr", "One");
  booking("Martin", "a@x.fr", "Two");
  booking("Martin", "b@x.fr", "Three");
  booking("Martin", "b@x.fr", "Four");
  const QList<CustomerRow> before = Dessin_Customer(context(), kRQ_Customer);
  ASSERT_EQ(before.size(), 4);
  ASSERT_TRUE(before[0].Email == before[1].Email && before[2].Email == before[3].Email && before[1].Email != before[2].Email)
      << "the list is expected to keep the lines of one e-mail together";
  messages.answer(MsgAnswer::Yes);
  Customer_Merge(context(), kRQ_Customer, MergeChoice::Leave);
  const QString expected = "Martin|" + before[2].Email + "|" + before[2].Remarque + "\r\n" + before[3].Remarque;
  EXPECT_EQ(bookings(), (QStringList{expected, expected, expected, expected}));
}

TEST_F(CustomerOps, CutTrimsA251CharacterRemarkTo250AndCountsIt) {
  const QString a(200, 'a'), b(49, 'b');
  booking("Martin", "m@x.fr", a);
  booking("Martin", "m@x.fr", b);
  const QList<CustomerRow> before = Dessin_Customer(context(), kRQ_Customer);
  const QString grouped = before[0].Remarque + "\r\n" + before[1].Remarque;
  ASSERT_EQ(grouped.size(), 251);
  messages.answer(MsgAnswer::Yes);
  const MergeCounts counts = Customer_Merge(context(), kRQ_Customer, MergeChoice::Cut);
  EXPECT_EQ(counts.cut, 1);
  EXPECT_EQ(counts.left, 0);
  const QString expected = "Martin|m@x.fr|" + grouped.left(250);
  EXPECT_EQ(bookings(), (QStringList{expected, expected}));
  EXPECT_EQ(messages.texts().mid(1), (QStringList{"Don't group (number of times) : 0", "Cut the end (number of times) : 1"}));
}

TEST_F(CustomerOps, LeaveKeepsALongRunAndStopEndsTheWalk) {
  booking("Aubert", "a@x.fr", QString(200, 'a'));
  booking("Aubert", "a@x.fr", QString(100, 'b'));
  booking("Zola", QVariant(), "One");
  booking("Zola", "z@x.fr", "Two");
  const QStringList original = bookings();

  Customer_Merge(context(), kRQ_Customer, MergeChoice::Stopper);
  EXPECT_EQ(bookings(), original) << "Stop must end before Zola's run";

  messages.clear();
  messages.answer(MsgAnswer::Yes);
  const MergeCounts counts = Customer_Merge(context(), kRQ_Customer, MergeChoice::Leave);
  EXPECT_EQ(counts.left, 1);
  const QStringList rows = bookings();
  EXPECT_EQ(rows.mid(0, 2), original.mid(0, 2));
  EXPECT_TRUE(rows[2].startsWith("Zola|z@x.fr|"));
  EXPECT_EQ(rows[2], rows[3]);
  EXPECT_EQ(messages.texts().value(1), "Don't group (number of times) : 1");
}

TEST_F(CustomerOps, UnifyOfASingleLineDoesNothing) {
  booking("Martin", "m@x.fr", "Quiet room");
  booking("Martin", "m@x.fr", "Quiet room");
  Customer_Merge(context(), kRQ_Customer, MergeChoice::Cut);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(CustomerOps, ExportWritesTheFileByteForByte) {
  booking("Martin", "m@x.fr", "Quiet room\r\nLate arrival");
  booking("Hélène", QVariant(), "Line\nbreak");
  booking("Agence Sud", "a@sud.fr", "Tours", "A");
  messages.answer(MsgAnswer::Ok);
  ASSERT_TRUE(Customer_Export(context(), kRQ_Customer));
  EXPECT_EQ(messages.last().buttons, MsgButtons::OkCancel);
  // The box names the folder the file goes to, not a "current folder".
  EXPECT_TRUE(messages.last().text.startsWith("The Customers will be exported in the file Ksv_Customers.txt\r\n\r\n"
                                              "-  in the folder " + folder() + "\r\n"))
      << messages.last().text.toStdString();
  EXPECT_TRUE(messages.last().text.contains("the character \"\\\"  as zone separator"));
  QFile file(folder() + "/Ksv_Customers.txt");
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), QByteArray("H\xc3\xa9l\xc3\xa8ne \\  \\ Line;break;\r\n"
                                       "Martin \\ m@x.fr \\ Quiet room;Late arrival;\r\n"));
}

TEST_F(CustomerOps, ExportNamesTheFileByLanguageAndListAndReplacesIt) {
  booking("Agence Sud", "a@sud.fr", "Tours", "A");
  EXPECT_EQ(customerExportFileName(kRQ_Customer, Texts(0)), "Ksv_Customers.txt");
  EXPECT_EQ(customerExportFileName(kRQ_Customer, Texts(1000)), "Ksv_Clients.txt");
  EXPECT_EQ(customerExportFileName(kRQ_Agent, Texts(1000)), "Ksv_Agents.txt");
  {
    QFile old(folder() + "/Ksv_Agents.txt");
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write(QByteArray(500, 'x'));
  }
  messages.answer(MsgAnswer::Ok);
  ASSERT_TRUE(Customer_Export(context(), kRQ_Agent));
  EXPECT_TRUE(messages.last().text.startsWith("The Agents will be exported in the file Ksv_Agents.txt\r\n"));
  QFile file(folder() + "/Ksv_Agents.txt");
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), QByteArray("Agence Sud \\ a@sud.fr \\ Tours;\r\n"));
}

TEST_F(CustomerOps, ExportCancelledWritesNothing) {
  booking("Martin");
  messages.answer(MsgAnswer::Cancel);
  EXPECT_FALSE(Customer_Export(context(), kRQ_Customer));
  EXPECT_FALSE(QFile::exists(folder() + "/Ksv_Customers.txt"));
}

TEST_F(CustomerOps, ExportIntoAFolderThatCannotTakeTheFileSaysSo) {
  booking("Martin");
  paths.setPlanningDir(folder() + "/missing");
  messages.answer(MsgAnswer::Ok);
  EXPECT_FALSE(Customer_Export(context(), kRQ_Customer));
  EXPECT_EQ(messages.last().icon, MsgIcon::Critical);
  EXPECT_TRUE(messages.last().text.startsWith("The file " + folder() + "/missing/Ksv_Customers.txt cannot be written."));
}
