#pragma once
// What the customer and black list windows work with: the open planning and
// the session's services.

#include <QString>

#include "storage/text_compare.h"

namespace ksv {

class Clock;
class Database;
class Messages;
class Paths;
class Texts;

struct CustomerContext {
  Database& db;
  const Clock& clock;
  Messages& messages;
  const Texts& texts;
  const Paths& paths;  // planningDir(): where exports go
};

inline const QString kRQ_Customer = QStringLiteral("RQ_Customer");
inline const QString kRQ_Agent = QStringLiteral("RQ_Agent");

// One line of the customer grid: a row of RQ_Customer or RQ_Agent, Null read as "".
struct CustomerRow {
  QString Nom;
  QString Email;
  QString Remarque;
  bool operator==(const CustomerRow&) const = default;
};

// The rows the file shows as one line of the list: its columns ignore case.
inline bool sameCustomer(const CustomerRow& a, const CustomerRow& b) {
  return sameText(a.Nom, b.Nom) && sameText(a.Email, b.Email) && sameText(a.Remarque, b.Remarque);
}

}  // namespace ksv
