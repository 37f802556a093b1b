#include "board_popups.h"

#include <QMenu>
#include <QScrollBar>

#include "board/board_dates.h"
#include "board/calendrier_presenter.h"
#include "board/day_cell.h"
#include "board/resource_presenter.h"
#include "board/ui/board_widget.h"
#include "board/ui/calendrier_dialog.h"
#include "board/ui/resource_dialog.h"
#include "core/texts.h"
#include "invoicing/invoice_accounts.h"
#include "storage/planning_session.h"

namespace ksv {

ResourcePlanning resourcePlanning(PlanningSession& session) {
  if (!session.IsOpen || !session.normalMode()) return {};
  return {true, &session.connection()->db(), &session.objects(), &session.clock()};
}

void prepareResourceCommands(ResourceCommands& r, BoardWidget& board, const ResourcePlanning& planning,
                             const Texts& texts, int row) {
  const BoardDrawing& d = board.drawing();
  r.VPos = d.VPos;
  if (row >= 0) {
    r.ResIndex = row;
    r.SelResource = d.Res_Lib[std::size_t(row)].text;
  }
  if (!r.SelResource.isEmpty()) {
    Recordset& rs = planning.objects->RQ_Resource;
    rs.requery();
    rs.setAbsolutePosition(row + d.VPos + 1);
    r.ResColor = rs.field(QStringLiteral("Color")).toInt();
    r.ResOrder = rs.field(QStringLiteral("Order")).toInt();
  }
  r.showDialog = [&texts, &board](ResourcePresenter& p) { ResourceDialog::show(p, texts, &board); };
  r.Redraw = [&board](const QString& what) { board.Redraw(what); };
  r.clearInvoiceLink = [db = planning.db, clock = planning.clock](const QString& SelInvNb) {
    DeleteInvoice(*db, *clock, SelInvNb);
  };
}

void prepareResourceCommands(ResourceCommands& r, BoardWidget& board, PlanningSession& session, const Texts& texts,
                             int row) {
  const ResourcePlanning planning{true, &session.connection()->db(), &session.objects(), &session.clock()};
  prepareResourceCommands(r, board, planning, texts, row);
}

void wireResourcePopup(BoardWidget& board, std::function<ResourcePlanning()> planning, const LoadedOptions& options,
                       Messages& messages, const Texts& texts) {
  QObject::connect(&board, &BoardWidget::resourcePressed, &board,
                   [&board, planning = std::move(planning), &options, &messages, &texts](int row, Qt::MouseButton button,
                                                                                       QPoint global) {
    const ResourcePlanning p = planning();
    if (button != Qt::RightButton || !p.open) return;
    ResourceCommands r(*p.db, *p.objects, options, messages, texts);
    prepareResourceCommands(r, board, p, texts, row);
    const bool filled = !r.SelResource.isEmpty();
    QMenu R_Resource(&board);
    R_Resource.setObjectName(QStringLiteral("R_Resource"));
    R_Resource.addAction(texts.get(txt::PopupAdd), [&r] { r.R_Add_Click(); });
    R_Resource.addAction(texts.get(txt::PopupModify), [&r] { r.R_Modify_Click(); })->setEnabled(filled);
    R_Resource.addAction(texts.get(txt::PopupDelete), [&r] { r.R_Delete_Click(); })->setEnabled(filled);
    R_Resource.addAction(texts.get(txt::PopupUp), [&r] { r.R_Up_Click(); })->setEnabled(filled);
    R_Resource.addAction(texts.get(txt::PopupDown), [&r] { r.R_Down_Click(); })->setEnabled(filled);
    R_Resource.exec(global);
  });
}

void wireBoardPopups(BoardWidget& board, PlanningSession& session, const LoadedOptions& options, Messages& messages,
                     const Texts& texts) {
  QObject::connect(&board, &BoardWidget::dayPressed, &board,
                   [&board, &session, &texts](int column, Qt::MouseButton button, QPoint global) {
    BoardDrawing& d = board.drawing();
    if (!session.IsOpen) return;
    const QDate DayDate = d.ViewFirst().addDays(column);
    if (button == Qt::RightButton && session.normalMode()) {
      QMenu D_Day(&board);
      const int names[] = {txt::DayStandard, txt::DayRed, txt::DayBlue, txt::DayGreen, txt::DayYellow};
      for (int color = 0; color < 5; ++color) {
        D_Day.addAction(texts.get(names[color]), &board, [&, color, column, DayDate] {
          D_ChangeColor(session.objects(), DayDate, color, d.ViewFirst(), d.ViewLast());
          Colour back = 0, fore = 0;
          if (BoardDrawing::dayColorPair(color, back, fore)) {
            d.Jour[std::size_t(column)].back = back;
            d.Jour[std::size_t(column)].fore = fore;
          } else {
            d.restoreDayCell(column);
          }
          board.update();
        });
      }
      D_Day.exec(global);
    } else if (button == Qt::LeftButton && d.view.isOpen()) {
      board.showInfoJour(column, InfoJourText(countDay(DayDate, session.objects().RQ_Resource, d.view), texts));
    }
  });

  wireResourcePopup(board, [&session] { return resourcePlanning(session); }, options, messages, texts);
}

void wireMonthStrip(BoardWidget& board, const BoardDates& dates, const Clock& clock, const ScreenDescription& screen,
                    const Texts& texts) {
  QObject::connect(&board, &BoardWidget::monthPressed, &board, [&board, &dates, &clock, &screen, &texts] {
    CalendrierPresenter presenter(clock, screen, texts);
    presenter.showBoardRange(dates, board.HScroll()->value());
    CalendrierDialog dialog(presenter, texts, &board);
    dialog.exec();
    if (presenter.Result)
      board.HScroll()->setValue(presenter.pickedHPos(dates, board.drawing().frame().DayNb()));
  });
}

}  // namespace ksv
