// The customer list on a busy planning: 20,000 bookings of 4,000 customers,
// each with five stays carrying three spellings of the remark.
//  1. Dessin_Customer (RQ_Customer read into lines) against the bare distinct
//     query read through a statement.
//  2. Unify over the whole list, on a fresh copy of the planning each time.
//  3. The search box filtering the list for one typed text.

#include <benchmark/benchmark.h>

#include <QDate>
#include <QFile>
#include <QTemporaryDir>

#include "core/clock.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/texts.h"
#include "customers/customer_list.h"
#include "customers/customer_ops.h"
#include "storage/schema.h"
#include "storage/sqlite_db.h"
#include "storage/stored_queries.h"

namespace {

using namespace ksv;

class SilentMessages final : public Messages {
 public:
  MsgAnswer show(const QString&, MsgButtons, MsgIcon, std::optional<MsgAnswer> preselected) override {
    return preselected.value_or(MsgAnswer::Ok);
  }
};

struct Fixture {
  QTemporaryDir dir;
  QString master;
  Fixture() {
    master = dir.path() + "/Master.ksv";
    Database db(master, Database::OpenMode::Create);
    createPlanningTables(db);
    createStoredQueries(db);
    Transaction t(db);
    const QStringList remarks{"Quiet room", "Quiet room\r\n", "Late arrival"};
    for (int c = 0; c < 4000; ++c)
      for (int s = 0; s < 5; ++s)
        insertRow(db, "Reservation",
                  {{"Resource", QString("Room %1").arg(c % 40)},
                   {"Date_Deb", QDate(2024, 1, 1).addDays(s * 30 + c % 20)},
                   {"Date_Fin", QDate(2024, 1, 3).addDays(s * 30 + c % 20)},
                   {"Nom", QString("Customer %1").arg(c, 5, 10, QChar('0'))},
                   {"Email", s == 0 ? QString() : QString("c%1@example.fr").arg(c)},
                   {"Remarque", remarks[s % 3]},
                   {"GroupId", "C"}});
    t.commit();
  }
  static Fixture& get() {
    static Fixture f;
    return f;
  }
};

struct Env {
  FixedClock clock{QDate(2024, 6, 15)};
  SilentMessages messages;
  Texts texts{0};
  Paths paths{QString(), QString()};
};

void BM_Dessin_Customer(benchmark::State& state) {
  Database db(Fixture::get().master, Database::OpenMode::ReadOnly);
  Env env;
  const CustomerContext ctx{db, env.clock, env.messages, env.texts, env.paths};
  for (auto _ : state) benchmark::DoNotOptimize(Dessin_Customer(ctx, kRQ_Customer));
}
BENCHMARK(BM_Dessin_Customer)->Unit(benchmark::kMillisecond);

void BM_DistinctFloor(benchmark::State& state) {
  Database db(Fixture::get().master, Database::OpenMode::ReadOnly);
  for (auto _ : state) {
    Statement st = db.prepare(
        "SELECT DISTINCT Nom, Email, Remarque, GroupId FROM Reservation WHERE GroupId <> 'A' ORDER BY Nom");
    int n = 0;
    while (st.step()) n += st.column(0).toString().size();
    benchmark::DoNotOptimize(n);
  }
}
BENCHMARK(BM_DistinctFloor)->Unit(benchmark::kMillisecond);

void BM_Customer_Merge(benchmark::State& state) {
  Env env;
  const QString copy = Fixture::get().dir.path() + "/Copy.ksv";
  for (auto _ : state) {
    state.PauseTiming();
    QFile::remove(copy);
    QFile::copy(Fixture::get().master, copy);
    Database db(copy, Database::OpenMode::ReadWrite);
    const CustomerContext ctx{db, env.clock, env.messages, env.texts, env.paths};
    state.ResumeTiming();
    benchmark::DoNotOptimize(Customer_Merge(ctx, kRQ_Customer, MergeChoice::Cut));
  }
}
BENCHMARK(BM_Customer_Merge)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_SearchBox(benchmark::State& state) {
  Database db(Fixture::get().master, Database::OpenMode::ReadOnly);
  Env env;
  CustomerListPresenter p(CustomerContext{db, env.clock, env.messages, env.texts, env.paths});
  p.M_CustomerList_Click();
  for (auto _ : state) {
    p.setSearchText("customer 0123");
    benchmark::DoNotOptimize(p.visibleRows());
  }
}
BENCHMARK(BM_SearchBox)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
