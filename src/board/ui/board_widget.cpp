#include "board_widget.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QToolTip>

#include "board_colors.h"
#include "core/texts.h"
#include "twip_pixels.h"

namespace ksv {
namespace {

const QColor kBoardBack(0xC0, 0xC0, 0xC0);
const QColor kEventColour(0x80, 0x00, 0x80);
const QColor kHatchColour(0x60, 0x60, 0x60);

QFont pointFont(const QFont& base, int points) {
  QFont f = base;
  if (points > 0) f.setPointSize(points);
  return f;
}

}  // namespace

BoardWidget::BoardWidget(BoardDrawing& drawing, const LoadedOptions& options, const Texts& texts, QWidget* parent)
    : QWidget(parent), drawing_(drawing), options_(options) {
  setObjectName(QStringLiteral("Board"));
  setAutoFillBackground(true);
  QPalette pal = palette();
  pal.setColor(QPalette::Window, kBoardBack);
  setPalette(pal);
  tpp_ = ksv::twipsPerPixel(logicalDpiX());

  hScroll_ = new QScrollBar(Qt::Horizontal, this);
  hScroll_->setObjectName(QStringLiteral("HScroll"));
  vScroll_ = new QScrollBar(Qt::Vertical, this);
  vScroll_->setObjectName(QStringLiteral("VScroll"));
  vScroll_->setRange(0, 0);
  today_ = new QPushButton(texts.get(txt::TodayButton), this);
  today_->setObjectName(QStringLiteral("Today"));
  infoJour_ = new QLabel(this);
  infoJour_->setObjectName(QStringLiteral("InfoJour"));
  infoJour_->setAutoFillBackground(true);
  infoJour_->setFrameShape(QFrame::Box);
  infoJour_->setStyleSheet(QStringLiteral("background: #FFFFE1; color: black; padding: 3px;"));
  infoJour_->hide();

  connect(hScroll_, &QScrollBar::valueChanged, this, &BoardWidget::HScroll_Change);
  connect(vScroll_, &QScrollBar::valueChanged, this, &BoardWidget::VScroll_Change);
  connect(today_, &QPushButton::clicked, this, &BoardWidget::Today_Click);
  placeControls();
}

QRect BoardWidget::pixels(const TwipRect& r) const { return toPixels(r, tpp_); }

void BoardWidget::placeControls() {
  const BoardFrame& f = drawing_.frame();
  hScroll_->setGeometry(pixels(f.HScroll()));
  vScroll_->setGeometry(pixels(f.VScroll()));
  today_->setGeometry(pixels(f.Today()));
  setMinimumSize(twipsToPixels(f.extentRight(), tpp_), twipsToPixels(f.extentBottom(), tpp_));
}

void BoardWidget::setDayRange(int hScrollMax, int todayOffset) {
  todayOffset_ = todayOffset;
  settingBars_ = true;
  hScroll_->setRange(0, std::max(0, hScrollMax));
  hScroll_->setPageStep(std::max(1, drawing_.frame().DayNb()));
  settingBars_ = false;
}

void BoardWidget::repaintMoved(int days, int resources) {
  const BoardFrame& f = drawing_.frame();
  // Labels cut on the left run half a step under the resource column.
  TwipRect grid = f.Rectangle();
  grid.left -= f.PasH();
  grid.width += 2 * f.PasH();
  update(pixels(grid));
  if (days != drawing_.daysVersion) {
    update(pixels(TwipRect{f.GridLeft(), f.BoardTop(), f.PasH() * f.DayNb(), f.GridTop() - f.BoardTop()}));
  }
  if (resources != drawing_.resourcesVersion) {
    update(pixels(TwipRect{f.BoardLeft(), f.GridTop(), f.ResW(), f.PasV() * f.ResNb()}));
    settingBars_ = true;
    vScroll_->setRange(0, drawing_.vScrollMax);
    vScroll_->setPageStep(std::max(1, f.ResNb()));
    settingBars_ = false;
  }
}

void BoardWidget::Dessiner_Ecran() {
  const int days = drawing_.daysVersion, resources = drawing_.resourcesVersion;
  drawing_.Dessiner_Ecran();
  repaintMoved(days, resources);
  emit bookingsRedrawn();
}

void BoardWidget::Redraw(const QString& what) {
  const int days = drawing_.daysVersion, resources = drawing_.resourcesVersion;
  drawing_.Redraw(what);
  repaintMoved(days, resources);
  emit bookingsRedrawn();
}

void BoardWidget::eraseBoard() {
  drawing_.EraseReservation();
  drawing_.EraseResource();
  settingBars_ = true;
  vScroll_->setRange(0, 0);
  settingBars_ = false;
  update();
  emit bookingsRedrawn();
}

void BoardWidget::EraseReservation() {
  drawing_.EraseReservation();
  update();
  emit bookingsRedrawn();
}

void BoardWidget::RestoreDayColor() {
  drawing_.RestoreDayColor();
  update();
}

void BoardWidget::scrollTo(int vertical, int horizontal) {
  settingBars_ = true;
  vScroll_->setValue(vertical);
  hScroll_->setValue(horizontal);
  settingBars_ = false;
  drawing_.VPos = vScroll_->value();
  drawing_.HPos = hScroll_->value();
}

void BoardWidget::setRefreshHold(std::function<void()> hold, std::function<void()> release) {
  holdRefresh_ = std::move(hold);
  releaseRefresh_ = std::move(release);
}

BoardWidget::RefreshHold::RefreshHold(BoardWidget& board) : board_(board) {
  if (board_.holdRefresh_) board_.holdRefresh_();
}

BoardWidget::RefreshHold::~RefreshHold() {
  if (board_.releaseRefresh_) board_.releaseRefresh_();
}

void BoardWidget::HScroll_Change(int value) {
  if (settingBars_) return;
  const RefreshHold hold(*this);
  drawing_.HPos = value;
  Redraw(QStringLiteral("D"));
}

void BoardWidget::VScroll_Change(int value) {
  if (settingBars_ || drawing_.drawing) return;
  const RefreshHold hold(*this);
  drawing_.VPos = value;
  if (value >= 0) Redraw(QStringLiteral("R"));
}

void BoardWidget::Today_Click() {
  // HScroll follows, and its change draws the board.
  if (hScroll_->value() == todayOffset_) return;
  const RefreshHold hold(*this);
  hScroll_->setValue(todayOffset_);
}

void BoardWidget::showInfoJour(int column, const QString& text) {
  const BoardFrame& f = drawing_.frame();
  infoJour_->setText(text);
  infoJour_->adjustSize();
  const QRect cell = pixels(f.Jour(column));
  const int top = twipsToPixels(f.Jour(column).top + f.PasV(), tpp_);
  // On the cell's left for the first 20 columns, to the left of it after.
  const int left = column < 20 ? cell.left() : cell.left() - infoJour_->width();
  infoJour_->move(left, top);
  infoJour_->show();
  infoJour_->raise();
  dayLineColumn_ = column;
  update();
}

void BoardWidget::hideInfoJour() {
  infoJour_->hide();
  dayLineColumn_ = -1;
  update();
}

QString BoardWidget::toolTipAt(QPoint p) const {
  // Under the availability view the names and labels are hidden.
  if (drawing_.availabilityChecked) return {};
  const BoardFrame& f = drawing_.frame();
  for (int i = 0; i < f.ResNb() && i < int(drawing_.Res_Lib.size()); ++i)
    if (pixels(f.Res_Lib(i)).contains(p)) return drawing_.Res_Lib[std::size_t(i)].toolTip;
  const int label = labelAt(p);
  return label >= 0 ? drawing_.Lab[std::size_t(label)].toolTip : QString();
}

bool BoardWidget::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const QString text = toolTipAt(help->pos());
  if (text.isEmpty()) {
    QToolTip::hideText();
    event->ignore();
  } else {
    QToolTip::showText(help->globalPos(), text, this);
  }
  return true;
}

int BoardWidget::labelAt(QPoint p) const {
  const std::vector<int> order = drawing_.labelPaintOrder();
  for (auto it = order.rbegin(); it != order.rend(); ++it) {
    if (pixels(drawing_.Lab[std::size_t(*it)].rect).contains(p)) return *it;
  }
  return -1;
}

void BoardWidget::mousePressEvent(QMouseEvent* event) {
  const BoardFrame& f = drawing_.frame();
  const QPoint p = event->position().toPoint();
  const QPoint global = event->globalPosition().toPoint();
  // The strips' handlers (the calendar, the popups) run inside the emit.
  for (int i = 0; i < f.DayNb(); ++i) {
    if (pixels(f.Mois(i)).contains(p)) {
      if (event->button() == Qt::LeftButton) {
        const RefreshHold hold(*this);
        emit monthPressed();
      }
      return;
    }
    if (pixels(f.Jour(i)).contains(p)) {
      const RefreshHold hold(*this);
      emit dayPressed(i, event->button(), global);
      return;
    }
  }
  // The availability view covers the resource names and the bookings: a press
  // there must not reach the room or the booking hidden underneath.
  if (drawing_.availabilityChecked) return;
  for (int i = 0; i < f.ResNb(); ++i) {
    if (pixels(f.Res_Lib(i)).contains(p)) {
      if (event->button() == Qt::LeftButton) {
        resourceLineRow_ = i;
        update();
      }
      const RefreshHold hold(*this);
      emit resourcePressed(i, event->button(), global);
      return;
    }
  }
  const int label = labelAt(p);
  if (label >= 0) emit labelPressed(label, event->button(), global);
  if (gestures_) pressOnGrid(event->button(), p, label);
}

void BoardWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (gestures_ && releaseOnGrid(event->button(), event->position().toPoint())) return;
  if (infoJour_->isVisible()) {
    hideInfoJour();
    emit dayReleased();
  }
  if (resourceLineRow_ >= 0) {
    resourceLineRow_ = -1;
    update();
  }
}

void BoardWidget::paintEvent(QPaintEvent*) {
  QPainter p(this);
  const BoardFrame& f = drawing_.frame();
  const BoardDrawing& d = drawing_;
  const auto cell = [&](const TwipRect& r, const BoardCell& c, int points, bool border) {
    const QRect px = pixels(r);
    p.fillRect(px, bgrColor(int(c.back)));
    if (border) {
      p.setPen(Qt::black);
      p.drawRect(px.adjusted(0, 0, -1, -1));
    }
    p.setPen(bgrColor(int(c.fore)));
    p.setFont(pointFont(font(), points));
    p.drawText(px, Qt::AlignCenter, c.text);
  };

  // The strips.
  for (int i = 0; i < int(d.Mois.size()); ++i) cell(f.Mois(i), d.Mois[std::size_t(i)], f.frame().MonthFont, false);
  for (int i = 0; i < int(d.Jour.size()); ++i) cell(f.Jour(i), d.Jour[std::size_t(i)], f.frame().DayFont, options_.Border);
  p.setPen(Qt::black);
  p.drawLine(toPixels(f.MonthLine(), tpp_));

  // Back to front: the grid's ground, bands, hatching, grid, labels, resource cells.
  p.fillRect(pixels(f.Rectangle()), Qt::white);
  for (const BoardBand& b : d.WkEnd) p.fillRect(pixels(b.rect), QBrush(bgrColor(int(b.back)), Qt::Dense4Pattern));
  for (const BoardBand& b : d.Period)
    if (b.visible) p.fillRect(pixels(b.rect), QBrush(bgrColor(int(b.back)), Qt::Dense5Pattern));
  for (const BoardBand* b : {&d.Event1, &d.Event2})
    if (b->visible) p.fillRect(pixels(b->rect), QBrush(kEventColour, Qt::Dense6Pattern));
  if (d.HachPast.visible) p.fillRect(pixels(d.HachPast.rect), QBrush(kHatchColour, Qt::BDiagPattern));

  const auto gridLines = [&] {
    p.setPen(QPen(Qt::gray, 1, options_.gridSolid ? Qt::SolidLine : Qt::DotLine));
    for (int i = 0; i + 1 < f.DayNb(); ++i) p.drawLine(toPixels(f.Line_V(i), tpp_));
  };
  p.setPen(QPen(Qt::gray, 1));
  for (int i = 0; i + 1 < f.ResNb(); ++i) p.drawLine(toPixels(f.Line_H(i), tpp_));
  if (!options_.gridInFront) gridLines();

  p.save();
  // Labels never spill over the strips or past the scroll bar.
  p.setClipRect(pixels(TwipRect{f.BoardLeft(), f.GridTop(), f.GridRight() + f.PasH() - f.BoardLeft(), f.PasV() * f.ResNb()}));
  for (int i : d.labelPaintOrder()) {
    const BoardLabel& l = d.Lab[std::size_t(i)];
    const QRect px = pixels(l.rect);
    p.fillRect(px, bgrColor(int(l.back)));
    if (d.labelBorder) {
      p.setPen(Qt::black);
      p.drawRect(px.adjusted(0, 0, -1, -1));
    }
    p.setPen(bgrColor(int(l.fore)));
    p.setFont(pointFont(font(), f.frame().LabFont));
    p.drawText(px.adjusted(2, 0, -2, 0), Qt::AlignVCenter | Qt::AlignLeft, l.text);
  }
  p.restore();
  if (options_.gridInFront) gridLines();

  for (int i = 0; i < int(d.Res_Lib.size()); ++i) cell(f.Res_Lib(i), d.Res_Lib[std::size_t(i)], f.frame().ResFont, options_.Border);
  p.setPen(Qt::black);
  p.setBrush(Qt::NoBrush);
  p.drawRect(pixels(f.Rectangle()).adjusted(0, 0, -1, -1));

  if (dayLineColumn_ >= 0) {
    const TwipRect c = f.Jour(dayLineColumn_);
    const int x = c.left + c.width / 2;
    p.setPen(QPen(Qt::red, 1));
    p.drawLine(toPixels(TwipLine{x, f.GridTop(), x, f.GridTop() + f.PasV() * f.ResNb()}, tpp_));
  }
  if (resourceLineRow_ >= 0) {
    const TwipRect c = f.Res_Lib(resourceLineRow_);
    const int y = c.top + c.height / 2;
    p.setPen(QPen(Qt::red, 1));
    p.drawLine(toPixels(TwipLine{f.GridLeft(), y, f.GridLeft() + f.PasH() * f.DayNb(), y}, tpp_));
  }
  // The manual control's marker, in front of everything.
  if (d.Repere.visible) {
    const QRect px = pixels(d.Repere.rect);
    p.fillRect(px, Qt::black);
    p.setPen(Qt::yellow);
    p.drawRect(px.adjusted(0, 0, -1, -1));
    p.drawText(px.adjusted(2, 0, -2, 0), Qt::AlignVCenter | Qt::AlignLeft, d.Repere.caption);
  }
  paintGestures(p);
}

}  // namespace ksv
