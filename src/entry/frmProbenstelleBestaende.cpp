#include <array>

#include "FX_Algen/Error.h"
#include "FX_Algen/Runden.h"
#include "controls/Numbers.h"
#include "entry/frmProbenstelle.h"

/// The list of mixed stands: its columns, the remainder of the covers, and what the list of taxa takes from
/// it.
namespace FX_Algen::entry {

namespace {

constexpr std::int16_t Titel = 2020;
constexpr std::int16_t SummeStimmtNicht = 2089;
/// Covers are 32-bit floats with some 7 digits: what is left of their sum beyond these places is noise.
constexpr std::int16_t StellenDesRestes = 6;

struct Spalte {
    int Nummer;
    std::int16_t Kopf;
    int Breite;
};

}  // namespace

void frmProbenstelle::Bestaende_Verdrahten() {
    vsfgAlgenTL_MI.OnAfterEdit = [this](int, int) { Rest_Pruefen(); };
    datTeilraum_MI.OnWritten = [this] {
        bestaendeUmgereiht_ = bestaendeUmgereiht_ || Bestandsreihung() != bestandsreihung_;
    };
    // While a row is being left the list must not change its order: the cursor is on its way to another one.
    vsfgAlgenTL_MI.OnRowColChange = [this] { Bestaende_NeuReihen(); };
    vsfgAlgenTL_MI.OnLeave = [this] {
        Bestaende_NeuReihen();
        return controls::Leaving::Go;
    };
}

void frmProbenstelle::GridAlgenTL_MI_Init() {
    constexpr std::array<Spalte, 5> sichtbare{{{SpalteMI_Bez, 2026, 2600},
                                               {SpalteDG_MI_WRRL, 2053, 1100},
                                               {SpalteDG_MI, 2034, 900},
                                               {SpalteSD_MI, 2035, 900},
                                               {SpalteRF_MI, 2036, 600}}};
    const controls::Grid::Filling fuellung(vsfgAlgenTL_MI);
    vsfgAlgenTL_MI.ColWidth(0, 200);
    for (const int schluessel : {SpalteID_TR_MI, SpalteID_TR}) vsfgAlgenTL_MI.ColWidth(schluessel, 0);
    for (const auto& spalte : sichtbare) {
        vsfgAlgenTL_MI.ColWidth(spalte.Nummer, spalte.Breite);
        vsfgAlgenTL_MI.Text(0, spalte.Nummer, Text(spalte.Kopf));
        if (spalte.Nummer != SpalteMI_Bez) vsfgAlgenTL_MI.ColKind(spalte.Nummer, controls::CellKind::Number);
    }
    // The cursor stood in the hidden keys while the list had no widths yet.
    if (vsfgAlgenTL_MI.Row() >= 0 && vsfgAlgenTL_MI.ColHidden(vsfgAlgenTL_MI.Col()))
        vsfgAlgenTL_MI.Select(vsfgAlgenTL_MI.Row(), SpalteMI_Bez);
}

// ---- order and names -----------------------------------------------------------------------------------

/// What the order of the stands and the heads of the list of taxa depend on.
std::string frmProbenstelle::Bestandsreihung() const {
    std::string reihung;
    for (int row = vsfgAlgenTL_MI.FixedRows(); row < vsfgAlgenTL_MI.Rows(); ++row)
        for (const int col : {SpalteID_TR_MI, SpalteRF_MI, SpalteMI_Bez})
            reihung.append(vsfgAlgenTL_MI.Text(row, col)).push_back('\n');
    return reihung;
}

/// Reads the stands anew where a name or a position changed, each cursor staying with its row.
void frmProbenstelle::Bestaende_NeuReihen() {
    // A row that the store refused keeps both lists as they are.
    if (!bestaendeUmgereiht_ || datTeilraum_MI.Changed() || Zeile_Geaendert(vsfgAlgenArt.Row())) return;
    bestaendeUmgereiht_ = false;
    const bool steht = vsfgAlgenTL_MI.Row() >= vsfgAlgenTL_MI.FixedRows();
    const auto bestand = steht ? vsfgAlgenTL_MI.Text(vsfgAlgenTL_MI.Row(), SpalteID_TR_MI) : std::string();
    const int spalte = vsfgAlgenTL_MI.Col();
    try {
        datTeilraum_MI.Refresh();
    } catch (const Error& error) {
        Failure(error);
        return;
    }
    for (int row = vsfgAlgenTL_MI.FixedRows(); steht && row < vsfgAlgenTL_MI.Rows(); ++row)
        if (vsfgAlgenTL_MI.Text(row, SpalteID_TR_MI) == bestand) vsfgAlgenTL_MI.Select(row, spalte);
    GridAlgenArt_NeuMitCursor();
}

// ---- what is left of the cover -------------------------------------------------------------------------

double frmProbenstelle::Rest(const Deckungssatz& satz) const {
    double rest = controls::ReadNumber(satz.DG_Gesamt.Text()).value_or(0) -
                  controls::ReadNumber(satz.DG_Makro.Text()).value_or(0);
    for (int row = vsfgAlgenTL_MI.FixedRows(); row < vsfgAlgenTL_MI.Rows(); ++row)
        rest -= vsfgAlgenTL_MI.Number(row, satz.SpalteDG_MI).value_or(0);
    return Allgemein::Runden(rest, StellenDesRestes);
}

void frmProbenstelle::Rest_Pruefen() {
    for (const auto& satz : {Klassisch(), NachWRRL()})
        if (Rest(satz) != 0)
            Box(Text(Titel), Text(SummeStimmtNicht), store::Buttons::Ok, store::Symbol::Exclamation);
}

}  // namespace FX_Algen::entry
