#include "entry/Bogen_Show.h"

#include <memory>

#include "controls/Fenster.h"
#include "controls/OpenForms.h"
#include "entry/frmProbenstelle.h"
#include "entry/frmProbenstelleSeston.h"

namespace FX_Algen::entry {

namespace {

/// Readies the one sheet of its kind for another sub-habitat. False where an open one holds what cannot be
/// saved.
bool Frei(controls::Form& bogen) {
    if (!bogen.SaveRows()) return false;
    // A picker that stays would choose for rows that are not shown any more; it has written nothing yet.
    for (const auto& kind : controls::OpenForms().ChildrenOf(bogen)) kind->Close(controls::Ending::Discard);
    return true;
}

/// The sheet goes unseen unless it gets as far as being shown.
template <class Einrichten, class Zeigen>
void Anzeigen(controls::Form& bogen, std::int32_t hauptfenster, Einrichten einrichten, Zeigen zeigen) {
    if (!Frei(bogen)) {
        bogen.Show(hauptfenster);
        return;
    }
    try {
        if (!einrichten()) {
            bogen.Close(controls::Ending::Discard);
            return;
        }
        zeigen();
        bogen.Show(hauptfenster);
    } catch (...) {
        if (!bogen.Visible()) bogen.Close(controls::Ending::Discard);
        throw;
    }
}

/// The settings that both sheets take, in their order.
template <class Bogen>
void Uebergeben(Bogen& bogen, const Bogenauftrag& auftrag) {
    bogen.CurrentWS(auftrag.CurrentWS);
    bogen.CurrentDB(auftrag.CurrentDB);
    bogen.Sprache(auftrag.SprachID);
    bogen.TeilraumID(auftrag.TeilraumID);
    bogen.DBName(auftrag.DBName);
    bogen.DebugModus(auftrag.DebugModus);
    bogen.FX_MainWnd(auftrag.FX_MainWnd);
    bogen.AktBenutzer(auftrag.AktBenutzer);
    bogen.QOVAKatalogID(auftrag.QOVAKatalogID);
}

}  // namespace

void Probenstelle_Show(const Bogenauftrag& auftrag) {
    const auto bogen = controls::OpenForms().Load<frmProbenstelle>();
    Anzeigen(
        *bogen, auftrag.FX_MainWnd,
        [&] {
            Uebergeben(*bogen, auftrag);
            bogen->PSBez(auftrag.PSBez);
            Allgemein::SetControlCaptions(*bogen, auftrag.SprachID);
            bogen->CanEdit(auftrag.CanEdit);
            bogen->AnzeigeVersion40(auftrag.AnzeigeVersion40);
            bogen->EditMode(auftrag.CanEdit);
            return bogen->DataObject_Init();
        },
        // The data may have come with buttons of their own: once more.
        [&] { bogen->EditMode(auftrag.CanEdit); });
}

void ProbenstelleSeston_Show(const Bogenauftrag& auftrag) {
    const auto bogen = controls::OpenForms().Load<frmProbenstelleSeston>();
    Anzeigen(
        *bogen, auftrag.FX_MainWnd,
        [&] {
            Uebergeben(*bogen, auftrag);
            Allgemein::SetControlCaptions(*bogen, auftrag.SprachID);
            return bogen->DataObject_Init();
        },
        [] {});
}

void Probenstelle_Unload() {
    if (const auto bogen = controls::OpenForms().Find<frmProbenstelle>()) bogen->Close();
}

}  // namespace FX_Algen::entry
