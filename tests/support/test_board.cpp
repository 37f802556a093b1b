#include "test_board.h"

namespace ksv::test {

BoardFrame smallFrame(int dayTwips) {
  ScreenDescription screen;
  readScreen(ScreenFacts{1024, 768, 32, 60, 96}, screen);
  BoardFrame frame;
  frame.Draw_Planning_Frame(screen, ScreenDrawing{"10", QString::number(dayTwips), "4", "300",
                                                  dayTwips == 200 ? "1000" : "1200", "200"});
  return frame;
}

TestBoard::TestBoard(int dayTwips)
    : ini_(planning_.paths().iniFile()),
      options_(Charger_Param(ini_, planning_.clock())),
      frame_(smallFrame(dayTwips)),
      regional_(Regional::englishUS()),
      board_(BoardContext{frame_, options_, messages_, texts_, planning_.paths(), regional_,
                          [] { return QDate(2025, 3, 10); }}) {
  board_.setFirstDate(QDate(2025, 3, 1));
}

void TestBoard::rooms(int n) {
  for (int i = 1; i <= n; ++i) planning_.addResource(QString("Room %1").arg(i), 0, i);
}

void TestBoard::open() {
  board_.setSession(&planning_.objects());
  board_.Dessiner_Ecran();
}

int TestBoard::label(const QString& name) const {
  for (int i = 0; i < board_.LabCount; ++i)
    if (board_.Lab[std::size_t(i)].toolTip.startsWith(name)) return i;
  ADD_FAILURE() << "no label " << name.toStdString();
  return -1;
}

QString TestBoard::where(const QString& nom) {
  Statement st = planning_.db().prepare("SELECT Resource, Date_Deb, Date_Fin FROM Reservation WHERE Nom = ?");
  st.bind(0, nom);
  if (!st.step()) return "<none>";
  return st.column(0).toString() + " " + st.column(1).toString().left(10) + " " + st.column(2).toString().left(10);
}

GestureHooks TestBoard::hooks() {
  GestureHooks h;
  h.normalMode = [this] { return normalMode_; };
  h.Dessiner_Ecran = [this] { board_.Dessiner_Ecran(); };
  h.setVScroll = [this](int v) {
    board_.VPos = v;
    board_.Redraw("R");
  };
  h.newRecords = [this] {
    auto r = std::make_unique<BookingRecords>(planning_.db(), planning_.clock(), messages_, texts_);
    r->setRecordsets(&board_.view, &planning_.objects().Reservation);
    return r;
  };
  h.openers = [this](auto& r) {
    BookingDialogOpeners o;
    o.Reservation = [this, &r] {
      opened_ << "Reservation " + r.Nom_L;
      return openGroup_;
    };
    o.ReservationSplit = [this, &r] {
      opened_ << "ReservationSplit " + r.Nom_L;
      return openGroup_;
    };
    o.ReservationGrp = [this] { opened_ << "ReservationGrp"; };
    return o;
  };
  h.ReservationCreer = [this](auto& r) {
    opened_ << "ReservationCreer " + r.Res_L + " " + r.DD_L.toString(Qt::ISODate);
  };
  return h;
}

}  // namespace ksv::test
