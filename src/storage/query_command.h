#pragma once
// Stored queries as the rest of the system uses them: fetched by name from the
// open file, parameters set by position from 0, then opened for rows or run
// for their effect.

#include <optional>

#include <QString>
#include <QStringList>
#include <QVariant>

#include "query_translator.h"
#include "recordset.h"
#include "sqlite_db.h"

namespace ksv {

class Clock;

// One stored query ready to run. Keeps its prepared statement, so a command
// fetched once per open planning costs one translation.
class QueryCommand {
 public:
  QueryCommand(Database& db, const Clock& clock, QString name, TranslatedQuery query);

  const QString& name() const { return name_; }
  // The parameters the caller sets, in position order.
  int parameterCount() const { return translated_.positionalCount; }
  const QueryParameter& parameter(int position) const { return translated_.parameters[position]; }
  bool returnsRows() const { return translated_.returnsRows; }
  const TranslatedQuery& translated() const { return translated_; }

  // Sets parameter `position` (from 0) to a value read by its declared type:
  // a Date takes the day of a QDate, QDateTime or ISO text; INTEGER a number;
  // Text a text. Throws StorageError for a position out of range.
  void setParameter(int position, const QVariant& value);
  void setParameters(const QVariantList& values);
  QVariant parameterValue(int position) const { return values_.value(position); }

  // The SQLite text and every value to bind, Date() and Now() filled from the
  // clock at this moment: what a recordset needs to read the rows itself.
  const QString& sql() const { return translated_.sql; }
  QVariantList boundValues() const;

  // Binds and rewinds the statement; the caller steps through the rows.
  Statement& open();
  // A snapshot of the rows with the parameters set now; updatable when the
  // rows come from one table. To read again with other parameters, set them
  // and open again (or requery the recordset with boundValues()).
  Recordset openRecordset() const;
  // Runs an action query (DELETE, INSERT, ...); returns the rows changed.
  // A query that writes into another file attaches it for the time of the run.
  int execute();

 private:
  Database* db_;
  const Clock* clock_;
  QString name_;
  TranslatedQuery translated_;
  QVariantList values_;
  std::optional<Statement> statement_;
};

// The stored queries of the open file, read from its system table.
class QueryCatalogue {
 public:
  QueryCatalogue(Database& db, const Clock& clock) : db_(&db), clock_(&clock) {}

  // Names in order of creation.
  QStringList names() const;
  // Text of a query, found without regard to case; nothing when absent.
  std::optional<QString> text(const QString& name) const;
  // A query fetched and translated; throws StorageError when the file has no
  // query of that name or its text can't be read.
  QueryCommand command(const QString& name) const;

  // Translates a statement written at run time in the same dialect; it may
  // select from stored queries.
  QueryCommand statement(const QString& text) const;

 private:
  Database* db_;
  const Clock* clock_;
};

}  // namespace ksv
