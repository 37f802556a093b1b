// The balance and the modifier totals of a 200-line invoice, against a plain
// loop that reads and sums the same cells; prints the ratio.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>

#include "core/number_text.h"
#include "invoicing/invoice_grid.h"

namespace {

const ksv::Regional& regional() {
  static const ksv::Regional r = ksv::Regional::englishUS();
  return r;
}
const ksv::Texts& texts() {
  static const ksv::Texts t(0);
  return t;
}

// Stays, taxes on top and inside, and payments, as a long group invoice has them.
ksv::InvoiceGrid invoice() {
  ksv::InvoiceGrid g(regional(), texts());
  for (int i = 0; i < 200; ++i) {
    ksv::InvoiceLine l;
    switch (i % 4) {
      case 0: l = {"Room [" + QString::number(i) + "]", "", "", "3", "85.50", "256.50", "", "1", ""}; break;
      case 1: l = {"  # Tourist tax", "0", "10", "256.5", "0", "25.65", "Y", "2", "Y"}; break;
      case 2: l = {"  # VAT", "0", "10", "256.5", "23.32", "0", "Y", "2", "N"}; break;
      default: l = {"Cash", "", "", "", "", "- 1,200.25", "", "3", ""}; break;
    }
    g.addLine(l);
  }
  return g;
}

void BM_BalanceAndModifierTotals(benchmark::State& state) {
  const ksv::InvoiceGrid base = invoice();
  for (auto _ : state) {
    ksv::InvoiceGrid g = base;
    g.ComputeTotal();
    g.CdAddTotalsM();
    benchmark::DoNotOptimize(g.txtTotal);
  }
}
BENCHMARK(BM_BalanceAndModifierTotals);

void BM_PlainLoopFloor(benchmark::State& state) {
  const ksv::InvoiceGrid base = invoice();
  for (auto _ : state) {
    ksv::Currency balance;
    std::map<QString, std::pair<ksv::Currency, ksv::Currency>> byName;
    for (const ksv::InvoiceLine& l : base.rows()) {
      if (const auto v = ksv::parseCurrency(l[5], regional())) balance += *v;
      if (l[6] == QLatin1String("Y")) {
        auto& s = byName[l[0]];
        s.first += ksv::parseCurrency(l[4], regional()).value_or(ksv::Currency());
        s.second += ksv::parseCurrency(l[5], regional()).value_or(ksv::Currency());
      }
    }
    benchmark::DoNotOptimize(balance);
    benchmark::DoNotOptimize(byName);
  }
}
BENCHMARK(BM_PlainLoopFloor);

// Keeps each run's time so that the ratio can be printed after the table.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& r : runs) times[r.benchmark_name()] = r.GetAdjustedRealTime();
    ConsoleReporter::ReportRuns(runs);
  }
  std::map<std::string, double> times;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  const double grid = reporter.times["BM_BalanceAndModifierTotals"];
  const double floor = reporter.times["BM_PlainLoopFloor"];
  if (grid > 0 && floor > 0) std::printf("grid totals / plain loop: %.2f\n", grid / floor);
  benchmark::Shutdown();
  return 0;
}
