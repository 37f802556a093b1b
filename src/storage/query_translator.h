#pragma once
// Turns the text of a stored query, written in the engine dialect the planning
// keeps, into a SQLite statement and the list of its parameters. Pure text to
// text: running it is the job of the query runner.
//
// What is handled: the PARAMETERS clause; parameters named in brackets or bare
// (a bare unknown name in a condition is a parameter too, set after the
// declared ones in order of appearance); bracketed names and the column names
// From, To, Group, Order; Date() and Now(); DELETE T.* FROM T;
// INSERT INTO T IN 'file' ...; Like patterns with * and ?; #date# literals;
// clauses glued to a number ("=0AND") or to a parenthesis; double-quoted
// strings; and names of other stored queries in a FROM clause, inlined with
// their parameters carried along.
//
// Dates are ISO texts and calendar days: a comparison of a date column with a
// date parameter or Date() compares days, so "Date_Fin <= [P_DF]" holds for a
// column that ends on P_DF at any time of that day. Text comparisons with a
// parameter and sort orders ignore case, as the engine's do.

#include <functional>
#include <optional>

#include <QList>
#include <QString>
#include <QStringList>

namespace ksv {

enum class ParameterType {
  Date,      // a calendar day, bound as "YYYY-MM-DD"
  DateTime,  // a day with time, bound as "YYYY-MM-DD HH:MM:SS" (no time at midnight)
  Integer,
  Double,
  Text,
  Boolean,
  Variant,  // undeclared: bound as the value given
  Today,    // Date(): filled by the runner from the clock, not by the caller
  Now,      // Now(): likewise, with the time
};

struct QueryParameter {
  QString name;
  ParameterType type = ParameterType::Variant;
  int size = 0;  // Text(n): n; 0 otherwise
  bool declared = false;
};

struct TranslatedQuery {
  QString sql;  // placeholders ?1..?n, parameter i at ?(i+1)
  // Caller's parameters first, in binding position order; then the ones the
  // runner fills itself (Today, Now).
  QList<QueryParameter> parameters;
  int positionalCount = 0;
  bool returnsRows = false;
  // INSERT INTO T IN 'file': the runner attaches this file under
  // kAttachedSchema around the statement.
  QString attachPath;
};

inline constexpr const char* kAttachedSchema = "ksv_target";

// Text of another stored query by name (without regard to case), or nothing
// when the name is not a stored query.
using QueryTextLookup = std::function<std::optional<QString>(const QString& name)>;

class QueryTranslationError {
 public:
  explicit QueryTranslationError(QString message) : message_(std::move(message)) {}
  const QString& message() const { return message_; }

 private:
  QString message_;
};

// Throws QueryTranslationError on a text it cannot read (unbalanced brackets,
// unknown parameter type, a query that selects from itself).
TranslatedQuery translateQuery(const QString& text, const QueryTextLookup& lookup = {});

// True when the name is a table or column of a planning: such a name is never
// taken for an undeclared parameter.
bool isPlanningTable(const QString& name);
bool isPlanningColumn(const QString& name);

}  // namespace ksv
