#include "resource_presenter.h"

#include "core/messages.h"
#include "core/texts.h"
#include "storage/planning_session.h"
#include "storage/sqlite_db.h"

namespace ksv {

ResourcePresenter::ResourcePresenter(char mode, QString SelResource_, int ResColor_, const LoadedOptions& options,
                                     Messages& messages, const Texts& texts)
    : ResColor(ResColor_), SelResource(std::move(SelResource_)), mode_(mode), messages_(messages), texts_(texts) {
  InitCategory(options);
  Res_Modif = SelResource;
}

void ResourcePresenter::InitCategory(const LoadedOptions& options) {
  for (std::size_t i = 0; i < categories_.size(); ++i) {
    categories_[i] = CategoryButton{options.Categorie.value(int(i)), options.CategoryBack[i], options.CategoryFore[i]};
  }
}

QString ResourcePresenter::actionCaption() const {
  switch (mode_) {
    case 'A': return texts_.get(txt::ResourceAdd);
    case 'M': return texts_.get(txt::ResourceModify);
    default: return texts_.get(txt::ResourceDelete);
  }
}

Colour ResourcePresenter::nameBack() const {
  return ResColor >= 0 && ResColor < 6 ? categories_[std::size_t(ResColor)].back : kWhite;
}
Colour ResourcePresenter::nameFore() const {
  return ResColor >= 0 && ResColor < 6 ? categories_[std::size_t(ResColor)].fore : kBlack;
}

bool ResourcePresenter::OK_Click() {
  if (Res_Modif.isEmpty()) {
    messages_.critical(texts_.get(txt::ResourceMustBeDefined));
    return false;
  }
  if (mode_ != 'D') SelResource = Res_Modif;
  if (mode_ == 'D' &&
      !messages_.askYesNo(texts_.get(txt::ResourceDeleteQuestion), MsgAnswer::No, MsgIcon::Critical)) {
    return false;
  }
  Result = true;
  return true;
}

ResourceCommands::ResourceCommands(Database& db, SessionObjects& objects, const LoadedOptions& options,
                                   Messages& messages, const Texts& texts)
    : db_(db), objects_(objects), options_(options), messages_(messages), texts_(texts) {}

void ResourceCommands::setHourglass(bool on) {
  if (hourglass) hourglass(on);
}

bool ResourceCommands::ask(char mode) {
  ResourcePresenter dialog(mode, SelResource, ResColor, options_, messages_, texts_);
  if (showDialog) showDialog(dialog);
  if (!dialog.Result) return false;
  SelResource = dialog.SelResource;
  ResColor = dialog.ResColor;
  return true;
}

bool ResourceCommands::nameTaken(const QString& name, int exceptPosition) const {
  Recordset& rs = objects_.RQ_Resource;
  rs.requery();
  const QString wanted = name.toLower();
  for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) {
    if (rs.absolutePosition() == exceptPosition) continue;
    if (rs.field(QStringLiteral("Resource")).toString().toLower() == wanted) return true;
  }
  return false;
}

bool ResourceCommands::moveToPressed() {
  Recordset& rs = objects_.RQ_Resource;
  rs.requery();
  const int position = ResIndex + VPos + 1;
  if (position < 1 || position > rs.recordCount()) return false;
  rs.setAbsolutePosition(position);
  return true;
}

void ResourceCommands::R_Add_Click() {
  const bool blankRow = SelResource.isEmpty();
  ResOrder = 5;
  ResColor = 5;
  if (!ask('A')) return;
  if (nameTaken(SelResource, -1)) {
    messages_.critical(texts_.get(txt::ResourceAlreadyExist));
    return;
  }
  Recordset& rs = objects_.RQ_Resource;
  const int count = rs.recordCount();
  // Just above the pressed row; at the end from a blank row or an empty table.
  int order = ResOrder - 1;
  if (count <= 0 || blankRow) order = 2 * count + 1;
  if (!blankRow && count > 0 && moveToPressed()) order = rs.field(QStringLiteral("Order")).toInt() - 1;
  rs.addNew();
  rs.setField(QStringLiteral("Resource"), SelResource);
  rs.setField(QStringLiteral("Color"), ResColor);
  rs.setField(QStringLiteral("Order"), order);
  rs.update();
  Re_Order_RR();
  if (Redraw) Redraw(QStringLiteral("R"));
}

void ResourceCommands::R_Modify_Click() {
  const QString oldName = SelResource;
  const int oldColor = ResColor;
  if (!ask('M')) return;
  if (SelResource != oldName) {
    if (nameTaken(SelResource, ResIndex + VPos + 1)) {
      messages_.critical(texts_.get(txt::ResourceAlreadyExist));
      SelResource = oldName;
      return;
    }
    if (!messages_.askYesNo(texts_.get(txt::ResourceModifyQuestion), MsgAnswer::No, MsgIcon::Critical)) {
      SelResource = oldName;
      return;
    }
  }
  Transaction tx(db_);
  if (SelResource != oldName) {
    setHourglass(true);
    Recordset& rs = objects_.Reservation;
    rs.requery();
    for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) {
      if (rs.field(QStringLiteral("Resource")).toString() == oldName) {
        rs.setField(QStringLiteral("Resource"), SelResource);
        rs.update();
      }
    }
    setHourglass(false);
  }
  if (moveToPressed()) {
    Recordset& rs = objects_.RQ_Resource;
    rs.setField(QStringLiteral("Resource"), SelResource);
    if (ResColor != oldColor) rs.setField(QStringLiteral("Color"), ResColor);
    rs.update();
  }
  tx.commit();
  if (Redraw) Redraw(QStringLiteral("R"));
}

void ResourceCommands::R_Delete_Click() {
  if (!ask('D')) return;
  Transaction tx(db_);
  Recordset& rs = objects_.Reservation;
  rs.requery();
  if (rs.recordCount() > 0) {
    setHourglass(true);
    for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) {
      if (rs.field(QStringLiteral("Resource")).toString() != SelResource) continue;
      const QVariant inv = rs.field(QStringLiteral("InvNb"));
      const QString SelInvNb = inv.isNull() ? QString() : inv.toString();
      if (!SelInvNb.isEmpty() && clearInvoiceLink) clearInvoiceLink(SelInvNb);
      rs.deleteRecord();
    }
    setHourglass(false);
  }
  if (moveToPressed()) objects_.RQ_Resource.deleteRecord();
  tx.commit();
  if (Redraw) Redraw(QStringLiteral("R"));
}

void ResourceCommands::move(int by) {
  // A step of 3 passes exactly one neighbour only over odd numbers, which a
  // planning made elsewhere (the example's 1, 2, 3) may not have yet.
  Re_Order_RR();
  if (!moveToPressed()) return;
  Recordset& rs = objects_.RQ_Resource;
  rs.setField(QStringLiteral("Order"), rs.field(QStringLiteral("Order")).toInt() + by);
  rs.update();
  Re_Order_RR();
  if (Redraw) Redraw(QStringLiteral("R"));
}

void ResourceCommands::R_Up_Click() { move(-3); }
void ResourceCommands::R_Down_Click() { move(3); }

void ResourceCommands::Re_Order_RR() {
  Recordset& rs = objects_.RQ_Resource;
  rs.requery();
  int order = 1;
  for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) {
    rs.setField(QStringLiteral("Order"), order);
    rs.update();
    order += 2;
  }
}

}  // namespace ksv
