#pragma once
// The day cell's two services: the summary of a day (InfoJour) and the
// day's stored colour (D_ChangeColor on table DayColor).

#include <QDate>
#include <QString>

namespace ksv {

class Recordset;
class Texts;
struct SessionObjects;

struct InfoJourCounts {
  int free = 0;
  int occupied = 0;
  int released = 0;
  int alloted = 0;
  int present = 0;
  int leaving = 0;
  int arriving = 0;
};

// Counts DayDate over the rows of the view. Resources whose name ends in "*"
// are not rooms: they don't count as free, and their bookings lower free.
InfoJourCounts countDay(QDate DayDate, Recordset& RQ_Resource, Recordset& view);
// The nine lines InfoJour shows.
QString InfoJourText(const InfoJourCounts& counts, const Texts& texts);

// Stores colour 1 to 4 for a day, or with 0 removes it; one row per day.
void D_ChangeColor(SessionObjects& objects, QDate DayDate, int color, QDate ViewFirst, QDate ViewLast);

}  // namespace ksv
