#pragma once
// `UsersList`: the computers and logins connected to a planning.

#include <QDialog>

#include "net/users_list.h"

class QLabel;
class QPushButton;
class QTableWidget;

namespace ksv {

class UsersListDialog final : public QDialog {
  Q_OBJECT
 public:
  UsersListDialog(const UsersListPresenter& presenter, QWidget* parent = nullptr);
  QTableWidget* grid = nullptr;
  QLabel* message = nullptr;
  QPushButton* exitButton = nullptr;

  static void show(const UsersListPresenter& presenter, QWidget* parent = nullptr);
};

}  // namespace ksv
