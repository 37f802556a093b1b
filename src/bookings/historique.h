#pragma once
// `Historique`, the booking history: the stays of the planning by customer or
// by date, past, in use or to come, the stay under the pointer in detail, the
// search box, and the list on paper. It changes nothing but a stay's remark.

#include <array>
#include <functional>
#include <optional>

#include <QDate>
#include <QList>
#include <QString>

#include "alarm.h"
#include "storage/query_command.h"

namespace ksv {

class HistoriquePresenter {
 public:
  enum Filter { optAll = 0, optPast = 1, optIn = 2, optFutur = 3 };

  explicit HistoriquePresenter(WorklistContext ctx);
  ~HistoriquePresenter();

  std::function<void(const PrintedList&)> print;
  std::function<void(const QString& email)> sendEmail;
  bool canWrite = true;

  struct Line {
    QString Nom;
    QDate Date_deb;
    QString dateText;  // the short date of the system
  };

  Filter filter = optAll;
  bool byName = true;
  QString caption() const;
  QStringList columnTitles() const;   // "Customer", "Date"
  QStringList filterCaptions() const; // the four options

  // The lines shown: the query's rows that pass the search box.
  const QList<Line>& lines() const { return lines_; }
  int selectedRow = -1;
  QString selNom;
  QDate selDate;
  std::optional<BookingDetail> detail;

  // Opens the eight commands, shows all the stays by name and selects the first.
  void M_BookingHistory_Click();
  void setFilter(Filter f);
  // A press on a column title: 0 sorts by name, 1 by date.
  void sortByColumn(int column);
  // The search box: a line passes when its name, e-mail or remark holds the
  // text, without regard to case or accents.
  void setSearchText(const QString& text);
  QString searchText() const { return search_; }
  void Dessin_Historique();
  // A line chosen by the mouse or the movement keys.
  void selectRow(int row);
  void Historique_Search();
  void saveRemark(const QString& remark);
  void cmdSendEmail_Click();
  PrintedList printedHistorique();
  void Historique_Print();
  void Leave_Historique();

 private:
  QueryCommand& command();
  bool seekSelection();

  WorklistContext ctx_;
  // The eight commands, by filter, name sort first.
  std::array<std::optional<QueryCommand>, 8> commands_;
  Recordset rs_;
  QList<Line> lines_;
  QString search_;
};

}  // namespace ksv
