#pragma once
// The list of resources: the Resource dialog's fields and buttons, and the
// commands of the resource cell's popup (R_Resource) that add, rename,
// delete and move rows of table Resource.

#include <array>
#include <functional>

#include <QString>
#include <QVariant>

#include "config/loaded_options.h"

namespace ksv {

class Database;
class Messages;
class Texts;
struct SessionObjects;

// The Resource form: mode 'A' add, 'M' modify, 'D' delete.
class ResourcePresenter {
 public:
  struct CategoryButton {
    QString caption;
    Colour back = 0;
    Colour fore = 0;
  };

  ResourcePresenter(char mode, QString SelResource, int ResColor, const LoadedOptions& options, Messages& messages,
                    const Texts& texts);

  char mode() const { return mode_; }
  QString actionCaption() const;
  bool nameLocked() const { return mode_ == 'D'; }
  const std::array<CategoryButton, 6>& Category() const { return categories_; }
  Colour nameBack() const;
  Colour nameFore() const;

  QString Res_Modif;
  int ResColor = 5;
  bool Result = false;
  QString SelResource;

  void Category_Click(int index) { ResColor = index; }
  // True when the dialog closes.
  bool OK_Click();
  void Cancel_Click() { Result = false; }

 private:
  void InitCategory(const LoadedOptions& options);
  char mode_;
  std::array<CategoryButton, 6> categories_;
  Messages& messages_;
  const Texts& texts_;
};

// The popup commands. ResIndex, ResOrder, ResColor and SelResource come from
// the press on the cell; VPos from the board.
class ResourceCommands {
 public:
  ResourceCommands(Database& db, SessionObjects& objects, const LoadedOptions& options, Messages& messages,
                   const Texts& texts);

  int ResIndex = 0;
  int ResOrder = 5;
  int ResColor = 5;
  QString SelResource;
  int VPos = 0;

  // Shows the dialog modally; the presenter holds its answer.
  std::function<void(ResourcePresenter&)> showDialog;
  std::function<void(const QString& what)> Redraw;
  std::function<void(bool on)> hourglass;
  // Removes the invoice a deleted booking pointed at (the invoice window's
  // DeleteInvoice); called with SelInvNb for every deleted booking.
  std::function<void(const QString& SelInvNb)> clearInvoiceLink;

  void R_Add_Click();
  void R_Modify_Click();
  void R_Delete_Click();
  void R_Up_Click();
  void R_Down_Click();
  void Re_Order_RR();

 private:
  bool ask(char mode);
  bool nameTaken(const QString& name, int exceptPosition) const;
  bool moveToPressed();
  void move(int by);
  void setHourglass(bool on);

  Database& db_;
  SessionObjects& objects_;
  const LoadedOptions& options_;
  Messages& messages_;
  const Texts& texts_;
  QString dialogName_;
  int dialogColor_ = 5;
};

}  // namespace ksv
