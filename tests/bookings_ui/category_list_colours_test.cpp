// An open category list paints each entry in its own colours, whatever
// category is chosen in the closed box.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QImage>

#include "bookings/ui/trous_dialog.h"
#include "support/booking_session.h"

using namespace ksv;
using namespace ksv::test;

namespace {

// Pixels of `rect` within a small distance of `colour`.
int pixelsNear(const QImage& image, const QRect& rect, const QColor& colour) {
  int n = 0;
  for (int y = rect.top(); y <= rect.bottom(); ++y)
    for (int x = rect.left(); x <= rect.right(); ++x) {
      const QColor c = image.pixelColor(x, y);
      if (std::abs(c.red() - colour.red()) + std::abs(c.green() - colour.green()) +
              std::abs(c.blue() - colour.blue()) < 60)
        ++n;
    }
  return n;
}

class CategoryListColours : public SpringBoard {};

TEST_F(CategoryListColours, EveryEntryOfTheOpenListIsWrittenInItsOwnTextColour) {
  TrousSearch trous(availability, plan.clock(), messages, texts);
  trous.FirstDate = ctx().FirstDate;
  trous.LastDate = ctx().LastDate;
  TrousDialog dialog(trous, options, texts);
  auto* category = dialog.findChild<QComboBox*>("Category");
  ASSERT_NE(category, nullptr);
  dialog.show();
  // A category in light text: its colour must not spread to the other entries.
  category->setCurrentIndex(1);
  category->showPopup();
  QApplication::processEvents();
  QAbstractItemView* view = category->view();
  const QImage shot = view->viewport()->grab().toImage();
  for (int row = 0; row < category->count(); ++row) {
    const QColor fore = category->itemData(row, Qt::ForegroundRole).value<QColor>();
    const QColor back = category->itemData(row, Qt::BackgroundRole).value<QColor>();
    if (fore == back) continue;
    const QRect rect = view->visualRect(category->model()->index(row, 0)).intersected(shot.rect());
    EXPECT_GT(pixelsNear(shot, rect, fore), 5) << category->itemText(row).toStdString();
  }
  category->hidePopup();
}

}  // namespace
