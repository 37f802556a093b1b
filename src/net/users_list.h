#pragma once
// Who is connected to a planning: the `UsersList` window over the planning's
// roster, shown on request (`M_Users`) and when a mode is refused because
// somebody else holds the file.

#include <functional>

#include <QString>
#include <QStringList>

#include "core/texts.h"

namespace ksv {

class Messages;

class UsersListPresenter {
 public:
  UsersListPresenter(const Texts& texts, QStringList rows, int rosterMessage);

  QString title() const { return texts_.get(txt::UsersTitle); }
  QString computersHeading() const { return texts_.get(txt::UsersComputers); }
  QString usersHeading() const { return texts_.get(txt::UsersUsers); }
  QString exitCaption() const { return texts_.get(txt::ButtonExit); }
  // "computer<TAB>login", one per live connection.
  const QStringList& rows() const { return rows_; }
  // The roster message, empty with none.
  const QString& message() const { return message_; }
  // Window height in twips: shorter when there is no message to show.
  int heightTwips() const { return message_.isEmpty() ? 5300 : 6800; }

 private:
  Texts texts_;
  QStringList rows_;
  QString message_;
};

struct UsersContext {
  QString openPlanning;  // the session's open planning, empty when none
  QString currentFile;   // the planning a refused mode was asked for
  // `Demander_NomFichier`: an existing planning chosen by the user, or "".
  std::function<QString()> askFile;
  std::function<void(const UsersListPresenter&)> show;  // modal
};

// `rosterMessage` is 0 or one of txt::RosterNormalMode, RosterCompact,
// RosterConvert; it is cleared once the list has been shown.
void M_Users(int& rosterMessage, const UsersContext& context, Messages& messages, const Texts& texts);

}  // namespace ksv
