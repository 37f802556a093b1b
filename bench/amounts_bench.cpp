// Amount arithmetic against its floor: summing invoice lines as currency and
// formatting a total, compared with bare 64-bit sums and a bare number print.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <vector>

#include "core/currency.h"
#include "core/number_text.h"

namespace {

std::vector<ksv::Currency> lines() {
  std::vector<ksv::Currency> v;
  for (int i = 0; i < 1000; ++i) v.push_back(ksv::Currency::fromRaw(12345 + i * 7));
  return v;
}

void BM_CurrencySum(benchmark::State& state) {
  const auto v = lines();
  for (auto _ : state) {
    ksv::Currency sum;
    for (const auto& c : v) sum += c;
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(BM_CurrencySum);

void BM_Int64SumFloor(benchmark::State& state) {
  const auto v = lines();
  for (auto _ : state) {
    std::int64_t sum = 0;
    for (const auto& c : v) sum += c.raw();
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(BM_Int64SumFloor);

void BM_FormatAmount(benchmark::State& state) {
  const ksv::Regional r = ksv::Regional::englishUS();
  for (auto _ : state) benchmark::DoNotOptimize(ksv::formatNumber(ksv::Currency::fromRaw(123456789), "#,###,##0.00", r));
}
BENCHMARK(BM_FormatAmount);

void BM_SnprintfFloor(benchmark::State& state) {
  char buf[64];
  for (auto _ : state) {
    std::snprintf(buf, sizeof buf, "%.2f", 12345.6789);
    benchmark::DoNotOptimize(buf);
  }
}
BENCHMARK(BM_SnprintfFloor);

}  // namespace

BENCHMARK_MAIN();
