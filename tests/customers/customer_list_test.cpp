#include "support/customer_planning.h"
#include "customers/customer_list.h"
#include "customers/customer_update.h"
#include "customers/search_fold.h"

using namespace ksv;

namespace {

class CustomerListTest : public test::CustomerPlanning {
 protected:
  QStringList names(const QList<CustomerRow>& rows) {
    QStringList out;
    for (const auto& r : rows) out << r.Nom;
    return out;
  }
};

}  // namespace

TEST(SearchFold, IgnoresCaseAndAccents) {
  EXPECT_TRUE(matchesSearch({"Hélène Lefèvre"}, "helene"));
  EXPECT_TRUE(matchesSearch({"HELENE"}, "hélène"));
  EXPECT_TRUE(matchesSearch({"François Cœur"}, "francois coeur"));
  EXPECT_TRUE(matchesSearch({"", "x@y.fr"}, "Y.FR"));
  EXPECT_TRUE(matchesSearch({"Martin"}, "  "));
  EXPECT_FALSE(matchesSearch({"Martin", "m@x.fr"}, "marty"));
}

TEST_F(CustomerListTest, MenuFillsTheListInForceAndTheSearchFilters) {
  booking("Hélène", "h@x.fr", "Quiet room");
  booking("Martin", "m@x.fr", "Late arrival");
  booking("Agence Sud", QVariant(), "Tours", "A");
  CustomerListPresenter p(context());
  p.M_CustomerList_Click();
  EXPECT_EQ(p.caption(), "Customers");
  EXPECT_TRUE(p.buttonsVisible());
  EXPECT_FALSE(p.copyVisible());
  EXPECT_EQ(names(p.visibleRows()), (QStringList{"Hélène", "Martin"}));
  p.setSearchText("HELENE");
  EXPECT_EQ(names(p.visibleRows()), QStringList{"Hélène"});
  p.setSearchText("late");
  EXPECT_EQ(names(p.visibleRows()), QStringList{"Martin"});
  p.setSearchText("");
  p.M_AgentList_Click();
  EXPECT_EQ(p.caption(), "Agents");
  EXPECT_EQ(names(p.visibleRows()), QStringList{"Agence Sud"});
}

TEST_F(CustomerListTest, FromABookingSelectsTheNameAndCopiesTheLine) {
  booking("Dubois", "d@x.fr", "");
  booking("Martin", "m@x.fr", "Late arrival");
  CustomerListPresenter p(context());
  int unloaded = 0;
  p.unload = [&] { ++unloaded; };
  CustomerCopyTarget target;
  target.Nom = "Martin";
  p.Customer_From_Reservation("Martin", target);
  EXPECT_FALSE(p.buttonsVisible());
  EXPECT_TRUE(p.copyVisible());
  EXPECT_EQ(p.selectedRow, 1);
  EXPECT_EQ(p.oldNom, "Martin");
  p.Copy_Click();
  EXPECT_EQ(target.Email, "m@x.fr");
  EXPECT_EQ(target.Remarque, "Late arrival");
  EXPECT_TRUE(target.Flg_Search);
  EXPECT_EQ(unloaded, 1);
}

TEST_F(CustomerListTest, FromABookingSelectsTheNameWhateverItsCase) {
  booking("Dr Arnaud", "", "");
  booking("dr bellec", "b@x.fr", "");
  CustomerListPresenter p(context());
  CustomerCopyTarget target;
  p.Customer_From_Reservation("Dr Bellec ", target);
  EXPECT_EQ(p.selectedRow, 1);
}

TEST_F(CustomerListTest, ModifyWritesEveryBookingOfTheLineAndKeepsItSelected) {
  booking("Martin", "m@x.fr", "Late arrival");
  booking("Martin", "m@x.fr", "Late arrival");
  booking("Martin", "", "Other");
  CustomerListPresenter p(context());
  int redraws = 0;
  p.redraw = [&] { ++redraws; };
  QString okCaption;
  p.showCustomerUpdate = [&](CustomerUpdatePresenter& u) {
    okCaption = u.okCaption();
    u.Nom = "";
    u.OK_Click();  // refused: stays open
    EXPECT_FALSE(u.closed);
    u.Nom = "Martin";
    u.Email = "new@x.fr";
    u.OK_Click();
    return u.closed;
  };
  p.M_CustomerList_Click();
  ASSERT_EQ(p.visibleRows().size(), 2);
  const int row = p.visibleRows()[0].Remarque == "Late arrival" ? 0 : 1;
  p.selectRow(row);
  p.Modify_Click();
  EXPECT_EQ(okCaption, "&Modify");
  EXPECT_EQ(messages.texts(), QStringList{"The customer name cannot be empty"});
  EXPECT_EQ(bookings(), (QStringList{"Martin|new@x.fr|Late arrival", "Martin|new@x.fr|Late arrival", "Martin||Other"}));
  EXPECT_EQ(redraws, 1);
  ASSERT_TRUE(p.selected());
  EXPECT_EQ(p.selected()->Email, "new@x.fr");
}

TEST_F(CustomerListTest, CancelledDialogsChangeNothing) {
  booking("Martin", "m@x.fr", "A");
  booking("Martin", "", "B");
  const QStringList original = bookings();
  CustomerListPresenter p(context());
  p.showCustomerUpdate = [](CustomerUpdatePresenter& u) {
    u.Nom = "Other";
    u.Cancel_Click();
    return false;
  };
  p.showCustomMerge = [] { return std::optional<MergeChoice>(); };
  p.M_CustomerList_Click();
  p.selectRow(0);
  p.Modify_Click();
  p.Unify_Click();
  EXPECT_EQ(bookings(), original);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(CustomerListTest, UnifyRunsTheChosenMergeAndRefills) {
  booking("Martin", "m@x.fr", "A");
  booking("Martin", "", "B");
  CustomerListPresenter p(context());
  p.showCustomMerge = [] { return std::optional<MergeChoice>(MergeChoice::Cut); };
  p.M_CustomerList_Click();
  ASSERT_EQ(p.visibleRows().size(), 2);
  messages.answer(MsgAnswer::Yes);
  p.Unify_Click();
  EXPECT_EQ(p.visibleRows().size(), 1);
  EXPECT_EQ(p.visibleRows()[0].Email, "m@x.fr");
  EXPECT_EQ(messages.texts().size(), 3);
}

TEST_F(CustomerListTest, AddToBlackListHandsNameAndRemark) {
  booking("Martin", "m@x.fr", "Rude");
  CustomerListPresenter p(context());
  QString nom, remark;
  p.addToBlackList = [&](const QString& n, const QString& r) { nom = n; remark = r; };
  p.M_CustomerList_Click();
  p.selectRow(0);
  p.Add_BL_Click();
  EXPECT_EQ(nom, "Martin");
  EXPECT_EQ(remark, "Rude");
}
