#pragma once
// A list as it goes to the printer: a heading, column titles and rows of
// texts. The widgets side lays it out on paper in "Arial".

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
};

}  // namespace ksv
