#pragma once
// The dialogs of one catalogue row, AccountsD (service), AccountsM (modifier)
// and AccountsP (payment), opened to add, modify or delete: their fields and
// what OK writes, the rename reaching the waiting invoices included.

#include <QString>

#include "accounts_catalogue.h"

namespace ksv {

// A numeric field that keeps its last good text: the text held on entering
// comes back when a change leaves something neither empty nor numeric.
class NumericField {
 public:
  QString text = QStringLiteral("0");
  void enter() { kept_ = text; }
  // The text typed; false when it was refused and the kept text is back.
  bool change(const QString& typed, const Regional& regional);
  // Leaving an empty field gives "0".
  void leave();
  // The value the text stands for; empty counts 0.
  float value(const Regional& regional) const;

 private:
  QString kept_ = QStringLiteral("0");
};

class AccountUpdate {
 public:
  enum class Mode { Add, Modify, Delete };  // the letters "A", "M", "D"

  // Add: the column defaults. Modify and Delete: the fields of row `rowid`.
  AccountUpdate(const AccountsContext& ctx, AccountCatalogue catalogue, Mode mode, qint64 rowid = 0);

  const AccountCatalogue catalogue;
  const Mode mode;
  // The name field: `Designation`, `Modification` or `Payment`.
  QString name;
  NumericField UnitPrice, Fixed, Rate;
  bool CkIncluded = true, CkAddUp = false, CkPrinted = true;

  // The row written, added or deleted once OK has closed the dialog.
  qint64 rowid = 0;
  bool closed = false;
  bool done = false;  // closed by OK, the catalogue changed

  QString okCaption() const;
  bool readOnly() const { return mode == Mode::Delete; }
  void OK_Click();
  void Cancel_Click() { closed = true; }

 private:
  bool refused();
  void write();
  void renamePending(const QString& oldName);

  AccountsContext ctx_;
  QString oldName_;
};

}  // namespace ksv
