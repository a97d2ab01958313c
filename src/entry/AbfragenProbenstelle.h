#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Statement texts of the algae sheet, composed from fixed pieces, decimal identifiers and numbers.
namespace FX_Algen::entry::probenstelle {

/// A text as a constant of a statement, its apostrophes doubled.
std::string Textkonstante(std::string_view text);

// ---- opening
/// The sub-habitat with its sampling sites; no row where either is missing.
std::string TeilraumMitStelle(std::int32_t ID_TR);
/// The row of the sub-habitat, and its sampling sites, each by itself.
std::string Teilraum(std::int32_t ID_TR);
std::string Stellen(std::int32_t ID_TR);
std::string TeilraumAnlegen(std::int32_t ID_TR);
/// A sampling site; an empty name becomes "<NEU>".
std::string StelleAnlegen(std::int32_t ID_TR, std::string_view PSBez);

// ---- mixed stands
/// The columns that the list of mixed stands shows, in its order.
std::string Bestaende(std::int32_t ID_TR);
/// All columns of the mixed stands, in the same order.
std::string BestaendeDerTaxaliste(std::int32_t ID_TR);
/// A stand "<NEU>" with its covers.
std::string BestandAnlegen(std::int32_t ID_TR, double DG_MI, double DG_MI_WRRL);
/// Takes a stand away; its shares go with it.
std::string BestandLoeschen(std::int32_t ID_TR_MI);

// ---- taxa
/// What the list of taxa shows of each finding of a sampling site. A taxon without ratings or without place
/// in the taxonomy is among them.
std::string Taxa(std::int32_t ID_PS);
/// All findings of a sampling site, and those of one taxon.
std::string FundeDerStelle(std::int32_t ID_PS);
std::string FundeDesTaxons(std::int32_t ID_PS, std::int32_t ID_Art);
/// The shares in the mixed stands of a sub-habitat, by stand, taxon, `CF` before plain.
std::string Anteile(std::int32_t ID_TR);
std::string Algenart(std::int32_t ID_Art);
/// A taxon that has shares but was not listed.
std::string TaxonNachtragen(std::int32_t ID_PS, std::int32_t ID_Art, bool CF, bool MAalsMI);

/// What a row of the list of taxa holds.
struct Fundzeile {
    bool CF = false;
    double DG_MA = 0;
    double SD_MA = 0;
    double Schalen_KA = 0;
    double DG_MP = 0;
    bool MAalsMI = false;
};
/// Writes a row of the list; `altesCF` is that of the stored row.
std::string TaxonSchreiben(std::int32_t ID_PS, std::int32_t ID_Art, bool altesCF, const Fundzeile& zeile);
std::string AnteilLoeschen(std::int32_t ID_TR_MI, std::int32_t ID_Art, bool CF);
std::string AnteilSchreiben(std::int32_t ID_TR_MI, std::int32_t ID_Art, bool CF, double DG_MI);

/// Takes all shares of a taxon in the stands of a sub-habitat away, then the taxon itself.
std::string AnteileDesTaxonsLoeschen(std::int32_t ID_TR, std::int32_t ID_Art, bool CF);
std::string TaxonLoeschen(std::int32_t ID_PS, std::int32_t ID_Art, bool CF);

}  // namespace FX_Algen::entry::probenstelle
