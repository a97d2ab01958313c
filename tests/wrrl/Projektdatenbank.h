#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "FX_Algen/Messages.h"
#include "FX_Algen/Store.h"
#include "FX_Algen/Value.h"
#include "support/Testdatei.h"

namespace FX_Algen {

/// Place of a survey station.
struct Standort {
    std::optional<std::int32_t> ID_AL_Bioregion;
    std::optional<std::int32_t> ID_AL_Hoehenstufe;
    std::string RefBioregionen;
};

/// Covers of a sub-habitat in percent; those of the assessment are entered separately.
struct Deckungen {
    double DG_Gesamt = 0;
    double DG_MA = 0;
    double DG_Gesamt_WRRL = 0;
    double DG_MA_WRRL = 0;
};

/// A taxon with its place in the taxonomy and its ratings.
struct Taxon {
    std::int32_t ID_GRGR = 130;  ///< major group; it need not have a row in `awaGrossGr`
    bool IstArtniveau = true;
    std::int32_t Lebensform = 1;
    double SI = 0;
    double Sap_GBer = 0;
    double Trophiewert = 0;
    double Trophiegewicht = 0;
    double Trophiewert_N = 0;
    double Trophiegewicht_N = 0;
    std::string Algenart = "benthisch";
};

/// What was noted for a taxon at a sampling site.
struct Fundwerte {
    double DG_MA = 0;
    std::int32_t Schalen_KA = 0;
    bool CF = false;
    bool MAalsMI = false;
    double SD_MA = 0;
};

/// A new project database in a temporary file, filled row by row. It has the rows that every new database
/// has: the major groups 120 to 137, of which 128 are the diatoms, 132 the mosses.
class Projektdatenbank : public Testdatei {
public:
    using Felder = std::initializer_list<std::pair<std::string_view, store::Value>>;

    Projektdatenbank() : Testdatei("wrrl_Prüfung") {}

    // ---- any table --------------------------------------------------------------------------------------
    /// Inserts a row.
    void Zeile(std::string_view tabelle, Felder felder);
    /// Sets a field of the first row that meets the condition; without a value: to Null.
    void Setze(const std::string& tabelle, const std::string& feld, const std::string& bedingung,
               const store::Value& wert = {});
    /// First field of the first row; fails the test where there is no row.
    store::Value Eins(const std::string& abfrage);
    /// Every row of a table or statement: "Feld=Wert;" for each field, in order.
    std::vector<std::string> Abzug(const std::string& quelle);

    // ---- project tree -----------------------------------------------------------------------------------
    void Projekt(std::int32_t prj);
    void Abschnitt(std::int32_t ab, std::int32_t prj);
    void Station(std::int32_t uus, std::int32_t ab, const Standort& ort = {});
    void Besuch(std::int32_t vus, std::int32_t uus);
    /// Project, section, station and visit of this one number.
    void Zweig(std::int32_t nummer, const Standort& ort = {});
    /// Sub-habitat with its covers, marked for display.
    void Teilraum(std::int32_t tr, std::int32_t vus, const Deckungen& deckungen);
    /// Sub-habitat that was not sampled for algae.
    void TeilraumOhneDeckung(std::int32_t tr, std::int32_t vus);
    /// Marks a sub-habitat for display, or takes the mark away.
    void Anzeige(std::int32_t tr, bool anzeige);

    // ---- catalogue --------------------------------------------------------------------------------------
    /// Major group, in place of the one that a new database has under this number.
    void Grossgruppe(std::int32_t id, const store::Value& RF_Kieselalge);
    /// Taxon "Gattung<id> grün<id>" in the family and subfamily of its major group (both of that number).
    void Art(std::int32_t id, const Taxon& taxon = {});
    /// Taxon without a row of ratings.
    void ArtOhneWerte(std::int32_t id, const Taxon& taxon = {});

    // ---- samples ----------------------------------------------------------------------------------------
    void Stelle(std::int32_t ps, std::int32_t tr);
    void Fund(std::int32_t ps, std::int32_t art, const Fundwerte& werte);
    /// Mixed stand; covers in percent of the sub-habitat.
    void Bestand(std::int32_t mi, std::int32_t tr, double deckung, double deckung_WRRL);
    /// Taxon of a stand; its share in percent of the stand.
    void Bestandsart(std::int32_t mi, std::int32_t art, double anteil, bool cf = false);

    // ---- stored selections ------------------------------------------------------------------------------
    /// Selection of the given level ("Projekt", "Abschnitt", "UnvU-Stelle", "VerU-Stelle", "Teilraum").
    void Auswahl(std::int32_t id, const std::string& ebene, const store::Value& RechManSQL,
                 const std::vector<std::int32_t>& mitglieder);

    // ---- reference tables -------------------------------------------------------------------------------
    void Bioregion(std::int32_t id, const std::string& kurzzeichen);
    void Hoehenstufe(std::int32_t id, std::int16_t stufe);
    void TGZK(std::int32_t bioregion, std::int16_t stufe, const std::string& klasse);
    void SGZK(std::int32_t bioregion, std::int16_t stufe, std::int16_t klasse);
    void Bioregionstyp(std::int32_t bioregion, std::int16_t stufe, const std::string& typ);
    /// Expected values by group ("Alle", "KA") and reference class or bioregion type.
    void ETI(const std::string& gruppe, const std::string& tgzk, double wert);
    void ESI(const std::string& gruppe, std::int16_t klasse, double wert);
    void ERI(const std::string& gruppe, const std::string& typ, double wert);
    /// Class bounds, both inclusive.
    void TIOEZK(const std::string& gruppe, const std::string& tgzk, double von, double bis,
                std::int16_t oezk);
    void SIOEZK(const std::string& gruppe, std::int16_t klasse, double von, double bis, std::int16_t oezk);
    void RIOEZK(const std::string& gruppe, const std::string& typ, double von, double bis, std::int16_t oezk);
    /// Name of a class, in place of the one that a new database may have.
    void Klasse(std::int16_t zahl, const std::string& name);
    void RefArtTypA(std::int32_t art);
    void RefArtTypB(std::int32_t art, std::int32_t bioregion, std::optional<std::int32_t> hoehenstufe);

private:
    void Familie(std::int32_t gruppe);
};

/// Stands in for a person while it lives: records boxes and the calls of the progress form.
class Gegenueber {
public:
    Gegenueber();
    ~Gegenueber();
    Gegenueber(const Gegenueber&) = delete;
    Gegenueber& operator=(const Gegenueber&) = delete;

    /// Texts of the boxes since the last call; every title must be the module's name.
    std::vector<std::string> Texte();
    /// The calls of the progress form since the last call: "show 7 1 2 30 4", "draw 50", "hide 7".
    std::vector<std::string> Balken();

private:
    class Port;
    std::shared_ptr<Port> port_;
    std::shared_ptr<store::Messages> vorher_;
};

}  // namespace FX_Algen
