#include "query_translator.h"

#include <QSet>

#include "schema.h"

namespace ksv {

namespace {

// ---------------------------------------------------------------- names

// Names of the planning's tables and columns, lower case: such a name is never
// taken for a parameter.
const QSet<QString>& tableNames() {
  static const QSet<QString> names = [] {
    QSet<QString> s;
    for (const TableDef& table : planningTables()) s.insert(table.name.toLower());
    return s;
  }();
  return names;
}

const QSet<QString>& columnNames() {
  static const QSet<QString> names = [] {
    QSet<QString> s;
    for (const TableDef& table : planningTables())
      for (const ColumnDef& column : table.columns) s.insert(column.name.toLower());
    return s;
  }();
  return names;
}

// Words of the statement itself; never a name.
const QSet<QString>& sqlKeywords() {
  static const QSet<QString> words = [] {
    QSet<QString> s;
    for (const char* n : {"select", "distinct", "distinctrow", "from", "where", "and", "or", "not", "is", "null",
                          "in", "like", "between", "order", "by", "asc", "desc", "group", "having", "inner",
                          "left", "right", "outer", "join", "on", "as", "union", "all", "insert", "into", "values",
                          "delete", "update", "set", "exists", "case", "when", "then", "else", "end", "top",
                          "collate", "nocase", "true", "false"})
      s.insert(QString::fromLatin1(n));
    return s;
  }();
  return words;
}

// Names that SQLite reads as keywords: they are quoted wherever they name a
// column or table.
bool needsQuoting(const QString& name) {
  static const QSet<QString> words = [] {
    QSet<QString> s;
    for (const char* n : {"from", "to", "group", "order", "option", "select", "where", "table", "index", "key",
                          "default", "check", "values", "set", "union", "join", "on", "in", "is", "by", "as",
                          "and", "or", "not", "null", "having", "limit", "offset", "case", "when", "then", "else",
                          "end", "primary", "references", "transaction", "unique", "using", "natural", "cross",
                          "exists", "into", "insert", "update", "delete", "all", "distinct", "between", "like"})
      s.insert(QString::fromLatin1(n));
    return s;
  }();
  return words.contains(name.toLower()) || name.contains(QLatin1Char(' '));
}

QString quoteName(const QString& name) {
  if (!needsQuoting(name)) return name;
  QString escaped = name;
  escaped.replace(QLatin1Char('"'), QLatin1String("\"\""));
  return QLatin1Char('"') + escaped + QLatin1Char('"');
}

// ---------------------------------------------------------------- tokens

enum class Tok { Word, Number, String, Bracket, Symbol, Hash };

struct Token {
  Tok kind;
  QString text;  // Word/Number/Symbol: as written; String: value; Bracket/Hash: inside
  bool is(const char* word) const {
    return (kind == Tok::Word || kind == Tok::Symbol) && text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
  }
};

bool isWordStart(QChar c) { return c.isLetter() || c == QLatin1Char('_'); }
bool isWordChar(QChar c) { return c.isLetterOrNumber() || c == QLatin1Char('_'); }

QList<Token> tokenize(const QString& text) {
  QList<Token> tokens;
  const qsizetype n = text.size();
  qsizetype i = 0;
  while (i < n) {
    const QChar c = text[i];
    if (c.isSpace()) {
      ++i;
    } else if (isWordStart(c)) {
      qsizetype j = i;
      while (j < n && isWordChar(text[j])) ++j;
      tokens.append({Tok::Word, text.mid(i, j - i)});
      i = j;
    } else if (c.isDigit()) {
      // A number ends where a letter begins: "=0AND" is 0 then AND.
      qsizetype j = i;
      while (j < n && (text[j].isDigit() || text[j] == QLatin1Char('.'))) ++j;
      tokens.append({Tok::Number, text.mid(i, j - i)});
      i = j;
    } else if (c == QLatin1Char('\'') || c == QLatin1Char('"')) {
      QString value;
      qsizetype j = i + 1;
      bool closed = false;
      while (j < n) {
        if (text[j] == c) {
          if (j + 1 < n && text[j + 1] == c) {
            value += c;
            j += 2;
            continue;
          }
          closed = true;
          ++j;
          break;
        }
        value += text[j++];
      }
      if (!closed) throw QueryTranslationError(QStringLiteral("Unterminated string in query text"));
      tokens.append({Tok::String, value});
      i = j;
    } else if (c == QLatin1Char('[') || c == QLatin1Char('#')) {
      const QChar close = c == QLatin1Char('[') ? QLatin1Char(']') : QLatin1Char('#');
      const qsizetype j = text.indexOf(close, i + 1);
      if (j < 0) throw QueryTranslationError(QStringLiteral("Unbalanced %1 in query text").arg(c));
      tokens.append({c == QLatin1Char('[') ? Tok::Bracket : Tok::Hash, text.mid(i + 1, j - i - 1)});
      i = j + 1;
    } else {
      const QString two = text.mid(i, 2);
      if (two == QLatin1String("<=") || two == QLatin1String(">=") || two == QLatin1String("<>") ||
          two == QLatin1String("!=") || two == QLatin1String("||")) {
        tokens.append({Tok::Symbol, two});
        i += 2;
      } else {
        tokens.append({Tok::Symbol, QString(c)});
        ++i;
      }
    }
  }
  return tokens;
}

QString sqlString(const QString& value) {
  QString escaped = value;
  escaped.replace(QLatin1Char('\''), QLatin1String("''"));
  return QLatin1Char('\'') + escaped + QLatin1Char('\'');
}

// ---------------------------------------------------------------- parameters

std::optional<ParameterType> parameterType(const QString& word) {
  const QString w = word.toLower();
  if (w == QLatin1String("date")) return ParameterType::Date;
  if (w == QLatin1String("datetime")) return ParameterType::DateTime;
  if (w == QLatin1String("integer") || w == QLatin1String("long") || w == QLatin1String("short") ||
      w == QLatin1String("byte") || w == QLatin1String("smallint") || w == QLatin1String("int"))
    return ParameterType::Integer;
  if (w == QLatin1String("double") || w == QLatin1String("single") || w == QLatin1String("float") ||
      w == QLatin1String("real") || w == QLatin1String("currency") || w == QLatin1String("ieeedouble") ||
      w == QLatin1String("ieeesingle"))
    return ParameterType::Double;
  if (w == QLatin1String("text") || w == QLatin1String("varchar") || w == QLatin1String("char") ||
      w == QLatin1String("memo") || w == QLatin1String("longtext"))
    return ParameterType::Text;
  if (w == QLatin1String("bit") || w == QLatin1String("yesno") || w == QLatin1String("logical"))
    return ParameterType::Boolean;
  return std::nullopt;
}

// Parameter references are written as markers while translating and turned
// into ?N at the end, once the runner's own parameters are put last.
constexpr QChar kMarker = QChar(0x1);

class Parameters {
 public:
  int find(const QString& name) const {
    for (int i = 0; i < list_.size(); ++i)
      if (list_[i].name.compare(name, Qt::CaseInsensitive) == 0) return i;
    return -1;
  }
  int add(QueryParameter parameter) {
    const int existing = find(parameter.name);
    if (existing >= 0) return existing;
    list_.append(std::move(parameter));
    return int(list_.size()) - 1;
  }
  const QueryParameter& at(int id) const { return list_[id]; }
  const QList<QueryParameter>& all() const { return list_; }

  static QString marker(int id) { return kMarker + QString::number(id) + kMarker; }

 private:
  QList<QueryParameter> list_;
};

// Reads "PARAMETERS a Date, b Text(12);" at the start of the tokens; returns
// the index of the first token of the statement.
qsizetype readDeclarations(const QList<Token>& tokens, Parameters& parameters) {
  if (tokens.isEmpty() || !tokens[0].is("PARAMETERS")) return 0;
  qsizetype i = 1;
  while (i < tokens.size() && !tokens[i].is(";")) {
    const Token& nameToken = tokens[i];
    if (nameToken.kind != Tok::Word && nameToken.kind != Tok::Bracket)
      throw QueryTranslationError(QStringLiteral("Bad PARAMETERS clause"));
    QueryParameter parameter;
    parameter.name = nameToken.text;
    parameter.declared = true;
    ++i;
    if (i >= tokens.size() || tokens[i].kind != Tok::Word)
      throw QueryTranslationError(QStringLiteral("Parameter %1 has no type").arg(parameter.name));
    const auto type = parameterType(tokens[i].text);
    if (!type) throw QueryTranslationError(QStringLiteral("Unknown parameter type %1").arg(tokens[i].text));
    parameter.type = *type;
    ++i;
    if (i < tokens.size() && tokens[i].is("(")) {
      if (i + 2 < tokens.size() && tokens[i + 1].kind == Tok::Number && tokens[i + 2].is(")")) {
        parameter.size = tokens[i + 1].text.toInt();
        i += 3;
      } else {
        throw QueryTranslationError(QStringLiteral("Bad size of parameter %1").arg(parameter.name));
      }
    }
    parameters.add(std::move(parameter));
    if (i < tokens.size() && tokens[i].is(",")) ++i;
  }
  if (i >= tokens.size()) throw QueryTranslationError(QStringLiteral("PARAMETERS clause without ';'"));
  return i + 1;
}

// ---------------------------------------------------------------- statement

enum class Clause { None, Select, From, Into, Condition, Order };

struct Piece {
  QString text;
  bool operand = false;  // a column reference that a date comparison may repeat
};

class Translator {
 public:
  Translator(Parameters& parameters, const QueryTextLookup& lookup, QStringList& stack)
      : parameters_(parameters), lookup_(lookup), stack_(stack) {}

  // Translates the statement tokens [begin, end) to SQLite.
  QString statement(const QList<Token>& tokens, qsizetype begin, qsizetype end, TranslatedQuery* top) {
    tokens_ = &tokens;
    end_ = end;
    i_ = begin;
    if (i_ < end_ && tokens[i_].is("DELETE")) {
      // "DELETE T.* FROM T": SQLite names no columns on a delete.
      out_.append({QStringLiteral("DELETE")});
      ++i_;
      while (i_ < end_ && !tokens[i_].is("FROM")) ++i_;
    } else if (i_ + 4 < end_ && tokens[i_].is("INSERT") && tokens[i_ + 1].is("INTO") &&
               tokens[i_ + 3].is("IN") && tokens[i_ + 4].kind == Tok::String) {
      // "INSERT INTO T IN 'file' SELECT ...": the file is attached by the runner.
      if (!top) throw QueryTranslationError(QStringLiteral("INSERT ... IN inside another query"));
      top->attachPath = tokens[i_ + 4].text;
      out_.append({QStringLiteral("INSERT INTO")});
      out_.append({QLatin1String(kAttachedSchema) + QLatin1Char('.') + quoteName(tokens[i_ + 2].text)});
      i_ += 5;
      clause_ = Clause::Into;
    }
    while (i_ < end_) step();
    closeOrderTerm();
    if (top) {
      const QString first = tokens.isEmpty() || begin >= end ? QString() : tokens[begin].text.toLower();
      top->returnsRows = first == QLatin1String("select") || first == QLatin1String("(");
    }
    QStringList texts;
    for (const Piece& piece : out_) texts.append(piece.text);
    return texts.join(QLatin1Char(' '));
  }

 private:
  const Token& tok(qsizetype k) const { return (*tokens_)[k]; }
  bool has(qsizetype k) const { return k < end_; }
  bool nextIs(const char* word) const { return has(i_ + 1) && tok(i_ + 1).is(word); }

  void step() {
    const Token& t = tok(i_);
    switch (t.kind) {
      case Tok::Number:
        out_.append({t.text});
        ++i_;
        return;
      case Tok::String:
        if (previousIs("LIKE")) {
          out_.append({likePattern(t.text)});
        } else {
          out_.append({sqlString(t.text)});
        }
        ++i_;
        return;
      case Tok::Hash:
        // A date literal #yyyy-mm-dd# or #mm/dd/yyyy#.
        out_.append({sqlString(isoFromHash(t.text))});
        ++i_;
        return;
      case Tok::Symbol:
        symbol(t);
        return;
      case Tok::Word:
      case Tok::Bracket:
        name(t);
        return;
    }
  }

  // The engine's wildcards are * and ?; SQLite's % and _, which are plain
  // characters in the engine's patterns.
  static QString likePattern(const QString& pattern) {
    QString converted;
    bool escaped = false;
    for (const QChar c : pattern) {
      if (c == QLatin1Char('*')) {
        converted += QLatin1Char('%');
      } else if (c == QLatin1Char('?')) {
        converted += QLatin1Char('_');
      } else if (c == QLatin1Char('%') || c == QLatin1Char('_') || c == QLatin1Char('\\')) {
        converted += QLatin1Char('\\');
        converted += c;
        escaped = true;
      } else {
        converted += c;
      }
    }
    return sqlString(converted) + (escaped ? QStringLiteral(" ESCAPE '\\'") : QString());
  }

  static QString isoFromHash(const QString& text) {
    const QString s = text.trimmed();
    const QStringList mdY = s.split(QLatin1Char('/'));
    if (mdY.size() == 3) {
      return QStringLiteral("%1-%2-%3")
          .arg(mdY[2].toInt(), 4, 10, QLatin1Char('0'))
          .arg(mdY[0].toInt(), 2, 10, QLatin1Char('0'))
          .arg(mdY[1].toInt(), 2, 10, QLatin1Char('0'));
    }
    return s;
  }

  void symbol(const Token& t) {
    if (t.text == QLatin1String(";")) {
      ++i_;
      return;
    }
    if (t.text == QLatin1String("(")) {
      clauses_.append(clause_);
      out_.append({t.text});
      ++i_;
      return;
    }
    if (t.text == QLatin1String(")")) {
      closeOrderTerm();
      if (!clauses_.isEmpty()) clause_ = clauses_.takeLast();
      out_.append({t.text});
      ++i_;
      return;
    }
    if (t.text == QLatin1String(",")) {
      closeOrderTerm();
      out_.append({t.text});
      ++i_;
      return;
    }
    if (t.text == QLatin1String(".")) {
      mergeWithPrevious(t.text);
      ++i_;
      return;
    }
    if (t.text == QLatin1String("*") && !out_.isEmpty() && out_.last().text.endsWith(QLatin1Char('.'))) {
      mergeWithPrevious(t.text);
      ++i_;
      return;
    }
    if (t.text == QLatin1String("&")) {
      out_.append({QStringLiteral("||")});
      ++i_;
      return;
    }
    if (t.text == QLatin1String("!=")) {
      out_.append({QStringLiteral("<>")});
      ++i_;
      return;
    }
    out_.append({t.text});
    ++i_;
  }

  void mergeWithPrevious(const QString& text) {
    if (out_.isEmpty()) {
      out_.append({text});
      return;
    }
    out_.last().text += text;
    // "T." is the start of a reference, "T.col" a complete one.
    out_.last().operand = false;
  }

  bool afterDot() const { return !out_.isEmpty() && out_.last().text.endsWith(QLatin1Char('.')); }

  void name(const Token& t) {
    const bool bracket = t.kind == Tok::Bracket;
    const QString lower = t.text.toLower();

    if (afterDot()) {  // member of a table or query: a column
      out_.last().text += bracket ? forceQuote(t.text) : quoteName(t.text);
      out_.last().operand = true;
      if (clause_ == Clause::Order) orderTermOpen_ = true;
      ++i_;
      return;
    }

    if (!bracket) {
      if (nextIs("(") && has(i_ + 2) && tok(i_ + 2).is(")")) {
        if (lower == QLatin1String("date")) {
          value(ParameterType::Today, QStringLiteral("Date()"));
          i_ += 3;
          return;
        }
        if (lower == QLatin1String("now")) {
          value(ParameterType::Now, QStringLiteral("Now()"));
          i_ += 3;
          return;
        }
      }
      if (sqlKeywords().contains(lower)) {
        keyword(t, lower);
        return;
      }
      if (nextIs("(")) {  // any other function is SQLite's own
        out_.append({t.text});
        ++i_;
        return;
      }
    }

    const bool qualifier = nextIs(".");
    const int declared = parameters_.find(t.text);
    if (!qualifier && declared >= 0 && parameters_.at(declared).declared && clause_ != Clause::From &&
        clause_ != Clause::Into) {
      parameter(declared);
      ++i_;
      return;
    }

    if (clause_ == Clause::From && !qualifier && !tableNames().contains(lower) && lookup_) {
      if (auto text = lookup_(t.text)) {
        inlineQuery(t.text, *text);
        ++i_;
        return;
      }
    }

    if (clause_ == Clause::Condition && !qualifier && !columnNames().contains(lower) &&
        !tableNames().contains(lower) && !previousIs("AS")) {
      // The engine takes an unknown name in a condition for a parameter.
      QueryParameter undeclared;
      undeclared.name = t.text;
      parameter(parameters_.add(std::move(undeclared)));
      ++i_;
      return;
    }

    out_.append({bracket ? forceQuote(t.text) : quoteName(t.text), !qualifier});
    if (clause_ == Clause::Order && !qualifier) orderTermOpen_ = true;
    ++i_;
  }

  static QString forceQuote(const QString& name) {
    QString escaped = name;
    escaped.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
  }

  bool previousIs(const char* word) const {
    return !out_.isEmpty() && out_.last().text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
  }

  void keyword(const Token& t, const QString& lower) {
    if (lower == QLatin1String("select")) clause_ = Clause::Select;
    else if (lower == QLatin1String("from") || lower == QLatin1String("join")) clause_ = Clause::From;
    else if (lower == QLatin1String("into")) clause_ = Clause::Into;
    else if (lower == QLatin1String("where") || lower == QLatin1String("on") || lower == QLatin1String("having") ||
             lower == QLatin1String("set") || lower == QLatin1String("values"))
      clause_ = Clause::Condition;
    else if ((lower == QLatin1String("order") || lower == QLatin1String("group")) && nextIs("BY"))
      clause_ = Clause::Order;
    else if (lower == QLatin1String("union"))
      clause_ = Clause::None;

    if (clause_ == Clause::Order && (lower == QLatin1String("asc") || lower == QLatin1String("desc")))
      closeOrderTerm();
    if (lower == QLatin1String("true") || lower == QLatin1String("false")) {
      out_.append({lower == QLatin1String("true") ? QStringLiteral("1") : QStringLiteral("0")});
    } else if (lower == QLatin1String("distinctrow")) {
      out_.append({QStringLiteral("DISTINCT")});
    } else {
      out_.append({t.text.toUpper()});
    }
    ++i_;
  }

  // Text order ignores case, as the engine's does; numbers are unaffected.
  void closeOrderTerm() {
    if (clause_ != Clause::Order || !orderTermOpen_) return;
    out_.append({QStringLiteral("COLLATE NOCASE")});
    orderTermOpen_ = false;
  }

  void parameter(int id) { value(parameters_.at(id).type, QString(), id); }

  // A parameter or Date()/Now() in the statement. A date compared with a
  // column is compared by calendar day, whatever time either side holds.
  void value(ParameterType type, const QString& name, int id = -1) {
    if (id < 0) {
      QueryParameter hidden;
      hidden.name = name;
      hidden.type = type;
      id = parameters_.add(std::move(hidden));
    }
    const QString p = Parameters::marker(id);
    const bool isDay = type == ParameterType::Date || type == ParameterType::Today;
    const bool isText = type == ParameterType::Text || type == ParameterType::Variant;
    if (out_.size() >= 2 && out_[out_.size() - 2].operand) {
      const QString op = out_.last().text;
      const QString column = out_[out_.size() - 2].text;
      const bool comparison = op == QLatin1String("=") || op == QLatin1String("<>") || op == QLatin1String("<") ||
                              op == QLatin1String("<=") || op == QLatin1String(">") || op == QLatin1String(">=");
      if (comparison && isDay) {
        // p is a bare day "YYYY-MM-DD"; p || '~' sorts after every time of
        // that day and before the next day.
        const QString dayEnd = QStringLiteral("(%1 || '~')").arg(p);
        out_.removeLast();
        out_.removeLast();
        QString text;
        if (op == QLatin1String("<=")) text = QStringLiteral("%1 <= %2").arg(column, dayEnd);
        else if (op == QLatin1String(">")) text = QStringLiteral("%1 > %2").arg(column, dayEnd);
        else if (op == QLatin1String("=")) text = QStringLiteral("(%1 >= %2 AND %1 <= %3)").arg(column, p, dayEnd);
        else if (op == QLatin1String("<>")) text = QStringLiteral("NOT (%1 >= %2 AND %1 <= %3)").arg(column, p, dayEnd);
        else text = QStringLiteral("%1 %2 %3").arg(column, op, p);
        out_.append({text});
        return;
      }
      if (comparison && isText) {
        out_.append({p + QStringLiteral(" COLLATE NOCASE")});
        return;
      }
    }
    out_.append({p});
  }

  void inlineQuery(const QString& name, const QString& text) {
    for (const QString& open : stack_)
      if (open.compare(name, Qt::CaseInsensitive) == 0)
        throw QueryTranslationError(QStringLiteral("Query %1 selects from itself").arg(name));
    stack_.append(name);
    const QList<Token> inner = tokenize(text);
    const qsizetype begin = readDeclarations(inner, parameters_);
    Translator nested(parameters_, lookup_, stack_);
    const QString sql = nested.statement(inner, begin, inner.size(), nullptr);
    stack_.removeLast();
    const bool aliased = nextIs("AS") || (has(i_ + 1) && tok(i_ + 1).kind == Tok::Word &&
                                          !sqlKeywords().contains(tok(i_ + 1).text.toLower()));
    out_.append({QLatin1Char('(') + sql + QLatin1Char(')') + (aliased ? QString() : QLatin1String(" AS ") + quoteName(name))});
  }

  Parameters& parameters_;
  const QueryTextLookup& lookup_;
  QStringList& stack_;
  const QList<Token>* tokens_ = nullptr;
  qsizetype i_ = 0;
  qsizetype end_ = 0;
  QList<Piece> out_;
  Clause clause_ = Clause::None;
  QList<Clause> clauses_;
  bool orderTermOpen_ = false;
};

}  // namespace

TranslatedQuery translateQuery(const QString& text, const QueryTextLookup& lookup) {
  const QList<Token> tokens = tokenize(text);
  Parameters parameters;
  const qsizetype begin = readDeclarations(tokens, parameters);
  TranslatedQuery result;
  QStringList stack;
  Translator translator(parameters, lookup, stack);
  QString sql = translator.statement(tokens, begin, tokens.size(), &result);

  // The caller's parameters keep their order; Date() and Now() go last.
  QList<int> order;
  for (int id = 0; id < parameters.all().size(); ++id) {
    const ParameterType type = parameters.at(id).type;
    if (type != ParameterType::Today && type != ParameterType::Now) order.append(id);
  }
  result.positionalCount = int(order.size());
  for (int id = 0; id < parameters.all().size(); ++id) {
    const ParameterType type = parameters.at(id).type;
    if (type == ParameterType::Today || type == ParameterType::Now) order.append(id);
  }
  for (int position = 0; position < order.size(); ++position) {
    const int id = order[position];
    result.parameters.append(parameters.at(id));
    sql.replace(Parameters::marker(id), QLatin1Char('?') + QString::number(position + 1));
  }
  result.sql = sql;
  return result;
}

bool isPlanningTable(const QString& name) { return tableNames().contains(name.toLower()); }
bool isPlanningColumn(const QString& name) { return columnNames().contains(name.toLower()); }

}  // namespace ksv
