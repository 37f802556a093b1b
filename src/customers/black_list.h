#pragma once
// The black list: names the establishment does not want back, in the table
// T_BlackList, read through the session's `BlackList` recordset (ordered by
// Nom). Nothing links a row to the bookings: the test is by name.

#include <functional>
#include <optional>

#include <QList>
#include <QString>

#include "customer_context.h"
#include "printed_list.h"

namespace ksv {

class Recordset;

struct BlackListRow {
  QString Nom;
  QString Remark;
  bool operator==(const BlackListRow&) const = default;
};

// Search_BlackList: the first row, in the order of Nom, whose whole name equals
// `name` in lower case. Sets `BL_Remark` to its remark and returns true.
bool Search_BlackList(Recordset& blackList, const QString& name, QString& BL_Remark);

// `BlackListUpdate`: the dialog of one row. OK refuses an empty name.
enum class BlackListMode { Add, Modify, Delete };

class BlackListUpdatePresenter {
 public:
  BlackListUpdatePresenter(Messages& messages, const Texts& texts, BlackListMode mode, const BlackListRow& row = {});
  BlackListMode mode;
  QString Nom, Remark;
  bool changed = false;
  bool closed = false;
  bool readOnly() const { return mode == BlackListMode::Delete; }
  QString okCaption() const;
  void OK_Click();
  void Cancel_Click();

 private:
  Messages& messages_;
  const Texts& texts_;
  BlackListRow old_;
};

// The `BlackList` window and the black list operations of the session.
class BlackListPresenter {
 public:
  // `blackList` is the session's recordset on the `BlackList` command.
  BlackListPresenter(CustomerContext ctx, Recordset& blackList) : ctx_(ctx), bl_(blackList) {}

  // Modal BlackListUpdate; true once closed by OK.
  std::function<bool(BlackListUpdatePresenter&)> showBlackListUpdate;
  std::function<void(const PrintedList&)> print;
  QString planningName;  // printed in the heading

  // N_Add_BL and R_Add_BL: name and remark brought from elsewhere.
  QString N_Add_BL, R_Add_BL;

  QStringList columnTitles() const;
  void M_BlackList_Click() { Dessin_BlackList(); }
  void Dessin_BlackList();
  const QList<BlackListRow>& allRows() const { return rows_; }
  QList<BlackListRow> visibleRows() const;
  QString searchText() const { return search_; }
  void setSearchText(const QString& text);

  int selectedRow = -1;  // in the visible rows
  void selectRow(int row);
  std::optional<BlackListRow> selected() const;

  void Add_Click();
  void Modify_Click();
  void Delete_Click();
  void Print_Click();

  // The operations; each returns true when the list changed.
  bool BlackList_Add(const BlackListRow& row);
  bool BlackList_Add_Commun();
  bool BlackList_Modify(const BlackListRow& old, const BlackListRow& now);
  bool BlackList_Delete(const BlackListRow& row);

  PrintedList printedList() const;

 private:
  bool contains(const BlackListRow& row);
  bool moveTo(const BlackListRow& row);
  void selectWhere(const BlackListRow& row);

  CustomerContext ctx_;
  Recordset& bl_;
  QList<BlackListRow> rows_;
  QString search_;
};

}  // namespace ksv
