#pragma once
// A list as it goes to the printer: a heading, column titles and rows of
// texts. The widgets side lays it out on paper in "Arial"; a cell followed
// only by empty cells runs on to the right margin.

#include <QList>
#include <QString>
#include <QStringList>

namespace ksv {

struct PrintedList {
  QString heading;
  QStringList titles;
  QList<QStringList> rows;
  // Relative widths of the columns, one per title.
  QList<int> widths;
  // Rows printed in bold as the heading of the rows below them.
  QList<int> headingRows;
  // The rows in "Courier New", so that columns of figures line up.
  bool fixedPitch = false;
  // Starts on a new page when it follows another list (a sheet a week).
  bool ownPage = false;
};

}  // namespace ksv
