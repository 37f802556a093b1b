#pragma once
// Which resources are free over a period, with how many free days around it,
// and how many resources of each category are free on each day.

#include <array>
#include <vector>

#include <QDate>
#include <QString>
#include <QStringList>

namespace ksv {

class Clock;
class Database;

inline constexpr int kCategoryCount = 6;
// What the holes search reports for 31 days or more: nothing within 30 days.
inline constexpr int kFarAway = 31;

// A resource of the period search: its free days before and after, or -1 for
// both when a booking takes it during the period.
struct ResourceRoom {
  QString resource;
  int before = kFarAway;
  int after = kFarAway;
  bool isFree() const { return !(before == -1 && after == -1); }
};

// A booking that must not count against the period: the one being edited.
struct SkippedBooking {
  QString resource;
  QString nom;
  QDate first, last;
};

// The free counts per day and category from a first day on, and which
// resources are taken on which day.
struct AvailabilityTables {
  bool Flg_OkCl = false;  // false when the planning has no resource
  QDate first;
  int days = 0;
  std::array<int, kCategoryCount> count{};  // resources per category, names ending in "*" left out
  std::vector<std::array<int, kCategoryCount>> free;  // one row per day
  QStringList resources;                               // board order, "*" left out
  std::vector<std::vector<bool>> busy;                 // [resource][day]
};

class Availability {
 public:
  Availability(Database& db, const Clock& clock) : db_(db), clock_(clock) {}

  // The category (`Color`) of a resource, 0 to 5; -1 when the resource is
  // not in the table.
  int GetCategory(const QString& resource) const;

  // The resources of a category (-1: all) in board order: the Resource list
  // of the booking dialogs.
  QStringList resourcesOf(int category) const;

  // The number of free resources of a category (-1: all) from `from` to
  // `to`, or -1 when from is on or after to. The free ones are then the first
  // entries of Res_Free, Before_Free and After_Free, which are as long as the
  // planning has resources; entries beyond keep what they held.
  int Available_Nb(QDate from, QDate to, int category);
  QStringList Res_Free;
  std::vector<int> Before_Free, After_Free;

  // Every resource of the category with its room around the period, busy
  // ones included, the skipped bookings left out of the reckoning.
  std::vector<ResourceRoom> roomAround(QDate from, QDate to, int category,
                                       const std::vector<SkippedBooking>& skip = {}) const;

  // The tables behind the availability view and the published files, for
  // `days` days from `first`: the view starts on the board's first day shown,
  // the published files on today.
  AvailabilityTables SetAvailabilityTables(QDate first, int days) const;

 private:
  struct ResourceRow {
    QString name;
    int category;  // -1 when its colour is no category
  };
  static std::vector<ResourceRow> resourcesInOrder(Database& db, const Clock& clock);
  std::vector<ResourceRoom> roomAround(const std::vector<ResourceRow>& resources, QDate from, QDate to, int category,
                                       const std::vector<SkippedBooking>& skip) const;

  Database& db_;
  const Clock& clock_;
};

}  // namespace ksv
