#pragma once
// Rows of a planning written as readable text, so that a planning's content
// can be kept, reviewed and edited as text (the example planning is made this
// way at build time):
//
//   # a comment
//   [Resource]
//   Resource<TAB>Color<TAB>Order
//   101<TAB>4<TAB>1
//
// One section per table: a line [Table], a line of column names, then one row
// per line, fields separated by TABs. The table named by a section is emptied
// first, so a section replaces the one row of DataBaseInfo or Header. An empty
// field takes the column's default (Null when it has none); \N is Null. Dates
// are YYYY-MM-DD, Booleans 0 or 1. Every value passes the column rules of the
// store.

#include <QString>

namespace ksv {

class Database;

// Loads the rows into `db` in one transaction and returns how many were
// added. A bad line throws StorageError naming its line number; nothing is
// then written.
int loadRowScript(Database& db, const QString& text);

}  // namespace ksv
