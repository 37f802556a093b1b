#pragma once
// The one board fixture: a planning, the options of a first run, a small
// frame (10 days, 4 rows of 300 twips, labels 200 high) and the board drawn
// from 1 March 2025, with gestures whose dialogs are recorded, not opened.

#include <gtest/gtest.h>

#include <memory>

#include "board/board_drawing.h"
#include "board/board_gestures.h"
#include "board/screen_description.h"
#include "bookings/booking_records.h"
#include "config/charger_param.h"
#include "config/ini_file.h"
#include "core/regional.h"
#include "support/test_planning.h"

namespace ksv::test {

// 10 days of `dayTwips`, 4 rows of 300 twips, labels 200 high, on a 1024 x 768 screen.
BoardFrame smallFrame(int dayTwips);

class TestBoard : public ::testing::Test {
 protected:
  // `dayTwips` 200 for the headless board, 300 (20 pixels) for the widgets.
  explicit TestBoard(int dayTwips = 200);

  static QDate mar(int d) { return QDate(2025, 3, d); }
  // "Room 1" to "Room n", in that order.
  void rooms(int n);
  // The board opened on the planning and drawn.
  void open();
  // The index of the label whose tooltip starts with `name`.
  int label(const QString& name) const;
  // The booking called `nom` as "Resource Date_Deb Date_Fin", "<none>" if gone.
  QString where(const QString& nom);
  // Gestures that record every dialog they open in opened_; tests adjust the hooks first.
  GestureHooks hooks();
  void makeGestures(GestureHooks h) {
    gestures_ = std::make_unique<BoardGestures>(board_, options_, messages_, texts_, std::move(h));
  }

  TestPlanning planning_;
  ScriptedMessages messages_;
  Texts texts_{0};
  IniFile ini_;
  LoadedOptions options_;
  BoardFrame frame_;
  Regional regional_;
  BoardDrawing board_;
  std::unique_ptr<BoardGestures> gestures_;
  bool normalMode_ = true;
  bool openGroup_ = false;
  QStringList opened_;
};

}  // namespace ksv::test
