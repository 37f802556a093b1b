#pragma once
// `Alarm`, the daily worklist: who leaves, who arrives, who is concerned by
// the two events, which stays ran over (`Extension ?`), and, when the option
// asks for it, the stays "To look at". The lists hold resource names only; a
// row is found again by its position in its list, walking the rows with the
// same tests that filled it.

#include <array>
#include <functional>
#include <optional>

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

#include "booking_detail.h"
#include "customers/printed_list.h"
#include "storage/recordset.h"
#include "worklist_exceptions.h"

namespace ksv {

class Clock;
class Database;
class IniFile;
class Messages;
class Texts;
struct LoadedOptions;
struct Regional;

// What the worklist and the history work with.
struct WorklistContext {
  Database& db;
  Recordset& blackList;  // the session's `BlackList` rows
  const Clock& clock;
  Messages& messages;
  const Texts& texts;
  const LoadedOptions& options;
  IniFile& ini;
  const Regional& regional;
};

// The keys of section Alarm the window reads at each opening.
struct AlarmOptions {
  bool Extension = false;   // "O" shows list 4
  QString Printing;         // the print boxes, one letter each
  bool Exceptions = false;  // "O" shows "To look at" when it holds something
  bool OpenAtStart = false; // "O" opens the worklist once the planning is open at start
  static AlarmOptions read(IniFile& ini);
};

class AlarmPresenter {
 public:
  enum List { Leaving = 0, Arrival = 1, Event1 = 2, Event2 = 3, OverStay = 4, ToLookAt = 5 };
  static constexpr int kLists = 6;

  explicit AlarmPresenter(WorklistContext ctx);
  ~AlarmPresenter();

  // Hooks to the widgets side and the other windows.
  std::function<void(const PrintedList&)> print;            // Print_Dialogue and paper (or PDF)
  std::function<void(const QString& email)> sendEmail;     // Mail
  // Opens the booking of a row of Reservation as a right press on its label
  // does; the worklist is read again once it is closed. Empty: no opening.
  std::function<void(qint64 rowId)> openBooking;
  bool canWrite = true;  // a consultation workstation does not write remarks

  QString caption;
  bool overStayShown = false;                // lblOverStay, List_Alarm(4), Ck_Alarm(4)
  bool exceptionsShown() const { return exceptionsOn_ && !List_Alarm[ToLookAt].isEmpty(); }
  std::array<QString, kLists> titles;        // the lists' names
  std::array<QString, kLists> countTexts;    // the text beside each title
  std::array<bool, kLists> Ck_Alarm{};       // printed lists
  std::array<QStringList, kLists> List_Alarm;
  bool openAtStart = false;                  // the box of the start-up opening

  // The selection: list index and row index in it; -1 for none.
  int selList = -1, selRow = -1;
  std::optional<BookingDetail> detail;       // the zones; nothing shown when empty

  // Loads the options, reads the rows, fills the lists and selects the first
  // row, in the order 5 (when shown), 4 (when shown), 0, 1, 2, 3.
  void M_Alarm_Click();
  // Reads the rows again (a booking opened from here was closed) and keeps the
  // selection where its list still reaches.
  void refresh();
  // A click on row `row` of list `list`.
  void List_Alarm_Click(int list, int row);
  void Alarm_Search_Customer();
  // Writes the remark edited in the zone to the selected booking.
  void Alarm_Save_Customer(const QString& remark);
  // A double click: the booking of that row opens.
  void List_Alarm_DblClick(int list, int row);
  void cmdSendEmail_Click();
  // Builds the paper of the ticked lists; "There is no Alarm" when every list is empty.
  std::optional<PrintedList> printedAlarm();
  void Alarm_Print();
  // OK: writes `Printing` and the start-up box, then closes the record sets.
  void OK_Click();
  void CloseAlarm();

  const QList<WorklistException>& exceptions() const { return exceptions_; }

 private:
  bool fits(int list, const Recordset& rs) const;
  bool skipped(const Recordset& rs) const;
  void fill();
  void selectFirst();
  // Moves the record set that holds (list, row) onto it; the set, or null.
  Recordset* seek(int list, int row);
  qint64 rowIdOf(int list, int row);

  WorklistContext ctx_;
  std::array<int, 4> counts_{};
  std::array<QDate, 4> dates_;
  QDate today_;
  bool exceptionsOn_ = false;
  Recordset alarm_;     // RQ_Alarm
  Recordset overStay_;  // OverStayUnion
  QList<WorklistException> exceptions_;
};

}  // namespace ksv
