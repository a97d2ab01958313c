#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "FX_Algen/Messages.h"
#include "FX_Algen/Store.h"
#include "store/ThreadValues.h"
#include "support/Testdatei.h"

namespace FX_Algen {

/// A project database with the project 3, section 1 "Mündung", and what a test puts below it.
class Grafikdatenbank : public Testdatei {
public:
    Grafikdatenbank() : Testdatei("charts_Prüfung") {
        Ausfuehren("INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (3, 'Bäche');");
        Abschnitt(1, "Mündung", 1);
    }

    void Abschnitt(std::int32_t ab, const std::string& name, std::int32_t rf) {
        Ausfuehren("INSERT INTO Abschnitt (ID_AB, ID_PRJ, ABBez, RF) VALUES (" + Zahl(ab) + ", 3, '" + name +
                   "', " + Zahl(rf) + ");");
    }
    void Station(std::int32_t uus, std::int32_t ab, const std::string& name, std::int32_t rf) {
        Ausfuehren("INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez, RF) VALUES (" + Zahl(uus) + ", " +
                   Zahl(ab) + ", '" + name + "', " + Zahl(rf) + ");");
    }
    /// `tag` as a date constant, such as "#5/12/2026#", or "Null".
    void Besuch(std::int32_t vus, std::int32_t uus, const std::string& tag) {
        Ausfuehren("INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (" + Zahl(vus) + ", " +
                   Zahl(uus) + ", " + tag + ");");
    }
    /// Sub-habitat with covers of 100, and 100 in the assessment.
    void Teilraum(std::int32_t tr, std::int32_t vus, const std::string& name, std::int32_t rf) {
        Ausfuehren("INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (" + Zahl(tr) + ", " + Zahl(vus) +
                   ", '" + name + "', " + Zahl(rf) + ");");
        Ausfuehren("INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_MA, DG_Gesamt_WRRL, DG_MA_WRRL) VALUES (" +
                   Zahl(tr) + ", 100, 100, 100, 100);");
    }
    void Stelle(std::int32_t ps, std::int32_t tr, const std::string& name) {
        Ausfuehren("INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez, PSBez_Anzeige) VALUES (" + Zahl(ps) + ", " +
                   Zahl(tr) + ", '" + name + "', 'Anzeige " + name + "');");
    }
    /// Station, visit of 12 May 2026, sub-habitat and sampling site of this one number.
    void Zweig(std::int32_t nummer, const std::string& station, const std::string& stelle) {
        Station(nummer, 1, station, nummer);
        Besuch(nummer, nummer, "#5/12/2026#");
        Teilraum(nummer, nummer, "Blöcke", 1);
        Stelle(nummer, nummer, stelle);
    }
    /// A result row without a value.
    void Ergebnis(std::int32_t tr, bool KAOnly = false) {
        Ausfuehren("INSERT INTO awaErgProjekt (ID, KAOnly) VALUES (" + Zahl(tr) + ", " +
                   (KAOnly ? "True" : "False") + ");");
    }
    void Setze(const std::string& tabelle, const std::string& werte, const std::string& bedingung) {
        Ausfuehren("UPDATE " + tabelle + " SET " + werte + " WHERE " + bedingung + ";");
    }

    /// Taxon below a major group: 128 are the diatoms.
    void Art(std::int32_t id, const std::string& gattung, const std::string& art, std::int32_t gruppe) {
        if (Leer("SELECT ID_FAM FROM awaFamilie WHERE ID_FAM=" + Zahl(gruppe) + ";")) {
            Ausfuehren("INSERT INTO awaFamilie (ID_FAM, Familie, ID_GRGR) VALUES (" + Zahl(gruppe) +
                       ", 'Familie', " + Zahl(gruppe) + ");");
            Ausfuehren("INSERT INTO awaUnterFam (ID_UFAM, ID_FAM) VALUES (" + Zahl(gruppe) + ", " +
                       Zahl(gruppe) + ");");
        }
        Ausfuehren("INSERT INTO awaArt (ID_ART, Gattung, Art, ID_UFAM) VALUES (" + Zahl(id) + ", '" +
                   gattung + "', '" + art + "', " + Zahl(gruppe) + ");");
    }
    /// Cover of an alga in percent of 100, or valves of a diatom.
    void Fund(std::int32_t ps, std::int32_t art, double DG_MA, std::int32_t Schalen_KA = 0, bool CF = false) {
        Ausfuehren("INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA, Schalen_KA) VALUES (" + Zahl(ps) +
                   ", " + Zahl(art) + ", " + (CF ? "True" : "False") + ", " + store::NumberText(DG_MA) +
                   ", " + Zahl(Schalen_KA) + ");");
    }

    /// Every row of a statement, its fields joined by "|", "-" for Null.
    std::vector<std::string> Zeilen(const std::string& abfrage) {
        std::vector<std::string> alle;
        const auto zeilen = Datenbank()->OpenRecordset(abfrage);
        for (; !zeilen->Eof(); zeilen->MoveNext()) {
            std::string zeile;
            for (std::size_t i = 0; i < zeilen->Fields().size(); ++i) {
                const auto& wert = (*zeilen)[i];
                zeile += (i == 0 ? "" : "|") + (wert.IsNull() ? std::string("-") : wert.Text());
            }
            alle.push_back(zeile);
        }
        return alle;
    }

private:
    static std::string Zahl(std::int32_t zahl) { return store::NumberText(zahl); }
    bool Leer(const std::string& abfrage) { return Handle()->OpenRecordset(abfrage)->Eof(); }
};

/// Notes boxes and the calls of the progress form while it lives.
class Zuschauer {
public:
    Zuschauer() : port_(std::make_shared<Port>()), vorher_(std::exchange(store::Thread().Port, port_)) {}
    ~Zuschauer() { store::Thread().Port = vorher_; }
    Zuschauer(const Zuschauer&) = delete;
    Zuschauer& operator=(const Zuschauer&) = delete;

    /// The calls of the progress form: "show 7 1 2 30.5 4", "draw 2 text", "hide 7".
    const std::vector<std::string>& Balken() const { return port_->Rufe; }
    /// Texts of the boxes since the last call.
    std::vector<std::string> Texte() {
        std::vector<std::string> texte;
        for (const auto& box : port_->TakeShown()) texte.push_back(box.Text);
        return texte;
    }

private:
    class Port : public store::RecordingMessages {
    public:
        void ProgressShow(std::int32_t fenster, float left, float top, float width, float height) override {
            std::string ruf = "show " + store::NumberText(fenster);
            for (const float wert : {left, top, width, height}) ruf += " " + store::NumberText(wert);
            Rufe.push_back(ruf);
        }
        void ProgressDraw(std::int16_t prozent, std::string_view text) override {
            Rufe.push_back("draw " + std::to_string(prozent) + " " + std::string(text));
        }
        void ProgressHide(std::int32_t fenster) override {
            Rufe.push_back("hide " + store::NumberText(fenster));
        }
        std::vector<std::string> Rufe;
    };

    std::shared_ptr<Port> port_;
    std::shared_ptr<store::Messages> vorher_;
};

/// Number of the failure of `aufruf`; 0 where it does not fail.
template <class Aufruf>
std::int32_t Fehlernummer(Aufruf aufruf) {
    try {
        aufruf();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

}  // namespace FX_Algen
