#include "availability.h"

#include <algorithm>

#include "board/booking_buffer.h"
#include "core/clock.h"
#include "storage/query_command.h"
#include "storage/recordset.h"

namespace ksv {

namespace {

// The look-out on each side of the period.
constexpr int kLookOut = 30;

bool leftOut(const QString& resource) { return resource.endsWith(QLatin1Char('*')); }

int categoryOf(const QVariant& color) {
  if (color.isNull()) return -1;
  const int c = color.toInt();
  return c >= 0 && c < kCategoryCount ? c : -1;
}

// Every row of every kind that touches the period.
Recordset periodRows(Database& db, const Clock& clock, QDate from, QDate to) {
  QueryCommand command = QueryCatalogue(db, clock).command(QStringLiteral("RQ_Free"));
  command.setParameter(0, from);
  command.setParameter(1, to);
  return command.openRecordset();
}

}  // namespace

std::vector<Availability::ResourceRow> Availability::resourcesInOrder(Database& db, const Clock& clock) {
  Recordset r = QueryCatalogue(db, clock).command(QStringLiteral("RQ_Resource")).openRecordset();
  std::vector<ResourceRow> rows;
  for (r.moveFirst(); !r.isEOF(); r.moveNext())
    rows.push_back({r.field("Resource").toString(), categoryOf(r.field("Color"))});
  return rows;
}

int Availability::GetCategory(const QString& resource) const {
  Recordset r = Recordset::openTable(db_, QStringLiteral("Resource"));
  for (r.moveFirst(); !r.isEOF(); r.moveNext())
    if (r.field("Resource").toString() == resource) return categoryOf(r.field("Color"));
  return -1;
}

QStringList Availability::resourcesOf(int category) const {
  QStringList names;
  for (const ResourceRow& row : resourcesInOrder(db_, clock_))
    if (category == -1 || row.category == category) names << row.name;
  return names;
}

std::vector<ResourceRoom> Availability::roomAround(QDate from, QDate to, int category,
                                                   const std::vector<SkippedBooking>& skip) const {
  return roomAround(resourcesInOrder(db_, clock_), from, to, category, skip);
}

std::vector<ResourceRoom> Availability::roomAround(const std::vector<ResourceRow>& resources, QDate from, QDate to,
                                                   int category, const std::vector<SkippedBooking>& skip) const {
  std::vector<ResourceRoom> list;
  for (const ResourceRow& row : resources)
    if (category == -1 || row.category == category) list.push_back({row.name});

  Recordset r = periodRows(db_, clock_, from.addDays(-kLookOut), to.addDays(kLookOut));
  for (r.moveFirst(); !r.isEOF(); r.moveNext()) {
    const QString resource = r.field("Resource").toString();
    const QDate first = dayOf(r.field("Date_Deb"));
    const QDate last = dayOf(r.field("Date_Fin"));
    bool skipped = false;
    for (const SkippedBooking& s : skip)
      skipped = skipped || (s.resource == resource && s.nom == r.field("Nom").toString() && s.first == first &&
                            s.last == last);
    if (skipped) continue;

    const int a = last <= from ? int(last.daysTo(from)) : -1;
    const int b = first >= to ? int(to.daysTo(first)) : -1;
    for (ResourceRoom& entry : list) {
      if (entry.resource != resource) continue;
      if (a < 0 && b < 0) {
        entry.before = entry.after = -1;
      } else {
        // A taken entry stays taken: its -1 is below any distance.
        if (a >= 0 && a < entry.before) entry.before = a;
        if (b >= 0 && b < entry.after) entry.after = b;
      }
      break;
    }
  }
  return list;
}

int Availability::Available_Nb(QDate from, QDate to, int category) {
  if (from >= to) return -1;
  const std::vector<ResourceRow> resources = resourcesInOrder(db_, clock_);
  const std::vector<ResourceRoom> list = roomAround(resources, from, to, category, {});
  const size_t nbRes = resources.size();
  if (size_t(Res_Free.size()) < nbRes) Res_Free.resize(qsizetype(nbRes));
  if (Before_Free.size() < nbRes) Before_Free.resize(nbRes, kFarAway);
  if (After_Free.size() < nbRes) After_Free.resize(nbRes, kFarAway);
  for (size_t i = 0; i < list.size(); ++i) {
    Res_Free[qsizetype(i)] = list[i].resource;
    Before_Free[i] = list[i].before;
    After_Free[i] = list[i].after;
  }
  // Compacted in place: what lies past the free ones is left as it was.
  int n = 0;
  for (size_t i = 0; i < list.size(); ++i) {
    if (!list[i].isFree()) continue;
    Res_Free[n] = list[i].resource;
    Before_Free[size_t(n)] = list[i].before;
    After_Free[size_t(n)] = list[i].after;
    ++n;
  }
  return n;
}

AvailabilityTables Availability::SetAvailabilityTables(QDate first, int days) const {
  AvailabilityTables t;
  t.first = first;
  t.days = days < 0 ? 0 : days;
  const std::vector<ResourceRow> resources = resourcesInOrder(db_, clock_);
  if (resources.empty()) return t;
  t.Flg_OkCl = true;

  std::vector<int> categoryOfShown;
  for (const ResourceRow& row : resources) {
    if (leftOut(row.name)) continue;
    t.resources.append(row.name);
    categoryOfShown.push_back(row.category);
    if (row.category >= 0) ++t.count[size_t(row.category)];
  }
  t.free.assign(size_t(t.days), t.count);
  t.busy.assign(size_t(t.resources.size()), std::vector<bool>(size_t(t.days), false));
  if (t.days == 0) return t;

  const QDate last = first.addDays(t.days - 1);
  Recordset r = periodRows(db_, clock_, first, last);
  for (r.moveFirst(); !r.isEOF(); r.moveNext()) {
    const QString resource = r.field("Resource").toString();
    if (leftOut(resource)) continue;
    const qsizetype index = t.resources.indexOf(resource);
    if (index < 0) continue;  // a resource no longer in the list
    const int category = categoryOfShown[size_t(index)];
    // Each night from the arrival up to the day before leaving, within the days shown.
    const int from = std::max(0, int(first.daysTo(dayOf(r.field("Date_Deb")))));
    const int to = std::min(t.days - 1, int(first.daysTo(dayOf(r.field("Date_Fin")))) - 1);
    for (int d = from; d <= to; ++d) {
      if (category >= 0) --t.free[size_t(d)][size_t(category)];
      t.busy[size_t(index)][size_t(d)] = true;
    }
  }
  return t;
}

}  // namespace ksv
