#pragma once

#include "wrrl/Bewertungsfixture.h"

namespace FX_Algen {

/// Sub-habitat 17 with a frequency list put in by hand:
///
///   taxon  group  level    diatom  percent
///     1     130   species            60      reference species of type A
///     2     130   species            20      of type B in bioregion 4
///     3     130   species            10
///     4     129   species             5
///     5     130   genus               5
///     6     128   species   yes      70
///     7     128   species   yes      20      of type B in bioregion 3
///     8     128   genus     yes      10
///
/// All algae 200, at species level 185 in 6 taxa, 95 in 4 taxa of them no diatoms; the diatoms 100, at
/// species level 90 in 2 taxa. Valves: 140 of taxon 6, 40 of 7, 20 of 8, and 50 of taxon 9, whose life form
/// is not assessed and which is not in the list.
class Modulprobe : public Bewertungsfixture {
protected:
    static constexpr const char* NurBioregion3 = "awaRefArt_TypB.ID_AL_Bioregion=3";

    Modulprobe() {
        Listenspalte();
        Taxon grossalge;
        Taxon gattung;
        gattung.IstArtniveau = false;
        Taxon gruppe129;
        gruppe129.ID_GRGR = 129;
        Taxon kieselalge;
        kieselalge.ID_GRGR = 128;
        Taxon kieselgattung = kieselalge;
        kieselgattung.IstArtniveau = false;
        Taxon andereLebensform = kieselalge;
        andereLebensform.Lebensform = 2;
        for (const std::int32_t art : {1, 2, 3}) db.Art(art, grossalge);
        db.Art(4, gruppe129);
        db.Art(5, gattung);
        for (const std::int32_t art : {6, 7}) db.Art(art, kieselalge);
        db.Art(8, kieselgattung);
        db.Art(9, andereLebensform);
        Eintrag(1, 60);
        Eintrag(2, 20);
        Eintrag(3, 10);
        Eintrag(4, 5);
        Eintrag(5, 5);
        Eintrag(6, 70, true);
        Eintrag(7, 20, true);
        Eintrag(8, 10, true);
        db.RefArtTypA(1);
        db.RefArtTypB(2, 4, 1);
        db.RefArtTypB(7, 3, 1);
        db.RefArtTypB(7, 3, 2);
        db.Stelle(1, TR);
        db.Fund(1, 6, {0, 140});
        db.Fund(1, 7, {0, 40});
        db.Fund(1, 8, {0, 20});
        db.Fund(1, 9, {0, 50});
    }

    void Anteil(std::int32_t art, double abundanz) {
        db.Ausfuehren("UPDATE awaArtenlisteHaeufigkeit SET A17=" + store::NumberText(abundanz) +
                      " WHERE ID_Art=" + store::NumberText(art) + ";");
    }
};

}  // namespace FX_Algen
