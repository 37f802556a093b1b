#pragma once
// A planning for the booking and split dialogs: three resources, the board
// view over March 2025, the whole table as R_TB, the options of a first run,
// and a context whose other windows tests can watch.

#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "bookings/booking_context.h"
#include "config/charger_param.h"
#include "config/ini_defaults.h"
#include "config/ini_file.h"
#include "config/loaded_options.h"
#include "storage/query_command.h"
#include "storage/recordset.h"
#include "storage/schema.h"
#include "support/scripted_messages.h"
#include "support/test_planning.h"

inline void PrintTo(const QString& text, std::ostream* os) { *os << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QStringList& texts, std::ostream* os) {
  *os << '{';
  for (const QString& t : texts) *os << " \"" << t.toStdString() << '"';
  *os << " }";
}

namespace ksv::test {

inline QDate march(int d) { return QDate(2025, 3, d); }

// Records what the booking dialogs hand to the invoice window and which
// invoices they remove, with the number of booking rows still stored at each
// removal.
class FakeInvoiceWindow : public InvoiceWindow {
 public:
  explicit FakeInvoiceWindow(Database& db) : db_(db) {}
  void DeleteInvoice(const QString& invNb) {
    deleted.push_back(invNb);
    rowsAtDelete.push_back(db_.scalar("SELECT count(*) FROM Reservation").toInt());
  }
  void show(const InvoiceHandOver& handOver) override { shown.push_back(handOver); }
  std::vector<QString> deleted;
  std::vector<int> rowsAtDelete;
  std::vector<InvoiceHandOver> shown;

 private:
  Database& db_;
};

class ModificationPlanning : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(writeDefaultIni(ini_, planning_.clock().today()));
    options_ = Charger_Param(ini_, planning_.clock());
    planning_.addResource("Room 1", 0, 1);
    planning_.addResource("Room 2*", 0, 2);
    planning_.addResource("Suite", 1, 3);
  }

  qint64 booking(const QString& resource, QDate first, QDate last, const QString& nom, QVariantMap more = {}) {
    more.insert("Resource", resource);
    more.insert("Date_Deb", first);
    more.insert("Date_Fin", last);
    more.insert("Nom", nom);
    for (const auto& [column, value] : {std::pair<QString, QVariant>{"GroupId", "C"}, {"Split", "0"},
                                         {"Couleur", 0}, {"GroupNb", 0}, {"HowMany", 1}})
      if (!more.contains(column)) more.insert(column, value);
    return insertRow(planning_.db(), "Reservation", more);
  }
  qint64 groupHeader(int groupNb, QDate first, QDate last, const QString& nom) {
    return booking(" ", first, last, nom, {{"GroupId", "L"}, {"Split", "3"}, {"GroupNb", groupNb}});
  }

  // The board view and the whole table as the session holds them.
  void openView() {
    QVariantList params{march(1), march(31), QString("Room 1"), QString("Room 2*"), QString("Suite")};
    while (params.size() < 42) params << QString("");
    planning_.objects().RQ_Reservation->setParameters(params);
    rs_ = planning_.objects().RQ_Reservation->openRecordset();
    planning_.objects().Reservation.requery();
    records_.setRecordsets(&rs_, &planning_.objects().Reservation);
  }

  // The board's click on a stored row: the view opened, the row read into
  // the buffer, and for a split part the other part found.
  void click(qint64 rowid) {
    openView();
    for (rs_.moveFirst(); !rs_.isEOF(); rs_.moveNext()) {
      if (rs_.rowId() == rowid) {
        records_.I_L = qint16(rs_.absolutePosition() - 1);
        records_.readClickedBooking();
        if (records_.Split_L != "0") {
          records_.Found_Other_SplitPart();
          ASSERT_TRUE(records_.Flg_OkCl);
        }
        return;
      }
    }
    FAIL() << "row " << rowid << " is not on the board";
  }

  BookingContext& ctx() {
    if (!ctx_) {
      ctx_ = std::make_unique<BookingContext>(BookingContext{
          planning_.db(), planning_.objects(), records_, availability_, options_, messages_, texts_,
          planning_.clock(), planning_.paths(), march(1), march(31), [this] { ++redraws_; }, windows_, nullptr});
      ctx_->DeleteInvoice = [this](const QString& invNb) { invoice_.DeleteInvoice(invNb); };
    }
    return *ctx_;
  }

  // One stored row as "Nom/Resource/Date_Deb/Date_Fin/Split/InvNb/Blocage/Couleur/GroupNb".
  QString row(qint64 rowid) {
    Statement st = planning_.db().prepare(
        "SELECT Nom, Resource, Date_Deb, Date_Fin, Split, ifnull(InvNb, '<null>'), Blocage, Couleur, GroupNb "
        "FROM Reservation WHERE rowid = ?");
    st.bind(0, rowid);
    if (!st.step()) return "<gone>";
    QStringList parts;
    for (int i = 0; i < 9; ++i) parts << st.column(i).toString();
    return parts.join('/');
  }
  // The stays (GroupId "C") in stored order, each as row() shows it.
  QStringList stays() {
    QStringList out;
    Statement st = planning_.db().prepare("SELECT rowid FROM Reservation WHERE GroupId = 'C' ORDER BY rowid");
    std::vector<qint64> ids;
    while (st.step()) ids.push_back(st.column(0).toLongLong());
    for (qint64 id : ids) out << row(id);
    return out;
  }
  qint64 lastRowId() { return planning_.db().scalar("SELECT max(rowid) FROM Reservation").toLongLong(); }

  TestPlanning planning_;
  IniFile ini_{planning_.paths().iniFile()};
  LoadedOptions options_;
  ScriptedMessages messages_;
  Texts texts_;
  BookingRecords records_{planning_.db(), planning_.clock(), messages_, texts_};
  Availability availability_{planning_.db(), planning_.clock()};
  Recordset rs_;
  BookingWindows windows_;
  FakeInvoiceWindow invoice_{planning_.db()};
  int redraws_ = 0;
  std::unique_ptr<BookingContext> ctx_;
};

}  // namespace ksv::test
