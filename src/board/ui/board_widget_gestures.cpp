// The board widget's side of the gestures: it turns pixels into board twips,
// tells BoardGestures what lies under the pointer, runs the drag timers and
// paints the carried rectangle, the gap caption and the keyboard's cursor.
#include <algorithm>

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>

#include "board/board_gestures.h"
#include "board_widget.h"
#include "twip_pixels.h"

namespace ksv {
namespace {

// How fast a carried booking scrolls the rows past the grid's edge.
constexpr int kDragScrollMs = 150;

}  // namespace

void BoardWidget::setGestures(BoardGestures* gestures) {
  gestures_ = gestures;
  if (!timerVPlus_) {
    timerVPlus_ = new QTimer(this);
    timerVPlus_->setObjectName(QStringLiteral("TimerVPlus"));
    timerVPlus_->setInterval(kDragScrollMs);
    connect(timerVPlus_, &QTimer::timeout, this, [this] {
      if (!gestures_) return;
      gestures_->TimerVPlus_Timer();
      syncDragTimers();
    });
    timerVMoins_ = new QTimer(this);
    timerVMoins_->setObjectName(QStringLiteral("TimerVMoins"));
    timerVMoins_->setInterval(kDragScrollMs);
    connect(timerVMoins_, &QTimer::timeout, this, [this] {
      if (!gestures_) return;
      gestures_->TimerVMoins_Timer();
      syncDragTimers();
    });
    trou_ = new QLabel(this);
    trou_->setObjectName(QStringLiteral("Trou"));
    trou_->setAutoFillBackground(true);
    trou_->setFrameShape(QFrame::Box);
    trou_->setStyleSheet(QStringLiteral("background: #FFFFE1; color: black; padding: 0px 2px;"));
    trou_->hide();
  }
  // The board keeps the keys: arrows, pages and Home move over it.
  setFocusPolicy(Qt::StrongFocus);
  hScroll_->setFocusPolicy(Qt::NoFocus);
  vScroll_->setFocusPolicy(Qt::NoFocus);
  today_->setFocusPolicy(Qt::NoFocus);
  // Moves are followed during a drag even when the button state is unknown.
  setMouseTracking(true);
}

void BoardWidget::setCursorCell(int row, int column) {
  const BoardFrame& f = drawing_.frame();
  cursorRow_ = std::clamp(row, 0, std::max(0, f.ResNb() - 1));
  cursorColumn_ = std::clamp(column, 0, std::max(0, f.DayNb() - 1));
  update();
}

BoardWidget::Strip BoardWidget::stripAt(int x, int y, int& index) const {
  const BoardFrame& f = drawing_.frame();
  for (int i = 0; i < f.DayNb(); ++i) {
    index = i;
    if (f.Jour(i).contains(x, y)) return Strip::Jour;
    if (f.Mois(i).contains(x, y)) return Strip::Mois;
  }
  index = -1;
  if (f.HScroll().contains(x, y)) return Strip::HScroll;
  return Strip::None;
}

void BoardWidget::pressOnGrid(Qt::MouseButton button, QPoint p, int label) {
  const int x = pixelsToTwips(p.x(), tpp_);
  const int y = pixelsToTwips(p.y(), tpp_);
  setFocus(Qt::MouseFocusReason);
  if (label >= 0) {
    const TwipRect& lab = drawing_.Lab[std::size_t(label)].rect;
    gestures_->Lab_MouseDown(label, button, x - lab.left, y - lab.top);
    dragStrip_ = Strip::None;
    update();
    return;
  }
  const BoardFrame& f = drawing_.frame();
  if (f.strictlyInsideGrid(x, y)) setCursorCell(f.rowAt(y), f.columnAt(x));
  gestures_->Form_MouseDown(button, x, y);
  syncTrou();
}

void BoardWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!gestures_ || !gestures_->dragging()) return;
  const QPoint p = event->position().toPoint();
  dragOver(pixelsToTwips(p.x(), tpp_), pixelsToTwips(p.y(), tpp_));
}

void BoardWidget::dragOver(int x, int y) {
  int index = -1;
  const Strip now = stripAt(x, y, index);
  if (now != dragStrip_) {
    // Leaving one strip, then entering the next.
    switch (dragStrip_) {
      case Strip::Jour: gestures_->Jour_DragOver(1); break;
      case Strip::Mois: gestures_->Mois_DragOver(1); break;
      case Strip::HScroll: gestures_->HScroll_DragOver(1); break;
      case Strip::None: break;
    }
    switch (now) {
      case Strip::Jour: gestures_->Jour_DragOver(0); break;
      case Strip::Mois: gestures_->Mois_DragOver(0); break;
      case Strip::HScroll: gestures_->HScroll_DragOver(0); break;
      case Strip::None: break;
    }
    dragStrip_ = now;
  }
  const bool overLabel = labelAt(QPoint(twipsToPixels(x, tpp_), twipsToPixels(y, tpp_))) >= 0;
  if (now == Strip::None && !overLabel) {
    gestures_->Form_DragOver(x, y);
  } else {
    gestures_->dragMove(x, y);
  }
  syncDragTimers();
  update();
}

bool BoardWidget::releaseOnGrid(Qt::MouseButton button, QPoint p) {
  if (trou_ && trou_->isVisible()) {
    gestures_->Form_MouseUp();
    syncTrou();
  }
  if (!gestures_->dragging()) return false;
  // Only the button that picked the booking up puts it down.
  if (button != Qt::LeftButton) return true;
  if (!rect().contains(p)) {
    // Let go outside the board: nothing lies there to drop on.
    gestures_->cancelDrag();
    syncDragTimers();
    update();
    return true;
  }
  dropAt(pixelsToTwips(p.x(), tpp_), pixelsToTwips(p.y(), tpp_));
  return true;
}

void BoardWidget::dropAt(int x, int y) {
  int index = -1;
  const Strip strip = stripAt(x, y, index);
  const int label = labelAt(QPoint(twipsToPixels(x, tpp_), twipsToPixels(y, tpp_)));
  const BoardFrame& f = drawing_.frame();
  dragStrip_ = Strip::None;
  switch (strip) {
    case Strip::Jour:
      gestures_->Jour_DragDrop(index, x - f.Jour(index).left, y - f.Jour(index).top);
      break;
    case Strip::Mois:
      gestures_->Mois_DragDrop(index, x - f.Mois(index).left, y - f.Mois(index).top);
      break;
    case Strip::HScroll:
      gestures_->HScroll_DragDrop(x - f.HScroll().left, y - f.HScroll().top);
      break;
    case Strip::None:
      if (label >= 0) {
        const TwipRect& lab = drawing_.Lab[std::size_t(label)].rect;
        gestures_->Lab_DragDrop(label, x - lab.left, y - lab.top);
      } else {
        gestures_->Form_DragDrop(x, y);
      }
      break;
  }
  // A drop the mode refused still ends the carrying.
  gestures_->cancelDrag();
  syncDragTimers();
  update();
}

void BoardWidget::syncDragTimers() {
  if (!timerVPlus_) return;
  if (gestures_ && gestures_->TimerVPlus) {
    if (!timerVPlus_->isActive()) timerVPlus_->start();
  } else {
    timerVPlus_->stop();
  }
  if (gestures_ && gestures_->TimerVMoins) {
    if (!timerVMoins_->isActive()) timerVMoins_->start();
  } else {
    timerVMoins_->stop();
  }
}

void BoardWidget::syncTrou() {
  if (!trou_) return;
  if (!gestures_ || !gestures_->Trou.visible) {
    trou_->hide();
    return;
  }
  const GapCaption& t = gestures_->Trou;
  trou_->setText(t.text);
  trou_->adjustSize();
  const QRect r = pixels(t.rect);
  trou_->setGeometry(r.left(), r.top(), trou_->width(), r.height());
  trou_->show();
  trou_->raise();
}

void BoardWidget::moveCursorBy(int rows, int columns) {
  const BoardFrame& f = drawing_.frame();
  int row = cursorRow_ + rows;
  int column = cursorColumn_ + columns;
  // Past an edge the board scrolls and the cursor stays on the edge.
  if (row < 0 || row >= f.ResNb()) {
    vScroll_->setValue(vScroll_->value() + (row < 0 ? row : row - (f.ResNb() - 1)));
  }
  if (column < 0 || column >= f.DayNb()) {
    hScroll_->setValue(hScroll_->value() + (column < 0 ? column : column - (f.DayNb() - 1)));
  }
  setCursorCell(row, column);
}

void BoardWidget::keyPressEvent(QKeyEvent* event) {
  if (!gestures_) {
    QWidget::keyPressEvent(event);
    return;
  }
  const BoardFrame& f = drawing_.frame();
  const bool ctrl = event->modifiers() & Qt::ControlModifier;
  switch (event->key()) {
    case Qt::Key_Escape:
      if (gestures_->dragging()) {
        gestures_->cancelDrag();
        syncDragTimers();
        update();
      }
      break;
    case Qt::Key_Left: moveCursorBy(0, -1); break;
    case Qt::Key_Right: moveCursorBy(0, 1); break;
    case Qt::Key_Up: moveCursorBy(-1, 0); break;
    case Qt::Key_Down: moveCursorBy(1, 0); break;
    case Qt::Key_PageUp:
      if (ctrl)
        hScroll_->setValue(hScroll_->value() - f.DayNb());
      else
        vScroll_->setValue(vScroll_->value() - f.ResNb());
      break;
    case Qt::Key_PageDown:
      if (ctrl)
        hScroll_->setValue(hScroll_->value() + f.DayNb());
      else
        vScroll_->setValue(vScroll_->value() + f.ResNb());
      break;
    case Qt::Key_Home: Today_Click(); break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      gestures_->Enter_Cell(cursorRow_, cursorColumn_);
      break;
    default: QWidget::keyPressEvent(event); return;
  }
  event->accept();
}

void BoardWidget::paintGestures(QPainter& p) {
  if (!gestures_) return;
  const BoardFrame& f = drawing_.frame();
  p.save();
  p.setBrush(Qt::NoBrush);
  if (hasFocus() && f.ResNb() > 0 && f.DayNb() > 0) {
    p.setPen(QPen(QColor(0, 0, 160), 2));
    const TwipRect cell{f.GridLeft() + cursorColumn_ * f.PasH(), f.GridTop() + cursorRow_ * f.PasV(), f.PasH(),
                        f.PasV()};
    p.drawRect(pixels(cell).adjusted(1, 1, -1, -1));
  }
  if (gestures_->dragging()) {
    p.setPen(QPen(Qt::black, 2, Qt::DashLine));
    p.drawRect(pixels(gestures_->LabDragDrop).adjusted(0, 0, -1, -1));
  }
  p.restore();
}

}  // namespace ksv
