#include "check_group_date.h"

#include "board/booking_buffer.h"
#include "booking_context.h"
#include "config/loaded_options.h"
#include "core/messages.h"
#include "core/texts.h"
#include "storage/query_command.h"
#include "storage/recordset.h"

namespace ksv {

bool CheckGroupDate(Database& db, const Clock& clock, const LoadedOptions& options, Messages& messages,
                    const Texts& texts, qint16 GroupNb_L, QDate& CalF, QDate& CalT) {
  if (!options.CheckGroupDate || GroupNb_L == 0) return false;
  QueryCommand command = QueryCatalogue(db, clock).command(QStringLiteral("RQ_GroupResponsible"));
  command.setParameter(0, GroupNb_L);
  Recordset header = command.openRecordset();
  // A member whose header is gone has no group dates to follow.
  if (header.isEOF()) return false;
  const QDate first = dayOf(header.field(QStringLiteral("Date_Deb")));
  const QDate last = dayOf(header.field(QStringLiteral("Date_Fin")));
  if (CalF == first && CalT == last) return false;
  if (!messages.askYesNo(texts.get(txt::ModifGroupDates), MsgAnswer::No)) return false;
  CalF = first;
  CalT = last;
  return true;
}

bool CheckGroupDate(BookingContext& ctx, qint16 GroupNb_L, QDate& CalF, QDate& CalT) {
  return CheckGroupDate(ctx.db, ctx.clock, ctx.options, ctx.messages, ctx.texts, GroupNb_L, CalF, CalT);
}

}  // namespace ksv
