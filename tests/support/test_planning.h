#pragma once
// A real planning file in a temporary folder, opened read-write, with the
// session's board commands and recordsets as the open session holds them.

#include <QDate>

#include "core/clock.h"
#include "core/texts.h"
#include "scripted_messages.h"
#include "storage/planning_session.h"
#include "storage/sqlite_db.h"
#include "temp_folders.h"

namespace ksv::test {

class TestPlanning {
 public:
  explicit TestPlanning(QDate today = QDate(2025, 3, 10));

  Database& db() { return db_; }
  SessionObjects& objects() { return objects_; }
  const Paths& paths() const { return folders_.paths(); }
  const Clock& clock() const { return clock_; }
  QString file() const { return file_; }

  void addResource(const QString& name, int color, int order);
  void addBooking(const QString& resource, QDate first, QDate last, const QString& name, int couleur = 0,
                  const QString& split = QStringLiteral("0"), int groupNb = 0, const QVariant& invNb = QVariant());
  void addDayColor(QDate day, int color);

 private:
  TempFolders folders_;
  FixedClock clock_;
  ScriptedMessages creationMessages_;
  Texts texts_;
  QString file_;
  Database db_;
  SessionObjects objects_;
};

}  // namespace ksv::test
