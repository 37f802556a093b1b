#include "users_list_dialog.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace ksv {

UsersListDialog::UsersListDialog(const UsersListPresenter& presenter, QWidget* parent) : QDialog(parent) {
  setWindowTitle(presenter.title());
  grid = new QTableWidget(int(presenter.rows().size()), 2, this);
  grid->setHorizontalHeaderLabels({presenter.computersHeading(), presenter.usersHeading()});
  grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid->verticalHeader()->hide();
  grid->horizontalHeader()->setStretchLastSection(true);
  for (int r = 0; r < presenter.rows().size(); ++r) {
    const QStringList parts = presenter.rows()[r].split(QLatin1Char('\t'));
    grid->setItem(r, 0, new QTableWidgetItem(parts.value(0)));
    grid->setItem(r, 1, new QTableWidgetItem(parts.value(1)));
  }
  message = new QLabel(presenter.message(), this);
  message->setWordWrap(true);
  message->setVisible(!presenter.message().isEmpty());
  exitButton = new QPushButton(presenter.exitCaption(), this);
  connect(exitButton, &QPushButton::clicked, this, &QDialog::accept);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(grid);
  layout->addWidget(message);
  layout->addWidget(exitButton, 0, Qt::AlignRight);
  resize(420, presenter.heightTwips() / 15);  // 15 twips a pixel
}

void UsersListDialog::show(const UsersListPresenter& presenter, QWidget* parent) {
  UsersListDialog dialog(presenter, parent);
  dialog.exec();
}

}  // namespace ksv
