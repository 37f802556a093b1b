#include "reservation_grp_dialog.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "board/cls_calendar.h"
#include "board/ui/board_colors.h"
#include "board/ui/calendar_view.h"
#include "board/ui/ecran_dialog.h"
#include "bookings/booking_form.h"
#include "core/day_date.h"
#include "core/texts.h"
#include "customers/ui/remark_edit.h"
#include "customers/ui/remark_text.h"

namespace ksv {

namespace {

void paint(QWidget* w, Colour back, Colour fore) {
  QPalette p = w->palette();
  p.setColor(QPalette::Base, bgrColor(int(back)));
  p.setColor(QPalette::Button, bgrColor(int(back)));
  p.setColor(QPalette::Text, bgrColor(int(fore)));
  p.setColor(QPalette::ButtonText, bgrColor(int(fore)));
  w->setAutoFillBackground(true);
  w->setPalette(p);
}

QLineEdit* readOnly(QWidget* parent) {
  auto* e = new QLineEdit(parent);
  e->setReadOnly(true);
  return e;
}

}  // namespace

void showReservationGrp(BookingContext& ctx, QWidget* parent) {
  ReservationGrpPresenter presenter(ctx, Regional::fromSystem());
  ReservationGrpDialog dialog(presenter, ctx, parent);
  presenter.Form_Activate();
  dialog.refresh();
  dialog.exec();
}

ReservationGrpDialog::ReservationGrpDialog(ReservationGrpPresenter& presenter, const BookingContext& ctx,
                                           QWidget* parent)
    : QDialog(parent), presenter_(presenter), regional_(Regional::fromSystem()) {
  const Texts& texts = ctx.texts;
  setWindowTitle(texts.get(txt::GrpCaption));
  const QStringList header = texts.list(txt::GrpHeaderLabels, 10);
  const QStringList member = texts.list(txt::GrpMemberLabels, 7);
  const QStringList buttons = texts.list(txt::GrpButtons, 5);
  const QStringList addRemove = texts.list(txt::GrpAddRemove, 2);
  const QStringList kinds = texts.list(txt::GrpCustomerAgent, 2);

  Nom = new QLineEdit(this);
  Nom->setMaxLength(25);
  Email = new QLineEdit(this);
  Email->setMaxLength(40);
  HowMany = new QSpinBox(this);
  HowMany->setRange(0, 32767);
  Remarque = new RemarkEdit(this);
  Remarque->setMaximumHeight(60);
  InvNb = readOnly(this);
  Bloc = new QCheckBox(header[9], this);
  optCustomer = new QRadioButton(kinds[0], this);
  optAgent = new QRadioButton(kinds[1], this);

  auto* headerForm = new QFormLayout;
  auto* kindRow = new QHBoxLayout;
  kindRow->addWidget(optCustomer);
  kindRow->addWidget(optAgent);
  kindRow->addStretch();
  headerForm->addRow(QString(), kindRow);
  headerForm->addRow(header[0], Nom);
  headerForm->addRow(header[1], Email);
  headerForm->addRow(header[2], HowMany);
  headerForm->addRow(header[3], Remarque);
  headerForm->addRow(header[4], InvNb);

  auto* states = new QHBoxLayout;
  const auto stateList = bookingStates(ctx.options);
  for (int i = 0; i < 6; ++i) {
    Def_Cl[std::size_t(i)] = new QPushButton(stateList[std::size_t(i)].caption, this);
    paint(Def_Cl[std::size_t(i)], stateList[std::size_t(i)].back, stateList[std::size_t(i)].fore);
    states->addWidget(Def_Cl[std::size_t(i)]);
    connect(Def_Cl[std::size_t(i)], &QPushButton::clicked, this, [this, i] {
      presenter_.Def_Cl_Click(i);
      refresh();
    });
  }
  states->addWidget(Bloc);

  // The period, on the program's own calendars.
  EcranDialog::readActualScreen(screen_);
  calF_ = std::make_unique<clsCalendar>(screen_, texts);
  calT_ = std::make_unique<clsCalendar>(screen_, texts);
  CalF = new CalendarView(*calF_, this);
  CalT = new CalendarView(*calT_, this);
  NB_Jour = new QLabel(this);
  FirstDate = new QLabel(this);
  NbRequested = new QLabel(this);
  auto* period = new QGridLayout;
  period->addWidget(new QLabel(header[5], this), 0, 0);
  period->addWidget(new QLabel(header[6], this), 0, 1);
  period->addWidget(CalF, 1, 0);
  period->addWidget(CalT, 1, 1);
  period->addWidget(FirstDate, 2, 0);
  auto* counts = new QFormLayout;
  counts->addRow(header[7], NB_Jour);
  counts->addRow(header[8], NbRequested);
  period->addLayout(counts, 2, 1);
  connect(calF_.get(), &clsCalendar::Click, this, [this] {
    presenter_.CalF_DateClicked(calF_->GetDate());
    refresh();
  });
  connect(calT_.get(), &clsCalendar::Click, this, [this] {
    presenter_.CalT_DateClicked(calT_->GetDate());
    refresh();
  });

  // The members.
  Customer = new QComboBox(this);
  Customer->setEditable(true);
  Customer->setInsertPolicy(QComboBox::NoInsert);
  // A member's name is a Nom: no longer than the store keeps.
  Customer->lineEdit()->setMaxLength(25);
  Resource = readOnly(this);
  DtFrom = readOnly(this);
  DtTo = readOnly(this);
  Days = readOnly(this);
  Remark = new RemarkEdit(this);
  Remark->setMaximumHeight(50);
  ResourceS = readOnly(this);
  DtFromS = readOnly(this);
  DtToS = readOnly(this);
  DaysS = readOnly(this);
  cmdRemove = new QPushButton(addRemove[1], this);
  auto* members = new QGridLayout;
  members->addWidget(new QLabel(member[0], this), 0, 0);
  members->addWidget(Customer, 0, 1, 1, 3);
  members->addWidget(cmdRemove, 0, 4);
  members->addWidget(new QLabel(member[1], this), 1, 1);
  members->addWidget(new QLabel(member[2], this), 1, 2);
  members->addWidget(new QLabel(member[3], this), 1, 3);
  members->addWidget(new QLabel(member[4], this), 1, 4);
  members->addWidget(Resource, 2, 1);
  members->addWidget(DtFrom, 2, 2);
  members->addWidget(DtTo, 2, 3);
  members->addWidget(Days, 2, 4);
  members->addWidget(new QLabel(member[6], this), 3, 0);
  members->addWidget(ResourceS, 3, 1);
  members->addWidget(DtFromS, 3, 2);
  members->addWidget(DtToS, 3, 3);
  members->addWidget(DaysS, 3, 4);
  members->addWidget(new QLabel(member[5], this), 4, 0);
  members->addWidget(Remark, 4, 1, 1, 4);

  // The candidates, in columns.
  possibleLabel = new QLabel(texts.get(txt::GrpUsersInPeriod), this);
  cboPossible = new QComboBox(this);
  cboPossible->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  cmdAdd = new QPushButton(addRemove[0], this);
  auto* possible = new QHBoxLayout;
  possible->addWidget(cboPossible, 1);
  possible->addWidget(cmdAdd);

  ModifyGroup = new QPushButton(buttons[0], this);
  DeleteGroup = new QPushButton(buttons[1], this);
  SplitGroup = new QPushButton(buttons[2], this);
  CdInvoice = new QPushButton(buttons[3], this);
  CmdExit = new QPushButton(buttons[4], this);
  CdInvoice->setEnabled(presenter_.invoiceEnabled());
  // Mail to the text of Email as it stands; ReservationCreer's caption.
  cmdSendEmail = new QPushButton(texts.list(txt::CreerButtons, 7).value(4), this);
  cmdSendEmail->setObjectName(QStringLiteral("cmdSendEmail"));
  cmdSendEmail->setEnabled(bool(ctx.windows.sendEmail));
  auto* commands = new QHBoxLayout;
  for (QPushButton* b : {ModifyGroup, DeleteGroup, SplitGroup, CdInvoice}) commands->addWidget(b);
  commands->addWidget(cmdSendEmail);
  commands->addStretch();
  commands->addWidget(CmdExit);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(headerForm);
  layout->addLayout(states);
  layout->addLayout(period);
  layout->addLayout(members);
  layout->addWidget(possibleLabel);
  layout->addLayout(possible);
  layout->addLayout(commands);

  presenter_.close = [this] {
    closing_ = true;
    accept();
  };
  presenter_.focusNom = [this] { Nom->setFocus(); };
  presenter_.refreshed = [this] { refresh(); };

  const auto headerEdit = [this] {
    if (filling_) return;
    readHeader();
    presenter_.Header_Change();
  };
  connect(Nom, &QLineEdit::textEdited, this, headerEdit);
  connect(Email, &QLineEdit::textEdited, this, headerEdit);
  connect(HowMany, &QSpinBox::valueChanged, this, headerEdit);
  connect(Remarque, &QPlainTextEdit::textChanged, this, headerEdit);
  connect(Bloc, &QCheckBox::toggled, this, headerEdit);
  connect(optCustomer, &QRadioButton::clicked, this, [this] { presenter_.optCustomer_Click(); });
  connect(optAgent, &QRadioButton::clicked, this, [this] { presenter_.optAgent_Click(); });

  connect(Customer, &QComboBox::activated, this, [this](int index) {
    presenter_.Customer_Click(index);
    refresh();
  });
  connect(Customer->lineEdit(), &QLineEdit::textEdited, this,
          [this](const QString& text) { presenter_.Customer_Change(text); });
  connect(Customer->lineEdit(), &QLineEdit::editingFinished, this, [this] { presenter_.Customer_LostFocus(); });
  connect(Remark, &QPlainTextEdit::textChanged, this, [this] {
    if (!filling_) presenter_.Remark = remarkFromEdit(Remark->toPlainText());
  });
  Remark->installEventFilter(this);
  connect(cboPossible, &QComboBox::currentIndexChanged, this, [this](int index) {
    if (!filling_) presenter_.possibleIndex = index;
  });

  connect(cmdAdd, &QPushButton::clicked, this, [this] { presenter_.cmdAdd_Click(); });
  connect(cmdRemove, &QPushButton::clicked, this, [this] { presenter_.cmdRemove_Click(); });
  connect(ModifyGroup, &QPushButton::clicked, this, [this] {
    readHeader();
    presenter_.ModifyGroup_Click();
  });
  connect(DeleteGroup, &QPushButton::clicked, this, [this] { presenter_.DeleteGroup_Click(); });
  connect(SplitGroup, &QPushButton::clicked, this, [this] { presenter_.SplitGroup_Click(); });
  connect(CdInvoice, &QPushButton::clicked, this, [this] { presenter_.CdInvoice_Click(); });
  connect(cmdSendEmail, &QPushButton::clicked, this, [this, send = ctx.windows.sendEmail] {
    if (send) send(Email->text());
  });
  connect(CmdExit, &QPushButton::clicked, this, [this] { exit(); });
}

ReservationGrpDialog::~ReservationGrpDialog() {
  presenter_.close = nullptr;
  presenter_.focusNom = nullptr;
  presenter_.refreshed = nullptr;
}

void ReservationGrpDialog::readHeader() {
  presenter_.Nom = Nom->text();
  presenter_.Email = Email->text();
  presenter_.HowMany = qint16(HowMany->value());
  presenter_.Remarque = remarkFromEdit(Remarque->toPlainText());
  presenter_.Bloc = Bloc->isChecked();
}

void ReservationGrpDialog::refresh() {
  const ReservationGrpPresenter& p = presenter_;
  filling_ = true;
  Nom->setText(p.Nom);
  paint(Nom, p.nomBack, p.nomFore);
  Email->setText(p.Email);
  HowMany->setValue(p.HowMany);
  if (remarkFromEdit(Remarque->toPlainText()) != p.Remarque) Remarque->setPlainText(remarkForEdit(p.Remarque));
  InvNb->setText(p.InvNb);
  Bloc->setChecked(p.Bloc);
  optAgent->setChecked(p.optAgent);
  optCustomer->setChecked(!p.optAgent);

  calF_->SetDateFrom(p.CalFLowest);
  calF_->SetDateTo(p.CalFHighest);
  calF_->SetDate(p.CalF);
  calT_->SetDateFrom(p.CalTLowest);
  calT_->SetDateTo(p.CalTHighest);
  calT_->SetDate(p.CalT);
  FirstDate->setText(shortDateText(p.FirstDateLabel, regional_));
  NB_Jour->setText(QString::number(p.NB_Jour));
  NbRequested->setText(QString::number(p.NbRequested));

  Customer->clear();
  Customer->addItems(p.Customer);
  Customer->setCurrentIndex(p.customerIndex);
  paint(Customer, p.customerBack, p.customerFore);
  const auto dateText = [this](QDate d) { return d.isValid() ? shortDateText(d, regional_) : QString(); };
  const bool member = p.customerIndex >= 0;
  Resource->setText(p.Resource);
  paint(Resource, p.resourceBack, p.resourceFore);
  DtFrom->setText(dateText(p.DtFrom));
  paint(DtFrom, p.resourceBack, p.resourceFore);
  DtTo->setText(dateText(p.DtTo));
  Days->setText(member ? QString::number(p.Days) : QString());
  Remark->setPlainText(remarkForEdit(p.Remark));
  ResourceS->setText(p.ResourceS);
  paint(ResourceS, p.resourceSBack, p.resourceSFore);
  DtFromS->setText(dateText(p.DtFromS));
  paint(DtFromS, p.resourceSBack, p.resourceSFore);
  DtToS->setText(dateText(p.DtToS));
  DaysS->setText(p.hasPart2 ? QString::number(p.DaysS) : QString());

  cboPossible->clear();
  cboPossible->addItems(p.cboPossible);
  cboPossible->setCurrentIndex(p.possibleIndex);
  filling_ = false;
}

bool ReservationGrpDialog::eventFilter(QObject* watched, QEvent* event) {
  if (watched == Remark && event->type() == QEvent::FocusOut) presenter_.Remark_LostFocus();
  return QDialog::eventFilter(watched, event);
}

void ReservationGrpDialog::exit() {
  readHeader();
  presenter_.CmdExit_Click();
}

void ReservationGrpDialog::reject() {
  if (closing_) {
    QDialog::reject();
    return;
  }
  exit();
}

void ReservationGrpDialog::closeEvent(QCloseEvent* event) {
  if (closing_) {
    event->accept();
    return;
  }
  event->ignore();
  exit();
}

}  // namespace ksv
