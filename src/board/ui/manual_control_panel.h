#pragma once
// The two modeless panels of manual control: ResourceControl walks the
// resource cells, BookingControl the booking labels, and each gives the
// right button's actions as plain buttons. The app fills the hooks; a
// button whose hook is empty stays disabled.

#include <functional>
#include <vector>

#include <QDialog>

#include "board/manual_control.h"

class QPushButton;

namespace ksv {

class BoardWidget;
class Texts;

struct ResourceControlHooks {
  std::function<void()> NewR;             // R_Add_Click with an empty SelResource
  std::function<void(int row)> Modify;    // R_Modify_Click on Res_Lib(row)
  std::function<void(int row)> Delete;    // R_Delete_Click on Res_Lib(row)
};

struct BookingControlHooks {
  std::function<void()> NewB;             // ReservationCreer on the first resource on screen
  std::function<void(int label)> OpenB;   // as a right press on Lab(label)
};

class ManualControlPanel final : public QDialog {
  Q_OBJECT
 public:
  // Modeless, deleted on close.
  static ManualControlPanel* ResourceControl(BoardWidget& board, const Texts& texts, ResourceControlHooks hooks,
                                             QWidget* parent);
  static ManualControlPanel* BookingControl(BoardWidget& board, const Texts& texts, BookingControlHooks hooks,
                                            QWidget* parent);

  QPushButton* Arriere = nullptr;
  QPushButton* Avant = nullptr;
  QPushButton* Sortir = nullptr;
  // NewR, Modify, Delete or NewB, OpenB, in that order.
  std::vector<QPushButton*> actions;

  ManualControl& walker() { return walk_; }
  // The walk after every action: the buttons follow what is drawn.
  void walk();

 public slots:
  // Sortir, Escape and the window's close all end here: the marker goes.
  void done(int result) override;

 private:
  ManualControlPanel(BoardWidget& board, ManualControl::Kind kind, const Texts& texts, QWidget* parent);
  QPushButton* addAction(const QString& caption, bool needsItem, std::function<void()> run, bool available);
  void layOut();

  BoardWidget& board_;
  ManualControl walk_;
  std::vector<QPushButton*> itemButtons_;
  bool closed_ = false;
};

}  // namespace ksv
