#include "accounts_update.h"

#include "core/messages.h"
#include "core/number_text.h"
#include "core/regional.h"
#include "core/texts.h"
#include "storage/query_command.h"
#include "storage/recordset.h"
#include "storage/sqlite_db.h"

namespace ksv {
namespace {

// A modifier's line starts with this before its name.
const QString kModifierPrefix = QStringLiteral("  # ");

Recordset rowOf(Database& db, const QString& table, qint64 rowid) {
  return Recordset::openQuery(db, QStringLiteral("SELECT * FROM %1 WHERE rowid = ?").arg(table), {rowid});
}

}  // namespace

bool NumericField::change(const QString& typed, const Regional& regional) {
  if (!typed.trimmed().isEmpty() && !isNumeric(typed, regional)) {
    text = kept_;
    return false;
  }
  text = typed;
  kept_ = typed;
  return true;
}

void NumericField::leave() {
  if (text.trimmed().isEmpty()) text = QStringLiteral("0");
}

float NumericField::value(const Regional& regional) const {
  return static_cast<float>(parseNumber(text, regional).value_or(0.0));
}

AccountUpdate::AccountUpdate(const AccountsContext& ctx, AccountCatalogue c, Mode m, qint64 row)
    : catalogue(c), mode(m), rowid(row), ctx_(ctx) {
  if (mode == Mode::Add) return;
  Recordset rs = rowOf(ctx_.db, catalogueTable(catalogue), rowid);
  if (rs.isEOF()) return;
  name = oldName_ = rs.field(catalogueTable(catalogue)).toString();
  if (catalogue == AccountCatalogue::Designation) {
    UnitPrice.text = singleText(rs.field(QStringLiteral("UnitPrice")).toFloat(), ctx_.regional);
  } else if (catalogue == AccountCatalogue::Modification) {
    Fixed.text = singleText(rs.field(QStringLiteral("Fixed")).toFloat(), ctx_.regional);
    Rate.text = singleText(rs.field(QStringLiteral("Rate")).toFloat(), ctx_.regional);
    CkIncluded = rs.field(QStringLiteral("Included")).toBool();
    CkAddUp = rs.field(QStringLiteral("AddUp")).toBool();
    CkPrinted = rs.field(QStringLiteral("Printed")).toBool();
  }
}

QString AccountUpdate::okCaption() const {
  switch (mode) {
    case Mode::Add: return ctx_.texts.get(txt::AccAdd);
    case Mode::Modify: return ctx_.texts.get(txt::AccModify);
    case Mode::Delete: return ctx_.texts.get(txt::AccDelete);
  }
  return {};
}

void AccountUpdate::OK_Click() {
  if (refused()) return;
  try {
    // The renamed lines and the row go together or not at all.
    JoinedTransaction transaction(ctx_.db);
    write();
    transaction.commit();
  } catch (const StorageError& e) {
    ctx_.messages.critical(QString::fromUtf8(e.what()));
    return;
  }
  closed = done = true;
}

bool AccountUpdate::refused() {
  if (mode == Mode::Delete) return false;
  // Lines and look-ups compare names exactly: blanks around one would make another account.
  name = name.trimmed();
  if (name.isEmpty()) {
    ctx_.messages.exclamation(ctx_.texts.get(txt::AccNameEmpty));
    return true;
  }
  // The invoice's choosers cut their items at the brackets.
  if (name.contains(QLatin1Char('[')) || name.contains(QLatin1Char(']'))) {
    ctx_.messages.exclamation(ctx_.texts.get(txt::AccBrackets));
    return true;
  }
  if ((mode == Mode::Add || name != oldName_) && AccountExists(ctx_.db, catalogue, name)) {
    ctx_.messages.exclamation(ctx_.texts.get(txt::AccExists));
    return true;
  }
  // Such a modifier would move the balance without a printed line.
  if (catalogue == AccountCatalogue::Modification && !CkIncluded && !CkPrinted &&
      !ctx_.messages.askYesNo(ctx_.texts.get(txt::AccNotIncludedNotPrinted)))
    return true;
  return false;
}

void AccountUpdate::write() {
  const QString table = catalogueTable(catalogue);
  Recordset rs;
  if (mode == Mode::Add) {
    rs = Recordset::openQuery(ctx_.db, QStringLiteral("SELECT * FROM %1 WHERE 0").arg(table));
    rs.addNew();
    for (const char* sum : {"Day", "Month", "Year"}) rs.setField(QLatin1String(sum), 0.0);
  } else {
    rs = rowOf(ctx_.db, table, rowid);
    // Another workstation took it away: nothing is left to change.
    if (rs.isEOF()) return;
    if (mode == Mode::Delete) {
      // Saved lines keep their text and from now on move no account.
      rs.deleteRecord();
      return;
    }
    if (name != oldName_) renamePending(oldName_);
  }
  rs.setField(table, name);
  if (catalogue == AccountCatalogue::Designation) {
    rs.setField(QStringLiteral("UnitPrice"), UnitPrice.value(ctx_.regional));
  } else if (catalogue == AccountCatalogue::Modification) {
    rs.setField(QStringLiteral("Fixed"), Fixed.value(ctx_.regional));
    rs.setField(QStringLiteral("Rate"), Rate.value(ctx_.regional));
    rs.setField(QStringLiteral("Included"), CkIncluded);
    rs.setField(QStringLiteral("AddUp"), CkAddUp);
    rs.setField(QStringLiteral("Printed"), CkPrinted);
  }
  rs.update();
  rowid = rs.rowId();
}

void AccountUpdate::renamePending(const QString& oldName) {
  // Only waiting invoices follow: posted ones keep the name they were posted with.
  Recordset lines = QueryCatalogue(ctx_.db, ctx_.clock).command(QStringLiteral("RQ_InvoiceAllPending")).openRecordset();
  const QString typ = catalogueTyp(catalogue);
  const bool modifier = catalogue == AccountCatalogue::Modification;
  for (lines.moveFirst(); !lines.isEOF(); lines.moveNext()) {
    if (lines.field(QStringLiteral("Typ")).toString() != typ) continue;
    const QString lib = lines.field(QStringLiteral("Lib")).toString();
    const qsizetype cut = lib.indexOf(QLatin1String(" ["));
    QString account = cut < 0 ? lib : lib.left(cut);
    const QString rest = cut < 0 ? QString() : lib.mid(cut);
    const QString prefix = modifier ? account.left(kModifierPrefix.size()) : QString();
    account.remove(0, prefix.size());
    if (account != oldName) continue;
    lines.setField(QStringLiteral("Lib"), prefix + name + rest);
    lines.update();
  }
}

}  // namespace ksv
