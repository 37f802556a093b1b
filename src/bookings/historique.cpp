#include "historique.h"

#include "board/booking_buffer.h"
#include "core/clock.h"
#include "core/messages.h"
#include "core/regional.h"
#include "core/texts.h"
#include "customers/search_fold.h"

namespace ksv {
namespace {

const char* const kQueries[8] = {"RQ_Review_N_All",     "RQ_Review_N_Past", "RQ_Review_N_Present",
                                 "RQ_Review_N_Futur",   "RQ_Review_D_All",  "RQ_Review_D_Past",
                                 "RQ_Review_D_Present", "RQ_Review_D_Futur"};

}  // namespace

HistoriquePresenter::HistoriquePresenter(WorklistContext ctx) : ctx_(ctx) {}

HistoriquePresenter::~HistoriquePresenter() { Leave_Historique(); }

QString HistoriquePresenter::caption() const { return ctx_.texts.get(txt::HistoriqueCaption); }
QStringList HistoriquePresenter::columnTitles() const { return ctx_.texts.list(txt::HistoriqueColumns, 2); }
QStringList HistoriquePresenter::filterCaptions() const { return ctx_.texts.list(txt::HistoriqueOptions, 4); }

void HistoriquePresenter::M_BookingHistory_Click() {
  const QueryCatalogue queries(ctx_.db, ctx_.clock);
  for (int i = 0; i < 8; ++i) commands_[std::size_t(i)].emplace(queries.command(QString::fromLatin1(kQueries[i])));
  filter = optAll;
  byName = true;
  search_.clear();
  Dessin_Historique();
  selectRow(lines_.isEmpty() ? -1 : 0);
}

QueryCommand& HistoriquePresenter::command() { return *commands_[std::size_t(int(filter) + (byName ? 0 : 4))]; }

void HistoriquePresenter::setFilter(Filter f) {
  filter = f;
  Dessin_Historique();
  selectRow(lines_.isEmpty() ? -1 : 0);
}

void HistoriquePresenter::sortByColumn(int column) {
  byName = column == 0;
  Dessin_Historique();
  selectRow(lines_.isEmpty() ? -1 : 0);
}

void HistoriquePresenter::setSearchText(const QString& text) {
  search_ = text;
  Dessin_Historique();
  selectRow(lines_.isEmpty() ? -1 : 0);
}

void HistoriquePresenter::Dessin_Historique() {
  lines_.clear();
  selectedRow = -1;
  detail.reset();
  if (!commands_[0]) return;
  rs_ = command().openRecordset();
  const QString term = search_.trimmed();
  for (rs_.moveFirst(); !rs_.isEOF(); rs_.moveNext()) {
    if (!matchesSearch({textOf(rs_, "Nom"), textOf(rs_, "Email"), textOf(rs_, "Remarque")}, term)) continue;
    const QDate deb = dayOf(rs_.field(QStringLiteral("Date_Deb")));
    lines_ << Line{textOf(rs_, "Nom"), deb, deb.toString(ctx_.regional.shortDateFormat)};
  }
}

void HistoriquePresenter::selectRow(int row) {
  if (row < 0 || row >= lines_.size()) {
    selectedRow = -1;
    detail.reset();
    return;
  }
  selectedRow = row;
  selNom = lines_[row].Nom;
  selDate = lines_[row].Date_deb;
  Historique_Search();
}

bool HistoriquePresenter::seekSelection() {
  if (!rs_.isOpen()) return false;
  // Read again: the stay may have changed or gone since the list was drawn.
  rs_.requery();
  for (rs_.moveFirst(); !rs_.isEOF(); rs_.moveNext())
    if (textOf(rs_, "Nom") == selNom && dayOf(rs_.field(QStringLiteral("Date_Deb"))) == selDate) return true;
  return false;
}

void HistoriquePresenter::Historique_Search() {
  if (!seekSelection()) {
    ctx_.messages.information(ctx_.texts.get(txt::BookingNotFound));
    return;
  }
  detail = readBookingDetail(rs_, ctx_.options);
}

void HistoriquePresenter::saveRemark(const QString& remark) {
  if (!canWrite || !detail || remark == detail->Remarque || !seekSelection()) return;
  try {
    ksv::saveRemark(ctx_.db, rs_, remark);
    detail->Remarque = remark;
  } catch (const StorageError& e) {
    ctx_.messages.critical(QString::fromUtf8(e.what()));
  }
}

void HistoriquePresenter::cmdSendEmail_Click() {
  if (sendEmail) sendEmail(detail ? detail->Email : QString());
}

PrintedList HistoriquePresenter::printedHistorique() {
  const Texts& t = ctx_.texts;
  const QString format = ctx_.regional.shortDateFormat;
  PrintedList p;
  p.heading = t.get(txt::HistoricTitle) + ctx_.clock.today().toString(format) + QStringLiteral("  ") +
              QString(filterCaptions()[filter]).remove(QLatin1Char('&'));
  p.titles = t.list(txt::HistoriquePrintColumns, 5);
  p.widths = {25, 15, 12, 12, 36};
  if (!rs_.isOpen()) return p;
  const QString term = search_.trimmed();
  for (rs_.moveFirst(); !rs_.isEOF(); rs_.moveNext()) {
    if (!matchesSearch({textOf(rs_, "Nom"), textOf(rs_, "Email"), textOf(rs_, "Remarque")}, term)) continue;
    p.rows << QStringList{textOf(rs_, "Nom"), textOf(rs_, "Resource"),
                          dayOf(rs_.field(QStringLiteral("Date_Deb"))).toString(format),
                          dayOf(rs_.field(QStringLiteral("Date_Fin"))).toString(format), textOf(rs_, "Email")};
    // Historique_Print_Remarque: the remark under its row.
    const QStringList remark = printedRemark(textOf(rs_, "Remarque"));
    if (!remark.isEmpty()) p.rows << QStringList{QString(), QString(), remark.join(QLatin1Char('\n')), QString(), QString()};
  }
  return p;
}

void HistoriquePresenter::Historique_Print() {
  if (print) print(printedHistorique());
}

void HistoriquePresenter::Leave_Historique() {
  rs_.close();
  for (auto& c : commands_) c.reset();
}

}  // namespace ksv
