#include "reservation_creer_dialog.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "board/cls_calendar.h"
#include "board/ui/calendar_view.h"
#include "booking_widgets.h"
#include "bookings/reservation_creer.h"
#include "core/texts.h"
#include "customers/ui/remark_edit.h"
#include "customers/ui/remark_text.h"
#include "trous_dialog.h"

namespace ksv {

namespace {

// The highest number of resources one request may ask for.
constexpr int kMaxRequested = 999;
// What the booking table holds of a name and an address.
constexpr int kNomLength = 25;
constexpr int kEmailLength = 40;

QPushButton* button(const QString& caption, const QString& name, QWidget* parent) {
  auto* b = new QPushButton(caption, parent);
  b->setObjectName(name);
  b->setAutoDefault(false);
  return b;
}

QLineEdit* readOnlyText(const QString& name, QWidget* parent) {
  auto* t = new QLineEdit(parent);
  t->setObjectName(name);
  t->setReadOnly(true);
  return t;
}

}  // namespace

ReservationCreerDialog::ReservationCreerDialog(ReservationCreerPresenter& presenter, const Texts& texts,
                                               QWidget* parent)
    : QDialog(parent), p_(presenter) {
  setObjectName(QStringLiteral("ReservationCreer"));
  setWindowTitle(texts.get(txt::CreerCaption));
  const QStringList labels = texts.list(txt::CreerLabels, 11);
  const QStringList options = texts.list(txt::CreerOptions, 3);
  const QStringList captions = texts.list(txt::CreerButtons, 7);

  auto* states = new QHBoxLayout;
  for (int i = 0; i < 6; ++i) {
    const BookingState& s = p_.Def_Cl[size_t(i)];
    defCl_[size_t(i)] = button(s.caption, QStringLiteral("Def_Cl%1").arg(i), this);
    defCl_[size_t(i)]->setStyleSheet(colourStyle(s.back, s.fore));
    connect(defCl_[size_t(i)], &QPushButton::clicked, this, [this, i] {
      p_.Def_Cl_Click(i);
      showFields();
    });
    states->addWidget(defCl_[size_t(i)]);
  }

  nom_ = new QLineEdit(p_.Nom, this);
  nom_->setObjectName(QStringLiteral("Nom"));
  nom_->setMaxLength(kNomLength);
  p_.focusNom = [this] { nom_->setFocus(); };
  connect(nom_, &QLineEdit::textEdited, this, [this](const QString& text) {
    p_.Nom_Change(text);
    showFields();
  });

  const DateCalendar calF = makeCalendar(texts, this, QStringLiteral("CalF"), p_.CalFLowest, p_.CalFHighest, p_.CalF,
                                         [this](QDate d) {
                                           p_.CalF_DateClicked(d);
                                           showFields();
                                         });
  const DateCalendar calT = makeCalendar(texts, this, QStringLiteral("CalT"), p_.CalTLowest, p_.CalTHighest, p_.CalT,
                                         [this](QDate d) {
                                           p_.CalT_DateClicked(d);
                                           showFields();
                                         });
  calF_ = calF.calendar;
  calT_ = calT.calendar;
  nbJour_ = readOnlyText(QStringLiteral("NB_Jour"), this);

  category_ = new QComboBox(this);
  category_->setObjectName(QStringLiteral("Category"));
  fillCategoryList(*category_, p_.categories);
  connect(category_, &QComboBox::activated, this, [this](int index) {
    p_.Category_Click(index);
    showLists();
    showFields();
  });
  resource_ = new QComboBox(this);
  resource_->setObjectName(QStringLiteral("Resource"));
  connect(resource_, &QComboBox::activated, this, [this](int index) {
    p_.Resource_Click(index);
    showLists();
  });
  nbAvailable_ = readOnlyText(QStringLiteral("NbAvailable"), this);

  nbRequested_ = new QSpinBox(this);
  nbRequested_->setObjectName(QStringLiteral("NbRequested"));
  nbRequested_->setRange(1, kMaxRequested);
  connect(nbRequested_, &QSpinBox::textChanged, this, [this](const QString& text) {
    if (showing_) return;
    p_.NbRequested_Change(text);
  });

  optCustomer_ = new QRadioButton(options[0], this);
  optCustomer_->setObjectName(QStringLiteral("optCustomer"));
  optAgent_ = new QRadioButton(options[1], this);
  optAgent_->setObjectName(QStringLiteral("optAgent"));
  connect(optCustomer_, &QRadioButton::clicked, this, [this] { p_.optCustomer_Click(); });
  connect(optAgent_, &QRadioButton::clicked, this, [this] { p_.optAgent_Click(); });

  email_ = new QLineEdit(this);
  email_->setObjectName(QStringLiteral("Email"));
  email_->setMaxLength(kEmailLength);
  connect(email_, &QLineEdit::textEdited, this, [this](const QString& text) { p_.Email_Change(text); });
  howMany_ = new QLineEdit(this);
  howMany_->setObjectName(QStringLiteral("HowMany"));
  howMany_->setMaxLength(5);
  connect(howMany_, &QLineEdit::textEdited, this, [this](const QString& text) { p_.HowMany_Change(text); });
  remarque_ = new RemarkEdit(this);
  remarque_->setObjectName(QStringLiteral("Remarque"));
  connect(remarque_, &QPlainTextEdit::textChanged, this, [this] {
    if (!showing_) p_.Remarque_Change(remarkFromEdit(remarque_->toPlainText()));
  });
  bloc_ = new QCheckBox(options[2], this);
  bloc_->setObjectName(QStringLiteral("Bloc"));
  connect(bloc_, &QCheckBox::toggled, this, [this](bool on) { p_.Bloc_Click(on); });

  customerList_ = button(captions[0], QStringLiteral("CustomerList"), this);
  agentList_ = button(captions[1], QStringLiteral("AgentList"), this);
  blackList_ = button(captions[2], QStringLiteral("BlackList"), this);
  holes_ = button(captions[3], QStringLiteral("Holes"), this);
  sendEmail_ = button(captions[4], QStringLiteral("cmdSendEmail"), this);
  auto* create = button(captions[5], QStringLiteral("Create"), this);
  auto* exit = button(captions[6], QStringLiteral("CdExit"), this);
  const auto refreshing = [this](void (ReservationCreerPresenter::*handler)()) {
    return [this, handler] {
      (p_.*handler)();
      if (p_.closed) return;
      showLists();
      showFields();
    };
  };
  connect(customerList_, &QPushButton::clicked, this, refreshing(&ReservationCreerPresenter::CustomerList_Click));
  connect(agentList_, &QPushButton::clicked, this, refreshing(&ReservationCreerPresenter::AgentList_Click));
  connect(blackList_, &QPushButton::clicked, this, refreshing(&ReservationCreerPresenter::BlackList_Click));
  connect(holes_, &QPushButton::clicked, this, refreshing(&ReservationCreerPresenter::Holes_Click));
  connect(sendEmail_, &QPushButton::clicked, this, [this] { p_.cmdSendEmail_Click(); });
  connect(create, &QPushButton::clicked, this, refreshing(&ReservationCreerPresenter::Create_Click));
  connect(exit, &QPushButton::clicked, this, refreshing(&ReservationCreerPresenter::CdExit_Click));
  p_.unload = [this] { QDialog::done(QDialog::Accepted); };

  // Layout: states and name on top, the calendars, then the request and the customer.
  auto* dates = new QGridLayout;
  dates->addWidget(new QLabel(labels[1], this), 0, 0, Qt::AlignHCenter);
  dates->addWidget(new QLabel(labels[2], this), 0, 1, Qt::AlignHCenter);
  dates->addWidget(calF.view, 1, 0);
  dates->addWidget(calT.view, 1, 1);
  auto* fields = new QGridLayout;
  int row = 0;
  const auto add = [&](const QString& label, QWidget* w, int column = 0) {
    fields->addWidget(new QLabel(label, this), row, column);
    fields->addWidget(w, row, column + 1);
  };
  add(labels[0], nom_);
  ++row;
  add(labels[3], nbJour_);
  add(labels[4], category_, 2);
  ++row;
  add(labels[6], nbAvailable_);
  add(labels[5], resource_, 2);
  ++row;
  add(labels[7], nbRequested_);
  fields->addWidget(optCustomer_, row, 2);
  fields->addWidget(optAgent_, row, 3);
  ++row;
  add(labels[8], email_);
  add(labels[9], howMany_, 2);
  ++row;
  fields->addWidget(new QLabel(labels[10], this), row, 0);
  fields->addWidget(remarque_, row, 1, 1, 3);
  ++row;
  fields->addWidget(bloc_, row, 1);
  auto* lists = new QHBoxLayout;
  for (QPushButton* b : {customerList_, agentList_, blackList_, holes_, sendEmail_}) lists->addWidget(b);
  auto* actions = new QHBoxLayout;
  actions->addStretch();
  actions->addWidget(create);
  actions->addWidget(exit);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(states);
  layout->addLayout(dates);
  layout->addLayout(fields);
  layout->addLayout(lists);
  layout->addLayout(actions);

  showing_ = true;
  nbRequested_->setValue(int(p_.NbRequested.toInt()));
  email_->setText(p_.Email);
  howMany_->setText(p_.HowMany);
  remarque_->setPlainText(remarkForEdit(p_.Remarque));
  bloc_->setChecked(p_.Bloc);
  showing_ = false;
  showLists();
  showFields();
  customerList_->setEnabled(p_.listsEnabled());
  agentList_->setEnabled(p_.listsEnabled());
  blackList_->setEnabled(p_.blackListEnabled());
  holes_->setEnabled(p_.holesEnabled());
  sendEmail_->setEnabled(p_.sendEmailEnabled());
}

void ReservationCreerDialog::showLists() {
  showing_ = true;
  category_->setCurrentIndex(p_.categoryIndex);
  resource_->clear();
  resource_->addItems(p_.resources);
  resource_->setCurrentIndex(p_.resourceIndex);
  styleClosedList(*category_, p_.listBack, p_.listFore);
  styleClosedList(*resource_, p_.listBack, p_.listFore);
  showing_ = false;
}

void ReservationCreerDialog::showFields() {
  showing_ = true;
  nom_->setStyleSheet(colourStyle(p_.NomBack, p_.NomFore));
  if (nom_->text() != p_.Nom) nom_->setText(p_.Nom);
  if (email_->text() != p_.Email) email_->setText(p_.Email);
  if (remarkFromEdit(remarque_->toPlainText()) != p_.Remarque) remarque_->setPlainText(remarkForEdit(p_.Remarque));
  calF_->SetDate(p_.CalF);
  calT_->SetDate(p_.CalT);
  nbJour_->setText(QString::number(p_.NB_Jour));
  nbAvailable_->setText(p_.NbAvailable);
  optAgent_->setChecked(p_.optAgent);
  optCustomer_->setChecked(!p_.optAgent);
  showing_ = false;
}

void ReservationCreerDialog::reject() {
  p_.CdExit_Click();
  if (!p_.closed) {
    showLists();
    showFields();
  }
}

void ReservationCreerDialog::closeEvent(QCloseEvent* event) {
  if (!p_.closed) reject();
  if (p_.closed)
    event->accept();
  else
    event->ignore();
}

void showReservationCreer(BookingContext& ctx, QWidget* parent) {
  ReservationCreerPresenter presenter(ctx);
  presenter.Form_Load();
  // Without a holes window from the caller, the dialog opens its own over itself.
  const auto callerTrous = ctx.windows.Trous;
  QWidget* owner = parent;
  if (!callerTrous)
    ctx.windows.Trous = [&ctx, &owner](TrousSearch& trous) { return showTrous(trous, ctx.options, ctx.texts, owner); };
  {
    ReservationCreerDialog dialog(presenter, ctx.texts, parent);
    owner = &dialog;
    dialog.exec();
  }
  ctx.windows.Trous = callerTrous;
}

}  // namespace ksv
