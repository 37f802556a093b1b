// The free-periods window: its grid follows the category and the scroll bar,
// and Cancel hands nothing back.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTimer>

#include "bookings/ui/trous_dialog.h"
#include "support/booking_session.h"
#include "support/widget_input.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class TrousDialogTest : public SpringBoard {
 protected:
  void SetUp() override {
    plan.addResource("101", 0, 1);
    plan.addResource("102", 0, 2);
    plan.addResource("Suite", 1, 3);
    plan.addBooking("102", QDate(2025, 3, 12), QDate(2025, 3, 14), "Busy");
    plan.addBooking("102", QDate(2025, 4, 20), QDate(2025, 4, 22), "Later");
  }
};

TEST_F(TrousDialogTest, CategoryAndScrollBarRefillTheGrid) {
  TrousSearch trous(availability, plan.clock(), messages, texts);
  trous.Mode = 0;
  trous.FirstDate = ctx().FirstDate;
  trous.LastDate = ctx().LastDate;
  TrousDialog dialog(trous, options, texts);
  auto* grid = dialog.findChild<QTableWidget*>("LesTrous");
  auto* nbFree = dialog.findChild<QLineEdit*>("Nb_Free");
  auto* category = dialog.findChild<QComboBox*>("Category");
  auto* scroll = dialog.findChild<QScrollBar*>("HScroll");
  ASSERT_TRUE(grid && nbFree && category && scroll);

  // From today, a week: room 102 is taken.
  EXPECT_EQ(dialog.findChild<QLineEdit*>("NB_Jour")->text(), "7");
  EXPECT_EQ(column(grid, 0), (QStringList{"101", "Suite"}));
  EXPECT_EQ(column(grid, 1), (QStringList{"30 +", "30 +"}));
  EXPECT_EQ(nbFree->text(), "2");
  EXPECT_EQ(category->currentIndex(), 0);
  EXPECT_EQ(scroll->value(), 9);

  category->setCurrentIndex(2);
  EXPECT_EQ(column(grid, 0), QStringList{"Suite"});
  category->setCurrentIndex(1);
  EXPECT_EQ(column(grid, 0), QStringList{"101"});

  // One page of the bar is a month on: 10 April to 17 April frees 102, with
  // the April booking three days after.
  scroll->triggerAction(QAbstractSlider::SliderPageStepAdd);
  EXPECT_EQ(trous.from(), QDate(2025, 4, 10));
  EXPECT_EQ(column(grid, 0), (QStringList{"101", "102"}));
  EXPECT_EQ(grid->item(1, 1)->text(), "27");
  EXPECT_EQ(grid->item(1, 2)->text(), "3");
  EXPECT_EQ(nbFree->text(), "2");
}

TEST_F(TrousDialogTest, CancelGivesNothingBack) {
  TrousSearch trous(availability, plan.clock(), messages, texts);
  trous.Mode = 1;
  trous.CalF = QDate(2025, 3, 11);
  trous.CalT = QDate(2025, 3, 13);
  trous.FirstDate = ctx().FirstDate;
  trous.LastDate = ctx().LastDate;
  trous.Resource = "102";
  QTimer::singleShot(0, [] {
    QWidget* w = QApplication::activeModalWidget();
    ASSERT_NE(w, nullptr);
    auto* grid = w->findChild<QTableWidget*>("LesTrous");
    grid->selectRow(0);
    w->findChild<QPushButton*>("Cancel")->click();
  });
  EXPECT_FALSE(showTrous(trous, options, texts, nullptr).has_value());
  EXPECT_TRUE(messages.shown().empty());
}

}  // namespace
