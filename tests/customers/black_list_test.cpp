#include "support/customer_planning.h"
#include "customers/black_list.h"
#include "customers/customer_update.h"
#include "storage/query_command.h"
#include "storage/recordset.h"

using namespace ksv;

namespace {

class BlackListTest : public test::CustomerPlanning {
 protected:
  void SetUp() override {
    list = QueryCatalogue(db, clock).command("BlackList").openRecordset();
  }
  QStringList table() {
    QStringList out;
    Statement st = db.prepare("SELECT Nom, Remark FROM T_BlackList ORDER BY Nom, Remark");
    while (st.step()) out << st.column(0).toString() + "|" + st.column(1).toString();
    return out;
  }
  // A presenter whose BlackListUpdate dialog types `nom` and `remark` and
  // presses OK (or Cancel).
  BlackListPresenter presenter(const QString& nom = {}, const QString& remark = {}, bool ok = true) {
    BlackListPresenter p(context(), list);
    p.showBlackListUpdate = [this, nom, remark, ok](BlackListUpdatePresenter& u) {
      captions << u.okCaption();
      readOnly << u.readOnly();
      if (u.mode != BlackListMode::Delete) {
        u.Nom = nom;
        u.Remark = remark;
      }
      if (!ok) {
        u.Cancel_Click();
        return false;
      }
      u.OK_Click();
      return u.closed;
    };
    return p;
  }
  Recordset list;
  QStringList captions;
  QList<bool> readOnly;
};

}  // namespace

TEST_F(BlackListTest, ShowsTheRowsInTheOrderOfTheName) {
  plan.addBlackList("Zorro", "Broke a lamp");
  plan.addBlackList("Arnaud", "Did not pay");
  BlackListPresenter p(context(), list);
  p.M_BlackList_Click();
  EXPECT_EQ(p.columnTitles(), (QStringList{"Black List", "Remark"}));
  ASSERT_EQ(p.allRows().size(), 2);
  EXPECT_EQ(p.allRows()[0], (BlackListRow{"Arnaud", "Did not pay"}));
  p.planningName = "Hotel";
  EXPECT_EQ(p.printedList().heading, "Black List - Hotel");
  EXPECT_EQ(p.printedList().rows.size(), 2);
}

TEST_F(BlackListTest, SearchMatchesTheWholeNameWithoutRegardToCase) {
  plan.addBlackList("DURAND", "Did not pay");
  plan.addBlackList("Durand", "Noisy");
  plan.addBlackList("Duran", "Other");
  QString remark;
  EXPECT_TRUE(Search_BlackList(list, "durand", remark));
  list.moveFirst();
  while (!list.isEOF() && list.field("Nom").toString().toLower() != "durand") list.moveNext();
  EXPECT_EQ(remark, list.field("Remark").toString()) << "the first row in the list's order";
  remark = "untouched";
  EXPECT_FALSE(Search_BlackList(list, "Dura", remark));
  EXPECT_FALSE(Search_BlackList(list, "Durand Paul", remark));
  EXPECT_EQ(remark, "untouched");
}

TEST_F(BlackListTest, AddTakesTheSameNameWithAnotherRemarkButNotTwiceTheSame) {
  plan.addBlackList("Durand", "Did not pay");
  auto p = presenter("Durand", "Noisy");
  p.Dessin_BlackList();
  p.Add_Click();
  EXPECT_EQ(captions, QStringList{"&Add"});
  EXPECT_EQ(table(), (QStringList{"Durand|Did not pay", "Durand|Noisy"}));
  EXPECT_EQ(p.allRows().size(), 2);
  ASSERT_TRUE(p.selected());
  EXPECT_EQ(p.selected()->Remark, "Noisy");

  p.Add_Click();
  EXPECT_EQ(messages.texts(), QStringList{"This customer name is already in the Black List"});
  EXPECT_EQ(table().size(), 2);
}

TEST_F(BlackListTest, AnEmptyNameIsRefusedAndTheDialogStaysOpen) {
  BlackListUpdatePresenter u(messages, texts, BlackListMode::Add);
  u.Nom = "  ";
  u.OK_Click();
  EXPECT_FALSE(u.closed);
  EXPECT_EQ(messages.texts(), QStringList{"The customer name cannot be empty"});
  u.Nom = "Durand";
  u.OK_Click();
  EXPECT_TRUE(u.closed && u.changed);
}

TEST_F(BlackListTest, NamesAreStoredAndFoundWithoutTheirBlanks) {
  plan.addBlackList("Dupré ", "Old row typed with a blank");
  QString remark;
  EXPECT_TRUE(Search_BlackList(list, " dupré", remark));
  EXPECT_EQ(remark, "Old row typed with a blank");

  auto p = presenter("  Martin ", "Rude");
  p.Dessin_BlackList();
  p.Add_Click();
  EXPECT_EQ(table(), (QStringList{"Dupré |Old row typed with a blank", "Martin|Rude"}));

  CustomerUpdatePresenter customer(messages, texts);
  customer.load("Martin", "", "");
  customer.Nom = "Martin ";
  customer.OK_Click();
  EXPECT_EQ(customer.Nom, "Martin");
  EXPECT_FALSE(customer.changed) << "a trailing blank is no change";
}

TEST_F(BlackListTest, ARowDifferingOnlyInCaseIsADuplicateButMayBeRecased) {
  plan.addBlackList("Durand", "Did not pay");
  auto p = presenter("DURAND", "did not pay");
  p.Dessin_BlackList();
  p.Add_Click();
  EXPECT_EQ(messages.texts(), QStringList{"This customer name is already in the Black List"});
  p.N_Add_BL = "durand";
  p.R_Add_BL = "DID NOT PAY";
  EXPECT_FALSE(p.BlackList_Add_Commun());
  EXPECT_EQ(table(), QStringList{"Durand|Did not pay"});

  messages.clear();
  EXPECT_TRUE(p.BlackList_Modify({"Durand", "Did not pay"}, {"DURAND", "Did not pay"}));
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(table(), QStringList{"DURAND|Did not pay"});
}

TEST_F(BlackListTest, AddFromElsewhereAsksWithNoPreselected) {
  plan.addBlackList("Durand", "Did not pay");
  BlackListPresenter p(context(), list);
  p.N_Add_BL = "Durand";
  p.R_Add_BL = "Did not pay";
  EXPECT_FALSE(p.BlackList_Add_Commun());
  EXPECT_EQ(messages.texts(), QStringList{"This customer name is already in the Black List"});

  messages.clear();
  p.N_Add_BL = "Martin";
  p.R_Add_BL = "Rude";
  messages.answer(MsgAnswer::No);
  EXPECT_FALSE(p.BlackList_Add_Commun());
  EXPECT_EQ(messages.last().text, "Do you really want to add this customer in the Black List ?");
  EXPECT_EQ(messages.last().preselected, MsgAnswer::No);
  EXPECT_EQ(table().size(), 1);

  messages.answer(MsgAnswer::Yes);
  EXPECT_TRUE(p.BlackList_Add_Commun());
  EXPECT_EQ(table(), (QStringList{"Durand|Did not pay", "Martin|Rude"}));
  QString remark;
  EXPECT_TRUE(Search_BlackList(list, "MARTIN", remark));
  EXPECT_EQ(remark, "Rude");
}

TEST_F(BlackListTest, ModifyWritesTheRowAndLeavesTheBookings) {
  booking("Durand", "d@x.fr", "Room 3");
  plan.addBlackList("Durand", "Did not pay");
  plan.addBlackList("Martin", "Rude");
  auto p = presenter("Durand Paul", "Did not pay twice");
  p.Dessin_BlackList();
  p.selectRow(0);
  p.Modify_Click();
  EXPECT_EQ(captions, QStringList{"&Modify"});
  EXPECT_EQ(table(), (QStringList{"Durand Paul|Did not pay twice", "Martin|Rude"}));
  EXPECT_EQ(bookings(), QStringList{"Durand|d@x.fr|Room 3"});
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(BlackListTest, ModifyOntoAnotherRowIsRefused) {
  plan.addBlackList("Durand", "Did not pay");
  plan.addBlackList("Martin", "Rude");
  auto p = presenter("Martin", "Rude");
  p.Dessin_BlackList();
  p.selectRow(0);
  p.Modify_Click();
  EXPECT_EQ(messages.texts(), QStringList{"This customer name is already in the Black List"});
  EXPECT_EQ(table(), (QStringList{"Durand|Did not pay", "Martin|Rude"}));
}

TEST_F(BlackListTest, ARowGoneMeanwhileCannotBeFound) {
  plan.addBlackList("Durand", "Did not pay");
  BlackListPresenter p(context(), list);
  p.Dessin_BlackList();
  db.execute("DELETE FROM T_BlackList");
  list.requery();
  EXPECT_FALSE(p.BlackList_Modify({"Durand", "Did not pay"}, {"Durand", "Paid"}));
  EXPECT_EQ(messages.texts(), QStringList{"This Black List entry cannot be found"});
  messages.answer(MsgAnswer::Yes);
  EXPECT_FALSE(p.BlackList_Delete({"Durand", "Did not pay"}));
  EXPECT_EQ(messages.last().text, "This Black List entry cannot be found");
}

TEST_F(BlackListTest, DeleteAsksWithNoPreselectedAndRemovesOnlyThatRow) {
  plan.addBlackList("Durand", "Did not pay");
  plan.addBlackList("Durand", "Noisy");
  auto p = presenter();
  p.Dessin_BlackList();
  p.setSearchText("noisy");
  ASSERT_EQ(p.visibleRows().size(), 1);
  p.selectRow(0);
  messages.answer(MsgAnswer::No);
  p.Delete_Click();
  EXPECT_EQ(captions, QStringList{"&Delete"});
  EXPECT_EQ(readOnly, QList<bool>{true});
  EXPECT_EQ(messages.last().text, "Do you really want to remove this customer from the Black List ?");
  EXPECT_EQ(messages.last().preselected, MsgAnswer::No);
  EXPECT_EQ(table().size(), 2);

  messages.answer(MsgAnswer::Yes);
  p.Delete_Click();
  EXPECT_EQ(table(), QStringList{"Durand|Did not pay"});
  EXPECT_EQ(p.allRows().size(), 1);
}

TEST_F(BlackListTest, CancelChangesNothing) {
  plan.addBlackList("Durand", "Did not pay");
  auto p = presenter("Other", "Other", false);
  p.Dessin_BlackList();
  p.selectRow(0);
  p.Modify_Click();
  p.Add_Click();
  p.Delete_Click();
  EXPECT_EQ(table(), QStringList{"Durand|Did not pay"});
  EXPECT_TRUE(messages.shown().empty());
}
