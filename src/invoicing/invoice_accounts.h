#pragma once
// The accounts' share of an invoice: its lines move the sums of the
// catalogue's accounts, and removing an invoice takes them out again.

#include <QString>

#include "core/currency.h"

namespace ksv {

class Clock;
class Database;

// Moves one account's sums by |amount|. `kind` "1" Designation, "2"
// Modification (its name still carries the four-character "  # " prefix),
// "3" Payment; anything else, or a name the catalogue doesn't know, moves
// nothing. `operation` "A" adds, anything else subtracts; `mode` "O" moves
// the posted sums, anything else the saved ones (_NC).
void AddInAccount(Database& db, const QString& kind, QString name, Currency amount, const QString& operation,
                  const QString& mode);

// Deletes every row of invoice `number` (blank: nothing) and takes its
// services, modifiers and payments out of the accounts: the saved sums for a
// waiting (negative) number, the posted ones otherwise. A row that fails does
// not stop the others. Returns the rows deleted.
int DeleteInvoice(Database& db, const Clock& clock, const QString& number);

}  // namespace ksv
