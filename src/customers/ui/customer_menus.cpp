#include "customer_menus.h"

#include <QFileInfo>

#include "black_list_window.h"
#include "customer_window.h"
#include "customers/black_list.h"
#include "storage/planning_session.h"

namespace ksv {

namespace {

CustomerContext headless(const CustomerWindowsContext& ctx) {
  return CustomerContext{ctx.session.connection()->db(), ctx.clock, ctx.messages, ctx.texts, ctx.paths};
}

void prepare(const CustomerWindowsContext& ctx, CustomerListPresenter& presenter) {
  presenter.redraw = [&ctx] {
    if (ctx.session.objects().Reservation.isOpen()) ctx.session.objects().Reservation.requery();
    if (ctx.Dessiner_Ecran) ctx.Dessiner_Ecran();
  };
  presenter.addToBlackList = [&ctx](const QString& nom, const QString& remark) { addToBlackList(ctx, nom, remark); };
}

}  // namespace

void showCustomerList(const CustomerWindowsContext& ctx, const QString& queryName, QWidget* parent) {
  if (!ctx.session.IsOpen || !ctx.session.connection()) return;
  CustomerListPresenter presenter(headless(ctx));
  prepare(ctx, presenter);
  if (queryName == kRQ_Agent)
    presenter.M_AgentList_Click();
  else
    presenter.M_CustomerList_Click();
  CustomerWindow window(presenter, ctx.messages, ctx.texts, parent);
  window.exec();
}

void showCustomerFromReservation(const CustomerWindowsContext& ctx, const QString& name, CustomerCopyTarget& target,
                                 bool agents, QWidget* parent) {
  if (!ctx.session.IsOpen || !ctx.session.connection()) return;
  CustomerListPresenter presenter(headless(ctx));
  prepare(ctx, presenter);
  presenter.Customer_From_Reservation(name, target, agents);
  CustomerWindow window(presenter, ctx.messages, ctx.texts, parent);
  window.exec();
}

void showBlackList(const CustomerWindowsContext& ctx, QWidget* parent) {
  if (!ctx.session.IsOpen || !ctx.session.connection()) return;
  BlackListPresenter presenter(headless(ctx), ctx.session.objects().BlackList);
  presenter.planningName = QFileInfo(ctx.session.openFile).completeBaseName();
  presenter.M_BlackList_Click();
  BlackListWindow window(presenter, ctx.messages, ctx.texts, parent);
  window.exec();
}

void addToBlackList(const CustomerWindowsContext& ctx, const QString& N_Add_BL, const QString& R_Add_BL) {
  if (!ctx.session.IsOpen || !ctx.session.connection()) return;
  BlackListPresenter presenter(headless(ctx), ctx.session.objects().BlackList);
  presenter.N_Add_BL = N_Add_BL;
  presenter.R_Add_BL = R_Add_BL;
  presenter.BlackList_Add_Commun();
}

}  // namespace ksv
