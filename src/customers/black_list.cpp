#include "black_list.h"

#include "core/messages.h"
#include "core/texts.h"
#include "search_fold.h"
#include "storage/recordset.h"
#include "storage/sqlite_db.h"
#include "storage/text_compare.h"

namespace ksv {

namespace {

BlackListRow rowOf(const Recordset& rs) {
  return BlackListRow{rs.field(QStringLiteral("Nom")).toString(), rs.field(QStringLiteral("Remark")).toString()};
}

// Two rows the file cannot tell apart: its columns ignore case.
bool sameRow(const BlackListRow& a, const BlackListRow& b) {
  return sameText(a.Nom, b.Nom) && sameText(a.Remark, b.Remark);
}

}  // namespace

bool Search_BlackList(Recordset& blackList, const QString& name, QString& BL_Remark) {
  // Another workstation may have added a name since the list was read.
  blackList.requery();
  // Blanks around a name are not part of it: "Dupré " is still "Dupré".
  const QString wanted = name.trimmed().toLower();
  for (blackList.moveFirst(); !blackList.isEOF(); blackList.moveNext()) {
    if (blackList.field(QStringLiteral("Nom")).toString().trimmed().toLower() == wanted) {
      BL_Remark = blackList.field(QStringLiteral("Remark")).toString();
      return true;
    }
  }
  return false;
}

BlackListUpdatePresenter::BlackListUpdatePresenter(Messages& messages, const Texts& texts, BlackListMode m,
                                                   const BlackListRow& row)
    : mode(m), Nom(row.Nom), Remark(row.Remark), messages_(messages), texts_(texts), old_(row) {}

QString BlackListUpdatePresenter::okCaption() const {
  switch (mode) {
    case BlackListMode::Add: return texts_.get(txt::BlackListAdd);
    case BlackListMode::Modify: return texts_.get(txt::CustomerModify);
    case BlackListMode::Delete: return texts_.get(txt::BlackListDelete);
  }
  return {};
}

void BlackListUpdatePresenter::OK_Click() {
  if (mode != BlackListMode::Delete) Nom = Nom.trimmed();
  if (Nom.isEmpty()) {
    messages_.exclamation(texts_.get(txt::CustomerNameEmpty));
    closed = false;
    return;
  }
  if (mode == BlackListMode::Delete) {
    Nom = old_.Nom;
    Remark = old_.Remark;
    changed = true;
  } else {
    changed = mode == BlackListMode::Add || Nom != old_.Nom || Remark != old_.Remark;
  }
  closed = true;
}

void BlackListUpdatePresenter::Cancel_Click() {
  Nom = old_.Nom;
  Remark = old_.Remark;
  changed = false;
  closed = true;
}

QStringList BlackListPresenter::columnTitles() const {
  return {ctx_.texts.get(txt::BlackListTitle), ctx_.texts.get(txt::CustomerColRemark)};
}

void BlackListPresenter::Dessin_BlackList() {
  bl_.requery();
  rows_.clear();
  for (bl_.moveFirst(); !bl_.isEOF(); bl_.moveNext()) rows_ << rowOf(bl_);
  selectedRow = -1;
}

QList<BlackListRow> BlackListPresenter::visibleRows() const {
  QList<BlackListRow> out;
  for (const BlackListRow& r : rows_)
    if (matchesSearch({r.Nom, r.Remark}, search_)) out << r;
  return out;
}

void BlackListPresenter::setSearchText(const QString& text) {
  const auto keep = selected();
  search_ = text;
  selectedRow = -1;
  if (keep) selectWhere(*keep);
}

void BlackListPresenter::selectRow(int row) {
  selectedRow = row >= 0 && row < visibleRows().size() ? row : -1;
}

std::optional<BlackListRow> BlackListPresenter::selected() const {
  const auto rows = visibleRows();
  if (selectedRow < 0 || selectedRow >= rows.size()) return std::nullopt;
  return rows[selectedRow];
}

void BlackListPresenter::selectWhere(const BlackListRow& row) {
  const auto rows = visibleRows();
  selectedRow = static_cast<int>(rows.indexOf(row));
}

bool BlackListPresenter::contains(const BlackListRow& row) {
  // Read again: the test must see what other workstations wrote meanwhile.
  bl_.requery();
  for (bl_.moveFirst(); !bl_.isEOF(); bl_.moveNext())
    if (sameRow(rowOf(bl_), row)) return true;
  return false;
}

bool BlackListPresenter::moveTo(const BlackListRow& row) {
  // The row as read: a file from before the case rule may hold two that differ in case only.
  bl_.requery();
  for (bl_.moveFirst(); !bl_.isEOF(); bl_.moveNext())
    if (rowOf(bl_) == row) return true;
  return false;
}

bool BlackListPresenter::BlackList_Add(const BlackListRow& row) {
  if (contains(row)) {
    ctx_.messages.exclamation(ctx_.texts.get(txt::BlackListDuplicate));
    return false;
  }
  bl_.addNew();
  bl_.setField(QStringLiteral("Nom"), row.Nom);
  bl_.setField(QStringLiteral("Remark"), row.Remark);
  bl_.update();
  return true;
}

bool BlackListPresenter::BlackList_Add_Commun() {
  const BlackListRow row{N_Add_BL, R_Add_BL};
  if (contains(row)) {
    ctx_.messages.exclamation(ctx_.texts.get(txt::BlackListDuplicate));
    return false;
  }
  if (!ctx_.messages.askYesNo(ctx_.texts.get(txt::BlackListAddQuestion), MsgAnswer::No)) return false;
  bl_.addNew();
  bl_.setField(QStringLiteral("Nom"), row.Nom);
  bl_.setField(QStringLiteral("Remark"), row.Remark);
  bl_.update();
  Dessin_BlackList();
  return true;
}

bool BlackListPresenter::BlackList_Modify(const BlackListRow& old, const BlackListRow& now) {
  // Two rows may not hold the same name and remark.
  if (!sameRow(now, old) && contains(now)) {
    ctx_.messages.exclamation(ctx_.texts.get(txt::BlackListDuplicate));
    return false;
  }
  if (!moveTo(old)) {
    ctx_.messages.exclamation(ctx_.texts.get(txt::BlackListNotFound));
    return false;
  }
  bl_.setField(QStringLiteral("Nom"), now.Nom);
  bl_.setField(QStringLiteral("Remark"), now.Remark);
  bl_.update();
  return true;
}

bool BlackListPresenter::BlackList_Delete(const BlackListRow& row) {
  if (!ctx_.messages.askYesNo(ctx_.texts.get(txt::BlackListRemoveQuestion), MsgAnswer::No)) return false;
  if (!moveTo(row)) {
    ctx_.messages.exclamation(ctx_.texts.get(txt::BlackListNotFound));
    return false;
  }
  bl_.deleteRecord();
  return true;
}

void BlackListPresenter::Add_Click() {
  if (!showBlackListUpdate) return;
  BlackListUpdatePresenter update(ctx_.messages, ctx_.texts, BlackListMode::Add);
  if (!showBlackListUpdate(update) || !update.changed) return;
  const BlackListRow now{update.Nom, update.Remark};
  try {
    if (!BlackList_Add(now)) return;
  } catch (const StorageError& e) {
    ctx_.messages.critical(QString::fromUtf8(e.what()));
    bl_.cancelUpdate();
  }
  Dessin_BlackList();
  selectWhere(now);
}

void BlackListPresenter::Modify_Click() {
  const auto row = selected();
  if (!row || !showBlackListUpdate) return;
  BlackListUpdatePresenter update(ctx_.messages, ctx_.texts, BlackListMode::Modify, *row);
  if (!showBlackListUpdate(update) || !update.changed) return;
  const BlackListRow now{update.Nom, update.Remark};
  try {
    if (!BlackList_Modify(*row, now)) return;
  } catch (const StorageError& e) {
    ctx_.messages.critical(QString::fromUtf8(e.what()));
    bl_.cancelUpdate();
  }
  Dessin_BlackList();
  selectWhere(now);
}

void BlackListPresenter::Delete_Click() {
  const auto row = selected();
  if (!row || !showBlackListUpdate) return;
  BlackListUpdatePresenter update(ctx_.messages, ctx_.texts, BlackListMode::Delete, *row);
  if (!showBlackListUpdate(update) || !update.changed) return;
  try {
    if (!BlackList_Delete(*row)) return;
  } catch (const StorageError& e) {
    ctx_.messages.critical(QString::fromUtf8(e.what()));
  }
  Dessin_BlackList();
}

void BlackListPresenter::Print_Click() {
  if (print) print(printedList());
}

PrintedList BlackListPresenter::printedList() const {
  PrintedList list;
  list.heading = ctx_.texts.get(txt::BlackListTitle) + QLatin1String(" - ") + planningName;
  list.titles = columnTitles();
  list.widths = {1, 2};
  for (const BlackListRow& r : rows_) list.rows << QStringList{r.Nom, r.Remark};
  return list;
}

}  // namespace ksv
