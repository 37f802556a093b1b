#pragma once
// The three account catalogues, Designation (services), Modification
// (modifiers) and Payment: their lists as the grids show them, and the look-ups
// by name that the invoice window, the group windows and the results share.

#include <QList>
#include <QString>
#include <QStringList>

#include "core/currency.h"

namespace ksv {

class Clock;
class Database;
class Messages;
class Texts;
struct Regional;

enum class AccountCatalogue { Designation, Modification, Payment };

// What the catalogue windows work with.
struct AccountsContext {
  Database& db;
  const Clock& clock;
  Messages& messages;
  const Texts& texts;
  const Regional& regional;
};

// The table of a catalogue; its name column has the same name.
QString catalogueTable(AccountCatalogue catalogue);
// The invoice row kind (`Typ`) of the catalogue's lines: "1", "2" or "3".
QString catalogueTyp(AccountCatalogue catalogue);

// One line of GridD, GridM or GridP: the catalogue row it shows and its cells.
struct AccountLine {
  qint64 rowid = 0;
  QStringList cells;
};

// The column titles of the grids and of the printed catalogues.
QStringList accountTitles(AccountCatalogue catalogue, const Texts& texts);

// The grids' contents, read from DesignationSort, ModificationSort and
// PaymentSort: name and unit price; name, fixed, rate and the three flags as
// "Y" or "N"; name.
QList<AccountLine> Dessin_Designation(const AccountsContext& ctx);
QList<AccountLine> Dessin_Modification(const AccountsContext& ctx);
QList<AccountLine> Dessin_Payment(const AccountsContext& ctx);
QList<AccountLine> Dessin_Catalogue(const AccountsContext& ctx, AccountCatalogue catalogue);

// A Single of the catalogue as its fields show it: up to seven significant
// digits, the locale's decimal symbol, no grouping.
QString singleText(float value, const Regional& regional);

// True when the catalogue holds `name`, both upper-cased.
bool AccountExists(Database& db, AccountCatalogue catalogue, const QString& name);
// "S", "M" or "P": the first catalogue, in that order, that holds `name`;
// empty when none does.
QString AccountKind(Database& db, const QString& name);

// Adds the named account's Day, Month and Year (with `posted`) or Day_NC,
// Month_NC and Year_NC to the sums, a Null counting 0. The catalogues are
// searched in the order of AccountKind and the first match counts. False when
// no catalogue holds the name, and the sums stay.
bool AccountSums(Database& db, const QString& name, bool posted, Currency& day, Currency& month, Currency& year);

}  // namespace ksv
