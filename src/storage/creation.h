#pragma once
// Making a new planning: the tables, the stored queries, then (unless the new
// file is for a conversion, which copies its own rows) the optional recopy of
// the black list and the invoicing catalogue from the open planning, and the
// one row each of Header, Option and DataBaseInfo.

#include <QString>

namespace ksv {

class Database;
class Messages;
class Paths;
class Texts;

struct CreationContext {
  Messages& messages;
  const Texts& texts;
  const Paths& paths;           // the ini file whose text goes into Option
  Database* openPlanning = nullptr;  // DB_Open: the session's open planning, if any
  bool fromConvert = false;     // Flg_FromConvert: stop after tables and queries
};

// Makes the planning `path`, which must not exist yet. Returns Flg_OkCl: true
// once every step has succeeded. On failure the partly made file is left
// where it is; the caller reports.
bool Creation(const QString& path, const CreationContext& context);

// The tables the second recopy question copies, in order.
inline constexpr const char* kInvoicingTables[] = {"AccountGroup", "Designation", "Modification", "Payment", "Header"};

}  // namespace ksv
