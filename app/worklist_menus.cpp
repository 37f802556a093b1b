#include "worklist_menus.h"

#include "bookings/alarm.h"
#include "bookings/historique.h"
#include "bookings/ui/alarm_dialog.h"
#include "bookings/ui/historique_dialog.h"
#include "core/messages.h"
#include "core/regional.h"
#include "customers/ui/list_printer.h"
#include "net/ui/mail.h"
#include "storage/planning_session.h"
#include "storage/sqlite_db.h"

namespace ksv {
namespace {

WorklistContext contextOf(const WorklistWindowsContext& c) {
  return {c.session.connection()->db(), c.session.objects().BlackList, c.clock, c.messages, c.texts, c.options,
          c.ini, c.regional};
}

}  // namespace

void showAlarm(const WorklistWindowsContext& c, QWidget* parent) {
  if (!c.session.IsOpen) return;
  try {
    AlarmPresenter p(contextOf(c));
    p.canWrite = c.session.normalMode();
    p.M_Alarm_Click();
    AlarmDialog dialog(p, c.texts, c.regional.shortDateFormat, parent);
    p.print = [&](const PrintedList& list) { printList(list, &dialog, c.messages, c.texts); };
    p.sendEmail = [](const QString& email) { Mail(email); };
    if (p.canWrite && c.openBooking) p.openBooking = [&](qint64 rowId) { c.openBooking(rowId, &dialog); };
    dialog.exec();
  } catch (const StorageError& e) {
    c.messages.critical(QString::fromUtf8(e.what()));
  }
}

void showHistorique(const WorklistWindowsContext& c, QWidget* parent) {
  if (!c.session.IsOpen) return;
  try {
    HistoriquePresenter p(contextOf(c));
    p.canWrite = c.session.normalMode();
    p.M_BookingHistory_Click();
    HistoriqueDialog dialog(p, c.texts, c.regional.shortDateFormat, parent);
    p.print = [&](const PrintedList& list) { printList(list, &dialog, c.messages, c.texts); };
    p.sendEmail = [](const QString& email) { Mail(email); };
    dialog.exec();
  } catch (const StorageError& e) {
    c.messages.critical(QString::fromUtf8(e.what()));
  }
}

bool alarmAtStart(IniFile& ini) { return AlarmOptions::read(ini).OpenAtStart; }

}  // namespace ksv
