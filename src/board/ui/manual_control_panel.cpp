#include "manual_control_panel.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "board_widget.h"
#include "core/texts.h"

namespace ksv {

ManualControlPanel::ManualControlPanel(BoardWidget& board, ManualControl::Kind kind, const Texts& texts,
                                       QWidget* parent)
    : QDialog(parent), board_(board), walk_(board.drawing(), kind) {
  setAttribute(Qt::WA_DeleteOnClose);
  setModal(false);
  setWindowTitle(texts.get(kind == ManualControl::Kind::Resources ? txt::MnlResourceCaption : txt::MnlBookingCaption));
  Arriere = new QPushButton(texts.get(txt::MnlArriere), this);
  Avant = new QPushButton(texts.get(txt::MnlAvant), this);
  Sortir = new QPushButton(texts.get(txt::MnlSortir), this);
  itemButtons_ = {Arriere, Avant};
  Arriere->setProperty("available", true);
  Avant->setProperty("available", true);
  connect(Arriere, &QPushButton::clicked, this, [this] {
    walk_.Arriere_Click();
    walk();
  });
  connect(Avant, &QPushButton::clicked, this, [this] {
    walk_.Avant_Click();
    walk();
  });
  connect(Sortir, &QPushButton::clicked, this, &QDialog::reject);
  // Whatever redrew the board (a scroll, a drop, a dialog, the refresh), the
  // marker keeps its place in the array drawn anew.
  connect(&board_, &BoardWidget::bookingsRedrawn, this, [this] {
    if (!closed_) walk();
  });
}

QPushButton* ManualControlPanel::addAction(const QString& caption, bool needsItem, std::function<void()> run,
                                           bool available) {
  auto* button = new QPushButton(caption, this);
  actions.push_back(button);
  if (needsItem) itemButtons_.push_back(button);
  button->setProperty("available", available);
  connect(button, &QPushButton::clicked, this, [this, run = std::move(run)] {
    {
      const BoardWidget::RefreshHold hold(board_);
      run();
    }
    walk();
  });
  return button;
}

void ManualControlPanel::layOut() {
  auto* walkRow = new QHBoxLayout;
  walkRow->addWidget(Arriere);
  walkRow->addWidget(Avant);
  auto* actionRow = new QHBoxLayout;
  for (QPushButton* b : actions) actionRow->addWidget(b);
  actionRow->addWidget(Sortir);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(walkRow);
  layout->addLayout(actionRow);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

void ManualControlPanel::walk() {
  walk_.walk();
  const bool items = walk_.itemButtonsEnabled();
  for (QPushButton* b : itemButtons_) b->setEnabled(items && b->property("available").toBool());
  for (QPushButton* b : actions)
    if (std::find(itemButtons_.begin(), itemButtons_.end(), b) == itemButtons_.end())
      b->setEnabled(b->property("available").toBool());
  board_.update();
}

void ManualControlPanel::done(int result) {
  // Deletion comes later: a redraw meanwhile must not bring the marker back.
  closed_ = true;
  walk_.Sortir_Click();
  board_.update();
  QDialog::done(result);
}

ManualControlPanel* ManualControlPanel::ResourceControl(BoardWidget& board, const Texts& texts,
                                                        ResourceControlHooks hooks, QWidget* parent) {
  auto* p = new ManualControlPanel(board, ManualControl::Kind::Resources, texts, parent);
  ManualControl* w = &p->walk_;
  // After an add or a delete the array is drawn anew: the walk starts again.
  p->addAction(texts.get(txt::MnlNewR), false, [w, f = hooks.NewR] { f(); w->restart(); }, bool(hooks.NewR));
  p->addAction(texts.get(txt::MnlModify), true, [w, f = hooks.Modify] { f(w->index()); }, bool(hooks.Modify));
  p->addAction(texts.get(txt::MnlDelete), true, [w, f = hooks.Delete] { f(w->index()); w->restart(); },
               bool(hooks.Delete));
  p->layOut();
  p->walk_.restart();
  p->walk();
  return p;
}

ManualControlPanel* ManualControlPanel::BookingControl(BoardWidget& board, const Texts& texts,
                                                       BookingControlHooks hooks, QWidget* parent) {
  auto* p = new ManualControlPanel(board, ManualControl::Kind::Bookings, texts, parent);
  ManualControl* w = &p->walk_;
  p->addAction(texts.get(txt::MnlNewB), false, [w, f = hooks.NewB] { f(); w->restart(); }, bool(hooks.NewB));
  p->addAction(texts.get(txt::MnlOpenB), true, [w, f = hooks.OpenB] { f(w->markedLabel()); w->restart(); },
               bool(hooks.OpenB));
  p->layOut();
  p->walk_.restart();
  p->walk();
  return p;
}

}  // namespace ksv
