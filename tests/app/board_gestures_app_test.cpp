// The window's gestures over a planning opened by the session: the booking
// dialogs get a context on that planning, and what they write reaches the file.
#include <gtest/gtest.h>

#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "board/board_dates.h"
#include "board/board_drawing.h"
#include "board/board_gestures.h"
#include "board/resource_presenter.h"
#include "board/screen_description.h"
#include "board/ui/board_widget.h"
#include "board_gestures.h"
#include "board_popups.h"
#include "bookings/booking_context.h"
#include "config/charger_param.h"
#include "config/ini_file.h"
#include "core/clock.h"
#include "core/menu_model.h"
#include "core/regional.h"
#include "core/texts.h"
#include "main_window.h"
#include "qt_session_view.h"
#include "storage/creation.h"
#include "storage/planning_session.h"
#include "storage/schema.h"
#include "storage/sqlite_db.h"
#include "support/scripted_messages.h"
#include "support/test_board.h"
#include "support/temp_folders.h"

using namespace ksv;


TEST(BoardGesturesApp, EachGestureGivesTheDialogsAContextOverTheOpenPlanning) {
  test::TempFolders folders;
  IniFile ini(folders.paths().iniFile());
  test::ScriptedMessages messages;
  Texts texts(0);
  const FixedClock fixedClock(QDate(2025, 3, 10));
  const Clock& clock = fixedClock;
  MenuModel menus = MenuModel::standard();
  const Regional regional = Regional::englishUS();

  const QString path = folders.document("Hotel.ksv");
  ASSERT_TRUE(Creation(path, {messages, texts, folders.paths(), nullptr, false}));
  {
    Database db(path, Database::OpenMode::ReadWrite);
    insertRow(db, "Resource", {{"Resource", "Room 1"}, {"Color", 0}, {"Order", 1}});
    insertRow(db, "Resource", {{"Resource", "Room 2"}, {"Color", 0}, {"Order", 2}});
    insertRow(db, "Reservation", {{"Resource", "Room 1"}, {"Date_Deb", QDate(2025, 3, 11)},
                                  {"Date_Fin", QDate(2025, 3, 13)}, {"Nom", "Martin"}, {"GroupId", "C"}});
  }
  ini.SetValue("Remember", "LastFile", path);

  const LoadedOptions options = Charger_Param(ini, clock);
  const BoardFrame frame = test::smallFrame(300);
  const BoardDates dates = boardDates(options.boardOrigin, clock.today());
  BoardDrawing drawing({frame, options, messages, texts, folders.paths(), regional, [&clock] { return clock.today(); }});
  drawing.setFirstDate(dates.FirstDate);
  MainWindow window(texts);
  auto* board = new BoardWidget(drawing, options, texts);
  board->setDayRange(dates.hScrollMax(frame.DayNb()), dates.TodayOffset);
  window.setCentralWidget(board);
  QtSessionView view(window, messages, texts);
  view.setBoard(board);
  PlanningSession session({messages, texts, clock, folders.paths(), ini, menus, regional}, view);
  view.attach(&session);

  QStringList seen;
  BookingDialogs dialogs;
  dialogs.Reservation = [&](BookingContext& c, QWidget* parent) {
    EXPECT_EQ(parent, board);
    EXPECT_EQ(&c.objects, &session.objects());
    EXPECT_EQ(c.FirstDate, dates.FirstDate);
    EXPECT_EQ(c.LastDate, dates.LastDate);
    EXPECT_TRUE(c.windows.M_BlackList && c.windows.BlackList_Add_Commun && c.windows.Customer_From_Reservation);
    EXPECT_TRUE(c.DeleteInvoice && c.windows.sendEmail);
    seen << "Reservation " + c.records.Nom_L + " " + c.records.Res_L;
    return false;
  };
  dialogs.ReservationCreer = [&](BookingContext& c, QWidget*) {
    seen << "ReservationCreer " + c.records.Res_L + " " + c.records.DD_L.toString(Qt::ISODate);
    c.records.Nom_L = "Durand";
    c.records.DF_L = c.records.DD_L.addDays(2);
    c.records.Creer_Reservation();
    c.Dessiner_Ecran();
  };
  const std::unique_ptr<BoardGestures> gestures = wireBoardGestures(
      {*board, session, view, options, dates, messages, texts, clock, folders.paths()}, std::move(dialogs));

  session.firstFocus(false);
  ASSERT_TRUE(session.IsOpen);
  ASSERT_EQ(drawing.LabCount, 1);
  window.show();

  // A right press on the label opens the booking; one on an empty cell creates.
  QTest::mousePress(board, Qt::RightButton, {}, board->pixels(drawing.Lab[0].rect).center());
  QTest::mouseRelease(board, Qt::RightButton, {}, board->pixels(drawing.Lab[0].rect).center());
  const QPoint empty = board->pixels(TwipRect{frame.GridLeft() + 4 * 300, frame.GridTop() + 300, 300, 300}).center();
  QTest::mousePress(board, Qt::RightButton, {}, empty);
  QTest::mouseRelease(board, Qt::RightButton, {}, empty);
  EXPECT_EQ(seen, (QStringList{"Reservation Martin Room 1", "ReservationCreer Room 2 2025-03-14"}));
  EXPECT_EQ(drawing.LabCount, 2);
  EXPECT_EQ(session.connection()->db().scalar("SELECT Date_Fin FROM Reservation WHERE Nom = 'Durand'").toString().left(10),
            "2025-03-16");
  EXPECT_TRUE(messages.shown().empty());

  // A station that refreshes: the timer is off while a strip's handler runs
  // (a popup's nested loop included), even across a redraw, and on after.
  ini.SetValue("Reservation", "RefreshScreen", "O");
  session.Updating = "N";
  view.Dessiner_Ecran();
  ASSERT_TRUE(view.refreshActive());
  std::vector<bool> during;
  QObject::connect(board, &BoardWidget::dayPressed, [&] {
    during.push_back(view.refreshActive());
    view.Dessiner_Ecran();
    during.push_back(view.refreshActive());
  });
  QTest::mousePress(board, Qt::RightButton, {}, board->pixels(frame.Jour(2)).center());
  QTest::mouseRelease(board, Qt::RightButton, {}, board->pixels(frame.Jour(2)).center());
  EXPECT_TRUE(view.refreshActive());
  board->HScroll()->setValue(board->TodayOffset() + 3);
  QObject::connect(board->HScroll(), &QScrollBar::valueChanged, [&] { during.push_back(view.refreshActive()); });
  board->Today()->click();
  EXPECT_EQ(during, (std::vector<bool>{false, false, false}));
  EXPECT_TRUE(view.refreshActive());

  // Deleting a resource from its popup takes its bookings' invoices along.
  Database& db = session.connection()->db();
  insertRow(db, "Invoice", {{"InvoiceNb", -3}, {"Typ", "0"}, {"Lib", "Martin"}});
  db.execute("UPDATE Reservation SET InvNb = -3 WHERE Nom = 'Martin'");
  ResourceCommands r(db, session.objects(), options, messages, texts);
  prepareResourceCommands(r, *board, session, texts, 0);
  ASSERT_EQ(r.SelResource, "Room 1");
  r.showDialog = [](ResourcePresenter& p) {
    p.Res_Modif = p.SelResource;
    p.OK_Click();
  };
  messages.answer(MsgAnswer::Yes);
  r.R_Delete_Click();
  EXPECT_EQ(db.scalar("SELECT count(*) FROM Reservation WHERE Resource = 'Room 1'").toInt(), 0);
  EXPECT_EQ(db.scalar("SELECT count(*) FROM Invoice").toInt(), 0);
  session.M_Close();
}
