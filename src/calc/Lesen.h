#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Error.h"
#include "FX_Algen/Store.h"
#include "calc/Spur.h"

/// Reading of the rows of a step as plain rows, and the failure of a Null among them.
namespace FX_Algen::calc {

/// Where a Null stood in the way of the arithmetic.
struct NullStelle {
    std::string Tabelle;
    std::string Feld;
    std::string Anweisung;        ///< statement that delivered the row
    std::string Schluessel = {};  ///< condition that tells the row, where it is none of a finding
    std::optional<std::int32_t> ID_Art;
    std::optional<std::int32_t> ID_TR_MI;
    std::optional<Block> Woher;           ///< block of a finding or a stand
    std::optional<double> Abundanz;       ///< of a finding, in the unit of its block
    std::string Artentabelle = "awaArt";  ///< catalogue of the taxon
    std::optional<std::int32_t> ID_PS;    ///< site and certainty of a finding of the seston
    bool CF = false;
};

/// The failure 94 of a routine, with its place for those who explain it.
class NullImWert : public Error {
public:
    NullImWert(std::string_view routine, const std::string& ursache, NullStelle stelle);
    const std::string& Routine() const noexcept { return routine_; }
    const NullStelle& Stelle() const noexcept { return stelle_; }

private:
    std::string routine_;
    NullStelle stelle_;
};

/// What a routine works on, and under which name it fails.
struct Ort {
    store::Database& Datenbank;
    std::string_view Routine;
    std::int32_t ID_TR = 0;
};

/// Fails with 94; the description names routine, table, field, key, taxon and stand where there is one, and
/// sub-habitat. The names are looked up here, since only a failure needs them.
[[noreturn]] void NullFehler(const Ort& ort, const NullStelle& stelle);

/// The sub-habitat in a message: "sub-habitat 17 (Blöcke)".
std::string TeilraumText(const Ort& ort);

/// The database of a handle; 3343 with the name of the operation where there is none.
store::Database& Vorhanden(const store::DatabasePtr& database, std::string_view operation);

/// Fields of a recordset's current row as numbers; notes the first Null met.
class Feldleser {
public:
    explicit Feldleser(const store::Recordset& zeilen) : zeilen_(zeilen) {}

    std::int32_t Schluessel(std::size_t feld) { return Ist(feld) ? zeilen_[feld].I4() : 0; }
    std::int32_t Ganzzahl(std::size_t feld) { return Schluessel(feld); }
    double Zahl(std::size_t feld) { return Ist(feld) ? zeilen_[feld].R8() : 0; }
    /// 32-bit working values
    float Zahl32(std::size_t feld) { return Ist(feld) ? zeilen_[feld].R4() : 0; }

    bool Vollstaendig() const noexcept { return !luecke_.has_value(); }
    /// Table and field of the first Null.
    NullStelle Luecke() const;

private:
    bool Ist(std::size_t feld) {
        if (!zeilen_[feld].IsNull()) return true;
        if (!luecke_) luecke_ = feld;
        return false;
    }

    const store::Recordset& zeilen_;
    std::optional<std::size_t> luecke_;
};

/// The plain rows of a step, up to the first one that lacks a needed value. The rows before it count, and
/// their boxes are shown, before the calculation fails.
template <class Zeile>
struct Lesung {
    std::vector<Zeile> Zeilen;
    std::optional<NullStelle> Luecke;
};

/// Reads the rows of a statement; `lies` makes a row of the fields that a `Feldleser` gives it.
template <class Zeile, class Lies>
Lesung<Zeile> LiesZeilen(store::Database& database, const std::string& abfrage, Lies lies) {
    Lesung<Zeile> lesung;
    const auto zeilen = database.OpenRecordset(abfrage);
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        Feldleser felder(*zeilen);
        Zeile zeile = lies(felder);
        if (!felder.Vollstaendig()) {
            lesung.Luecke = felder.Luecke();
            lesung.Luecke->Anweisung = abfrage;
            if constexpr (requires { zeile.ID_Art; }) lesung.Luecke->ID_Art = zeile.ID_Art;
            if constexpr (requires { zeile.DG_MA; }) lesung.Luecke->Abundanz = zeile.DG_MA.Prozent;
            if constexpr (requires { zeile.DG_MI; }) lesung.Luecke->Abundanz = zeile.DG_MI.Prozent;
            if constexpr (requires { zeile.Schalen_KA; }) lesung.Luecke->Abundanz = zeile.Schalen_KA.Anzahl;
            break;
        }
        lesung.Zeilen.push_back(std::move(zeile));
    }
    zeilen->Close();
    return lesung;
}

}  // namespace FX_Algen::calc
