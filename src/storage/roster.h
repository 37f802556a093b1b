#pragma once
// The roster beside a planning (".ldb"): one slot per live connection, with the
// computer and login of its workstation. A connection holds an OS lock on its
// slot for as long as it lives, so a process that dies, even killed outright,
// drops out of the list at once; the file exists while a connection is live
// and is removed by the last one to close (or by the next look at a roster
// whose connections have all died).

#include <memory>

#include <QList>
#include <QString>

namespace ksv {

struct RosterMember {
  QString computer;
  QString login;
  friend bool operator==(const RosterMember&, const RosterMember&) = default;
};

// What a slot is held for: a connection, or one of the modes of the lock
// file ('C', 'U', 'E'), held as long as the mode is.
enum class RosterKind : char { Connection = ' ', Consultation = 'C', Normal = 'U', Exclusive = 'E' };

class RosterEntry {
 public:
  // Lists this process as connected to the planning; nothing when the roster
  // cannot be written (a read-only folder) or is full.
  static std::unique_ptr<RosterEntry> join(const QString& planningPath, RosterKind kind = RosterKind::Connection);
  static std::unique_ptr<RosterEntry> join(const QString& planningPath, const QString& computer,
                                           const QString& login, RosterKind kind = RosterKind::Connection);
  ~RosterEntry();
  RosterEntry(const RosterEntry&) = delete;
  RosterEntry& operator=(const RosterEntry&) = delete;

 private:
  RosterEntry(QString rosterPath, int fd, int slot) : path_(std::move(rosterPath)), fd_(fd), slot_(slot) {}
  QString path_;
  int fd_;
  int slot_;
};

// The live connections of a planning, in slot order; a process that holds a
// lock mode and a connection is listed once.
QList<RosterMember> liveConnections(const QString& planningPath);

// Live slots held for each mode of the lock file.
struct LiveModes {
  int consultations = 0;
  int normal = 0;
  int exclusive = 0;
  int exclusiveElsewhere = 0;  // held by another process
};
LiveModes liveModes(const QString& planningPath);

// True when somebody is connected. A roster file left by dead connections only
// is removed on the way.
bool rosterIsLive(const QString& planningPath);

// This workstation's names as the roster shows them.
QString computerName();
QString loginName();

}  // namespace ksv
