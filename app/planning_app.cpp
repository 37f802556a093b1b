#include "planning_app.h"

#include <QApplication>
#include <QTimer>

#include "board/board_dates.h"
#include "board/board_drawing.h"
#include "board/board_origin.h"
#include "board/board_gestures.h"
#include "board/screen_description.h"
#include "board/ui/board_printing.h"
#include "board/ui/board_widget.h"
#include "about_box.h"
#include "board_gestures.h"
#include "board_popups.h"
#include "bookings/availability.h"
#include "bookings/ui/availability_board.h"
#include "bookings/ui/reservation_creer_dialog.h"
#include "bookings/ui/reservation_dialog.h"
#include "bookings/ui/reservation_grp_dialog.h"
#include "bookings/ui/reservation_split_dialog.h"
#include "bookings/ui/trous_dialog.h"
#include "manual_panels.h"
#include "board/ui/ecran_dialog.h"
#include "config/charger_param.h"
#include "config/ini_file.h"
#include "config/legacy_options.h"
#include "config/langage.h"
#include "storage/option_in_planning.h"
#include "config/reg_settings.h"
#include "config/start_options.h"
#include "config/ui/langage_dialog.h"
#include "config/ui/reg_settings_dialog.h"
#include "core/clock.h"
#include "core/paths.h"
#include "core/regional.h"
#include "core/texts.h"
#include "core/ui/qt_messages.h"
#include "customers/ui/customer_menus.h"
#include "invoicing/ui/accounts_window.h"
#include "invoicing/ui/invoice_menus.h"
#include "main_window.h"
#include "net/ui/pass_word_dialog.h"
#include "qt_session_view.h"
#include "storage/install_example.h"
#include "storage/planning_session.h"
#include "storage/start_checks.h"
#include "version.h"
#include "window_placement.h"
#include "worklist_menus.h"

namespace ksv {
namespace {

void wireMenus(MainWindow& w, PlanningSession& s, IniFile& ini, QtSessionView& view, Messages& messages,
               const Texts& texts, const Clock& clock, const Paths& paths, BoardWidget& board,
               const LoadedOptions& options, const BoardDates& dates) {
  auto on = [&w](const char* entry, std::function<void()> f) { w.setHandler(QString::fromLatin1(entry), std::move(f)); };
  on("M_New", [&] { s.M_New(); });
  on("M_OPen", [&] { s.M_OPen(); });
  on("M_OpenConsult", [&] { s.M_OPen(); });
  on("M_OPen_Main", [&] { s.M_OPen_Main(); });
  on("M_Consult_Open_Main", [&] { s.M_OPen_Main(); });
  on("M_Remember_Main", [&] { s.M_Remember_Main(); });
  on("M_Consult_Remember_Main", [&] { s.M_Remember_Main(); });
  on("M_Close", [&] { s.M_Close(); });
  on("M_CloseConsult", [&] { s.M_Close(); });
  on("M_UpdateToConsult", [&] { s.M_UpdateToConsult(); });
  on("M_ConsultToUpdate", [&] { s.M_ConsultToUpdate(); });
  on("M_Exit", [&] { s.M_Exit(); });
  on("M_ExitConsult", [&] { s.M_Exit(); });
  on("M_Save", [&] { s.M_Save(); });
  on("M_Extract", [&] { s.M_Extract(); });
  on("M_CompactRepair", [&] { s.M_CompactRepair(); });
  on("M_Purge", [&] { s.M_Purge(); });
  on("M_EliminerNull", [&] { s.M_EliminerNull(); });
  on("M_Example", [&] { s.M_Example(); });
  on("M_Memorize", [&] { M_Memorize(w, ini); });
  on("M_Restore", [&] { M_Restore(w, ini); });
  on("M_Users", [&] { view.showUsers(0); });
  on("M_SaveOption", [&] {
    if (s.IsOpen) M_SaveOption(s.connection()->db(), ini, messages, texts);
  });
  on("M_RestoreOption", [&] {
    if (!s.IsOpen) return;
    view.stopRefreshTimer();
    M_RestoreOption(s.connection()->db(), ini, s.Updating, messages, texts);
  });
  const CustomerWindowsContext customers{s, messages, texts, clock, paths, [&view] { view.Dessiner_Ecran(); }};
  on("M_CustomerList", [&w, customers] { showCustomerList(customers, kRQ_Customer, &w); });
  on("M_AgentList", [&w, customers] { showCustomerList(customers, kRQ_Agent, &w); });
  on("M_BlackList", [&w, customers] { showBlackList(customers, &w); });
  on("M_CashSale", [&] { showCashSale(s, ini, messages, texts, clock, &w); });
  on("M_Trous", [&] {
    if (!s.IsOpen) return;
    Availability availability(s.connection()->db(), clock);
    M_Trous(availability, clock, messages, texts, options, dates.FirstDate, dates.LastDate, &w);
  });
  on("M_Availability", [&] {
    if (!s.IsOpen) return;
    // The rules are built over the planning open at each drawing, timer ticks included.
    M_Availability_Click(w.menuModel(), board, [&s, &clock, &options](BoardWidget& b) {
      if (!s.IsOpen) return;
      Availability availability(s.connection()->db(), clock);
      Draw_Available(b, availability, options);
    });
    w.applyMenus();
  });
}

}  // namespace

int runPlanningWindow(QApplication& app, bool openExample, const QString& planning) {
  Texts texts(0);
  QtMessages messages(nullptr, texts);
  const SystemClock clock;

  // Steps 1 to 3: one instance, a usable date, a documents folder.
  const SingleInstance instance(SingleInstance::defaultLockPath());
  if (!instance.isFirst()) {
    messages.critical(texts.get(txt::AlreadyRunning));
    return 1;
  }
  if (!systemDateUsable(clock.today())) {
    messages.information(texts.get(txt::ChristianDate));
    return 1;
  }
  const QString documents = Paths::systemDocumentsDir();
  if (documents.isEmpty()) {
    messages.critical(texts.get(txt::SystemIncident));
    return 1;
  }
  const Paths paths(Paths::programDirFor(QCoreApplication::applicationDirPath()), documents);

  // Steps 4 to 6: the ini file, the language, the access code.
  StartOptionsHooks hooks;
  hooks.runningVersion = QStringLiteral(KSV_VERSION_SHORT);
  hooks.legacyStorePath = defaultLegacyOptionsPath();
  hooks.installerLanguage = [] { return sessionLanguage(); };
  hooks.askLanguage = [&paths] {
    IniFile ini(paths.iniFile());
    return LangageDialog::ask(ini) >= kFrenchOffset ? Language::Fr : Language::En;
  };
  hooks.showPassWord = [&texts](const QString& expected) { return PassWordDialog::ask(expected, texts); };
  const StartOptionsResult started = startOptions(paths, clock, messages, texts, hooks);
  if (!started.proceed) return 1;

  IniFile ini(paths.iniFile());
  // First run: the screen, and a warning when it is not one the board was drawn for.
  ScreenDescription screen;
  if (started.firstRun) {
    firstRunScreen(screen, [&texts](ScreenDescription& s) { EcranDialog(s, texts).exec(); }, messages, texts);
  } else {
    EcranDialog::readActualScreen(screen);
  }

  // Step 8: the window's place, the options, the regional settings.
  MainWindow window(texts);
  M_Restore(window, ini);
  const LoadedOptions options = Charger_Param(ini, clock);
  if (options.regionalSetting) {
    DesktopRegionPanel panel(messages, texts);
    const bool accepted = VerifyRegSettings([] { return Regional::fromSystem(); }, texts, panel,
                                            [&window](RegSettingsPresenter& p) { RegSettingsDialog::show(p, &window); });
    if (!accepted) return 1;
  }

  const Regional regional = Regional::fromSystem();
  // The board: its frame for this screen, its dates, its drawing.
  BoardFrame frame;
  const auto drawingKey = [&ini](const char* key) { return ini.GetValue(QLatin1String("ScreenDrawing"), QLatin1String(key)); };
  frame.Draw_Planning_Frame(screen, ScreenDrawing{drawingKey("DayNb"), drawingKey("PasH"), drawingKey("ResNb"),
                                                  drawingKey("PasV"), drawingKey("ResW"), drawingKey("LabE")});
  // Read by reference by the menus, the month strip and the gestures: each
  // planning opened may move the origin back (planningOpened below).
  BoardDates dates = boardDates(options.boardOrigin, clock.today());
  BoardDrawing drawing({frame, options, messages, texts, paths, regional, [&clock] { return clock.today(); }});
  drawing.setFirstDate(dates.FirstDate);
  auto* board = new BoardWidget(drawing, options, texts);
  board->setDayRange(dates.hScrollMax(frame.DayNb()), dates.TodayOffset);
  window.setCentralWidget(board);
  drawing.Dessin_JourMoisGrid();
  drawing.EraseResource();

  QtSessionView view(window, messages, texts);
  view.setBoard(board);
  PlanningSession session({messages, texts, clock, paths, ini, window.menuModel(), regional}, view);
  view.attach(&session);
  session.firstRun = started.firstRun;
  session.Install_Example = [&] { return Install_Example(paths, clock, messages, texts); };
  session.planningOpened = [&] {
    dates = datesForOpenedPlanning(session.connection()->db(), ini, dates.FirstDate, clock.today());
    drawing.setFirstDate(dates.FirstDate);
    board->setDayRange(dates.hScrollMax(frame.DayNb()), dates.TodayOffset);
    drawing.Dessin_JourMoisGrid();
  };
  wireMenus(window, session, ini, view, messages, texts, clock, paths, *board, options, dates);
  window.setHandler(QStringLiteral("M_Print"), [&] {
    if (session.IsOpen)
      M_Print(session.objects(), drawing.ViewFirst(), drawing.ViewLast(), texts, regional, messages, &window);
  });
  window.setHandler(QStringLiteral("M_About"),
                    [&] { M_About(&window, texts, QStringLiteral(KSV_VERSION_TEXT), session); });
  window.onClose = [&session] { session.Form_Unload(); };
  wireBoardPopups(*board, session, options, messages, texts);
  wireMonthStrip(*board, dates, clock, screen, texts);
  // Presses on labels and empty cells, the drag and the keyboard, each
  // opening its booking dialog.
  BookingDialogs bookingDialogs;
  bookingDialogs.Reservation = showReservation;
  bookingDialogs.ReservationSplit = showReservationSplit;
  bookingDialogs.ReservationGrp = showReservationGrp;
  bookingDialogs.ReservationCreer = showReservationCreer;
  const BoardGesturesContext gestureContext{*board, session, view, options, dates, messages, texts, clock, paths};
  const std::unique_ptr<BoardGestures> gestures = wireBoardGestures(gestureContext, bookingDialogs);
  // The worklist and the history; a booking opened from the worklist opens as from the board.
  const WorklistWindowsContext worklist{
      session, ini, options, messages, texts, clock, regional,
      [&gestureContext, &bookingDialogs](qint64 rowId, QWidget* parent) {
        openBookingRow(gestureContext, bookingDialogs, rowId, parent);
      }};
  window.setHandler(QStringLiteral("M_Alarm"), [&worklist, &window] { showAlarm(worklist, &window); });
  window.setHandler(QStringLiteral("M_BookingHistory"), [&worklist, &window] { showHistorique(worklist, &window); });
  const AccountsWindowContext accounts{session, ini, messages, texts, clock, regional};
  window.setHandler(QStringLiteral("M_Taxes"), [&accounts, &window] { showAccounts(accounts, &window); });
  // The manual panels act as the presses do: a new booking on the first
  // resource on screen, the marked booking opened as by the right button.
  const BoardFrame& f = frame;
  wireManualControl(
      window, *board, session, options, messages, texts,
      [&gestures, &f] {
        gestures->Form_MouseDown(Qt::RightButton, f.GridLeft() + f.PasH() / 2, f.GridTop() + f.PasV() / 2);
        gestures->Form_MouseUp();
      },
      [&gestures](int label) { gestures->Lab_MouseDown(label, Qt::RightButton, 0, 0); });
  session.Show_Title();
  session.showEmptyBoard();
  window.show();

  // The last planning opens once the window is on the screen.
  QTimer::singleShot(0, &window, [&session, &ini, &worklist, &window, openExample, planning] {
    if (openExample)
      session.M_Example();
    else
      session.firstFocus(capsLockOn(), planning);
    // The day's work first, when the options ask for it.
    if (session.IsOpen && alarmAtStart(ini)) showAlarm(worklist, &window);
  });
  return app.exec();
}

}  // namespace ksv
