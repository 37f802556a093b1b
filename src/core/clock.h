#pragma once
// Today's date and the time, injected so that every rule can be tested on a
// fixed day.

#include <QDate>
#include <QDateTime>

namespace ksv {

class Clock {
 public:
  virtual ~Clock() = default;
  virtual QDateTime now() const = 0;
  QDate today() const { return now().date(); }
};

class SystemClock final : public Clock {
 public:
  QDateTime now() const override { return QDateTime::currentDateTime(); }
};

// A clock that stands still until moved; used by tests and by the example's
// fixed dates.
class FixedClock final : public Clock {
 public:
  explicit FixedClock(QDateTime at) : at_(std::move(at)) {}
  explicit FixedClock(QDate day) : at_(day, QTime(12, 0)) {}
  QDateTime now() const override { return at_; }
  void set(QDateTime at) { at_ = std::move(at); }
  void advanceDays(int days) { at_ = at_.addDays(days); }

 private:
  QDateTime at_;
};

}  // namespace ksv
