#pragma once
// The named queries every planning carries. Their text is kept in the file
// exactly as written here, in the engine dialect the rest of the system speaks;
// the translator turns it into SQLite when a query is prepared.

#include <span>

#include <QString>

namespace ksv {

class Database;

struct StoredQuery {
  const char* name;
  const char* text;
};

// All 69 queries, in their order of creation: a query that selects from
// another one comes after it.
std::span<const StoredQuery> storedQueries();

// Finds a query by name without regard to case, as the engine does
// (RQ_InvoicePtCS and RQ_InvoicePtCs are one query); nullptr when unknown.
const StoredQuery* findStoredQuery(const QString& name);

// The system table of the file that holds the queries: one row per query,
// in creation order (rowid), readable with any SQLite tool.
inline constexpr const char* kStoredQueryTable = "KsvQueries";

// Makes the system table if needed and writes every query into it, in order.
// A file that already holds the queries is left as it is.
void createStoredQueries(Database& db);

}  // namespace ksv
