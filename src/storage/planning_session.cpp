#include "planning_session.h"

#include <QFile>
#include <QFileInfo>

#include "config/ini_file.h"
#include "config/option_reader.h"
#include "core/clock.h"
#include "core/day_date.h"
#include "core/menu_model.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/regional.h"
#include "core/texts.h"
#include "creation.h"
#include "config/access_check.h"
#include "file_operations.h"
#include "install_example.h"
#include "lock_file.h"
#include "planning_file.h"
#include "session_menus.h"
#include "sqlite_db.h"

namespace ksv {

PlanningSession::PlanningSession(SessionContext context, SessionView& view) : ctx_(context), view_(view) {
  Updating = readOption("Reservation", "Updating", QStringLiteral("O"));
  principal = readOption("Remember", "MyPlanning");
}

PlanningSession::~PlanningSession() { Close_DB(); }

QString PlanningSession::readOption(const char* section, const char* key, const QString& defaultValue) {
  // Keys without a default (LastFile, MyPlanning) are read as they stand.
  if (defaultValue.isEmpty()) return ctx_.ini.GetValue(QLatin1String(section), QLatin1String(key));
  return ksv::readOption(ctx_.ini, QLatin1String(section), QLatin1String(key), defaultValue);
}

void PlanningSession::writeOption(const char* section, const char* key, const QString& value) {
  ctx_.ini.SetValue(QLatin1String(section), QLatin1String(key), value);
}

void PlanningSession::setCurrent(const QString& path) { current = Split_Db_Name(path); }

bool PlanningSession::principalExists() const { return !principal.isEmpty() && QFileInfo::exists(principal); }

QString PlanningSession::initialDir() const {
  if (!current.dir.isEmpty()) return current.dir;
  const QString last = ctx_.ini.GetValue(QLatin1String("Remember"), QLatin1String("LastFile"));
  if (!last.isEmpty()) return Split_Db_Name(last).dir;
  return ctx_.paths.documentsDir();
}

// ---------------------------------------------------------------- start

void PlanningSession::firstFocus(bool capsLockOn, const QString& given) {
  if (focusDone_) return;
  focusDone_ = true;
  if (capsLockOn && ctx_.messages.askYesNo(ctx_.texts.get(txt::CapsLockOn), MsgAnswer::No)) return;
  if (!given.isEmpty()) {
    const QString file = QFileInfo(given).absoluteFilePath();
    if (!hasPlanningExtension(file)) {
      ctx_.messages.critical(ctx_.texts.withName(txt::NotAPlanning, given));
    } else if (!QFileInfo(file).isFile()) {
      ctx_.messages.critical(ctx_.texts.withName(txt::PlanningMissing, given));
    } else {
      setCurrent(file);
      Open_Current();
      return;
    }
  } else if (firstRun && ctx_.messages.askYesNo(ctx_.texts.get(txt::OpenExample))) {
    M_Example();
    return;
  }
  setCurrent(ctx_.ini.GetValue(QLatin1String("Remember"), QLatin1String("LastFile")));
  Open_Current();
}

// ---------------------------------------------------------------- open and close

void PlanningSession::Open_Current() {
  if (IsOpen) Close_DB();
  const QString file = current.full();
  if (!file.isEmpty() && QFileInfo::exists(file)) Open_DB();
  Show_Title();
  if (IsOpen) {
    // The board's dates may move back to this planning's earliest arrival.
    if (planningOpened) planningOpened();
    view_.scrollTo(0, view_.todayOffset());
    view_.Dessiner_Ecran();
    firstRun = false;
    if (Updating != QLatin1String("N") && resetReminder) resetReminder();
  } else {
    Empty_Board();
  }
}

bool PlanningSession::connect(char mode) {
  ConnectResult r = Connecting(current.full(), mode);
  connection_ = std::move(r.connection);
  lastFailure_ = r.failure;
  return connection_ != nullptr;
}

bool PlanningSession::openChecks(const QString& file) {
  // Before anything reads or locks it: a file that is no planning of this
  // version is refused with its message, never offered for repair. A damaged
  // planning goes on, to the repair question.
  const OpenedPlanning opened = openPlanning(file, Database::OpenMode::ReadOnly);
  if (opened || opened.check == PlanningCheck::Damaged || opened.check == PlanningCheck::ConnectError) return true;
  reportPlanningCheck(opened, file, ctx_.messages, ctx_.texts);
  return false;
}

void PlanningSession::autoCompact(const QString& file) {
  const auto due = fromYymmdd(ctx_.ini.GetValue(QLatin1String("Remember"), QLatin1String("AutoCompact")));
  const QDate today = ctx_.clock.today();
  if (!due || daysBetween(*due, today) < 7) return;
  // The date moves first: a refused lock only delays the next try by a week.
  writeOption("Remember", "AutoCompact", toYymmdd(today));
  if (!RequestConnectMode(file, 'E')) return;
  const QString safety = current.dir + current.stem + QStringLiteral("~BeforeCompact.ksv");
  // A safety copy left by an earlier compaction means that one did not finish:
  // nothing is compacted until somebody has looked at it.
  if (!QFileInfo::exists(safety) && Copy_Planning(file, safety, true, ctx_.paths, ctx_.messages, ctx_.texts) &&
      Compact_Planning(file, true, ctx_.messages, ctx_.texts))
    QFile::remove(safety);
  ReleaseConnectMode(file, 'E');
}

void PlanningSession::Open_DB() {
  const QString file = current.full();
  Result = false;
  deleteStaleLock(file);
  bool repairTried = false;
  for (;;) {
    Result = openChecks(file) && Converting(file);
    if (!Result) return;
    autoCompact(file);

    char mode = 'U';
    if (!(normalMode() && RequestConnectMode(file, 'U', [this](int entry) { view_.showUsers(entry); }))) {
      if (!RequestConnectMode(file, 'C')) return;
      Updating = QStringLiteral("N");
      writeOption("Reservation", "Updating", Updating);
      mode = 'C';
    }
    view_.setHourglass(true);
    Result = connect(mode);
    if (Result) break;
    // The lock taken for a connection that failed is given back at once.
    ReleaseConnectMode(file, mode);
    view_.setHourglass(false);
    if (lastFailure_ == ConnectFailure::NotAPlanning || lastFailure_ == ConnectFailure::Version) {
      ctx_.messages.critical(ctx_.texts.withName(txt::NotAPlanning, file));
      return;
    }
    if (repairTried) return;
    if (!ctx_.messages.askYesNo(ctx_.texts.get(txt::CannotOpenRepair))) return;
    repairTried = true;
    connection_.reset();
    if (!RequestConnectMode(file, 'E')) return;
    Compact_Planning(file, true, ctx_.messages, ctx_.texts);
    ReleaseConnectMode(file, 'E');
  }
  try {
    openSessionObjects();
  } catch (const StorageError&) {
    objects_ = SessionObjects();
    const char mode = connection_->mode();
    connection_.reset();
    ReleaseConnectMode(file, mode);
    view_.setHourglass(false);
    ctx_.messages.critical(ctx_.texts.get(txt::ConnectError));
    Result = false;
    return;
  }
  IsOpen = true;
  openFile = file;
  writeOption("Remember", "LastFile", file);
  view_.setHourglass(false);
}

void PlanningSession::openSessionObjects() {
  Database& db = connection_->db();
  const QueryCatalogue catalogue(db, ctx_.clock);
  SessionObjects o;
  o.DataBaseInfo = Recordset::openTable(db, QStringLiteral("DataBaseInfo"));
  o.RQ_Reservation = catalogue.command(QStringLiteral("RQ_Reservation"));
  o.RQ_Free = catalogue.command(QStringLiteral("RQ_Free"));
  o.Reservation = Recordset::openTable(db, QStringLiteral("Reservation"));
  o.RQ_Resource = catalogue.command(QStringLiteral("RQ_Resource")).openRecordset();
  o.BlackList = catalogue.command(QStringLiteral("BlackList")).openRecordset();
  o.InvoiceGroupSort = catalogue.command(QStringLiteral("InvoiceGroupSort")).openRecordset();
  o.ResultGroupSort = catalogue.command(QStringLiteral("ResultGroupSort")).openRecordset();
  o.InvoiceAccountSort = catalogue.command(QStringLiteral("InvoiceAccountSort")).openRecordset();
  o.ResultAccountSort = catalogue.command(QStringLiteral("ResultAccountSort")).openRecordset();
  o.DesignationSort = catalogue.command(QStringLiteral("DesignationSort")).openRecordset();
  o.ModificationSort = catalogue.command(QStringLiteral("ModificationSort")).openRecordset();
  o.PaymentSort = catalogue.command(QStringLiteral("PaymentSort")).openRecordset();
  o.RQ_DayColor = catalogue.command(QStringLiteral("RQ_DayColor"));
  const QDate today = ctx_.clock.today();
  o.RQ_DayColor->setParameters({today.addYears(-1), today.addYears(1)});
  o.DayColor = o.RQ_DayColor->openRecordset();
  objects_ = std::move(o);
}

void PlanningSession::Close_DB() {
  if (!IsOpen) return;
  objects_ = SessionObjects();
  const char mode = connection_ ? connection_->mode() : 'C';
  connection_.reset();  // closed before the lock is given back
  ReleaseConnectMode(openFile, mode);
  IsOpen = false;
  openFile.clear();
}

// ---------------------------------------------------------------- title and menus

void PlanningSession::applyPrincipalMenus() {
  const PrincipalState s{principal, IsOpen ? current.full() : QString(), principalExists()};
  if (normalMode())
    Menus_Normal(ctx_.menus, s);
  else
    Menus_Consult(ctx_.menus, s);
}

void PlanningSession::Show_Title() {
  QString caption = ctx_.texts.get(txt::Product);
  if (IsOpen) caption += QStringLiteral(" [") + current.full() + QLatin1Char(']');
  view_.setCaption(caption);
  applyPrincipalMenus();
  view_.applyMenus();
}

void PlanningSession::Empty_Board() {
  current = PlanningName();
  writeOption("Remember", "LastFile", QString());
  showEmptyBoard();
}

void PlanningSession::showEmptyBoard() {
  view_.setCaption(ctx_.texts.get(txt::Product));
  emptyBoardMenus(ctx_.menus, normalMode(), {principal, QString(), principalExists()});
  view_.applyMenus();
  view_.eraseBoard();
  view_.scrollTo(0, view_.todayOffset());
}

// ---------------------------------------------------------------- commands

void PlanningSession::Demander_NomFichier() {
  const QString chosen = view_.askOpenFileName(initialDir());
  const QString accepted = checkChosenPlanning(chosen, openFile, ctx_.messages, ctx_.texts);
  if (accepted.isEmpty())
    current = PlanningName();
  else
    setCurrent(accepted);
}

void PlanningSession::M_OPen() {
  const PlanningName before = current;
  Demander_NomFichier();
  const QString file = current.full();
  if (file.isEmpty() || !QFileInfo::exists(file)) {
    current = before;  // a cancelled choice leaves the open planning as it was
    return;
  }
  Open_Current();
}

void PlanningSession::M_OPen_Main() {
  principal = readOption("Remember", "MyPlanning");
  setCurrent(principal);
  Open_Current();
}

void PlanningSession::M_Remember_Main() {
  if (!ctx_.messages.askYesNo(ctx_.texts.get(txt::BecomePrincipal))) return;
  principal = current.full();
  writeOption("Remember", "MyPlanning", principal);
  for (const char* e : {"M_OPen_Main", "M_Remember_Main", "M_Consult_Open_Main", "M_Consult_Remember_Main"})
    ctx_.menus.setEnabled(QString::fromLatin1(e), false);
  view_.applyMenus();
}

void PlanningSession::M_Close() {
  view_.stopRefreshTimer();
  Close_DB();
  view_.RestoreDayColor();
  Show_Title();
  Empty_Board();
}

void PlanningSession::switchMode(const char* updating) {
  if (!askAccessCode(ctx_.ini, AccessCode::Options, [this](const QString& code) { return view_.passWord(code); }))
    return;
  view_.setHourglass(true);
  Updating = QString::fromLatin1(updating);
  writeOption("Reservation", "Updating", Updating);
  Open_Current();
  view_.setHourglass(false);
}

void PlanningSession::M_UpdateToConsult() { switchMode("N"); }
void PlanningSession::M_ConsultToUpdate() { switchMode("O"); }
void PlanningSession::M_Exit() { view_.closeWindow(); }

void PlanningSession::M_New() {
  const QString chosen = view_.askSaveFileName(initialDir(), QString());
  if (chosen.isEmpty() || refuseDiskette(chosen, ctx_.messages, ctx_.texts)) return;
  QString path = chosen;
  if (!path.endsWith(QLatin1String(".ksv"), Qt::CaseInsensitive)) path += QStringLiteral(".ksv");
  if (QFileInfo::exists(path)) {
    ctx_.messages.critical(ctx_.texts.withName(txt::PlanningExists, path));
    return;
  }
  CreationContext cc{ctx_.messages, ctx_.texts, ctx_.paths, IsOpen ? &connection_->db() : nullptr, false};
  if (!Creation(path, cc)) {
    ctx_.messages.critical(ctx_.texts.get(txt::ConnectError));
    return;
  }
  setCurrent(path);
  Open_Current();
  if (IsOpen) M_Remember_Main();
}

bool PlanningSession::askCopyTarget(const QString& suffix, int onItselfText, int replaceText, QString& target) {
  const QString suggested = suggestedCopyName(current, suffix, ctx_.clock.today(), ctx_.regional);
  target = view_.askSaveFileName(current.dir, suggested);
  if (target.isEmpty() || refuseDiskette(target, ctx_.messages, ctx_.texts)) return false;
  if (target == current.full()) {
    ctx_.messages.critical(ctx_.texts.get(onItselfText));
    return false;
  }
  // A Yes lets the copy take the name; the old file stays until then.
  if (QFileInfo::exists(target) && !ctx_.messages.askYesNo(ctx_.texts.get(replaceText), MsgAnswer::No)) return false;
  return true;
}

void PlanningSession::M_Save() {
  QString target;
  if (!askCopyTarget(ctx_.texts.get(txt::BackUpSuffix), txt::SaveOnItself, txt::ReplacePlanning, target)) return;
  view_.setHourglass(true);
  Copy_Planning(current.full(), target, false, ctx_.paths, ctx_.messages, ctx_.texts);
  view_.setHourglass(false);
}

void PlanningSession::M_Extract() {
  QString target;
  if (!askCopyTarget(ctx_.texts.get(txt::ExtractionSuffix), txt::ExtractOnItself, txt::ReplaceFile, target)) return;
  view_.setHourglass(true);
  const bool ok = Copy_Planning(current.full(), target, true, ctx_.paths, ctx_.messages, ctx_.texts) &&
                  extractCurrent(target, ctx_.clock.today(), ctx_.messages, ctx_.texts);
  view_.setHourglass(false);
  if (ok)
    ctx_.messages.information(ctx_.texts.get(txt::ExtractSuccessful));
  else
    ctx_.messages.critical(ctx_.texts.get(txt::ExtractFailed));
}

void PlanningSession::M_CompactRepair() {
  Demander_NomFichier();
  const QString file = current.full();
  if (file.isEmpty()) return;
  Close_DB();
  // Counts left by workstations that died must not block the repair.
  deleteStaleLock(file);
  if (RequestConnectMode(file, 'E')) {
    Compact_Planning(file, false, ctx_.messages, ctx_.texts);
    ReleaseConnectMode(file, 'E');
  } else {
    view_.showUsers(txt::RosterCompact);
  }
  Open_Current();
}

void PlanningSession::M_Purge() {
  if (!IsOpen) return;
  const QString yearKeep = readOption("Reservation", "YearKeep", QStringLiteral("3"));
  const std::optional<int> years = yearKeepYears(yearKeep);
  if (!years) {
    ctx_.messages.critical(ctx_.texts.withName(txt::YearKeepRefused, yearKeep));
    return;
  }
  const QDate limit = purgeLimit(ctx_.clock.today(), *years);
  if (!ctx_.messages.askYesNo(
          ctx_.texts.get(txt::PurgeQuestion) + shortDateText(limit, ctx_.regional) + QStringLiteral(" ?"),
          MsgAnswer::No))
    return;
  view_.stopRefreshTimer();
  try {
    purgeBefore(connection_->db(), ctx_.clock, limit);
    objects_.Reservation.requery();
  } catch (const StorageError&) {
    ctx_.messages.critical(ctx_.texts.get(txt::ConnectError));
    return;
  }
  ctx_.messages.information(ctx_.texts.get(txt::PurgeSuccessful));
  view_.Dessiner_Ecran();
}

void PlanningSession::M_EliminerNull() {
  if (!IsOpen) return;
  int count = 0;
  try {
    count = eliminateNullRemarks(connection_->db());
    objects_.Reservation.requery();
  } catch (const StorageError&) {
    ctx_.messages.critical(ctx_.texts.get(txt::ConnectError));
    return;
  }
  ctx_.messages.information(ctx_.texts.get(txt::NullsReset) + QString::number(count) + QStringLiteral("  "));
}

void PlanningSession::M_Example() {
  Close_DB();
  if (!Install_Example || !Install_Example()) {
    Show_Title();
    Empty_Board();
    return;
  }
  setCurrent(installedExample(ctx_.paths));
  Updating = QStringLiteral("O");
  writeOption("Reservation", "Updating", Updating);
  Open_Current();
}

// ---------------------------------------------------------------- timer and end

int PlanningSession::refreshInterval() const {
  const int seconds = ctx_.ini.GetValue(QLatin1String("Reservation"), QLatin1String("NbSecond")).toInt();
  return (seconds > 0 ? seconds : 30) * 1000;
}

bool PlanningSession::refreshWanted() const {
  // Normal mode never polls: its own writes are the only ones.
  return IsOpen && !normalMode() &&
         ctx_.ini.GetValue(QLatin1String("Reservation"), QLatin1String("RefreshScreen")) == QLatin1String("O");
}

void PlanningSession::refreshTick(bool planningWindowActive) {
  if (!planningWindowActive || drawing || !refreshWanted()) return;
  objects_.Reservation.requery();
  view_.Dessiner_Ecran();
}

void PlanningSession::Form_Unload() {
  writeOption("Remember", "LastFile", current.full());
  Close_DB();
}

}  // namespace ksv
