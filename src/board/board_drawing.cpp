#include "board_drawing.h"

#include <algorithm>
#include <numeric>

#include "core/day_date.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/texts.h"
#include "drawing_fault.h"
#include "storage/planning_session.h"

namespace ksv {
namespace {

// The board holds at most this many rows: the view query takes 40 names.
constexpr int kMaxNames = 40;
const QString kOverlapText(50, QLatin1Char('/'));

QDate dateOf(const QVariant& v) { return v.typeId() == QMetaType::QDateTime ? v.toDateTime().date() : v.toDate(); }

template <std::size_t N>
Colour at(const std::array<Colour, N>& table, int index, Colour fallback) {
  return index >= 0 && index < int(N) ? table[std::size_t(index)] : fallback;
}

}  // namespace

BoardDrawing::BoardDrawing(BoardContext context) : ctx_(std::move(context)) {
  Mois.resize(std::size_t(std::max(0, frame().DayNb())));
  Jour.resize(Mois.size());
  Res_Lib.resize(std::size_t(std::max(0, frame().ResNb())));
}

bool BoardDrawing::dayColorPair(int color, Colour& back, Colour& fore) {
  switch (color) {
    case 1: back = 255; fore = kWhite; return true;
    case 2: back = 16711680; fore = kWhite; return true;
    case 3: back = 65280; fore = kBlack; return true;
    case 4: back = 65535; fore = kBlack; return true;
    default: return false;
  }
}

void BoardDrawing::restoreDayCell(int column) {
  if (column < 0 || column >= int(Jour.size())) return;
  const int place = column % 2;
  Jour[std::size_t(column)].back = ctx_.options.DayBack[std::size_t(place)];
  Jour[std::size_t(column)].fore = ctx_.options.DayFore[std::size_t(place)];
}

void BoardDrawing::RestoreDayColor() {
  for (int i = 0; i < int(Jour.size()); ++i) restoreDayCell(i);
  ++daysVersion;
}

void BoardDrawing::EraseResource() {
  for (BoardCell& cell : Res_Lib) cell = BoardCell{QString(), QString(), kEmptyResourceColour, kBlack};
  ++resourcesVersion;
}

void BoardDrawing::EraseReservation() {
  Lab.clear();
  LabCount = 0;
  ++labelsVersion;
}

void BoardDrawing::Redraw(const QString& what) {
  if (!planningOpen()) {
    Dessin_JourMoisGrid();
    return;
  }
  if (what.contains(QLatin1Char('D'))) LastHPos = -1;
  if (what.contains(QLatin1Char('R'))) LastVPos = -1;
  if (availabilityChecked && Draw_Available) {
    // The counts go under the days shown: a scrolled day strip is drawn
    // first, then the counts from its first day.
    if (HPos != LastHPos) {
      LastHPos = HPos;
      Dessin_JourMoisGrid();
    }
    Draw_Available();
    return;
  }
  Dessiner_Ecran();
}

void BoardDrawing::Dessin_JourMoisGrid() {
  const LoadedOptions& o = ctx_.options;
  const QDate first = ViewFirst();
  const int dayNb = int(Jour.size());
  int place = 0;
  for (int i = 0; i < dayNb; ++i) {
    const QDate d = first.addDays(i);
    const int m = d.day();
    const QString letters = o.dayLetters;
    const QChar dayLetter = letters.size() == 7 ? letters.at(d.dayOfWeek() % 7) : QChar(u'?');
    Jour[std::size_t(i)].text = QString(dayLetter) + QLatin1Char('\n') + QString::number(m);

    // The month's name spread over its days, centred in a 30-day month, then
    // a blank and the four digits of the year.
    const QString name = o.monthNamesUpper.value(d.month() - 1);
    const int n = int(name.size());
    const int s = (30 - n) / 2;
    QString letter;
    if (m >= s && m <= s + n - 1) {
      letter = name.at(m - s);
    } else if (m >= s + n + 1 && m <= s + n + 4) {
      letter = QString::number(d.year()).rightJustified(4, QLatin1Char('0')).at(m - s - n - 1);
    }
    // The pair is anchored on the view's left edge, not on the month.
    if (m == 1) place = 1 - place;
    BoardCell& mois = Mois[std::size_t(i)];
    mois.text = letter;
    mois.back = o.DayBack[std::size_t(place)];
    mois.fore = o.DayFore[std::size_t(place)];
  }

  Event1.visible = Event2.visible = HachPast.visible = false;
  const QDate today = ctx_.today();
  const auto placeEvent = [&](BoardBand& band, int offset) {
    if (offset == 0) return;
    const int column = daysBetween(first, today.addDays(offset));
    if (column < 0 || column >= dayNb) return;
    band.rect = frame().dayBand(column);
    band.visible = true;
  };
  placeEvent(Event1, o.NbDays[2]);
  placeEvent(Event2, o.NbDays[3]);

  if (o.RayePast) {
    const int p = std::min(daysBetween(first, today), 40);
    if (p > 0) {
      HachPast.rect = frame().dayBand(0, p);
      HachPast.visible = true;
    }
  }

  RestoreDayColor();
  Dessin_Weekend();
  Dessin_Period();
  if (planningOpen()) layDayColors();
  ++daysVersion;
}

void BoardDrawing::layDayColors() {
  if (!session_ || !session_->RQ_DayColor) return;
  const QDate first = ViewFirst();
  session_->RQ_DayColor->setParameters({first, ViewLast()});
  session_->DayColor = session_->RQ_DayColor->openRecordset();
  Recordset& rs = session_->DayColor;
  for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) {
    const int i = daysBetween(first, dateOf(rs.field(QStringLiteral("IdDay"))));
    if (i < 0 || i >= int(Jour.size())) continue;
    Colour back = 0, fore = 0;
    if (dayColorPair(rs.field(QStringLiteral("Color")).toInt(), back, fore)) {
      Jour[std::size_t(i)].back = back;
      Jour[std::size_t(i)].fore = fore;
    }
  }
}

void BoardDrawing::Dessin_Weekend() {
  WkEnd.clear();
  if (!ctx_.options.WkEnd) return;
  for (int i = 0; i < int(Jour.size()); ++i) {
    const QString& text = Jour[std::size_t(i)].text;
    if (text.startsWith(QLatin1Char('S')) || text.startsWith(QLatin1Char('D'))) {
      WkEnd.push_back(BoardBand{frame().dayBand(i), Jour[std::size_t(i)].back, true});
    }
  }
}

void BoardDrawing::Dessin_Period() {
  const QDate first = ViewFirst();
  const QDate last = ViewLast();
  for (int p = 0; p < 3; ++p) {
    BoardBand& band = Period[std::size_t(p)];
    band.visible = false;
    QString a = ctx_.options.SchedulePeriod.value(2 * p);
    QString b = ctx_.options.SchedulePeriod.value(2 * p + 1);
    if (a.isEmpty() && b.isEmpty()) continue;
    if (a.isEmpty()) a = b;
    if (b.isEmpty()) b = a;
    std::optional<QDate> from = fromYymmdd(a), to = fromYymmdd(b);
    if (!from || !to) continue;
    const auto outside = [&] { return *from > last || *to < first; };
    // A season comes back every year.
    while (from->year() <= last.year() && outside()) {
      *from = from->addYears(1);
      *to = to->addYears(1);
    }
    if (outside()) continue;
    const QDate left = std::max(*from, first);
    const QDate right = std::min(*to, last);
    const int column = daysBetween(first, left);
    band.rect = frame().dayBand(column, daysBetween(left, right) + 1);
    band.back = ctx_.options.DayBack[std::size_t(p + 2)];
    band.visible = true;
  }
}

void BoardDrawing::Dessin_Resource() {
  ++resourcesVersion;
  if (!session_) {
    EraseResource();
    return;
  }
  Recordset& rs = session_->RQ_Resource;
  rs.requery();
  ResCount = rs.recordCount();
  const int resNb = int(Res_Lib.size());
  if (ResCount <= 0) {
    EraseResource();
    vScrollMax = 0;
    return;
  }
  rs.moveFirst();
  for (int skip = 0; skip < VPos && !rs.isEOF(); ++skip) rs.moveNext();
  for (int i = 0; i < resNb; ++i) {
    BoardCell& cell = Res_Lib[std::size_t(i)];
    if (rs.isEOF()) {
      cell = BoardCell{QString(), QString(), kEmptyResourceColour, kBlack};
      continue;
    }
    const int color = rs.field(QStringLiteral("Color")).toInt();
    cell.text = rs.field(QStringLiteral("Resource")).toString();
    cell.toolTip = cell.text;
    cell.back = at(ctx_.options.CategoryBack, color, kEmptyResourceColour);
    cell.fore = at(ctx_.options.CategoryFore, color, kBlack);
    rs.moveNext();
  }
  vScrollMax = ResCount > resNb ? ResCount - resNb : 0;
}

void BoardDrawing::Dessiner_Ecran() {
  drawing = true;
  if (HPos != LastHPos) {
    LastHPos = HPos;
    Dessin_JourMoisGrid();
  }
  if (VPos != LastVPos) {
    LastVPos = VPos;
    Dessin_Resource();
  }
  EraseReservation();
  labelBorder = ctx_.options.BookingBorder;
  if (!session_ || !session_->RQ_Reservation) {
    drawing = false;
    return;
  }

  QueryCommand& cmd = *session_->RQ_Reservation;
  QVariantList params{ViewFirst(), ViewLast()};
  for (int i = 0; i < kMaxNames; ++i) params << (i < int(Res_Lib.size()) ? Res_Lib[std::size_t(i)].text : QString());
  while (params.size() > cmd.parameterCount()) params.removeLast();
  cmd.setParameters(params);
  view = cmd.openRecordset();

  int z = 0;
  for (view.moveFirst(); !view.isEOF(); view.moveNext()) addLabel(view, z);
  LabCount = int(Lab.size());
  if (!Lab.empty()) view.moveFirst();
  ++labelsVersion;
  drawing = false;
}

QString BoardDrawing::labelText(const Recordset& row) {
  QString text = row.field(QStringLiteral("Nom")).toString();
  const QString split = row.field(QStringLiteral("Split")).toString();
  if (split == QLatin1String("1") || split == QLatin1String("2")) text += QLatin1Char('#');
  if (row.field(QStringLiteral("GroupNb")).toInt() != 0) text += QChar(0x00A4);
  return text;
}

void BoardDrawing::addLabel(const Recordset& row, int& z) {
  const BoardFrame& f = frame();
  const LoadedOptions& o = ctx_.options;
  BoardLabel label;
  const QString resource = row.field(QStringLiteral("Resource")).toString();
  const QString name = row.field(QStringLiteral("Nom")).toString();
  QDate first = dateOf(row.field(QStringLiteral("Date_Deb")));
  QDate last = dateOf(row.field(QStringLiteral("Date_Fin")));
  const QDate storedLast = last;

  int rowIndex = -1;
  for (int i = 0; i < int(Res_Lib.size()); ++i) {
    if (Res_Lib[std::size_t(i)].text == resource) {
      rowIndex = i;
      break;
    }
  }
  if (rowIndex < 0) {
    rowIndex = 0;
    reportFault(resource, first, last, name, txt::DrawFaultNoResource,
                Res_Lib.empty() ? QString() : Res_Lib.front().text);
  }
  label.rect.top = f.labelTop(rowIndex);
  label.rect.height = f.LabE();

  const int couleur = row.field(QStringLiteral("Couleur")).toInt();
  // A state out of bounds still gets a label, in the last state's colours.
  label.back = at(o.BookingBack, couleur, o.BookingBack[5]);
  label.fore = at(o.BookingFore, couleur, o.BookingFore[5]);

  label.text = labelText(row);
  label.toolTip = label.text;

  if (!(first < last)) {
    last = first.addDays(7);
    reportFault(resource, first, storedLast, name, txt::DrawFaultDates, shortDateText(last, ctx_.regional));
  }
  label.first = first;
  label.last = last;
  label.Tag = shortDateText(first, ctx_.regional) + QLatin1Char('*') + shortDateText(last, ctx_.regional) +
              QLatin1Char('*');

  const QDate viewFirst = ViewFirst(), viewLast = ViewLast();
  bool cutLeft = false, cutRight = false;
  QDate a = first, b = last;
  if (a < viewFirst) {
    a = viewFirst;
    cutLeft = true;
  }
  if (b > viewLast) {
    b = viewLast;
    cutRight = true;
  }
  label.rect.left = f.GridLeft() + f.PasH() * daysBetween(viewFirst, a);
  label.rect.width = f.PasH() * daysBetween(a, b);
  // From the middle of the arrival cell to the middle of the departure cell;
  // a cut end runs out past the edge.
  if (!cutLeft) {
    label.rect.left += f.PasH() / 2;
  } else {
    label.rect.left -= f.PasH() / 2;
    label.rect.width += f.PasH();
  }
  if (cutRight) label.rect.width += f.PasH();
  label.z = ++z;

  // Overlap is shown, never refused: the shorter one (the earlier one on a
  // tie) is struck through and comes to the front.
  const auto clippedDays = [&](QDate from, QDate to) {
    return daysBetween(std::max(from, viewFirst), std::min(to, viewLast));
  };
  for (BoardLabel& other : Lab) {
    if (other.rect.top != label.rect.top) continue;
    if (label.last <= other.first || label.first >= other.last) continue;
    const int mine = clippedDays(label.first, label.last);
    const int theirs = clippedDays(other.first, other.last);
    BoardLabel& loser = mine < theirs ? label : other;
    loser.text = kOverlapText;
    loser.z = ++z;
  }
  Lab.push_back(label);
}

void BoardDrawing::reportFault(const QString& resource, QDate first, QDate last, const QString& name,
                               int replacedText, const QString& replacement) {
  DrawingFault fault{resource, shortDateText(first, ctx_.regional), shortDateText(last, ctx_.regional), name,
                     replacedText, replacement};
  const QString text = drawingFaultText(fault, ctx_.texts);
  appendToNotes(ctx_.paths.notesFile(), text, ctx_.today());
  ctx_.messages.critical(text);
}

std::vector<int> BoardDrawing::labelPaintOrder() const {
  std::vector<int> order(static_cast<std::size_t>(LabCount));
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [this](int a, int b) { return Lab[std::size_t(a)].z < Lab[std::size_t(b)].z; });
  return order;
}

}  // namespace ksv
