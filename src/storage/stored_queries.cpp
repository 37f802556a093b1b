// Texts of the stored queries, verbatim, double blanks and glued clauses
// included: they are what a planning holds, and other files are compared to them.
#include "stored_queries.h"

#include <array>

#include "sqlite_db.h"

namespace ksv {

namespace {

constexpr std::array<StoredQuery, 69> kQueries{{
    {"RQ_Reservation",
     R"q(PARAMETERS P_DD Date, P_DF Date, R1 Text(12), R2 Text(12), R3 Text(12), R4 Text(12), R5 Text(12), R6 Text(12), R7 Text(12), R8 Text(12), R9 Text(12), R10 Text(12), R11 Text(12), R12 Text(12), R13 Text(12), R14 Text(12), R15 Text(12), R16 Text(12), R17 Text(12), R18 Text(12), R19 Text(12), R20 Text(12), R21 Text(12), R22 Text(12), R23 Text(12), R24 Text(12), R25 Text(12), R26 Text(12), R27 Text(12), R28 Text(12), R29 Text(12), R30 Text(12);SELECT Reservation.* FROM Reservation WHERE Reservation.GroupId = 'C' AND ((Reservation.Date_Deb >= [P_DD] And Reservation.Date_Deb <= [P_DF]) Or (Reservation.Date_Fin >= [P_DD] And Reservation.Date_Fin <= [P_DF]) Or (Reservation.Date_Deb < [P_DD]) And (Reservation.Date_Fin > [P_DF])) AND (Reservation.Resource = R1 Or Reservation.Resource = R2 Or Reservation.Resource = R3 Or Reservation.Resource = R4 Or Reservation.Resource = R5 Or Reservation.Resource = R6 Or Reservation.Resource = R7 Or Reservation.Resource = R8 Or Reservation.Resource = R9 Or Reservation.Resource = R10 Or Reservation.Resource = R11 Or Reservation.Resource = R12 Or Reservation.Resource = R13 Or Reservation.Resource = R14 Or Reservation.Resource = R15 Or Reservation.Resource = R16 Or Reservation.Resource = R17 Or Reservation.Resource = R18 Or Reservation.Resource = R19 Or Reservation.Resource = R20 Or Reservation.Resource = R21 Or Reservation.Resource = R22 Or Reservation.Resource = R23 Or Reservation.Resource = R24 Or Reservation.Resource = R25 Or Reservation.Resource = R26 Or Reservation.Resource = R27 Or Reservation.Resource = R28 Or Reservation.Resource = R29 Or Reservation.Resource = R30 Or Reservation.Resource = R31 Or Reservation.Resource = R32 Or Reservation.Resource = R33 Or Reservation.Resource = R34 Or Reservation.Resource = R35 Or Reservation.Resource = R36 Or Reservation.Resource = R37 Or Reservation.Resource = R38 Or Reservation.Resource = R39 Or Reservation.Resource = R40) ORDER BY Reservation.Date_Deb;)q"},
    {"RQ_PossibleUsers",
     R"q(PARAMETERS PU_DD Date, PU_DF Date;SELECT Reservation.* FROM Reservation WHERE Reservation.GroupId = 'C' AND Reservation.GroupNb =0AND (Reservation.Date_Deb >= [PU_DD] AND Reservation.Date_Fin <= [PU_DF]) ORDER BY Reservation.Nom;)q"},
    {"RQ_GroupResponsible",
     R"q(PARAMETERS P_GNb INTEGER;SELECT Reservation.* FROM Reservation WHERE Reservation.GroupNb = [P_GNb] AND Reservation.GroupId <> 'C';)q"},
    {"RQ_GroupUsers",
     R"q(PARAMETERS P_GNb INTEGER;SELECT Reservation.* FROM Reservation WHERE Reservation.GroupNb = [P_GNb] AND Reservation.GroupId = 'C';)q"},
    {"RQ_Free",
     R"q(PARAMETERS P_DD Date, P_DF Date;SELECT Reservation.* FROM Reservation WHERE (((Reservation.Date_Deb >= [P_DD]) And (Reservation.Date_Deb <= [P_DF])) Or ((Reservation.Date_Fin >= [P_DD]) And (Reservation.Date_Fin <= [P_DF])) Or ((Reservation.Date_Deb < [P_DD]) And (Reservation.Date_Fin > [P_DF]))) ORDER BY Reservation.Date_Deb;)q"},
    {"RQ_Resource",
     R"q(SELECT Resource.* FROM Resource ORDER BY Resource.Order;)q"},
    {"RQ_Customer",
     R"q(SELECT DISTINCT Reservation.Nom, Reservation.Email, Reservation.Remarque, Reservation.GroupId FROM Reservation WHERE Reservation.GroupId <> 'A' ORDER BY Reservation.Nom;)q"},
    {"RQ_Agent",
     R"q(SELECT DISTINCT Reservation.Nom, Reservation.Email, Reservation.Remarque, Reservation.GroupId FROM Reservation WHERE Reservation.GroupId = 'A' ORDER BY Reservation.Nom;)q"},
    {"RQ_Review_N_All",
     R"q(SELECT Reservation.* FROM Reservation WHERE  Reservation.GroupId = 'C' ORDER BY Reservation.Nom, Reservation.Date_Deb;)q"},
    {"RQ_Review_D_All",
     R"q(SELECT Reservation.* FROM Reservation WHERE  Reservation.GroupId = 'C' ORDER BY Reservation.Date_Deb, Reservation.Nom;)q"},
    {"RQ_Review_N_Past",
     R"q(SELECT Reservation.* FROM Reservation WHERE  Reservation.Date_fin < Date() AND Reservation.GroupId = 'C' ORDER BY Reservation.Nom, Reservation.Date_Deb;)q"},
    {"RQ_Review_D_Past",
     R"q(SELECT Reservation.* FROM Reservation WHERE  Reservation.Date_fin < Date() AND Reservation.GroupId = 'C' ORDER BY Reservation.Date_Deb, Reservation.Nom;)q"},
    {"RQ_Review_N_Present",
     R"q(SELECT Reservation.* FROM Reservation WHERE  Reservation.Date_deb <= Date() AND Reservation.Date_fin >= Date() AND Reservation.GroupId = 'C' ORDER BY Reservation.Nom, Reservation.Date_Deb;)q"},
    {"RQ_Review_D_Present",
     R"q(SELECT Reservation.* FROM Reservation WHERE  Reservation.Date_deb <= Date() AND Reservation.Date_fin >= Date() AND Reservation.GroupId = 'C' ORDER BY Reservation.Date_Deb, Reservation.Nom;)q"},
    {"RQ_Review_N_Futur",
     R"q(SELECT Reservation.* FROM Reservation WHERE  Reservation.Date_deb > Date() AND Reservation.GroupId = 'C' ORDER BY Reservation.Nom, Reservation.Date_Deb;)q"},
    {"RQ_Review_D_Futur",
     R"q(SELECT Reservation.* FROM Reservation WHERE  Reservation.Date_deb > Date() AND Reservation.GroupId = 'C' ORDER BY Reservation.Date_Deb, Reservation.Nom;)q"},
    {"RQ_Result",
     R"q(PARAMETERS R_DD Date, R_DF Date;SELECT Reservation.Resource, Reservation.Date_Deb, Reservation.Date_Fin, Reservation.HowMany FROM Reservation WHERE ((Reservation.Date_Deb >= [R_DD] And Reservation.Date_Deb <= [R_DF] ) Or (Reservation.Date_Fin >= [R_DD] And Reservation.Date_Fin <= [R_DF] ) Or (Reservation.Date_Deb < [R_DD] And Reservation.Date_Fin > [R_DF] ));)q"},
    {"RQ_Alarm",
     R"q(PARAMETERS P_Date Date, P_DA0 Date, P_DA1 Date, P_DA2 Date, P_DA3 Date;SELECT Reservation.* FROM Reservation WHERE ((Reservation.Date_Fin >= [P_Date] and Reservation.Date_Fin <= [P_DA0]) Or (Reservation.Date_Deb >= [P_Date] and  Reservation.Date_Deb <= [P_DA1]) or Reservation.Date_Deb = [P_DA2] or Reservation.Date_Deb = [P_DA3])ORDER BY Reservation.Date_Deb, Reservation.Resource;)q"},
    {"BlackList",
     R"q(SELECT T_BlackList.* FROM T_BlackList ORDER BY T_BlackList.Nom;)q"},
    {"DesignationSort",
     R"q(SELECT Designation.* FROM Designation ORDER BY Designation.Designation;)q"},
    {"ModificationSort",
     R"q(SELECT Modification.* FROM Modification ORDER BY Modification.Modification;)q"},
    {"PaymentSort",
     R"q(SELECT Payment.* FROM Payment ORDER BY Payment.Payment;)q"},
    {"InvoiceGroupSort",
     R"q(SELECT DISTINCT AccountGroup.Group FROM AccountGroup WHERE AccountGroup.Sign = ' ' ORDER BY AccountGroup.Group;)q"},
    {"ResultGroupSort",
     R"q(SELECT DISTINCT AccountGroup.Group FROM AccountGroup WHERE AccountGroup.Sign <> ' ' ORDER BY AccountGroup.Group;)q"},
    {"InvoiceAccountSort",
     R"q(PARAMETERS Grp Text(50);SELECT AccountGroup.Account, AccountGroup.Sign FROM AccountGroup WHERE AccountGroup.Group = [Grp] AND AccountGroup.Sign = ' ' ORDER BY AccountGroup.Account;)q"},
    {"ResultAccountSort",
     R"q(PARAMETERS Grp Text(50);SELECT AccountGroup.Account, AccountGroup.Sign FROM AccountGroup WHERE AccountGroup.Group = [Grp] AND AccountGroup.Sign <> ' ' ORDER BY AccountGroup.Account;)q"},
    {"RQ_Invoice",
     R"q(PARAMETERS InvNb INTEGER;SELECT Invoice.* FROM Invoice WHERE (Invoice.InvoiceNb = [InvNb]);)q"},
    {"RQ_InvoiceAllPending",
     R"q(SELECT Invoice.InvoiceNb, Invoice.Typ, Invoice.From, Invoice.To, Invoice.Lib, Invoice.UPriceIncluded, Invoice.PriceNotIncluded FROM Invoice WHERE Invoice.InvoiceNb < 0 ORDER BY Invoice.InvoiceNb, Invoice.Typ;)q"},
    {"RQ_InvoiceAllDelete",
     R"q(DELETE InvoiceAll.* FROM InvoiceAll;)q"},
    {"RQ_InvoiceAllPtCs",
     R"q(INSERT INTO InvoiceAll ( InvoiceNb, Lib, [From], [To], UPriceIncluded, PriceNotIncluded, AddUp, Fixed ) SELECT Invoice.InvoiceNb, Invoice.Lib, Invoice.From, Invoice.To, Invoice.UPriceIncluded, Invoice.PriceNotIncluded, Invoice.AddUp, Invoice.Fixed FROM Invoice WHERE Invoice.Typ='0' AND Invoice.AddUp='Y' AND Invoice.From IS NOT NULL;)q"},
    {"RQ_InvoiceAllPtCsPd",
     R"q(PARAMETERS DP Date;INSERT INTO InvoiceAll ( InvoiceNb, Lib, [From], [To], UPriceIncluded, PriceNotIncluded, AddUp, Fixed ) SELECT Invoice.InvoiceNb, Invoice.Lib, Invoice.From, Invoice.To, Invoice.UPriceIncluded, Invoice.PriceNotIncluded, Invoice.AddUp, Invoice.Fixed FROM Invoice WHERE Invoice.Typ='0' AND Invoice.AddUp='Y' AND Invoice.From >= [DP];)q"},
    {"RQ_InvoiceAllPtIv",
     R"q(INSERT INTO InvoiceAll ( InvoiceNb, Lib, [From], [To], UPriceIncluded, PriceNotIncluded, AddUp, Resource, Date_Deb, Date_Fin, Split, Remarque, GroupId, GroupNb, Fixed ) SELECT Invoice.InvoiceNb, Invoice.Lib, Invoice.From, Invoice.To, Invoice.UPriceIncluded, Invoice.PriceNotIncluded, Invoice.AddUp, Reservation.Resource, Reservation.Date_Deb, Reservation.Date_Fin, Reservation.Split, Reservation.Remarque, Reservation.GroupId, Reservation.GroupNb, Invoice.Fixed FROM Invoice INNER JOIN Reservation ON Invoice.InvoiceNb = Reservation.InvNb WHERE Invoice.Typ='0' AND Invoice.AddUp='N' AND Invoice.From IS NOT NULL;)q"},
    {"RQ_InvoiceAllPtIvPd",
     R"q(PARAMETERS DP Date;INSERT INTO InvoiceAll ( InvoiceNb, Lib, [From], [To], UPriceIncluded, PriceNotIncluded, AddUp, Resource, Date_Deb, Date_Fin, Split, Remarque, GroupId, GroupNb, Fixed ) SELECT Invoice.InvoiceNb, Invoice.Lib, Invoice.From, Invoice.To, Invoice.UPriceIncluded, Invoice.PriceNotIncluded, Invoice.AddUp, Reservation.Resource, Reservation.Date_Deb, Reservation.Date_Fin, Reservation.Split, Reservation.Remarque, Reservation.GroupId, Reservation.GroupNb, Invoice.Fixed FROM Invoice INNER JOIN Reservation ON Invoice.InvoiceNb = Reservation.InvNb WHERE Invoice.Typ='0' AND Invoice.AddUp='N' AND Invoice.From >= [DP];)q"},
    {"InvoiceAllRm",
     R"q(SELECT InvoiceAll.* FROM InvoiceAll ORDER BY InvoiceAll.Resource;)q"},
    {"InvoiceAllNb",
     R"q(SELECT InvoiceAll.* FROM InvoiceAll ORDER BY InvoiceAll.InvoiceNb;)q"},
    {"InvoiceAllNm",
     R"q(SELECT InvoiceAll.* FROM InvoiceAll ORDER BY InvoiceAll.Lib;)q"},
    {"InvoiceAllDt",
     R"q(SELECT InvoiceAll.* FROM InvoiceAll ORDER BY InvoiceAll.From;)q"},
    {"InvoiceAllTt",
     R"q(SELECT InvoiceAll.* FROM InvoiceAll ORDER BY InvoiceAll.UPriceIncluded DESC;)q"},
    {"RQ_InvoicePdCS",
     R"q(SELECT Invoice.* FROM Invoice WHERE (Invoice.Typ='0' AND Invoice.AddUp='Y' AND Invoice.From IS NULL);)q"},
    {"RQ_InvoicePdCsNb",
     R"q(SELECT RQ_InvoicePdCS.* FROM RQ_InvoicePdCS ORDER BY RQ_InvoicePdCS.InvoiceNb;)q"},
    {"RQ_InvoicePdCsNm",
     R"q(SELECT RQ_InvoicePdCS.* FROM RQ_InvoicePdCS ORDER BY RQ_InvoicePdCS.Lib;)q"},
    {"RQ_InvoicePdCsLv",
     R"q(SELECT RQ_InvoicePdCS.* FROM RQ_InvoicePdCS ORDER BY RQ_InvoicePdCS.To;)q"},
    {"RQ_InvoicePdCsTt",
     R"q(SELECT RQ_InvoicePdCS.* FROM RQ_InvoicePdCS ORDER BY RQ_InvoicePdCS.PriceNotIncluded DESC;)q"},
    {"RQ_InvoicePdIv",
     R"q(SELECT Invoice.*, Reservation.Resource, Reservation.Date_Deb, Reservation.Date_Fin, Reservation.Split, Reservation.Remarque, Reservation.GroupId, Reservation.GroupNb FROM Reservation INNER JOIN Invoice ON Reservation.InvNb = Invoice.InvoiceNb WHERE (Invoice.Typ='0' AND Invoice.AddUp='N' AND Invoice.From IS NULL);)q"},
    {"RQ_InvoicePdIvNb",
     R"q(SELECT RQ_InvoicePdIv.* FROM RQ_InvoicePdIv ORDER BY RQ_InvoicePdIv.InvoiceNb, RQ_InvoicePdIv.Split;)q"},
    {"RQ_InvoicePdIvNm",
     R"q(SELECT RQ_InvoicePdIv.* FROM RQ_InvoicePdIv ORDER BY RQ_InvoicePdIv.Lib, RQ_InvoicePdIv.Split;)q"},
    {"RQ_InvoicePdIvLv",
     R"q(SELECT RQ_InvoicePdIv.* FROM RQ_InvoicePdIv ORDER BY RQ_InvoicePdIv.To, RQ_InvoicePdIv.Split;)q"},
    {"RQ_InvoicePdIvTt",
     R"q(SELECT RQ_InvoicePdIv.* FROM RQ_InvoicePdIv ORDER BY RQ_InvoicePdIv.PriceNotIncluded DESC, RQ_InvoicePdIv.Split;)q"},
    {"RQ_InvoicePdIvRm",
     R"q(SELECT RQ_InvoicePdIv.* FROM RQ_InvoicePdIv ORDER BY RQ_InvoicePdIv.Resource, RQ_InvoicePdIv.Split;)q"},
    {"RQ_InvoicePtCS",
     R"q(PARAMETERS DP Date;SELECT Invoice.* FROM Invoice WHERE Invoice.Typ='0' AND Invoice.AddUp='Y' AND Invoice.From >= [DP];)q"},
    {"RQ_InvoicePtCsNb",
     R"q(SELECT RQ_InvoicePtCS.* FROM RQ_InvoicePtCS ORDER BY RQ_InvoicePtCS.InvoiceNb;)q"},
    {"RQ_InvoicePtCsDt",
     R"q(SELECT RQ_InvoicePtCs.* FROM RQ_InvoicePtCs ORDER BY RQ_InvoicePtCs.From;)q"},
    {"RQ_InvoicePtCsNm",
     R"q(SELECT RQ_InvoicePtCs.* FROM RQ_InvoicePtCs ORDER BY RQ_InvoicePtCs.Lib;)q"},
    {"RQ_InvoicePtCsTt",
     R"q(SELECT RQ_InvoicePtCs.* FROM RQ_InvoicePtCs ORDER BY RQ_InvoicePtCs.UPriceIncluded DESC;)q"},
    {"RQ_InvoicePtIv",
     R"q(PARAMETERS DP Date;SELECT Invoice.*, Reservation.Resource, Reservation.Date_Deb, Reservation.Date_Fin, Reservation.Split, Reservation.Remarque, Reservation.GroupId, Reservation.GroupNb FROM Reservation INNER JOIN Invoice ON Reservation.InvNb = Invoice.InvoiceNb WHERE Invoice.Typ='0' AND Invoice.AddUp='N' AND Invoice.From >= [DP];)q"},
    {"RQ_InvoicePtIvNb",
     R"q(SELECT RQ_InvoicePtIv.* FROM RQ_InvoicePtIv ORDER BY RQ_InvoicePtIv.InvoiceNb;)q"},
    {"RQ_InvoicePtIvRm",
     R"q(SELECT RQ_InvoicePtIv.* FROM RQ_InvoicePtIv ORDER BY RQ_InvoicePtIv.Resource;)q"},
    {"RQ_InvoicePtIvNm",
     R"q(SELECT RQ_InvoicePtIv.* FROM RQ_InvoicePtIv ORDER BY RQ_InvoicePtIv.Lib;)q"},
    {"RQ_InvoicePtIvDt",
     R"q(SELECT RQ_InvoicePtIv.* FROM RQ_InvoicePtIv ORDER BY RQ_InvoicePtIv.From;)q"},
    {"RQ_InvoicePtIvTt",
     R"q(SELECT RQ_InvoicePtIv.* FROM RQ_InvoicePtIv ORDER BY RQ_InvoicePtIv.UPriceIncluded DESC;)q"},
    {"RQ_InvoicePtDt",
     R"q(PARAMETERS DP Date;SELECT Invoice.* FROM Invoice WHERE Invoice.Typ='0' AND Invoice.From >= [DP] ORDER BY Invoice.From;)q"},
    {"RQ_InvoicePtNb",
     R"q(PARAMETERS DP Date;SELECT Invoice.* FROM Invoice WHERE Invoice.Typ='0' AND Invoice.From >= [DP] ORDER BY Invoice.InvoiceNb;)q"},
    {"InvoiceCsToPurge",
     R"q(PARAMETERS DP Date;SELECT Invoice.* FROM Invoice WHERE Invoice.Typ='0' AND Invoice.AddUp='Y' AND Invoice.From < [DP];)q"},
    {"RQ_ReservationInvNb",
     R"q(PARAMETERS InvNb INTEGER;SELECT Reservation.* FROM Reservation WHERE Reservation.InvNb = [InvNb];)q"},
    {"OverStayInvNbNull",
     R"q(SELECT DISTINCT Reservation.* FROM Reservation WHERE Reservation.InvNb Is Null AND Reservation.Date_Fin<Date();)q"},
    {"OverStayFromNull",
     R"q(SELECT DISTINCT Reservation.* FROM Reservation INNER JOIN Invoice ON Reservation.InvNb = Invoice.InvoiceNb WHERE Invoice.Typ='0' AND Invoice.From Is Null AND Reservation.Date_Fin<Date();)q"},
    {"OverStayUnion",
     R"q(SELECT OverStayInvNbNull.* FROM OverStayInvNbNull UNION SELECT OverStayFromNull.* FROM OverStayFromNull ORDER BY Date_Fin DESC;)q"},
    {"RQ_DayColor",
     R"q(PARAMETERS B_Dy Date, E_Dy Date;SELECT DayColor.* FROM DayColor WHERE DayColor.IdDay >= [B_Dy] And DayColor.IdDay <= [E_Dy] ORDER BY DayColor.IdDay;)q"},
    {"RQ_Report",
     R"q(SELECT Report.* FROM Report ORDER BY Report.Group;)q"},
}};

}  // namespace

std::span<const StoredQuery> storedQueries() { return kQueries; }

const StoredQuery* findStoredQuery(const QString& name) {
  for (const StoredQuery& query : kQueries) {
    if (name.compare(QLatin1String(query.name), Qt::CaseInsensitive) == 0) return &query;
  }
  return nullptr;
}

void createStoredQueries(Database& db) {
  const QString table = QLatin1String(kStoredQueryTable);
  db.exec(QStringLiteral("CREATE TABLE IF NOT EXISTS %1 (Name TEXT NOT NULL, Text TEXT NOT NULL) STRICT;").arg(table));
  if (db.scalar(QStringLiteral("SELECT count(*) FROM %1").arg(table)).toLongLong() > 0) return;
  // All or none: a file with half of its queries would fail later, far away.
  JoinedTransaction transaction(db);
  Statement insert = db.prepare(QStringLiteral("INSERT INTO %1 (Name, Text) VALUES (?, ?)").arg(table));
  for (const StoredQuery& query : kQueries) {
    insert.bind(0, QString::fromUtf8(query.name));
    insert.bind(1, QString::fromUtf8(query.text));
    insert.run();
  }
  transaction.commit();
}

}  // namespace ksv
