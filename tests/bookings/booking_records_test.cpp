// The booking records: what each write leaves in the file, the invoice link,
// the search for a moved booking and for the other part of a split one.
#include "bookings/booking_records.h"

#include "support/test_planning.h"
#include "storage/recordset.h"

using namespace ksv;
using namespace ksv::test;

namespace {

QDate day(int d, int m = 7) { return QDate(2024, m, d); }
// Every column a booking row holds.
const QString kAll = "Nom/Resource/Date_Deb/Date_Fin/Split/InvNb/Email/Remarque/HowMany/Blocage/Couleur/GroupId/GroupNb";

class BookingRecordsTest : public PlanningTest {
 protected:
  BookingRecordsTest() : PlanningTest(QDate(2024, 6, 15)) {}
  void SetUp() override {
    records_ = std::make_unique<BookingRecords>(plan.db(), plan.clock(), messages, texts);
  }

  // The board view over July 2024 for rooms 101 and 102, and the whole table.
  void openRecordsets() {
    QVariantList params{day(1), day(31), QString("101"), QString("102")};
    while (params.size() < 42) params << QString("");
    QueryCommand board = QueryCatalogue(plan.db(), plan.clock()).command("RQ_Reservation");
    board.setParameters(params);
    rs_ = board.openRecordset();
    rtb_ = Recordset::openTable(plan.db(), "Reservation");
    records_->setRecordsets(&rs_, &rtb_);
  }

  // The buffer of a new whole booking.
  void fill(const QString& resource, QDate first, QDate last, const QString& nom) {
    BookingRecords& b = *records_;
    b.Res_L = resource;
    b.DD_L = first;
    b.DF_L = last;
    b.Nom_L = nom;
    b.Email_L = "";
    b.Rem_L = "";
    b.HowMany_L = 2;
    b.InvNb_L = "";
    b.Split_L = "0";
    b.Bloc_L = false;
    b.Color_L = 1;
    b.GroupId_L = "C";
    b.GroupNb_L = 0;
  }

  // Clicks the booking at `position` of the board view.
  void click(int position) {
    records_->I_L = qint16(position);
    records_->readClickedBooking();
  }

  // Where a stored row sits in the board view.
  int positionOf(qint64 rowid) {
    for (rs_.moveFirst(); !rs_.isEOF(); rs_.moveNext())
      if (rs_.rowId() == rowid) return rs_.absolutePosition() - 1;
    ADD_FAILURE() << "row " << rowid << " not in view";
    return 0;
  }

  std::unique_ptr<BookingRecords> records_;
  Recordset rs_, rtb_;
};

TEST_F(BookingRecordsTest, CreateWritesTheBufferAndLeavesABlankInvoiceNull) {
  openRecordsets();
  fill("101", day(10), day(12), "Martin");
  records_->Email_L = "martin@example.org";
  records_->Rem_L = "Late arrival\r\nCot";
  records_->Bloc_L = true;
  records_->GroupNb_L = 4;
  records_->Creer_Reservation();

  EXPECT_EQ(plan.rows(kAll), QStringList{"Martin/101/2024-07-10/2024-07-12/0/<null>/martin@example.org/"
                                          "Late arrival\r\nCot/2/1/1/C/4"});

  // With a number the link is written.
  fill("102", day(10), day(12), "Durand");
  records_->InvNb_L = "-3";
  records_->Creer_Reservation();
  EXPECT_EQ(plan.rows("Nom/InvNb").value(1), "Durand/-3");
}

TEST_F(BookingRecordsTest, ReadingAClickedBookingTurnsNullsIntoEmptyTexts) {
  plan.addBooking("101", day(5), day(8), "Nulls", {{"Email", QVariant()}, {"Remarque", QVariant()}, {"Couleur", 3}});
  plan.addBooking("102", day(9), day(11), "Filled",
          {{"Email", "a@b.c"}, {"Remarque", ""}, {"InvNb", 21}, {"Split", "1"}, {"Blocage", true}, {"GroupNb", 2}});
  openRecordsets();

  // The buffer as "Nom/Email/Rem/InvNb/Color/Split/Bloc/GroupNb/Res_S/DD_S/DF_S".
  const auto buffer = [&] {
    const BookingRecords& r = *records_;
    return QStringList{r.Nom_L, r.Email_L, r.Rem_L, r.InvNb_L, QString::number(r.Color_L), r.Split_L,
                       QString::number(r.Bloc_L), QString::number(r.GroupNb_L), r.Res_S,
                       r.DD_S.toString(Qt::ISODate), r.DF_S.toString(Qt::ISODate)}.join('/');
  };
  click(0);
  EXPECT_EQ(buffer(), "Nulls////3/0/0/0/101/2024-07-05/2024-07-08");
  click(1);
  EXPECT_EQ(buffer(), "Filled/a@b.c//21/0/1/1/2/102/2024-07-09/2024-07-11");
}

TEST_F(BookingRecordsTest, OnlyTheInvoiceOperationsClearTheLink) {
  const qint64 id = plan.addBooking("101", day(5), day(8), "Linked", {{"InvNb", 12}});
  openRecordsets();
  click(0);

  // A blank number in the buffer never clears the stored one.
  records_->InvNb_L = "";
  records_->Nom_L = "Linked again";
  records_->MAJ_Reservation();
  EXPECT_EQ(plan.stored(id, "InvNb"), "12");
  EXPECT_EQ(plan.stored(id, "Nom"), "Linked again");

  records_->InvNb_L = "-7";
  records_->MAJ_Reservation();
  EXPECT_EQ(plan.stored(id, "InvNb"), "-7");

  records_->UpdateInvNbReservation("  ");
  EXPECT_EQ(plan.stored(id, "InvNb"), "<null>");
  records_->UpdateInvNbReservation("30");
  EXPECT_EQ(plan.stored(id, "InvNb"), "30");
}

TEST_F(BookingRecordsTest, MovedBookingIsFoundByItsOldIdentityAndRewritten) {
  plan.addBooking("101", day(5), day(8), "Twin");
  const qint64 first = plan.addBooking("101", day(10), day(12), "Twin");
  const qint64 second = plan.addBooking("101", day(10), day(12), "Twin");
  openRecordsets();
  click(1);

  // Dropped on room 102 three days later: the first identical row takes it.
  records_->Res_L = "102";
  records_->DD_L = day(13);
  records_->DF_L = day(15);
  records_->MAJ_Recherche();
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(plan.stored(first, "Resource"), "102");
  EXPECT_EQ(plan.stored(first, "Date_Deb"), "2024-07-13");
  EXPECT_EQ(plan.stored(second, "Resource"), "101");
  EXPECT_EQ(plan.stored(second, "Date_Deb"), "2024-07-10");
}

TEST_F(BookingRecordsTest, MovedBookingChangedUnderTheDragIsLeftAsStored) {
  const qint64 id = plan.addBooking("101", day(10), day(12), "Moving");
  openRecordsets();
  click(0);
  // Another path changes the row while it is dragged.
  plan.db().execute("UPDATE Reservation SET Date_Fin = '2024-07-14'");

  records_->Res_L = "102";
  records_->MAJ_Recherche();
  EXPECT_EQ(messages.texts(), QStringList{"Cannot recover the moved booking"});
  EXPECT_EQ(plan.rows("Nom/Resource/Date_Deb/Date_Fin/Split/InvNb"), QStringList{"Moving/101/2024-07-10/2024-07-14/0/<null>"});
  (void)id;
}

TEST_F(BookingRecordsTest, SplitPartsFindEachOtherAndShareTheInvoice) {
  plan.addBooking("101", day(1), day(4), "Split", {{"Split", "2"}, {"Couleur", 2}});  // another stay, not touching
  const qint64 one = plan.addBooking("101", day(10), day(12), "Split", {{"Split", "1"}, {"Couleur", 2}});
  plan.addBooking("102", day(12), day(15), "Split", {{"Split", "2"}, {"Couleur", 4}});  // other colour
  const qint64 two = plan.addBooking("102", day(12), day(15), "Split", {{"Split", "2"}, {"Couleur", 2}});
  openRecordsets();

  click(positionOf(one));
  ASSERT_EQ(records_->Split_L, "1");
  records_->Found_Other_SplitPart();
  ASSERT_TRUE(records_->Flg_OkCl);
  EXPECT_EQ(rtb_.rowId(), two);
  records_->UpdateInvNbReservationSplit("-5");
  EXPECT_EQ(plan.stored(one, "InvNb"), "-5");
  EXPECT_EQ(plan.stored(two, "InvNb"), "-5");
  EXPECT_EQ(plan.stored(two - 1, "InvNb"), "<null>");

  // From part 2 back to part 1.
  click(positionOf(two));
  ASSERT_EQ(records_->Split_L, "2");
  records_->Found_Other_SplitPart();
  ASSERT_TRUE(records_->Flg_OkCl);
  EXPECT_EQ(rtb_.rowId(), one);

  // Merging back: the clicked part grows, the other one goes.
  records_->DD_L = day(10);
  records_->Split_L = "0";
  records_->MAJ_Reservation();
  records_->Delete_Split();
  EXPECT_EQ(plan.count("Reservation"), 3);
  EXPECT_EQ(plan.stored(two, "Date_Deb"), "2024-07-10");
  EXPECT_EQ(plan.stored(two, "Split"), "0");
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(BookingRecordsTest, SplitPartWhosePartnerNoLongerTouchesBecomesWhole) {
  const qint64 one = plan.addBooking("101", day(10), day(12), "Alone", {{"Split", "1"}});
  plan.addBooking("102", day(13), day(15), "Alone", {{"Split", "2"}});  // moved by hand
  openRecordsets();
  int redraws = 0;
  records_->Dessiner_Ecran = [&] { ++redraws; };

  click(0);
  records_->Flg_OkCl = true;
  records_->Found_Other_SplitPart();
  EXPECT_FALSE(records_->Flg_OkCl);
  EXPECT_EQ(messages.texts(), QStringList{"The other split part cannot be found\r\nWe are going to forget it"});
  EXPECT_EQ(records_->Split_L, "0");
  EXPECT_EQ(plan.stored(one, "Split"), "0");
  EXPECT_EQ(redraws, 1);
}

TEST_F(BookingRecordsTest, PartsWrittenThroughTheViewAreFoundInTheWholeTable) {
  // The whole table was read before the split was made.
  openRecordsets();
  fill("101", day(10), day(12), "Fresh");
  records_->Split_L = "1";
  records_->Creer_Reservation();
  fill("102", day(12), day(14), "Fresh");
  records_->Split_L = "2";
  records_->Creer_Reservation();

  records_->Split_L = "1";
  records_->DD_L = day(10);
  records_->DF_L = day(12);
  records_->Found_Other_SplitPart();
  EXPECT_TRUE(records_->Flg_OkCl);
  EXPECT_EQ(rtb_.field("Resource").toString(), "102");
}

TEST_F(BookingRecordsTest, PendingNumberTurnsFinalOnEveryBookingOfTheInvoice) {
  const qint64 a = plan.addBooking("101", day(10), day(12), "A", {{"InvNb", -3}});
  const qint64 b = plan.addBooking("102", day(12), day(15), "A", {{"InvNb", -3}, {"GroupId", "L"}, {"Split", "3"}});
  const qint64 other = plan.addBooking("101", day(20), day(22), "B", {{"InvNb", -4}});
  const qint64 none = plan.addBooking("102", day(20), day(22), "C");
  openRecordsets();

  records_->UpdateInvNbInReservation(-3, "118");
  EXPECT_EQ(plan.stored(a, "InvNb"), "118");
  EXPECT_EQ(plan.stored(b, "InvNb"), "118");
  EXPECT_EQ(plan.stored(other, "InvNb"), "-4");
  EXPECT_EQ(plan.stored(none, "InvNb"), "<null>");

  records_->UpdateInvNbInReservation(118, "");
  EXPECT_EQ(plan.stored(a, "InvNb"), "<null>");
  EXPECT_EQ(plan.stored(b, "InvNb"), "<null>");
}

TEST_F(BookingRecordsTest, OnlyAGroupHeaderTakesTheBlankResource) {
  openRecordsets();
  fill("", day(10), day(12), "Choir");
  records_->Split_L = "3";
  records_->GroupId_L = "L";
  records_->GroupNb_L = 1;
  records_->Creer_Reservation();
  EXPECT_EQ(plan.db().scalar("SELECT Resource FROM Reservation WHERE Nom = 'Choir'").toString(), " ");

  // A stay without resource is refused rather than hidden on the blank.
  fill("", day(10), day(12), "Nowhere");
  EXPECT_THROW(records_->Creer_Reservation(), StorageError);
  EXPECT_EQ(plan.rows("Nom/Resource/Date_Deb/Date_Fin/Split/InvNb"), QStringList{"Choir/ /2024-07-10/2024-07-12/3/<null>"});
}

TEST_F(BookingRecordsTest, RefusedValueWritesNothingAndLeavesNoEditBehind) {
  const qint64 id = plan.addBooking("101", day(5), day(8), "Short");
  openRecordsets();
  click(0);
  records_->Nom_L = QString(26, 'x');  // one character over the column
  EXPECT_THROW(records_->MAJ_Reservation(), StorageError);
  EXPECT_EQ(plan.stored(id, "Nom"), "Short");
  EXPECT_FALSE(rs_.isEditing());

  // The next operation works on clean ground.
  records_->Nom_L = "Short";
  records_->Color_L = 4;
  records_->MAJ_Reservation();
  EXPECT_EQ(plan.stored(id, "Couleur"), "4");
}

}  // namespace
