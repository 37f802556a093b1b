#include "alarm.h"

#include "board/booking_buffer.h"
#include "config/ini_file.h"
#include "config/loaded_options.h"
#include "config/option_reader.h"
#include "core/clock.h"
#include "core/messages.h"
#include "core/regional.h"
#include "core/texts.h"
#include "storage/query_command.h"

namespace ksv {
namespace {

bool between(QDate day, QDate first, QDate last) { return day >= first && day <= last; }

}  // namespace

AlarmOptions AlarmOptions::read(IniFile& ini) {
  AlarmOptions o;
  o.Extension = isYes(readOption(ini, "Alarm", "Extension", QStringLiteral("N")));
  o.Printing = readAlarmPrinting(ini);
  o.Exceptions = isYes(readOption(ini, "Alarm", "Exceptions", QString::fromLatin1(missing::kAlarmExceptions)));
  o.OpenAtStart = isYes(readOption(ini, "Alarm", "OpenAtStart", QStringLiteral("N")));
  return o;
}

AlarmPresenter::AlarmPresenter(WorklistContext ctx) : ctx_(ctx) {}

AlarmPresenter::~AlarmPresenter() { CloseAlarm(); }

void AlarmPresenter::M_Alarm_Click() {
  caption = ctx_.texts.get(txt::Product);
  const AlarmOptions o = AlarmOptions::read(ctx_.ini);
  overStayShown = o.Extension;
  exceptionsOn_ = o.Exceptions;
  openAtStart = o.OpenAtStart;

  const QStringList names = ctx_.texts.list(txt::AlarmListTitles, kLists);
  for (int i = 0; i < kLists; ++i) titles[std::size_t(i)] = names[i];
  today_ = ctx_.clock.today();
  for (int i = 0; i < 4; ++i) {
    counts_[std::size_t(i)] = ctx_.options.NbDays[std::size_t(i)];
    dates_[std::size_t(i)] = today_.addDays(counts_[std::size_t(i)]);
    const QString n = QString::number(counts_[std::size_t(i)]);
    if (i < 2)
      countTexts[std::size_t(i)] = counts_[std::size_t(i)] == 0 ? ctx_.texts.get(txt::AlarmTheVeryDay)
                                                                : ctx_.texts.withName(txt::AlarmInTheDays, n);
    else
      countTexts[std::size_t(i)] = counts_[std::size_t(i)] == 0 ? ctx_.texts.get(txt::AlarmNotSet)
                                                                : ctx_.texts.withName(txt::AlarmInDays, n);
  }

  for (int i = 0; i < kLists; ++i)
    Ck_Alarm[std::size_t(i)] = i < 5 ? o.Printing.mid(i, 1) == QLatin1String("O")
                                     : o.Printing.mid(i, 1) != QLatin1String("N");
  fill();
  selectFirst();
}

void AlarmPresenter::refresh() {
  const int list = selList, row = selRow;
  today_ = ctx_.clock.today();
  for (int i = 0; i < 4; ++i) dates_[std::size_t(i)] = today_.addDays(counts_[std::size_t(i)]);
  fill();
  if (list >= 0 && row >= 0 && row < List_Alarm[std::size_t(list)].size() && (list != ToLookAt || exceptionsShown()))
    List_Alarm_Click(list, row);
  else if (list >= 0 && !List_Alarm[std::size_t(list)].isEmpty() && (list != ToLookAt || exceptionsShown()))
    List_Alarm_Click(list, int(List_Alarm[std::size_t(list)].size()) - 1);
  else
    selectFirst();
}

bool AlarmPresenter::skipped(const Recordset& rs) const {
  // Group headers stand on no resource: they are no one's arrival.
  return textOf(rs, "GroupId") != QLatin1String("C") || textOf(rs, "Resource").endsWith(QLatin1Char('*'));
}

bool AlarmPresenter::fits(int list, const Recordset& rs) const {
  const QDate deb = dayOf(rs.field(QStringLiteral("Date_Deb")));
  const QDate fin = dayOf(rs.field(QStringLiteral("Date_Fin")));
  switch (list) {
    case Leaving: return between(fin, today_, dates_[0]);
    case Arrival: return between(deb, today_, dates_[1]);
    case Event1: return counts_[2] != 0 && deb == dates_[2];
    case Event2: return counts_[3] != 0 && deb == dates_[3];
    default: return false;
  }
}

void AlarmPresenter::fill() {
  for (QStringList& l : List_Alarm) l.clear();
  selList = selRow = -1;
  detail.reset();
  const QueryCatalogue queries(ctx_.db, ctx_.clock);
  QueryCommand rqAlarm = queries.command(QStringLiteral("RQ_Alarm"));
  rqAlarm.setParameters({today_, dates_[0], dates_[1], dates_[2], dates_[3]});
  alarm_ = rqAlarm.openRecordset();
  for (alarm_.moveFirst(); !alarm_.isEOF(); alarm_.moveNext()) {
    if (skipped(alarm_)) continue;
    for (int list = Leaving; list <= Event2; ++list)
      if (fits(list, alarm_)) List_Alarm[std::size_t(list)] << textOf(alarm_, "Resource");
  }
  overStay_.close();
  if (overStayShown) {
    overStay_ = queries.command(QStringLiteral("OverStayUnion")).openRecordset();
    for (overStay_.moveFirst(); !overStay_.isEOF(); overStay_.moveNext())
      if (textOf(overStay_, "GroupId") == QLatin1String("C")) List_Alarm[OverStay] << textOf(overStay_, "Resource");
  }
  exceptions_.clear();
  if (exceptionsOn_) {
    exceptions_ = findWorklistExceptions(ctx_.db, ctx_.blackList, ctx_.texts, today_, dates_[1]);
    const QString format = ctx_.regional.shortDateFormat;
    for (const WorklistException& e : exceptions_)
      List_Alarm[ToLookAt] << QStringLiteral("%1  %2  %3 - %4 : %5")
                                  .arg(e.Resource, e.Nom, e.Date_Deb.toString(format), e.Date_Fin.toString(format),
                                       e.reasons.join(QStringLiteral(" ; ")));
  }
}

void AlarmPresenter::selectFirst() {
  selList = selRow = -1;
  detail.reset();
  for (int list : {int(ToLookAt), int(OverStay), int(Leaving), int(Arrival), int(Event1), int(Event2)}) {
    if (list == ToLookAt && !exceptionsShown()) continue;
    if (list == OverStay && !overStayShown) continue;
    if (!List_Alarm[std::size_t(list)].isEmpty()) {
      List_Alarm_Click(list, 0);
      return;
    }
  }
}

void AlarmPresenter::List_Alarm_Click(int list, int row) {
  if (list < 0 || list >= kLists || row < 0 || row >= List_Alarm[std::size_t(list)].size()) return;
  selList = list;
  selRow = row;
  Alarm_Search_Customer();
}

Recordset* AlarmPresenter::seek(int list, int row) {
  if (list == OverStay) {
    if (!overStay_.isOpen()) return nullptr;
    int count = -1;
    for (overStay_.moveFirst(); !overStay_.isEOF(); overStay_.moveNext())
      if (textOf(overStay_, "GroupId") == QLatin1String("C") && ++count == row) return &overStay_;
    return nullptr;
  }
  if (list < Leaving || list > Event2 || !alarm_.isOpen()) return nullptr;
  int count = -1;
  for (alarm_.moveFirst(); !alarm_.isEOF(); alarm_.moveNext())
    if (!skipped(alarm_) && fits(list, alarm_) && ++count == row) return &alarm_;
  return nullptr;
}

void AlarmPresenter::Alarm_Search_Customer() {
  if (selList == ToLookAt) {
    if (selRow < 0 || selRow >= exceptions_.size()) return;
    Recordset one = Recordset::openQuery(ctx_.db, QStringLiteral("SELECT * FROM Reservation WHERE rowid = ?"),
                                         {exceptions_[selRow].rowId});
    if (one.isEOF()) {
      ctx_.messages.information(ctx_.texts.get(txt::CustomerNotFound));
      return;
    }
    detail = readBookingDetail(one, ctx_.options);
    return;
  }
  const Recordset* rs = seek(selList, selRow);
  if (!rs) {
    ctx_.messages.information(ctx_.texts.get(txt::CustomerNotFound));
    return;
  }
  detail = readBookingDetail(*rs, ctx_.options);
}

void AlarmPresenter::Alarm_Save_Customer(const QString& remark) {
  if (!canWrite || !detail || remark == detail->Remarque) return;
  try {
    if (selList == ToLookAt) {
      Recordset one = Recordset::openQuery(ctx_.db, QStringLiteral("SELECT * FROM Reservation WHERE rowid = ?"),
                                           {rowIdOf(selList, selRow)});
      if (one.isEOF()) return;
      saveRemark(ctx_.db, one, remark);
    } else {
      Recordset* rs = seek(selList, selRow);
      if (!rs) return;
      saveRemark(ctx_.db, *rs, remark);
    }
    detail->Remarque = remark;
  } catch (const StorageError& e) {
    ctx_.messages.critical(QString::fromUtf8(e.what()));
  }
}

qint64 AlarmPresenter::rowIdOf(int list, int row) {
  if (list == ToLookAt) return row >= 0 && row < exceptions_.size() ? exceptions_[row].rowId : -1;
  Recordset* rs = seek(list, row);
  if (!rs) return -1;
  return rs->isUpdatable() ? rs->rowId() : locateBooking(ctx_.db, identityOf(*rs));
}

void AlarmPresenter::List_Alarm_DblClick(int list, int row) {
  if (!openBooking) return;
  List_Alarm_Click(list, row);
  const qint64 id = rowIdOf(list, row);
  if (id < 0) return;
  openBooking(id);
  refresh();
}

void AlarmPresenter::cmdSendEmail_Click() {
  if (sendEmail) sendEmail(detail ? detail->Email : QString());
}

std::optional<PrintedList> AlarmPresenter::printedAlarm() {
  bool any = exceptionsShown();
  for (int list = Leaving; list <= OverStay; ++list)
    if (!List_Alarm[std::size_t(list)].isEmpty()) any = true;
  if (!any) return std::nullopt;

  const Texts& t = ctx_.texts;
  const QString format = ctx_.regional.shortDateFormat;
  const QStringList lead = t.list(txt::AlarmLeadWords, 4);
  PrintedList p;
  p.heading = t.get(txt::Product) + QStringLiteral("  ") + t.get(txt::AlarmPrintTitle) + today_.toString(format);
  p.titles = t.list(txt::AlarmPrintColumns, 4);
  p.widths = {20, 20, 30, 30};
  auto stayRow = [&](const QString& resource, const QString& nom, QDate deb, QDate fin, const QString& last,
                     const QString& remark) {
    p.rows << QStringList{resource, nom, deb.toString(format) + QStringLiteral(" - ") + fin.toString(format), last};
    const QStringList lines = printedRemark(remark);
    if (!lines.isEmpty()) p.rows << QStringList{QString(), QString(), lines.join(QLatin1Char('\n')), QString()};
  };
  auto heading = [&](int list) {
    p.headingRows << int(p.rows.size());
    p.rows << QStringList{list <= Event2 ? lead[list] + countTexts[std::size_t(list)] : titles[std::size_t(list)]};
  };
  auto fromRow = [&](const Recordset& rs) {
    stayRow(textOf(rs, "Resource"), textOf(rs, "Nom"), dayOf(rs.field(QStringLiteral("Date_Deb"))),
            dayOf(rs.field(QStringLiteral("Date_Fin"))), textOf(rs, "Email"), textOf(rs, "Remarque"));
  };

  if (exceptionsShown() && Ck_Alarm[ToLookAt]) {
    heading(ToLookAt);
    // The reasons stand under the stay, where a remark would.
    for (const WorklistException& e : exceptions_)
      stayRow(e.Resource, e.Nom, e.Date_Deb, e.Date_Fin, e.Email, e.reasons.join(QStringLiteral("\r\n")));
  }
  if (overStayShown && Ck_Alarm[OverStay] && overStay_.isOpen()) {
    heading(OverStay);
    Recordset& rs = overStay_;
    for (rs.moveFirst(); !rs.isEOF(); rs.moveNext())
      if (!skipped(rs)) fromRow(rs);
  }
  for (int list = Leaving; list <= Event2; ++list) {
    if (!Ck_Alarm[std::size_t(list)] || !alarm_.isOpen()) continue;
    heading(list);
    Recordset& rs = alarm_;
    for (rs.moveFirst(); !rs.isEOF(); rs.moveNext())
      if (!skipped(rs) && fits(list, rs)) fromRow(rs);
  }
  return p;
}

void AlarmPresenter::Alarm_Print() {
  const std::optional<PrintedList> paper = printedAlarm();
  if (!paper) {
    ctx_.messages.information(ctx_.texts.get(txt::AlarmNone));
    return;
  }
  if (print) print(*paper);
}

void AlarmPresenter::OK_Click() {
  QString printing;
  for (bool ticked : Ck_Alarm) printing += ticked ? QLatin1Char('O') : QLatin1Char('N');
  ctx_.ini.SetValue("Alarm", "Printing", printing);
  ctx_.ini.SetValue("Alarm", "OpenAtStart", yesNo(openAtStart));
  CloseAlarm();
}

void AlarmPresenter::CloseAlarm() {
  alarm_.close();
  overStay_.close();
}

}  // namespace ksv
