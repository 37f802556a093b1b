#pragma once
// The session of the Planning window: which planning is open, in which mode,
// under which lock, and the commands of the window that open, close, switch
// and keep plannings. Headless: the window implements SessionView and draws
// what the session decides.

#include <functional>
#include <memory>
#include <optional>

#include <QDate>
#include <QString>

#include "connecting.h"
#include "planning_name.h"
#include "query_command.h"
#include "recordset.h"

namespace ksv {

class Clock;
class IniFile;
class MenuModel;
class Messages;
class Paths;
class Texts;
struct Regional;

// What the session asks of the window.
class SessionView {
 public:
  virtual ~SessionView() = default;
  virtual void setCaption(const QString& caption) = 0;
  virtual void applyMenus() = 0;
  virtual void setHourglass(bool on) = 0;
  virtual void Dessiner_Ecran() = 0;                // draws the bookings of the open planning
  virtual void eraseBoard() = 0;                    // EraseReservation and EraseResource
  virtual void RestoreDayColor() = 0;
  virtual void scrollTo(int vertical, int horizontal) = 0;
  virtual int todayOffset() const = 0;              // the day offset of today on the board
  virtual QString askOpenFileName(const QString& initialDir) = 0;  // empty on cancel
  virtual QString askSaveFileName(const QString& initialDir, const QString& suggested) = 0;
  virtual void showUsers(int rosterMessage) = 0;    // M_Users with its message
  virtual bool passWord(const QString& expected) = 0;  // the PassWord dialog's Result
  virtual void stopRefreshTimer() = 0;
  virtual void startRefreshTimer(int milliseconds) = 0;
  virtual void closeWindow() = 0;
};

// The commands and recordsets of an open session (Open_DB step 3).
struct SessionObjects {
  Recordset DataBaseInfo;
  std::optional<QueryCommand> RQ_Reservation;
  std::optional<QueryCommand> RQ_Free;
  Recordset Reservation;  // R_TB: the whole table
  Recordset RQ_Resource;
  Recordset BlackList;
  Recordset InvoiceGroupSort, ResultGroupSort, InvoiceAccountSort, ResultAccountSort;
  Recordset DesignationSort, ModificationSort, PaymentSort;
  std::optional<QueryCommand> RQ_DayColor;
  Recordset DayColor;
};

struct SessionContext {
  Messages& messages;
  Texts& texts;
  const Clock& clock;
  const Paths& paths;
  IniFile& ini;
  MenuModel& menus;
  const Regional& regional;
};

class PlanningSession {
 public:
  PlanningSession(SessionContext context, SessionView& view);
  ~PlanningSession();

  // Session state.
  bool Result = false;
  PlanningName current;        // the planning chosen
  QString openFile;            // the planning really open
  bool IsOpen = false;
  QString Updating = QStringLiteral("O");  // "O" normal mode, "N" consultation
  QString principal;           // MyPlanning
  bool firstRun = false;
  bool drawing = false;

  PlanningConnection* connection() { return connection_.get(); }
  SessionObjects& objects() { return objects_; }
  const Clock& clock() const { return ctx_.clock; }
  bool normalMode() const { return Updating == QLatin1String("O"); }

  // Hooks filled by later parts; by default they let everything through.
  std::function<bool(const QString& file)> Converting = [](const QString&) { return true; };
  std::function<bool()> Install_Example;           // the example into the documents folder
  std::function<void()> resetReminder;             // the results' reset reminder
  std::function<void()> planningOpened;            // before the first drawing of each planning opened

  // The first focus of the window, once: Caps Lock, the example, LastFile.
  // A planning `given` on the command line (a double click on a .ksv file)
  // opens instead of the example and of LastFile; one that is no planning is
  // told, and LastFile opens as usual.
  void firstFocus(bool capsLockOn, const QString& given = QString());

  void Open_Current();
  void Open_DB();
  void Close_DB();
  void Show_Title();
  void Empty_Board();
  // The window with no planning, as the start shows it: LastFile is kept for
  // the first focus.
  void showEmptyBoard();

  // The file menu and the mode switches.
  void M_OPen();
  void M_OPen_Main();
  void M_Remember_Main();
  void M_Close();
  void M_UpdateToConsult();
  void M_ConsultToUpdate();
  void M_Exit();
  void M_New();
  void M_Save();
  void M_Extract();
  void M_CompactRepair();
  void M_Purge();
  void M_EliminerNull();
  void M_Example();

  // The refresh timer's tick: only a consultation workstation polls.
  void refreshTick(bool planningWindowActive);
  int refreshInterval() const;
  // True when the board polls for other workstations' changes.
  bool refreshWanted() const;

  void Form_Unload();

  // Demander_NomFichier: fills the current planning, or leaves it empty.
  void Demander_NomFichier();

 private:
  void setCurrent(const QString& path);
  bool connect(char mode);
  bool openChecks(const QString& file);
  void openSessionObjects();
  void autoCompact(const QString& file);
  void switchMode(const char* updating);
  bool askCopyTarget(const QString& suffix, int onItselfText, int replaceText, QString& target);
  QString initialDir() const;
  void writeOption(const char* section, const char* key, const QString& value);
  QString readOption(const char* section, const char* key, const QString& defaultValue = QString());
  bool principalExists() const;
  void applyPrincipalMenus();

  SessionContext ctx_;
  SessionView& view_;
  std::unique_ptr<PlanningConnection> connection_;
  SessionObjects objects_;
  bool focusDone_ = false;
  ConnectFailure lastFailure_ = ConnectFailure::None;
};

}  // namespace ksv
