#pragma once
// The `Historique` window over the headless HistoriquePresenter: the four
// time filters, the search box, the grid of customers and dates whose titles
// sort it, the detail zones, Print, e-mail and Close.

#include <QDialog>

#include "bookings/historique.h"

class QLineEdit;
class QRadioButton;
class QTableWidget;

namespace ksv {

class BookingDetailPanel;

class HistoriqueDialog : public QDialog {
  Q_OBJECT
 public:
  HistoriqueDialog(HistoriquePresenter& presenter, const Texts& texts, const QString& dateFormat,
                   QWidget* parent = nullptr);

  QTableWidget* grid() const { return ListHistorique_; }

 private:
  void showLines();
  void showDetail();

  HistoriquePresenter& p_;
  QString dateFormat_;
  QTableWidget* ListHistorique_ = nullptr;
  QLineEdit* search_ = nullptr;
  BookingDetailPanel* detail_ = nullptr;
  bool showing_ = false;
};

}  // namespace ksv
