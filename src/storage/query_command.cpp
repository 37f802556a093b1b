#include "query_command.h"

#include <QDate>
#include <QDateTime>
#include <QFileInfo>

#include "core/clock.h"
#include "stored_queries.h"

namespace ksv {

namespace {

QDate dayOf(const QVariant& value) {
  switch (value.typeId()) {
    case QMetaType::QDate: return value.toDate();
    case QMetaType::QDateTime: return value.toDateTime().date();
    default: break;
  }
  const QString text = value.toString().trimmed();
  return QDate::fromString(text.left(10), QStringLiteral("yyyy-MM-dd"));
}

QVariant valueFor(const QueryParameter& parameter, const QVariant& value) {
  if (!value.isValid() || value.isNull()) return {};
  switch (parameter.type) {
    case ParameterType::Date:
    case ParameterType::Today: {
      const QDate day = dayOf(value);
      if (!day.isValid())
        throw StorageError(0, QStringLiteral("Parameter %1 is not a date: %2").arg(parameter.name, value.toString()));
      return dateToStoreText(day);
    }
    case ParameterType::DateTime:
    case ParameterType::Now:
      if (value.typeId() == QMetaType::QDateTime) return dateTimeToStoreText(value.toDateTime());
      if (value.typeId() == QMetaType::QDate) return dateToStoreText(value.toDate());
      return value.toString();
    case ParameterType::Integer: {
      bool ok = false;
      const qlonglong n = value.toLongLong(&ok);
      if (!ok)
        throw StorageError(0, QStringLiteral("Parameter %1 is not a number: %2").arg(parameter.name, value.toString()));
      return n;
    }
    case ParameterType::Double: return value.toDouble();
    case ParameterType::Boolean: return value.toBool() ? 1 : 0;
    case ParameterType::Text: return value.toString();
    case ParameterType::Variant:
      if (value.typeId() == QMetaType::QDate) return dateToStoreText(value.toDate());
      if (value.typeId() == QMetaType::QDateTime) return dateTimeToStoreText(value.toDateTime());
      return value;
  }
  return value;
}

QueryCommand makeCommand(Database& db, const Clock& clock, const QString& name, const QString& text,
                         const QueryCatalogue& catalogue) {
  try {
    return QueryCommand(db, clock, name,
                        translateQuery(text, [&catalogue](const QString& other) { return catalogue.text(other); }));
  } catch (const QueryTranslationError& e) {
    throw StorageError(0, QStringLiteral("Query %1: %2").arg(name, e.message()));
  }
}

}  // namespace

QueryCommand::QueryCommand(Database& db, const Clock& clock, QString name, TranslatedQuery query)
    : db_(&db), clock_(&clock), name_(std::move(name)), translated_(std::move(query)) {
  values_.resize(translated_.positionalCount);
}

void QueryCommand::setParameter(int position, const QVariant& value) {
  if (position < 0 || position >= translated_.positionalCount)
    throw StorageError(0, QStringLiteral("Query %1 has no parameter %2").arg(name_).arg(position));
  values_[position] = valueFor(translated_.parameters[position], value);
}

void QueryCommand::setParameters(const QVariantList& values) {
  for (int i = 0; i < values.size(); ++i) setParameter(i, values[i]);
}

QVariantList QueryCommand::boundValues() const {
  QVariantList all = values_;
  for (int i = translated_.positionalCount; i < translated_.parameters.size(); ++i) {
    const QueryParameter& p = translated_.parameters[i];
    all.append(p.type == ParameterType::Today ? valueFor(p, clock_->today()) : valueFor(p, clock_->now()));
  }
  return all;
}

Statement& QueryCommand::open() {
  if (!statement_) statement_.emplace(db_->prepare(translated_.sql));
  statement_->reset();
  statement_->clearBindings();
  statement_->bindAll(boundValues());
  return *statement_;
}

Recordset QueryCommand::openRecordset() const {
  if (!translated_.returnsRows) throw StorageError(0, QStringLiteral("Query %1 returns no rows").arg(name_));
  return Recordset::openQuery(*db_, translated_.sql, boundValues());
}

int QueryCommand::execute() {
  if (translated_.attachPath.isEmpty()) return open().run();
  // The other file is attached only for this statement: ATTACH is refused
  // inside a transaction, and a file left attached would stay locked.
  // Attaching a missing file would make an empty one.
  if (!QFileInfo::exists(translated_.attachPath))
    throw StorageError(0, QStringLiteral("Query %1: no file %2").arg(name_, translated_.attachPath));
  if (db_->inTransaction())
    throw StorageError(0, QStringLiteral("Query %1 writes into another file inside a transaction").arg(name_));
  db_->execute(QStringLiteral("ATTACH DATABASE ? AS %1").arg(QLatin1String(kAttachedSchema)),
               {translated_.attachPath});
  struct Detach {
    Database* db;
    ~Detach() {
      try {
        db->exec(QStringLiteral("DETACH DATABASE %1").arg(QLatin1String(kAttachedSchema)));
      } catch (const StorageError&) {
      }
    }
  } detach{db_};
  // The statement names the attached schema: prepare it while attached.
  Statement statement = db_->prepare(translated_.sql);
  statement.bindAll(boundValues());
  return statement.run();
}

QStringList QueryCatalogue::names() const {
  QStringList result;
  Statement st = db_->prepare(QStringLiteral("SELECT Name FROM %1 ORDER BY rowid").arg(QLatin1String(kStoredQueryTable)));
  while (st.step()) result.append(st.column(0).toString());
  return result;
}

std::optional<QString> QueryCatalogue::text(const QString& name) const {
  const QVariant value =
      db_->scalar(QStringLiteral("SELECT Text FROM %1 WHERE Name = ? COLLATE NOCASE ORDER BY rowid LIMIT 1")
                      .arg(QLatin1String(kStoredQueryTable)),
                  {name});
  if (value.isNull()) return std::nullopt;
  return value.toString();
}

QueryCommand QueryCatalogue::command(const QString& name) const {
  const auto found = text(name);
  if (!found) throw StorageError(0, QStringLiteral("The planning has no query %1").arg(name));
  return makeCommand(*db_, *clock_, name, *found, *this);
}

QueryCommand QueryCatalogue::statement(const QString& text) const {
  return makeCommand(*db_, *clock_, QString(), text, *this);
}

}  // namespace ksv
