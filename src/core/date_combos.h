#pragma once

#include <QString>

class Clock;
class QComboBox;
class QWidget;

/// Lists by which a screen picks a day or a moment. Their object names are the same on every screen. Once
/// filled they follow the wheel only while they have the focus.

/// The dates that a screen may ask for.
enum class DataDiSchermo {
  Inizio,     ///< `CmbGiorno`, `CmbMese`, `CmbAnno`
  Fine,       ///< `CmbGiornoFine`, `CmbMeseFine`, `CmbAnnoFine`
  Scontrino,  ///< `ComboGiornoScont`, `ComboMeseScont`, `ComboAnnoScont`
};

/// The three lists of a date; null where the screen has none of that name.
struct ComboData {
  QComboBox* giorno = nullptr;
  QComboBox* mese = nullptr;
  QComboBox* anno = nullptr;
};
ComboData combiData(const QWidget& schermo, DataDiSchermo quale);

/// Days 01 to 31, months 01 to 12, years from the first to the last; each list at its first entry. The three
/// lists must be there.
void RiempiComboData(const ComboData& combi, int primoAnno, int ultimoAnno);
/// `CmbOra` 00 to 23, `CmbMin` and `CmbSec` 00 to 59, with "Fine" behind their names for the end, at their
/// first entry; a missing list is passed over.
void RiempiComboOra(const QWidget& schermo, DataDiSchermo quale);

/// Selects a day given as "dd/mm/yyyy": day and month by their position, the year by its place in the list
/// of the end date, `anni`. A part that its list lacks leaves that list as it was.
void SelezionaData(const ComboData& combi, const QComboBox& anni, const QString& data);
/// The same for today.
void SelezionaOggi(const ComboData& combi, const QComboBox& anni, const Clock& orologio);
/// The three selected texts joined, yyyymmdd. That such a day exists is not checked.
QString DataScelta(const ComboData& combi);

/// Turns the six lists of the start and end date on or off; a missing one is passed over.
void AbilitaComboDate(const QWidget& schermo, bool abilitate);
/// The same for the three lists of the receipt's date.
void AbilitaComboScontrino(const QWidget& schermo, bool abilitate);
