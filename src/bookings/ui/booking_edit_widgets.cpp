#include "booking_edit_widgets.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLocale>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "board/ui/board_colors.h"
#include "board/ui/calendar_view.h"
#include "core/texts.h"
#include "customers/ui/remark_edit.h"
#include "customers/ui/remark_text.h"

namespace ksv {

namespace {
// What the booking table holds of a name and an address.
constexpr int kNomLength = 25;
constexpr int kEmailLength = 40;
}  // namespace

QString dateLabel(QDate date) { return QLocale().toString(date, QLocale::ShortFormat); }

QString sendEmailCaption(const Texts& texts) { return texts.list(txt::CreerButtons, 7).value(4); }

QPushButton* commandButton(const QString& caption, const QString& name, QWidget* parent) {
  auto* b = new QPushButton(caption, parent);
  b->setObjectName(name);
  b->setAutoDefault(false);
  return b;
}

BookingEditDialog::BookingEditDialog(BookingEditForm& form, QWidget* parent) : QDialog(parent), form_(form) {}

void BookingEditDialog::closeEvent(QCloseEvent* event) {
  if (!leaving_) form_.Annuler_Click();
  if (leaving_) {
    event->accept();
  } else {
    event->ignore();
  }
}

void BookingEditDialog::reject() {
  // Leaving closes through the presenter's hook.
  if (!leaving_) form_.Annuler_Click();
}

void BookingEditDialog::bindForm(CustomerFields* fields) {
  form_.close = [this] {
    leaving_ = true;
    accept();
  };
  form_.focusNom = [fields] { fields->focusNom(); };
  form_.refresh = [this] { showValues(); };
  showValues();
}

QPushButton* BookingEditDialog::addCommand(QBoxLayout* buttons, const QString& caption, const char* name,
                                           std::function<void()> run, bool enabled) {
  auto* b = commandButton(caption, QString::fromLatin1(name), this);
  b->setEnabled(enabled);
  connect(b, &QPushButton::clicked, this, [this, run = std::move(run)] {
    run();
    if (!form_.isClosed()) showValues();
  });
  buttons->addWidget(b);
  return b;
}

CustomerFields::CustomerFields(BookingEditForm& form, const Texts& texts, QWidget* parent)
    : QWidget(parent), form_(form) {
  const QStringList labels = texts.list(txt::ModifLabels, 11);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* states = new QGridLayout;
  for (int i = 0; i < int(form_.Def_Cl.size()); ++i) {
    const BookingState& s = form_.Def_Cl[size_t(i)];
    auto* b = commandButton(s.caption, QStringLiteral("Def_Cl%1").arg(i), this);
    b->setStyleSheet(colourStyle(s.back, s.fore));
    connect(b, &QPushButton::clicked, this, [this, i] {
      form_.Def_Cl_Click(i);
      showValues();
    });
    states->addWidget(b, i / 3, i % 3);
  }
  layout->addLayout(states);

  auto* fields = new QFormLayout;
  Nom_ = new QLineEdit(this);
  Nom_->setObjectName(QStringLiteral("Nom"));
  Nom_->setMaxLength(kNomLength);
  Email_ = new QLineEdit(this);
  Email_->setObjectName(QStringLiteral("Email"));
  Email_->setMaxLength(kEmailLength);
  HowMany_ = new QSpinBox(this);
  HowMany_->setObjectName(QStringLiteral("HowMany"));
  HowMany_->setRange(0, 32767);
  Remarque_ = new RemarkEdit(this);
  Remarque_->setObjectName(QStringLiteral("Remarque"));
  Remarque_->setMaximumHeight(80);
  InvNb_ = new QLineEdit(this);
  InvNb_->setObjectName(QStringLiteral("InvNb"));
  InvNb_->setReadOnly(true);
  fields->addRow(labels.value(0), Nom_);
  fields->addRow(labels.value(1), Email_);
  fields->addRow(labels.value(2), HowMany_);
  fields->addRow(labels.value(3), Remarque_);
  fields->addRow(labels.value(4), InvNb_);
  layout->addLayout(fields);

  connect(Nom_, &QLineEdit::textEdited, this, [this](const QString& t) { form_.setNom(t); });
  connect(Email_, &QLineEdit::textEdited, this, [this](const QString& t) { form_.setEmail(t); });
  connect(HowMany_, &QSpinBox::valueChanged, this, [this](int n) { form_.setHowMany(qint16(n)); });
  // The box edits with line feeds; the form keeps the stored form, CR LF.
  connect(Remarque_, &QPlainTextEdit::textChanged, this,
          [this] { form_.setRemarque(remarkFromEdit(Remarque_->toPlainText())); });
  showValues();
}

void CustomerFields::showValues() {
  const QSignalBlocker b1(Nom_), b2(Email_), b3(HowMany_), b4(Remarque_);
  if (Nom_->text() != form_.Nom) Nom_->setText(form_.Nom);
  Nom_->setStyleSheet(colourStyle(form_.NomBack, form_.NomFore));
  if (Email_->text() != form_.Email) Email_->setText(form_.Email);
  HowMany_->setValue(form_.HowMany);
  if (remarkFromEdit(Remarque_->toPlainText()) != form_.Remarque) Remarque_->setPlainText(remarkForEdit(form_.Remarque));
  InvNb_->setText(form_.InvNb);
}

CalendarBox::CalendarBox(const ScreenDescription& screen, const Texts& texts, const QString& name,
                         std::function<void(QDate)> clicked, QWidget* parent)
    : QWidget(parent), calendar_(std::make_unique<clsCalendar>(screen, texts)) {
  setObjectName(name);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  view_ = new CalendarView(*calendar_, this);
  view_->setObjectName(name + QStringLiteral("View"));
  layout->addWidget(view_);
  connect(calendar_.get(), &clsCalendar::Click, this,
          [this, clicked = std::move(clicked)] { clicked(calendar_->GetDate()); });
}

CalendarBox::~CalendarBox() {
  // The view lets go of the calendar before the calendar goes.
  delete view_;
}

void CalendarBox::show(const CalendarField& field) {
  calendar_->SetDateFrom(field.lowest);
  calendar_->SetDateTo(field.highest);
  calendar_->SetDate(field.value);
}

ResourceLists::ResourceLists(const ResourceChoice& choice, const QString& suffix,
                             std::function<void(int)> categoryClick, std::function<void(int)> resourceClick,
                             QWidget* parent)
    : QWidget(parent), choice_(choice) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  Category_ = new QComboBox(this);
  Category_->setObjectName(QStringLiteral("Category") + suffix);
  Resource_ = new QComboBox(this);
  Resource_->setObjectName(QStringLiteral("Resource") + suffix);
  layout->addWidget(Category_);
  layout->addWidget(Resource_);
  connect(Category_, &QComboBox::activated, this, [this, categoryClick = std::move(categoryClick)](int i) {
    categoryClick(i);
    showValues();
  });
  connect(Resource_, &QComboBox::activated, this, [this, resourceClick = std::move(resourceClick)](int i) {
    resourceClick(i);
    showValues();
  });
  showValues();
}

void ResourceLists::showValues() {
  const QSignalBlocker b1(Category_), b2(Resource_);
  Category_->clear();
  for (const CategoryItem& c : choice_.categories) Category_->addItem(c.name);
  for (int i = 0; i < Category_->count(); ++i) {
    const CategoryItem& c = choice_.categories[size_t(i)];
    Category_->setItemData(i, bgrColor(int(c.back)), Qt::BackgroundRole);
    Category_->setItemData(i, bgrColor(int(c.fore)), Qt::ForegroundRole);
  }
  Category_->setCurrentIndex(choice_.Category);
  Resource_->clear();
  Resource_->addItems(choice_.resources);
  // A resource outside the lists still shows as the booking's.
  if (choice_.resourceIndex() < 0 && !choice_.Resource.isEmpty()) Resource_->addItem(choice_.Resource);
  Resource_->setCurrentText(choice_.Resource);
  styleClosedList(*Category_, choice_.back(), choice_.fore());
  styleClosedList(*Resource_, choice_.back(), choice_.fore());
}

}  // namespace ksv
