#include "customer_ops.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>

#include "core/messages.h"
#include "core/paths.h"
#include "core/texts.h"
#include "storage/query_command.h"
#include "storage/recordset.h"
#include "storage/sqlite_db.h"

namespace ksv {

namespace {

bool isAgents(const QString& queryName) { return queryName.compare(kRQ_Agent, Qt::CaseInsensitive) == 0; }

Recordset openList(const CustomerContext& ctx, const QString& queryName) {
  return QueryCatalogue(ctx.db, ctx.clock).command(queryName).openRecordset();
}

CustomerRow rowOf(const Recordset& rs, const char* remarkField = "Remarque") {
  return CustomerRow{rs.field(QStringLiteral("Nom")).toString(), rs.field(QStringLiteral("Email")).toString(),
                     rs.field(QString::fromLatin1(remarkField)).toString()};
}

// The remark less its trailing line ends.
QString withoutTrailingBreaks(QString text) {
  while (text.endsWith(QLatin1Char('\n')) || text.endsWith(QLatin1Char('\r'))) text.chop(1);
  return text;
}

}  // namespace

QList<CustomerRow> Dessin_Customer(const CustomerContext& ctx, const QString& queryName) {
  QList<CustomerRow> rows;
  Recordset rs = openList(ctx, queryName);
  for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) rows << rowOf(rs);
  return rows;
}

bool Customer_Search(const CustomerContext& ctx, const QString& name) {
  const QString wanted = name.trimmed();
  // Every booking, not the list in force: an agent's name typed for a
  // customer, or the reverse, is worth the warning too.
  Recordset rs = Recordset::openTable(ctx.db, QStringLiteral("Reservation"));
  for (rs.moveFirst(); !rs.isEOF(); rs.moveNext())
    if (sameText(rs.field(QStringLiteral("Nom")).toString(), wanted)) return true;
  return false;
}

int customerSearchWarning(const QString& queryName) {
  return isAgents(queryName) ? txt::AgentSameName : txt::CustomerSameName;
}

int Customer_Modify(const CustomerContext& ctx, const CustomerRow& old, const CustomerRow& now) {
  int changed = 0;
  {
    Transaction transaction(ctx.db);
    Recordset rs = Recordset::openTable(ctx.db, QStringLiteral("Reservation"));
    for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) {
      if (!sameCustomer(rowOf(rs), old)) continue;
      rs.setField(QStringLiteral("Nom"), now.Nom);
      rs.setField(QStringLiteral("Email"), now.Email);
      rs.setField(QStringLiteral("Remarque"), now.Remarque);
      rs.update();
      ++changed;
    }
    transaction.commit();
  }
  if (changed == 0) ctx.messages.exclamation(ctx.texts.get(txt::CustomerNotFound));
  return changed;
}

int Customer_Merge_Update(Recordset& rs, const QString& nom, const QString& email, const QString& remark) {
  int changed = 0;
  for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) {
    if (!sameText(rs.field(QStringLiteral("Nom")).toString(), nom)) continue;
    rs.setField(QStringLiteral("Email"), email);
    rs.setField(QStringLiteral("Remarque"), remark);
    rs.update();
    ++changed;
  }
  return changed;
}

namespace {

// The remark grouped with one more: nothing when the grouped text already
// holds it; otherwise it goes behind, and the pieces it holds go, so that
// "Quiet" and "Quiet room" leave only "Quiet room".
bool groupRemark(QString& grouped, const QString& remark) {
  if (remark.isEmpty() || grouped.contains(remark)) return false;
  QStringList pieces = grouped.isEmpty() ? QStringList() : grouped.split(QLatin1String("\r\n"));
  pieces.removeIf([&remark](const QString& piece) { return !piece.isEmpty() && remark.contains(piece); });
  pieces << remark;
  grouped = pieces.join(QLatin1String("\r\n"));
  return true;
}

}  // namespace

MergeCounts Customer_Merge(const CustomerContext& ctx, const QString& queryName, MergeChoice choice) {
  MergeCounts counts;
  const QList<CustomerRow> rows = Dessin_Customer(ctx, queryName);
  if (rows.size() < 2) return counts;

  struct Run {
    CustomerRow head;
    int rows = 0;
    bool gained = false;
  } run;
  // What the walk will write, in order: a later run of a name stands.
  QList<CustomerRow> writes;

  // Returns false when the merge must stop.
  auto closeRun = [&]() -> bool {
    if (run.rows < 2 && !run.gained) return true;
    QString remark = run.head.Remarque;
    if (remark.size() > kMaxRemark) {
      switch (choice) {
        case MergeChoice::Leave:
          ++counts.left;
          return true;
        case MergeChoice::Stopper:
          counts.stopped = true;
          return false;
        case MergeChoice::Cut:
          remark.truncate(kMaxRemark);
          ++counts.cut;
          break;
      }
    }
    writes << CustomerRow{run.head.Nom, run.head.Email, remark};
    ++counts.updated;
    return true;
  };
  auto startRun = [&](const CustomerRow& row) {
    run = Run{CustomerRow{row.Nom, row.Email, withoutTrailingBreaks(row.Remarque)}, 1, false};
  };

  startRun(rows.front());
  bool going = true;
  for (qsizetype i = 1; i < rows.size() && going; ++i) {
    const CustomerRow& row = rows[i];
    const bool contradicts =
        !row.Email.isEmpty() && !run.head.Email.isEmpty() && !sameText(row.Email, run.head.Email);
    if (!sameText(row.Nom, run.head.Nom) || contradicts) {
      going = closeRun();
      startRun(row);
      continue;
    }
    ++run.rows;
    if (run.head.Email.isEmpty() && !row.Email.isEmpty()) {
      run.head.Email = row.Email;
      run.gained = true;
    }
    if (groupRemark(run.head.Remarque, withoutTrailingBreaks(row.Remarque))) run.gained = true;
  }
  if (going) closeRun();

  Transaction transaction(ctx.db);
  // One snapshot of the bookings for the whole walk, with the rows of each
  // name found once: walking every booking for every run is quadratic.
  Recordset R_TB = Recordset::openTable(ctx.db, QStringLiteral("Reservation"));
  QHash<QString, QList<int>> positions;
  for (R_TB.moveFirst(); !R_TB.isEOF(); R_TB.moveNext())
    positions[sameTextKey(R_TB.field(QStringLiteral("Nom")).toString())] << R_TB.absolutePosition();

  // Unify rewrites the whole planning in one click: say what it will change
  // and let the user stop there.
  QHash<int, CustomerRow> after;
  for (const CustomerRow& w : writes)
    for (int position : positions.value(sameTextKey(w.Nom))) after.insert(position, w);
  QSet<QString> customers;
  int bookings = 0;
  for (auto it = after.cbegin(); it != after.cend(); ++it) {
    R_TB.setAbsolutePosition(it.key());
    if (R_TB.field(QStringLiteral("Email")).toString() == it->Email &&
        R_TB.field(QStringLiteral("Remarque")).toString() == it->Remarque)
      continue;
    ++bookings;
    customers.insert(sameTextKey(it->Nom));
  }
  if (bookings > 0) {
    const QString question = ctx.texts.withName(txt::MergeConfirmCustomers, QString::number(customers.size())) +
                             ctx.texts.withName(txt::MergeConfirmBookings, QString::number(bookings));
    if (!ctx.messages.askYesNo(question, MsgAnswer::No)) return MergeCounts{};
  }

  for (auto it = after.cbegin(); it != after.cend(); ++it) {
    R_TB.setAbsolutePosition(it.key());
    R_TB.setField(QStringLiteral("Email"), it->Email);
    R_TB.setField(QStringLiteral("Remarque"), it->Remarque);
    R_TB.update();
  }
  transaction.commit();

  ctx.messages.information(ctx.texts.get(txt::MergeLeaveCount) + QString::number(counts.left));
  ctx.messages.information(ctx.texts.get(txt::MergeCutCount) + QString::number(counts.cut));
  return counts;
}

QString customerExportFileName(const QString& queryName, const Texts& texts) {
  if (isAgents(queryName)) return QStringLiteral("Ksv_Agents.txt");
  return texts.language() == Language::Fr ? QStringLiteral("Ksv_Clients.txt") : QStringLiteral("Ksv_Customers.txt");
}

QString customerExportLine(const CustomerRow& row) {
  QString remark = row.Remarque;
  remark.replace(QLatin1String("\r\n"), QLatin1String(";"));
  remark.replace(QLatin1Char('\r'), QLatin1Char(';'));
  remark.replace(QLatin1Char('\n'), QLatin1Char(';'));
  return row.Nom + QLatin1String(" \\ ") + row.Email + QLatin1String(" \\ ") + remark + QLatin1Char(';');
}

bool Customer_Export(const CustomerContext& ctx, const QString& queryName) {
  const QString dir = ctx.paths.planningDir().isEmpty() ? QFileInfo(ctx.db.path()).absolutePath() : ctx.paths.planningDir();
  // The announcement names the folder the file really goes to.
  const int announce = isAgents(queryName) ? txt::ExportAgentsAnnounce : txt::ExportCustomersAnnounce;
  if (ctx.messages.show(ctx.texts.withName(announce, QDir::toNativeSeparators(dir)), MsgButtons::OkCancel,
                        MsgIcon::Information) != MsgAnswer::Ok)
    return false;
  const QString path = dir + QLatin1Char('/') + customerExportFileName(queryName, ctx.texts);
  QByteArray bytes;
  for (const CustomerRow& row : Dessin_Customer(ctx, queryName))
    bytes += customerExportLine(row).toUtf8() + "\r\n";
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size() || !file.flush()) {
    ctx.messages.critical(ctx.texts.withName(txt::ExportCannotWrite, path) + QLatin1String("\r\n") + file.errorString());
    return false;
  }
  return true;
}

PrintedList customerPrintedList(const Texts& texts, const QString& queryName, const QList<CustomerRow>& rows) {
  PrintedList list;
  list.heading = texts.get(isAgents(queryName) ? txt::AgentsCaption : txt::CustomersCaption);
  list.titles = {texts.get(txt::CustomerColName), texts.get(txt::CustomerColEmail), texts.get(txt::CustomerColRemark)};
  list.widths = {3, 3, 6};
  for (const CustomerRow& row : rows) {
    QString remark = row.Remarque;
    remark.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    list.rows << QStringList{row.Nom, row.Email, remark};
  }
  return list;
}

}  // namespace ksv
