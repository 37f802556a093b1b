#pragma once
// The Resource dialog: a name field, six category buttons, the action button
// and Cancel, bound to a ResourcePresenter.

#include <QDialog>

#include "board/resource_presenter.h"

class QLineEdit;

namespace ksv {

class ResourceDialog : public QDialog {
 public:
  ResourceDialog(ResourcePresenter& presenter, const Texts& texts, QWidget* parent = nullptr);
  static void show(ResourcePresenter& presenter, const Texts& texts, QWidget* parent);

 private:
  void paintName();
  ResourcePresenter& p_;
  QLineEdit* Res_Modif_;
};

}  // namespace ksv
