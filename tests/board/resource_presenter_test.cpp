#include <gtest/gtest.h>

#include "board/resource_presenter.h"
#include "config/charger_param.h"
#include "config/ini_file.h"
#include "core/texts.h"
#include "support/scripted_messages.h"
#include "support/test_planning.h"

using namespace ksv;

namespace {

class ResourceTest : public ::testing::Test {
 protected:
  ResourceTest()
      : ini_(planning_.paths().iniFile()),
        options_(Charger_Param(ini_, planning_.clock())),
        commands_(planning_.db(), planning_.objects(), options_, messages_, texts_) {
    planning_.addResource("Room 1", 0, 1);
    planning_.addResource("Room 2", 1, 3);
    planning_.addResource("Room 3", 2, 5);
    commands_.showDialog = [this](ResourcePresenter& p) {
      ++dialogs_;
      mode_ = p.mode();
      if (!typed_) return;  // the operator cancels
      p.Res_Modif = *typed_;
      if (category_) p.Category_Click(*category_);
      p.OK_Click();
    };
    commands_.Redraw = [this](const QString& what) { redraws_ += what; };
  }

  void pressOn(int row) {
    commands_.ResIndex = row;
    Recordset& rs = planning_.objects().RQ_Resource;
    rs.requery();
    if (row + 1 > rs.recordCount()) {
      commands_.SelResource.clear();
      return;
    }
    rs.setAbsolutePosition(row + 1);
    commands_.SelResource = rs.field("Resource").toString();
    commands_.ResColor = rs.field("Color").toInt();
    commands_.ResOrder = rs.field("Order").toInt();
  }
  QStringList rows() {
    QStringList out;
    Recordset& rs = planning_.objects().RQ_Resource;
    rs.requery();
    for (rs.moveFirst(); !rs.isEOF(); rs.moveNext())
      out << rs.field("Resource").toString() + ":" + rs.field("Order").toString();
    return out;
  }

  test::TestPlanning planning_;
  test::ScriptedMessages messages_;
  Texts texts_{0};
  IniFile ini_;
  LoadedOptions options_;
  ResourceCommands commands_;
  std::optional<QString> typed_;
  std::optional<int> category_;
  int dialogs_ = 0;
  char mode_ = 0;
  QString redraws_;
};

TEST_F(ResourceTest, TheDialogNamesItsActionAndRefusesAnEmptyName) {
  ResourcePresenter add('A', "", 5, options_, messages_, texts_);
  EXPECT_EQ(add.actionCaption(), "&Add");
  EXPECT_FALSE(add.nameLocked());
  EXPECT_EQ(add.Category()[1].caption, options_.Categorie.value(1));
  EXPECT_FALSE(add.OK_Click());
  EXPECT_EQ(messages_.last().text, "The resource must be defined");
  EXPECT_FALSE(add.Result);
  add.Category_Click(2);
  EXPECT_EQ(add.nameBack(), options_.CategoryBack[2]);

  ResourcePresenter del('D', "Room 1", 0, options_, messages_, texts_);
  EXPECT_EQ(del.actionCaption(), "&Delete");
  EXPECT_TRUE(del.nameLocked());
  messages_.answer(MsgAnswer::No);
  EXPECT_FALSE(del.OK_Click());  // the dialog stays
  EXPECT_EQ(messages_.last().preselected, MsgAnswer::No);
  EXPECT_EQ(messages_.last().text,
            "Bookings using this resource will also be deleted\r\n\r\nDo you really want to delete this resource ?");
}

TEST_F(ResourceTest, AddingPutsTheRowAbovThePressedOneOrAtTheEndFromABlankRow) {
  pressOn(1);
  typed_ = "Suite";
  commands_.R_Add_Click();
  EXPECT_EQ(mode_, 'A');
  EXPECT_EQ(rows(), (QStringList{"Room 1:1", "Suite:3", "Room 2:5", "Room 3:7"}));
  EXPECT_EQ(redraws_, "R");

  pressOn(7);  // blank row
  typed_ = "Annex*";
  category_ = 3;
  commands_.R_Add_Click();
  EXPECT_EQ(rows().last(), "Annex*:9");
  EXPECT_EQ(planning_.db().scalar("SELECT Color FROM Resource WHERE Resource = 'Annex*'").toInt(), 3);
}

TEST_F(ResourceTest, ANameIsRefusedInAnyCaseOfLetters) {
  pressOn(0);
  typed_ = "ROOM 2";
  commands_.R_Add_Click();
  EXPECT_EQ(messages_.last().text, "This resource already exist");
  EXPECT_EQ(rows().size(), 3);

  pressOn(0);
  commands_.R_Modify_Click();
  EXPECT_EQ(messages_.last().text, "This resource already exist");
  EXPECT_EQ(rows().first(), "Room 1:1");
}

TEST_F(ResourceTest, RenamingMovesEveryBookingOfTheOldNameAfterTheQuestion) {
  planning_.addBooking("Room 2", QDate(2025, 3, 1), QDate(2025, 3, 4), "Martin");
  planning_.addBooking("Room 2", QDate(2025, 3, 5), QDate(2025, 3, 8), "Durand");
  planning_.addBooking("Room 3", QDate(2025, 3, 5), QDate(2025, 3, 8), "Other");
  pressOn(1);
  typed_ = "Garden";
  messages_.answer(MsgAnswer::No);
  commands_.R_Modify_Click();
  EXPECT_EQ(messages_.last().preselected, MsgAnswer::No);
  EXPECT_EQ(rows().at(1), "Room 2:3");

  messages_.answer(MsgAnswer::Yes);
  commands_.R_Modify_Click();
  EXPECT_EQ(rows().at(1), "Garden:3");
  EXPECT_EQ(planning_.db().scalar("SELECT COUNT(*) FROM Reservation WHERE Resource = 'Garden'").toInt(), 2);
  EXPECT_EQ(planning_.db().scalar("SELECT COUNT(*) FROM Reservation WHERE Resource = 'Room 3'").toInt(), 1);

  // A new category alone asks nothing.
  pressOn(2);
  typed_ = "Room 3";
  category_ = 4;
  messages_.clear();
  commands_.R_Modify_Click();
  EXPECT_TRUE(messages_.shown().empty());
  EXPECT_EQ(planning_.db().scalar("SELECT Color FROM Resource WHERE Resource = 'Room 3'").toInt(), 4);
}

TEST_F(ResourceTest, DeletingTakesTheBookingsAndTheirInvoicesWithIt) {
  planning_.addBooking("Room 2", QDate(2025, 3, 1), QDate(2025, 3, 4), "Martin", {{"InvNb", -3}});
  planning_.addBooking("Room 2", QDate(2025, 3, 5), QDate(2025, 3, 8), "Durand");
  planning_.addBooking("Room 1", QDate(2025, 3, 5), QDate(2025, 3, 8), "Kept", {{"InvNb", 12}});
  QStringList invoices;
  commands_.clearInvoiceLink = [&](const QString& n) { invoices << n; };
  pressOn(1);
  typed_ = "Room 2";
  messages_.answer(MsgAnswer::Yes);
  commands_.R_Delete_Click();
  EXPECT_EQ(mode_, 'D');
  EXPECT_EQ(invoices, QStringList{"-3"});
  EXPECT_EQ(rows(), (QStringList{"Room 1:1", "Room 3:5"}));
  EXPECT_EQ(planning_.db().scalar("SELECT COUNT(*) FROM Reservation").toInt(), 1);

  // Cancelled: nothing happens.
  typed_.reset();
  pressOn(0);
  commands_.R_Delete_Click();
  EXPECT_EQ(rows().size(), 2);
}

TEST_F(ResourceTest, UpAndDownSwapWithTheNeighbourAndRenumber) {
  pressOn(2);
  commands_.R_Up_Click();
  EXPECT_EQ(rows(), (QStringList{"Room 1:1", "Room 3:3", "Room 2:5"}));
  pressOn(0);
  commands_.R_Down_Click();
  EXPECT_EQ(rows(), (QStringList{"Room 3:1", "Room 1:3", "Room 2:5"}));
  pressOn(0);
  commands_.R_Up_Click();  // at the top: no visible effect
  EXPECT_EQ(rows(), (QStringList{"Room 3:1", "Room 1:3", "Room 2:5"}));
  EXPECT_EQ(dialogs_, 0);
}

}  // namespace
