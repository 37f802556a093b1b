#pragma once
// The menu entries of the daily worklist and the booking history, and the
// worklist's opening at start when its option asks for it.

#include <functional>

#include <QtGlobal>

class QWidget;

namespace ksv {

class Clock;
class IniFile;
class Messages;
class PlanningSession;
class Texts;
struct LoadedOptions;
struct Regional;

struct WorklistWindowsContext {
  PlanningSession& session;
  IniFile& ini;
  const LoadedOptions& options;
  Messages& messages;
  const Texts& texts;
  const Clock& clock;
  const Regional& regional;
  // Opens a booking as a right press on its label does, over the given window.
  std::function<void(qint64 rowId, QWidget* parent)> openBooking;
};

// M_Alarm_Click: the worklist over the open planning, modal.
void showAlarm(const WorklistWindowsContext& ctx, QWidget* parent);
// M_BookingHistory_Click: the history, modal.
void showHistorique(const WorklistWindowsContext& ctx, QWidget* parent);
// True when `OpenAtStart` of section Alarm asks for the worklist at start.
bool alarmAtStart(IniFile& ini);

}  // namespace ksv
