#include "invoice_dialog.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>

#include "board/calendrier_presenter.h"
#include "board/screen_description.h"
#include "board/ui/calendrier_dialog.h"
#include "core/clock.h"

namespace ksv {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kSeenColumns = 6;

// The caption above each field of a zone.
int captionOf(InvField f) {
  switch (f) {
    case InvField::Designation: return txt::InvLbDesignation;
    case InvField::Debut: return txt::InvLbFrom;
    case InvField::Fin: return txt::InvLbTo;
    case InvField::Quantity: return txt::InvLbQuantity;
    case InvField::UnitPrice: return txt::InvLbUnitPrice;
    case InvField::Price: return txt::InvLbPrice;
    case InvField::Modification: return txt::InvLbModification;
    case InvField::Fixed: return txt::InvLbFixed;
    case InvField::Amount: return txt::InvLbAmount;
    case InvField::Rate: return txt::InvLbRate;
    case InvField::Included: return txt::InvLbIncluded;
    case InvField::NotIncluded: return txt::InvLbNotIncluded;
    case InvField::DtPaid: return txt::InvLbDtPaid;
    case InvField::Payment: return txt::InvLbPayment;
    case InvField::Paid: return txt::InvLbPaid;
    default: return 0;
  }
}

bool isChooser(InvField f) {
  return f == InvField::Designation || f == InvField::Modification || f == InvField::Payment;
}

bool isAmount(InvField f) {
  return f >= InvField::Quantity && f != InvField::Modification && f != InvField::DtPaid && f != InvField::Payment &&
         f != InvField::AddUp && f != InvField::Printed;
}

// The double-click a field of a zone answers.
std::optional<InvDoubleClick> doubleClickOf(InvField f) {
  switch (f) {
    case InvField::Debut: return InvDoubleClick::Debut;
    case InvField::Fin: return InvDoubleClick::Fin;
    case InvField::DtPaid: return InvDoubleClick::DtPaid;
    case InvField::Quantity: return InvDoubleClick::Quantity;
    case InvField::Amount: return InvDoubleClick::Amount;
    case InvField::Paid: return InvDoubleClick::Paid;
    case InvField::Included: return InvDoubleClick::Included;
    case InvField::NotIncluded: return InvDoubleClick::NotIncluded;
    default: return std::nullopt;
  }
}

QLineEdit* readOnlyLine(QWidget* parent) {
  auto* e = new QLineEdit(parent);
  e->setReadOnly(true);
  e->setFocusPolicy(Qt::ClickFocus);
  return e;
}

}  // namespace

InvoiceDialog::InvoiceDialog(Messages& messages, const Texts& texts, const Regional& regional, const Clock& clock,
                             InvoiceCatalogue catalogue, QWidget* parent)
    : QDialog(parent), texts_(texts), clock_(clock), presenter_(*this, messages, texts, regional, clock, std::move(catalogue)) {
  setWindowTitle(texts.get(txt::Product) + QStringLiteral(" - ") + texts.get(txt::InvCaption));
  auto* root = new QVBoxLayout(this);

  // Number and customer, then the booking frame of a location.
  auto* head = new QHBoxLayout;
  InvNb_ = readOnlyLine(this);
  InvNb_->setMaximumWidth(110);
  Nom_ = readOnlyLine(this);
  head->addWidget(new QLabel(texts.get(txt::InvLbInvNb), this));
  head->addWidget(InvNb_);
  head->addWidget(new QLabel(texts.get(txt::InvLbNom), this));
  head->addWidget(Nom_, 1);
  root->addLayout(head);

  frBooking = new QGroupBox(this);
  auto* booking = new QGridLayout(frBooking);
  DtFrom_ = readOnlyLine(frBooking);
  DtTo_ = readOnlyLine(frBooking);
  Days_ = readOnlyLine(frBooking);
  Resource_ = readOnlyLine(frBooking);
  Remark_ = readOnlyLine(frBooking);
  const std::pair<int, QLineEdit*> bookingFields[] = {{txt::InvLbResource, Resource_}, {txt::InvLbDtFrom, DtFrom_},
                                                      {txt::InvLbDtTo, DtTo_},         {txt::InvLbDays, Days_},
                                                      {txt::InvLbRemark, Remark_}};
  int col = 0;
  for (const auto& [caption, edit] : bookingFields) {
    booking->addWidget(new QLabel(texts.get(caption), frBooking), 0, col);
    booking->addWidget(edit, 1, col++);
    edit->installEventFilter(this);
  }
  ResourceS_ = readOnlyLine(frBooking);
  DtFromS_ = readOnlyLine(frBooking);
  DtToS_ = readOnlyLine(frBooking);
  DaysS_ = readOnlyLine(frBooking);
  col = 0;
  for (QLineEdit* edit : {ResourceS_, DtFromS_, DtToS_, DaysS_}) {
    booking->addWidget(edit, 2, col++);
    edit->installEventFilter(this);
  }
  booking->setColumnStretch(4, 1);
  root->addWidget(frBooking);

  // The three input zones.
  const int zoneCaptions[] = {txt::InvLbServices, txt::InvLbModifiers, txt::InvLbPayments};
  const std::vector<InvField> zoneFields[] = {
      {InvField::Designation, InvField::Debut, InvField::Fin, InvField::Quantity, InvField::UnitPrice, InvField::Price},
      {InvField::Modification, InvField::Fixed, InvField::Amount, InvField::Rate, InvField::Included,
       InvField::NotIncluded},
      {InvField::DtPaid, InvField::Payment, InvField::Paid}};
  QWidget* previous = nullptr;
  for (int z = 0; z < 3; ++z) {
    zones_[z] = new QGroupBox(texts.get(zoneCaptions[z]), this);
    auto* grid = new QGridLayout(zones_[z]);
    grid->setVerticalSpacing(2);
    int c = 0;
    for (InvField f : zoneFields[z]) {
      QWidget* w = nullptr;
      if (isChooser(f)) {
        auto* combo = new QComboBox(zones_[z]);
        combo->setEditable(true);
        combo->setInsertPolicy(QComboBox::NoInsert);
        combo->setMinimumWidth(f == InvField::Payment ? 150 : 220);
        combo->lineEdit()->installEventFilter(this);
        connect(combo, &QComboBox::activated, this, [this, f, combo](int index) {
          const QString item = combo->itemText(index);
          if (f == InvField::Designation) presenter_.Designation_Click(item);
          else if (f == InvField::Modification) presenter_.Modification_Click(item);
          else presenter_.Payment_Click(item);
        });
        connect(combo->lineEdit(), &QLineEdit::textEdited, this, [this, f] { presenter_.chooserTyped(f); });
        w = combo;
      } else {
        auto* edit = new QLineEdit(zones_[z]);
        edit->setMaximumWidth(isAmount(f) ? 90 : 100);
        if (isAmount(f)) edit->setAlignment(Qt::AlignRight);
        connect(edit, &QLineEdit::textEdited, this, [this, f](const QString& text) { presenter_.fieldChanged(f, text); });
        w = edit;
      }
      w->installEventFilter(this);
      widgets_[static_cast<size_t>(f)] = w;
      grid->addWidget(new QLabel(texts.get(captionOf(f)), zones_[z]), 0, c);
      grid->addWidget(w, 1, c++);
      if (previous) setTabOrder(previous, w);
      previous = w;
    }
    grid->setColumnStretch(isChooser(zoneFields[z].front()) ? 0 : 1, 1);
  }
  auto* zoneRow = new QHBoxLayout;
  zoneRow->addWidget(zones_[1], 3);
  zoneRow->addWidget(zones_[2], 2);
  root->addWidget(zones_[0]);
  root->addLayout(zoneRow);

  // Fill the choosers from the catalogue.
  chooserOf(InvField::Designation)->addItems(presenter_.catalogue().serviceItems(regional));
  chooserOf(InvField::Modification)->addItems(presenter_.catalogue().modifierItems(regional));
  chooserOf(InvField::Payment)->addItems(presenter_.catalogue().payments);
  for (InvField f : {InvField::Designation, InvField::Modification, InvField::Payment}) chooserOf(f)->setCurrentIndex(-1);

  // The line commands.
  auto* commands = new QHBoxLayout;
  CdAdd = new QPushButton(texts.get(txt::InvCdAdd), this);
  auto* insert = new QPushButton(texts.get(txt::InvCdInsert), this);
  auto* modify = new QPushButton(texts.get(txt::InvCdModify), this);
  auto* voidLine = new QPushButton(texts.get(txt::InvCdVoid), this);
  auto* erase = new QPushButton(texts.get(txt::InvCdDelete), this);
  auto* clear = new QPushButton(texts.get(txt::InvCdClearInput), this);
  connect(CdAdd, &QPushButton::clicked, this, [this] { presenter_.CdAdd(); });
  connect(insert, &QPushButton::clicked, this, [this] { presenter_.CdInsert(); });
  connect(modify, &QPushButton::clicked, this, [this] { presenter_.CdModify(); });
  connect(voidLine, &QPushButton::clicked, this, [this] { presenter_.cdVoid(); });
  connect(erase, &QPushButton::clicked, this, [this] { presenter_.CdDelete(); });
  connect(clear, &QPushButton::clicked, this, [this] { presenter_.CdClearInput(); });
  for (QPushButton* b : {CdAdd, insert, modify, voidLine, erase, clear}) {
    b->setAutoDefault(false);
    commands->addWidget(b);
    setTabOrder(previous, b);
    previous = b;
  }
  commands->addStretch(1);
  root->addLayout(commands);

  // The grid and, beside it, the totals.
  auto* middle = new QHBoxLayout;
  TbInvoice = new QTableWidget(1, kSeenColumns, this);
  TbInvoice->setSelectionBehavior(QAbstractItemView::SelectRows);
  TbInvoice->setSelectionMode(QAbstractItemView::SingleSelection);
  TbInvoice->setEditTriggers(QAbstractItemView::NoEditTriggers);
  TbInvoice->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  TbInvoice->verticalHeader()->hide();
  TbInvoice->setHorizontalHeaderLabels({texts.get(txt::InvLbDesignation), texts.get(txt::InvLbFrom),
                                        texts.get(txt::InvLbTo), texts.get(txt::InvLbQuantity),
                                        texts.get(txt::InvLbUnitPrice), texts.get(txt::InvLbPrice)});
  int width = 0;
  for (int c = 0; c < kSeenColumns; ++c) {
    const int px = InvoiceGrid::kColumnWidths[c] / kTwipsPerPixel;
    TbInvoice->setColumnWidth(c, px);
    width += px;
  }
  // The designation takes what the window gives beyond the set widths.
  TbInvoice->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  TbInvoice->verticalHeader()->setDefaultSectionSize(22);
  TbInvoice->setMinimumWidth(width + 24);
  TbInvoice->setMinimumHeight(22 * 10 + TbInvoice->horizontalHeader()->sizeHint().height() + 4);
  connect(TbInvoice, &QTableWidget::currentCellChanged, this, [this](int row) {
    if (!filling_ && row >= 0) presenter_.setCurrentRow(row);
  });
  setTabOrder(previous, TbInvoice);
  previous = TbInvoice;
  middle->addWidget(TbInvoice, 1);

  auto* totals = new QVBoxLayout;
  auto* frTotal = new QGroupBox(texts.get(txt::InvTotalInvoice), this);
  auto* totalBox = new QVBoxLayout(frTotal);
  auto* frTotalM = new QGroupBox(texts.get(txt::InvTotalModifiers), this);
  auto* totalMBox = new QVBoxLayout(frTotalM);
  const std::tuple<int, QVBoxLayout*, void (InvoicePresenter::*)()> totalCommands[] = {
      {txt::InvCdAddTotal, totalBox, &InvoicePresenter::CdAddTotal},
      {txt::InvCdAddSubTotal, totalBox, &InvoicePresenter::cdAddSubTotal},
      {txt::InvCdDeleteTotals, totalBox, &InvoicePresenter::CdDeleteTotals},
      {txt::InvCdDeleteSubtotals, totalBox, &InvoicePresenter::cdDeleteSubtotals},
      {txt::InvCdDeleteTotal, totalBox, &InvoicePresenter::cdDeleteTotal},
      {txt::InvCdAddTotalsM, totalMBox, &InvoicePresenter::CdAddTotalsM},
      {txt::InvCdDeleteTotalsM, totalMBox, &InvoicePresenter::CdDeleteTotalsM}};
  for (const auto& [caption, box, command] : totalCommands) {
    auto* b = new QPushButton(texts.get(caption).trimmed(), this);
    b->setAutoDefault(false);
    connect(b, &QPushButton::clicked, this, [this, command = command] { (presenter_.*command)(); });
    box->addWidget(b);
    setTabOrder(previous, b);
    previous = b;
  }
  totals->addWidget(frTotal);
  totals->addWidget(frTotalM);
  auto* balance = new QHBoxLayout;
  txtTotal = readOnlyLine(this);
  txtTotal->setAlignment(Qt::AlignRight);
  QFont bold = txtTotal->font();
  bold.setBold(true);
  bold.setPointSize(bold.pointSize() + 2);
  txtTotal->setFont(bold);
  txtTotal->installEventFilter(this);
  balance->addWidget(new QLabel(texts.get(txt::InvLbBalance), this));
  balance->addWidget(txtTotal, 1);
  totals->addLayout(balance);
  totals->addStretch(1);
  middle->addLayout(totals);
  root->addLayout(middle, 1);

  // Tips, and the invoice commands: saving and posting come later.
  auto* tips = new QLabel(texts.get(txt::InvTipZones) + QLatin1Char('\n') + texts.get(txt::InvTipDates), this);
  tips->setWordWrap(true);
  root->addWidget(tips);
  auto* bottom = new QHBoxLayout;
  CdSaveInv = new QPushButton(texts.get(txt::InvCdSaveInv), this);
  CdPost = new QPushButton(texts.get(txt::InvCdPost), this);
  CdExit = new QPushButton(texts.get(txt::InvCdExit), this);
  CdSaveInv->setEnabled(false);
  CdPost->setEnabled(false);
  for (QPushButton* b : {CdSaveInv, CdPost, CdExit}) b->setAutoDefault(false);
  connect(CdExit, &QPushButton::clicked, this, &QDialog::reject);
  setTabOrder(previous, CdExit);
  bottom->addStretch(1);
  bottom->addWidget(CdSaveInv);
  bottom->addWidget(CdPost);
  bottom->addWidget(CdExit);
  root->addLayout(bottom);
}

void InvoiceDialog::showHandOver() {
  InvNb_->setText(presenter_.InvNb);
  Nom_->setText(presenter_.Nom);
  frBooking->setVisible(presenter_.frBooking);
  DtFrom_->setText(presenter_.DtFrom);
  DtTo_->setText(presenter_.DtTo);
  Days_->setText(presenter_.Days);
  Resource_->setText(presenter_.Resource);
  Remark_->setText(presenter_.Remark);
  ResourceS_->setText(presenter_.ResourceS);
  DtFromS_->setText(presenter_.DtFromS);
  DtToS_->setText(presenter_.DtToS);
  DaysS_->setText(presenter_.DaysS);
  for (QLineEdit* edit : {ResourceS_, DtFromS_, DtToS_, DaysS_}) edit->setVisible(presenter_.splitShown);
}

QLineEdit* InvoiceDialog::lineOf(InvField f) const { return qobject_cast<QLineEdit*>(fieldWidget(f)); }
QComboBox* InvoiceDialog::chooserOf(InvField f) const { return qobject_cast<QComboBox*>(fieldWidget(f)); }

void InvoiceDialog::showFields() {
  for (int i = 0; i < kInvFieldCount; ++i) {
    const auto f = static_cast<InvField>(i);
    const QString text = presenter_.field(f);
    if (QLineEdit* e = lineOf(f)) {
      if (e->text() != text) e->setText(text);
    } else if (QComboBox* c = chooserOf(f)) {
      if (c->currentText() != text) c->setEditText(text);
    }
  }
  txtTotal->setText(presenter_.grid().txtTotal);
}

void InvoiceDialog::showGrid() {
  const InvoiceGrid& g = presenter_.grid();
  filling_ = true;
  TbInvoice->clearSpans();
  TbInvoice->setRowCount(g.rowCount());
  for (int r = 0; r < g.rowCount(); ++r) {
    const InvoiceLine& line = g.line(r);
    const bool label = !isAmountLine(line);
    for (int c = 0; c < kSeenColumns; ++c) {
      auto* item = new QTableWidgetItem(line[c]);
      // Amounts right; a modifier's Fixed and Rate stand where a service has its dates.
      const bool number = c >= 3 || (c >= 1 && line[cell::Kind] == kind::Modifier);
      item->setTextAlignment(Qt::AlignVCenter | (number ? Qt::AlignRight : Qt::AlignLeft));
      if (label && c == 0) {
        QFont f = item->font();
        f.setItalic(true);
        item->setFont(f);
      }
      TbInvoice->setItem(r, c, item);
    }
    // A label line reads across the whole row.
    if (label && !line[0].isEmpty()) TbInvoice->setSpan(r, 0, 1, kSeenColumns);
  }
  TbInvoice->setCurrentCell(g.Row, 0);
  TbInvoice->verticalScrollBar()->setValue(g.TopRow);
  filling_ = false;
}

void InvoiceDialog::showZones() {
  for (int z = 0; z < 3; ++z) {
    const bool active = presenter_.CurrentZone == z + 1;
    // An inactive zone is greyed but still takes the focus, which activates it.
    zones_[z]->setStyleSheet(active ? QString()
                                    : QStringLiteral("QGroupBox { background: #e4e4e4; } QLineEdit, QComboBox { "
                                                     "background: #f0f0f0; color: #606060; }"));
  }
}

void InvoiceDialog::focusField(InvField field, bool selectText) {
  QWidget* w = fieldWidget(field);
  if (!w) return;
  w->setFocus(Qt::OtherFocusReason);
  if (!selectText) return;
  if (QLineEdit* e = lineOf(field)) e->selectAll();
  else if (QComboBox* c = chooserOf(field)) c->lineEdit()->selectAll();
}

void InvoiceDialog::highlightRow(int row, bool on) {
  for (int c = 0; c < kSeenColumns; ++c) {
    QTableWidgetItem* item = TbInvoice->item(row, c);
    if (!item) continue;
    item->setBackground(on ? QBrush(QColor(192, 0, 0)) : QBrush());
    item->setForeground(on ? QBrush(Qt::white) : QBrush());
  }
  if (on) TbInvoice->clearSelection();
}

void InvoiceDialog::selectLine(int row) {
  filling_ = true;
  TbInvoice->selectRow(row);
  filling_ = false;
}

std::optional<QDate> InvoiceDialog::pickDate(QDate start) {
  CalendrierPresenter calendrier(clock_, ScreenDescription{}, texts_);
  calendrier.calendar().SetDateFrom(start.addYears(-10));
  calendrier.calendar().SetDateTo(start.addYears(10));
  calendrier.calendar().SetDate(start);
  CalendrierDialog dialog(calendrier, texts_, this);
  dialog.exec();
  if (!calendrier.Result) return std::nullopt;
  return calendrier.GetDate();
}

int InvoiceDialog::fieldIndex(QObject* watched) const {
  for (int i = 0; i < kInvFieldCount; ++i) {
    QWidget* w = widgets_[static_cast<size_t>(i)];
    if (!w) continue;
    if (w == watched) return i;
    if (auto* c = qobject_cast<QComboBox*>(w); c && c->lineEdit() == watched) return i;
  }
  return -1;
}

bool InvoiceDialog::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::MouseButtonDblClick) {
    using D = InvDoubleClick;
    if (watched == DtFrom_) presenter_.doubleClick(D::DtFrom);
    else if (watched == DtTo_) presenter_.doubleClick(D::DtTo);
    else if (watched == Days_) presenter_.doubleClick(D::Days);
    else if (watched == Resource_) presenter_.doubleClick(D::Resource);
    else if (watched == DtFromS_) presenter_.doubleClick(D::DtFromS);
    else if (watched == DtToS_) presenter_.doubleClick(D::DtToS);
    else if (watched == DaysS_) presenter_.doubleClick(D::DaysS);
    else if (watched == ResourceS_) presenter_.doubleClick(D::ResourceS);
    else if (const int i = fieldIndex(watched); i >= 0) {
      if (const auto d = doubleClickOf(static_cast<InvField>(i))) presenter_.doubleClick(*d);
      else return QDialog::eventFilter(watched, event);
    } else {
      return QDialog::eventFilter(watched, event);
    }
    return true;
  }
  const int i = fieldIndex(watched);
  if (i < 0) return QDialog::eventFilter(watched, event);
  const auto f = static_cast<InvField>(i);
  if (type == QEvent::FocusIn) {
    presenter_.fieldEntered(f);
  } else if (type == QEvent::FocusOut) {
    presenter_.fieldLeft(f);
  } else if (type == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    // Enter adds the line being typed, from any field of the zones.
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      if (auto* c = qobject_cast<QComboBox*>(watched); c && c->view()->isVisible()) return false;
      presenter_.fieldLeft(f);
      presenter_.CdAdd();
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace ksv
