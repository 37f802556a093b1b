// The planning file under load: a generated planning of 100,000 bookings on
// 40 resources over ten years.
//  1. RQ_Reservation for a 52-day view of the 40 resources, through the stored
//     query and a recordset, against the same SQL run with the bare SQLite API
//     (target: ratio <= 1.5).
//  2. Opening the planning with every recordset the session opens
//     (target: under 300 ms and 150 MB peak), measured in a fresh process.
//
// Usage: planning_bench [folder]   (the planning is made in a temporary folder
// unless one is given). Prints figures; never run by ctest.

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <vector>

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "core/clock.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/texts.h"
#include "storage/connecting.h"
#include "storage/creation.h"
#include "storage/query_command.h"
#include "storage/recordset.h"
#include "storage/schema.h"
#include "storage/sqlite_db.h"

using namespace ksv;
using Clock_ = std::chrono::steady_clock;

namespace {

constexpr int kBookings = 100000;
constexpr int kResources = 40;
const QDate kFirstDay(2015, 1, 1);
const QDate kViewFirst(2019, 6, 10);
constexpr int kViewDays = 52;

class NoMessages final : public Messages {
 public:
  MsgAnswer show(const QString&, MsgButtons, MsgIcon, std::optional<MsgAnswer>) override { return MsgAnswer::No; }
};

QString resourceName(int i) { return QStringLiteral("Room %1").arg(i + 1, 2, 10, QLatin1Char('0')); }

double cpuMs() {
  timespec t{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
  return t.tv_sec * 1000.0 + t.tv_nsec / 1.0e6;
}

double msSince(Clock_::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock_::now() - start).count();
}

long peakRssKb() {
  QFile status(QStringLiteral("/proc/self/status"));
  if (!status.open(QIODevice::ReadOnly)) return -1;
  for (const QByteArray& line : status.readAll().split('\n'))
    if (line.startsWith("VmHWM:")) return line.mid(6).trimmed().split(' ').front().toLong();
  return -1;
}

// Ten years of bookings, one after the other on each resource, with a few
// customer and agent header rows and an invoicing catalogue.
void generate(const QString& path, const Paths& paths) {
  NoMessages messages;
  Texts texts;
  if (!Creation(path, CreationContext{messages, texts, paths})) {
    std::fprintf(stderr, "Creation failed\n");
    std::exit(1);
  }
  Database db(path, Database::OpenMode::ReadWrite);
  Transaction tx(db);
  for (int r = 0; r < kResources; ++r) insertRow(db, "Resource", {{"Resource", resourceName(r)}, {"Order", r + 1}});
  Statement ins = db.prepare(
      "INSERT INTO Reservation (Resource, Date_Deb, Date_Fin, Couleur, Nom, Email, HowMany, Remarque, Split, GroupId, "
      "GroupNb, InvNb) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
  quint32 seed = 12345;
  auto next = [&seed] { return seed = seed * 1664525u + 1013904223u; };
  const int perResource = kBookings / kResources;
  for (int r = 0; r < kResources; ++r) {
    QDate day = kFirstDay.addDays(r % 3);
    for (int b = 0; b < perResource; ++b) {
      const int nights = 1 + int(next() % 2);
      const int n = r * perResource + b;
      ins.bindAll({resourceName(r), day, day.addDays(nights), int(next() % 6), QStringLiteral("Customer %1").arg(n % 7919),
                   n % 5 ? QString() : QStringLiteral("c%1@example.com").arg(n), 1 + int(next() % 4),
                   n % 3 ? QString() : QStringLiteral("Late arrival, ground floor please"), QStringLiteral("0"),
                   QStringLiteral("C"), 0, n % 2 ? QVariant(n + 1) : QVariant()});
      ins.run();
      day = day.addDays(nights);  // the next guest arrives the day this one leaves
    }
  }
  for (int i = 0; i < 30; ++i) insertRow(db, "Designation", {{"Designation", QStringLiteral("Service %1").arg(i)}, {"UnitPrice", 10.0 + i}});
  for (int i = 0; i < 6; ++i) insertRow(db, "Modification", {{"Modification", QStringLiteral("Tax %1").arg(i)}, {"Rate", 5.5}});
  for (int i = 0; i < 6; ++i) insertRow(db, "Payment", {{"Payment", QStringLiteral("Payment %1").arg(i)}});
  for (int i = 0; i < 20; ++i)
    insertRow(db, "AccountGroup",
              {{"Group", QStringLiteral("Group %1").arg(i % 4)}, {"Account", QStringLiteral("Service %1").arg(i)}, {"Sign", i < 10 ? " " : "+"}});
  for (int i = 0; i < 200; ++i) insertRow(db, "T_BlackList", {{"Nom", QStringLiteral("Undesired %1").arg(i)}});
  for (int i = 0; i < 300; ++i) insertRow(db, "DayColor", {{"IdDay", kViewFirst.addDays(i)}, {"Color", i % 7}});
  tx.commit();
}

QVariantList viewParameters() {
  QVariantList p{kViewFirst, kViewFirst.addDays(kViewDays - 1)};
  for (int r = 0; r < kResources; ++r) p << resourceName(r);
  return p;
}

double median(std::vector<double> v) {
  std::sort(v.begin(), v.end());
  return v[v.size() / 2];
}

// Our layer: the stored query fetched once, then opened as a recordset and
// walked, every field read, as the board does at each redraw.
double ourRead(Database& db, QueryCommand& command, int& rows) {
  const auto start = Clock_::now();
  command.setParameters(viewParameters());
  Recordset rs = Recordset::openQuery(db, command.sql(), command.boundValues());
  const QStringList names = rs.fieldNames();
  rows = 0;
  qint64 sink = 0;
  for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) {
    for (const QString& n : names) sink += rs.field(n).isNull() ? 0 : 1;
    ++rows;
  }
  const double ms = msSince(start);
  if (sink < 0) std::puts("");
  return ms;
}

// The floor: the same SQL, prepared once, bound and stepped with the C API.
double bareRead(sqlite3_stmt* st, const QVariantList& values, int& rows) {
  const auto start = Clock_::now();
  sqlite3_reset(st);
  sqlite3_clear_bindings(st);
  for (int i = 0; i < values.size(); ++i) {
    const QVariant& v = values[i];
    if (v.isNull()) {
      sqlite3_bind_null(st, i + 1);
    } else if (v.typeId() == QMetaType::LongLong || v.typeId() == QMetaType::Int) {
      sqlite3_bind_int64(st, i + 1, v.toLongLong());
    } else {
      const QByteArray t = v.toString().toUtf8();
      sqlite3_bind_text(st, i + 1, t.constData(), int(t.size()), SQLITE_TRANSIENT);
    }
  }
  rows = 0;
  qint64 sink = 0;
  const int cols = sqlite3_column_count(st);
  while (sqlite3_step(st) == SQLITE_ROW) {
    for (int c = 0; c < cols; ++c) {
      if (sqlite3_column_type(st, c) == SQLITE_TEXT) sink += sqlite3_column_bytes(st, c);
      else sink += sqlite3_column_int64(st, c);
    }
    ++rows;
  }
  const double ms = msSince(start);
  if (sink < 0) std::puts("");
  return ms;
}

void benchReservationView(const QString& path) {
  FixedClock clock(QDate(2019, 6, 15));
  ConnectResult c = Connecting(path, 'C');
  Database& db = c.connection->db();
  QueryCatalogue catalogue(db, clock);
  QueryCommand command = catalogue.command(QStringLiteral("RQ_Reservation"));
  command.setParameters(viewParameters());
  const QVariantList values = command.boundValues();
  sqlite3_stmt* st = nullptr;
  const QByteArray sql = command.sql().toUtf8();
  sqlite3_prepare_v2(static_cast<sqlite3*>(db.handle()), sql.constData(), int(sql.size()), &st, nullptr);

  int ours = 0, bare = 0;
  std::vector<double> tOurs, tBare;
  for (int i = 0; i < 3; ++i) {  // warm the page cache
    ourRead(db, command, ours);
    bareRead(st, values, bare);
  }
  for (int i = 0; i < 30; ++i) {
    tOurs.push_back(ourRead(db, command, ours));
    tBare.push_back(bareRead(st, values, bare));
  }
  sqlite3_finalize(st);
  const double o = median(tOurs), b = median(tBare);
  std::printf("RQ_Reservation, %d days x %d resources: %d rows (bare %d)\n", kViewDays, kResources, ours, bare);
  std::printf("  through stored query + recordset: %8.3f ms (median of 30)\n", o);
  std::printf("  bare SQLite, same SQL:            %8.3f ms\n", b);
  std::printf("  ratio: %.2f (target <= 1.5)\n", o / b);
}

// Open_DB step 3 after Connecting: every session object, in order.
int openSession(const QString& path) {
  const long before = peakRssKb();
  FixedClock clock(QDate(2019, 6, 15));
  const auto start = Clock_::now();
  const double cpuStart = cpuMs();
  ConnectResult c = Connecting(path, 'U');
  if (!c) return 1;
  Database& db = c.connection->db();
  QueryCatalogue catalogue(db, clock);
  std::vector<Recordset> recordsets;
  recordsets.push_back(Recordset::openTable(db, QStringLiteral("DataBaseInfo")));
  QueryCommand reservation = catalogue.command(QStringLiteral("RQ_Reservation"));
  QueryCommand free = catalogue.command(QStringLiteral("RQ_Free"));
  recordsets.push_back(Recordset::openTable(db, QStringLiteral("Reservation")));
  auto onQuery = [&](const char* name, const QVariantList& params = {}) {
    QueryCommand q = catalogue.command(QString::fromLatin1(name));
    q.setParameters(params);
    recordsets.push_back(Recordset::openQuery(db, q.sql(), q.boundValues()));
  };
  onQuery("RQ_Resource");
  onQuery("BlackList");
  onQuery("InvoiceGroupSort");
  onQuery("ResultGroupSort");
  onQuery("InvoiceAccountSort", {QStringLiteral("Group 0")});
  onQuery("ResultAccountSort", {QStringLiteral("Group 2")});
  onQuery("DesignationSort");
  onQuery("ModificationSort");
  onQuery("PaymentSort");
  QueryCommand dayColor = catalogue.command(QStringLiteral("RQ_DayColor"));
  dayColor.setParameters({kViewFirst, kViewFirst.addDays(kViewDays - 1)});
  recordsets.push_back(Recordset::openQuery(db, dayColor.sql(), dayColor.boundValues()));
  const double ms = msSince(start);
  const double cpu = cpuMs() - cpuStart;
  const long peak = peakRssKb();
  std::printf("Opening the planning with every session recordset: %.1f ms, %.1f ms CPU (target < 300 ms)\n", ms, cpu);
  std::printf("  Reservation recordset: %d rows; peak RSS %.1f MB (%.1f MB before opening; target < 150 MB)\n",
              recordsets[1].recordCount(), peak / 1024.0, before / 1024.0);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  const QStringList args = app.arguments();
  if (args.size() == 3 && args[1] == QLatin1String("--open")) return openSession(args[2]);

  QTemporaryDir tmp;
  const QString folder = args.size() > 1 ? args[1] : tmp.path();
  QDir().mkpath(folder + QStringLiteral("/program"));
  const Paths paths(folder + QStringLiteral("/program"), folder);
  const QString path = folder + QStringLiteral("/bench.ksv");
  if (!QFile::exists(path)) {
    const auto start = Clock_::now();
    generate(path, paths);
    std::printf("Generated %d bookings on %d resources in %.0f ms (%.1f MB)\n", kBookings, kResources, msSince(start),
                QFileInfo(path).size() / 1048576.0);
  }
  benchReservationView(path);

  // A fresh process, so that its peak memory is the opening's own.
  std::fflush(stdout);
  for (int i = 0; i < 3; ++i) {
    QProcess open;
    open.setProcessChannelMode(QProcess::ForwardedChannels);
    open.start(app.applicationFilePath(), {QStringLiteral("--open"), path});
    open.waitForFinished(-1);
  }
  return 0;
}
