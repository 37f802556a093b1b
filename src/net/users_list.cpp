#include "users_list.h"

#include "storage/connecting.h"
#include "storage/roster.h"

namespace ksv {
namespace {

// Names end at their first zero character, as the roster's fixed fields do.
QString cutAtZero(const QString& s) {
  const qsizetype zero = s.indexOf(QChar(0));
  return zero < 0 ? s : s.left(zero);
}

}  // namespace

UsersListPresenter::UsersListPresenter(const Texts& texts, QStringList rows, int rosterMessage)
    : texts_(texts), rows_(std::move(rows)), message_(rosterMessage ? texts_.get(rosterMessage) : QString()) {}

void M_Users(int& rosterMessage, const UsersContext& context, Messages& messages, const Texts& texts) {
  QString file = context.openPlanning;
  ConnectResult own;
  if (file.isEmpty()) {
    file = context.currentFile;
    if (rosterMessage == 0) {
      file = context.askFile ? context.askFile() : QString();
      if (file.isEmpty()) return;
    }
    own = Connecting(file, 'C', messages, texts);
    if (!own) return;
  }

  QStringList rows;
  for (const RosterMember& m : liveConnections(file))
    rows << cutAtZero(m.computer) + QLatin1Char('\t') + cutAtZero(m.login);
  const UsersListPresenter list(texts, rows, rosterMessage);
  if (context.show) context.show(list);
  rosterMessage = 0;
  // A connection made for the list is closed when `own` goes.
}

}  // namespace ksv
