#include "creation.h"

#include <QFile>
#include <QFileInfo>

#include "config/ini_file.h"
#include "connecting.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/texts.h"
#include "lock_file.h"
#include "recordset.h"
#include "schema.h"
#include "sqlite_db.h"
#include "stored_queries.h"

namespace ksv {

namespace {

const QString kNewSchema = QStringLiteral("ksv_new");
const QString kOldSchema = QStringLiteral("ksv_old");

QString quoted(const QString& name) { return QLatin1Char('"') + name + QLatin1Char('"'); }

// Copies whole tables from the open planning into the new file, all in one
// transaction. The open planning's connection does the work; a consultation
// connection can't write, so then the new file reads from the open one.
void recopy(Database& open, const QString& newPath, const QStringList& tables) {
  Database writer;
  Database* db = &open;
  QString from = QStringLiteral("main"), to = kNewSchema, attached = newPath;
  if (open.isReadOnly()) {
    writer.open(newPath, Database::OpenMode::ReadWrite);
    db = &writer;
    from = kOldSchema;
    to = QStringLiteral("main");
    attached = open.path();
  }
  const QString schema = db == &open ? kNewSchema : kOldSchema;
  db->execute(QStringLiteral("ATTACH DATABASE ? AS %1").arg(schema), {QFileInfo(attached).absoluteFilePath()});
  try {
    Transaction tx(*db);
    for (const QString& table : tables) {
      const TableDef* def = findTable(table);
      QStringList cols;
      for (const ColumnDef& c : def->columns) cols << quoted(c.name);
      const QString list = cols.join(QStringLiteral(", "));
      db->exec(QStringLiteral("INSERT INTO %1.%2 (%3) SELECT %3 FROM %4.%2").arg(to, quoted(def->name), list, from));
    }
    tx.commit();
  } catch (...) {
    try {
      db->exec(QStringLiteral("DETACH DATABASE ") + schema);
    } catch (const StorageError&) {
    }
    throw;
  }
  db->exec(QStringLiteral("DETACH DATABASE ") + schema);
}

// The ini file is 8-bit text; its own reader knows the encoding.
QString iniText(const Paths& paths) { return IniFile(paths.iniFile()).readText(); }

// Steps 7 to 11: the one row each of Header, Option and DataBaseInfo.
void writeFirstRows(const QString& path, const Paths& paths) {
  ConnectResult c = Connecting(path, 'U');
  if (!c) throw StorageError(0, QStringLiteral("Connecting to the new planning failed: ") + c.detail);
  Database& db = c.connection->db();
  Transaction tx(db);
  Recordset header = Recordset::openTable(db, QStringLiteral("Header"));
  if (header.recordCount() == 0) {
    header.addNew();
    header.setField(QStringLiteral("IdTop"), 200);
    header.setField(QStringLiteral("IdLeft"), 200);
    header.setField(QStringLiteral("IdHeight"), 2000);
    header.setField(QStringLiteral("IdWidth"), 8000);
    header.setField(QStringLiteral("LgPath"), QString(QLatin1String("")));
    header.setField(QStringLiteral("LgTop"), 0);
    header.setField(QStringLiteral("LgLeft"), 0);
    header.setField(QStringLiteral("LgHeight"), 0);
    header.setField(QStringLiteral("LgWidth"), 0);
    // Border has no default and must hold a value: a new heading has none.
    header.setField(QStringLiteral("Border"), false);
    header.update();
  }
  Recordset option = Recordset::openTable(db, QStringLiteral("Option"));
  option.addNew();
  option.setField(QStringLiteral("Option"), iniText(paths));
  option.update();
  Recordset info = Recordset::openTable(db, QStringLiteral("DataBaseInfo"));
  if (info.recordCount() == 0) {
    info.addNew();
    info.setField(QStringLiteral("Version"), QString::fromLatin1(kSchemaVersion));
    info.setField(QStringLiteral("MaxInvNb"), 0);
    info.setField(QStringLiteral("MaxWaitNb"), 0);
    info.setField(QStringLiteral("MaxGroupNb"), 0);
    info.update();
  }
  tx.commit();
}

}  // namespace

bool Creation(const QString& path, const CreationContext& context) {
  if (QFileInfo::exists(path)) return false;  // a planning is never made over a file
  try {
    {
      Database db(path, Database::OpenMode::Create);
      db.exec(QStringLiteral("PRAGMA journal_mode = DELETE"));
      createPlanningTables(db);
      createStoredQueries(db);
    }
    if (context.fromConvert) return true;

    if (context.openPlanning && context.openPlanning->isOpen()) {
      if (context.messages.askYesNo(context.texts.get(txt::RecopyBlackList)))
        recopy(*context.openPlanning, path, {QStringLiteral("T_BlackList")});
      if (context.messages.askYesNo(context.texts.get(txt::RecopyInvoicing))) {
        QStringList tables;
        for (const char* t : kInvoicingTables) tables << QString::fromLatin1(t);
        recopy(*context.openPlanning, path, tables);
      }
    }
    writeFirstRows(path, context.paths);
    ReleaseConnectMode(path, 'U');
  } catch (const StorageError&) {
    return false;
  }
  return true;
}

}  // namespace ksv
