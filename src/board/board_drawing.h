#pragma once
// What the board shows for a pair of scroll positions: month and day strips,
// bands, resource cells and one label per booking in view, all in twips.
// Widgets paint it; they never decide where anything goes.
//
// Stacking, back to front: bands (weekend, periods, events), hatching of the
// past, grid lines (unless in front), labels by their `z`, grid lines in front,
// resource cells, the outer rectangle.

#include <array>
#include <functional>
#include <vector>

#include <QDate>
#include <QString>
#include <QStringList>

#include "board_frame.h"
#include "config/loaded_options.h"
#include "storage/recordset.h"

namespace ksv {

class Messages;
class Paths;
class Texts;
struct Regional;
struct SessionObjects;

// An empty resource cell, and a row past the last resource.
inline constexpr Colour kEmptyResourceColour = 16761024;

struct BoardCell {
  QString text;
  QString toolTip;
  Colour back = 0;
  Colour fore = 0;
};

struct BoardBand {
  TwipRect rect;
  Colour back = 0;
  bool visible = false;
};

struct BoardLabel {
  TwipRect rect;
  Colour back = 0;
  Colour fore = 0;
  QString text;
  QString toolTip;
  QString Tag;       // real first date "*" real last date "*", short date format
  QDate first, last; // the dates Tag holds, kept as dates for the overlap test
  int z = 0;         // higher is in front
};

// The marker the manual control panels walk over resource cells and labels;
// painted in front of everything.
struct BoardMarker {
  bool visible = false;
  TwipRect rect;
  QString caption;
};

// The surroundings a drawing reads; all must outlive the drawing.
struct BoardContext {
  const BoardFrame& frame;
  const LoadedOptions& options;
  Messages& messages;
  const Texts& texts;
  const Paths& paths;
  const Regional& regional;
  std::function<QDate()> today;
};

class BoardDrawing {
 public:
  explicit BoardDrawing(BoardContext context);

  // The open planning's commands and recordsets; null while none is open.
  void setSession(SessionObjects* objects) { session_ = objects; }
  bool planningOpen() const { return session_ != nullptr; }
  // The board's origin, FirstDate.
  void setFirstDate(QDate firstDate) { FirstDate = firstDate; }

  QDate FirstDate;
  int HPos = 0;
  int VPos = 0;
  int LastHPos = -1;  // -1: never drawn, or dropped by Redraw
  int LastVPos = -1;
  int ResCount = 0;
  int LabCount = 0;
  bool drawing = false;
  int vScrollMax = 0;
  bool labelBorder = true;  // BookingBorder, taken at each Dessiner_Ecran

  std::vector<BoardCell> Mois;     // DayNb
  std::vector<BoardCell> Jour;     // DayNb
  std::vector<BoardCell> Res_Lib;  // ResNb
  BoardBand Event1, Event2, HachPast;
  std::array<BoardBand, 3> Period;
  std::vector<BoardBand> WkEnd;
  std::vector<BoardLabel> Lab;  // LabCount of them are in use
  BoardMarker Repere;

  // The rows behind the labels, in label order: the view of the gestures.
  Recordset view;

  // Raised each time a part is computed again, so that a widget repaints only
  // what moved.
  int daysVersion = 0;
  int resourcesVersion = 0;
  int labelsVersion = 0;

  // With the availability view on, Redraw draws the days when they moved and
  // hands over to it.
  bool availabilityChecked = false;
  std::function<void()> Draw_Available;

  QDate ViewFirst() const { return FirstDate.addDays(HPos); }
  QDate ViewLast() const { return ViewFirst().addDays(frame().DayNb() - 1); }

  void Dessiner_Ecran();
  void Dessin_JourMoisGrid();
  void Dessin_Resource();
  void Dessin_Weekend();
  void Dessin_Period();
  void EraseReservation();
  void EraseResource();
  void RestoreDayColor();
  // "D" days, "R" resources, "DR" both; then Dessiner_Ecran.
  void Redraw(const QString& what);

  // Labels in painting order, back to front.
  std::vector<int> labelPaintOrder() const;
  // The stored colour of a day cell: background and text for Color 1 to 4.
  static bool dayColorPair(int color, Colour& back, Colour& fore);
  // A booking's label: its name, '#' for a split part, '¤' for a group member.
  static QString labelText(const Recordset& row);
  // Gives one day cell the parity pair of RestoreDayColor.
  void restoreDayCell(int column);

  const BoardFrame& frame() const { return ctx_.frame; }

 private:
  void layDayColors();
  void addLabel(const Recordset& row, int& z);
  void reportFault(const QString& resource, QDate first, QDate last, const QString& name, int replacedText,
                   const QString& replacement);

  BoardContext ctx_;
  SessionObjects* session_ = nullptr;
};

}  // namespace ksv
